#include "tests/support/golden_game.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace solvanta::test {

GoldenGame read_golden_game() {
    std::ifstream file(GOLDEN_GAME_FILE);
    GoldenGame game;
    if (!(file >> game.dealt_at)) throw std::runtime_error("no golden game: " GOLDEN_GAME_FILE);
    game.words.assign(std::istreambuf_iterator<char>(file), {});
    return game;
}

}  // namespace solvanta::test
