#pragma once

#include <cstdint>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace solvanta::test {

/// A whole game from deal to win, kept in tests/tour/golden_game.txt: the moment of the deal in
/// seconds since 1970, then the words a Player plays.
struct GoldenGame {
    std::int64_t dealt_at = 0;
    std::string words;

    /// The seed that a deal at that very moment takes from the clock.
    std::uint64_t seed() const { return static_cast<std::uint64_t>(dealt_at) * 1'000'000'000U; }
};

/// Reads the golden game; throws std::runtime_error when its file is missing or damaged.
inline GoldenGame read_golden_game() {
    std::ifstream file(GOLDEN_GAME_FILE);
    GoldenGame game;
    if (!(file >> game.dealt_at)) throw std::runtime_error("no golden game: " GOLDEN_GAME_FILE);
    game.words.assign(std::istreambuf_iterator<char>(file), {});
    return game;
}

}  // namespace solvanta::test
