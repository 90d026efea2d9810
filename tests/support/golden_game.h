#pragma once

#include <cstdint>
#include <sstream>
#include <string>

namespace solvanta::test {

/// A whole game from deal to win, kept in tests/tour/golden_game.txt: the moment of the deal in
/// seconds since 1970, then the words a Player plays.
struct GoldenGame {
    GoldenGame() {
        std::istringstream text(GOLDEN_GAME);
        text >> seed;
        seed *= 1'000'000'000U;
        std::getline(text, words, '\0');
    }

    std::uint64_t seed = 0;  ///< that a deal at that very moment takes from the clock
    std::string words;
};

}  // namespace solvanta::test
