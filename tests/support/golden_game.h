#pragma once

#include <cstdint>
#include <fstream>
#include <stdexcept>
#include <string>

namespace solvanta::test {

/// A whole game from deal to win, kept in tests/tour/golden_game.txt: the moment of the deal in
/// seconds since 1970, then the words a Player plays. Throws when the file is missing or damaged.
struct GoldenGame {
    GoldenGame() {
        std::ifstream file(GOLDEN_GAME_FILE);
        if (!(file >> seed)) throw std::runtime_error("no golden game: " GOLDEN_GAME_FILE);
        seed *= 1'000'000'000U;
        std::getline(file, words, '\0');
    }

    std::uint64_t seed = 0;  ///< that a deal at that very moment takes from the clock
    std::string words;
};

}  // namespace solvanta::test
