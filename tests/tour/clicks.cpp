#include <iostream>

#include "tests/support/golden_game.h"
#include "tests/support/player.h"

/// Prints the golden game as what a hand does with a mouse on the real window: a line for each
/// click or double click, with its place in pixels from the corner of the table.
int main() {
    using namespace solvanta;
    const test::GoldenGame game;
    test::Player player(game.seed);
    player.deal();
    player.on_click = [](Twips x, Twips y, bool twice) {
        std::cout << (twice ? "double " : "click ") << x / twips_per_pixel << ' '
                  << y / twips_per_pixel << '\n';
    };
    player.play(game.words);
    return player.table.state.GameWon ? 0 : 1;
}
