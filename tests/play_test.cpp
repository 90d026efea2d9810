#include <algorithm>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/golden_game.h"
#include "tests/support/player.h"
#include "tests/support/position.h"

namespace solvanta::test {
namespace {

/// Mostly moves and double clicks, allowed or not, sometimes any place at all.
void play_anything(Player& player, const RandomSource& random) {
    const auto below = [&](int limit) { return static_cast<int>(random() * limit); };
    const Form_Main& table = player.table;
    const int choice = below(40);
    if (choice == 0) return player.click(below(table.ClientWidth), below(table.ClientHeight));
    const int column = 1 + below(columns);
    const std::string c = "c" + std::to_string(column);
    const int up = std::max(table.state.FaceUpCount(column), 1);
    const std::string row = "." + std::to_string(1 + below(up));
    player.play(choice == 1    ? "tick"
                : choice <= 3  ? "stock"
                : choice <= 5  ? "waste!"
                : choice <= 9  ? "waste " + c
                : choice <= 13 ? c + "!"
                : choice <= 15 ? c + row + "!"
                               : c + row);
}

/// Each event is followed by the checks of the player: the record's invariants, and every element
/// held against the record.
TEST(RandomPlay, KeepsRecordAndTableInOrder) {
    constexpr unsigned games = 300;
    unsigned foundation_cards = 0;
    unsigned third_passes = 0;
    for (unsigned game = 0; game < games; ++game) {
        Player player(game);
        player.deal();
        const RandomSource random = random_from_seed(1000 + game);
        for (int event = 0; event < 1000 && !HasFailure(); ++event)
            play_anything(player, random);
        ASSERT_FALSE(HasFailure()) << "game " << game << ", " << player.position();
        foundation_cards += 104U - unsigned(cards_outside_foundations(player.table.state));
        third_passes += player.table.state.DrawSize == 1 ? 1 : 0;
    }
    // The play must have reached what it is meant to exercise.
    EXPECT_GT(foundation_cards, 4 * games);
    EXPECT_GT(third_passes, games / 2);
}

TEST(GoldenGame, IsDealtAndWonAsEver) {
    const GoldenGame game;
    Player player(game.seed);
    player.deal();
    player.play(game.words);
    EXPECT_EQ(player.position(), "D 2; S; W; F 13 13 13 13 13 13 13 13");
    EXPECT_TRUE(player.table.state.NameEntryOpen);
}

TEST(Deal, StartsTheClockAndForgetsTheGameBefore) {
    Player player;
    const std::string& clock = player.table.Zeitanzeige.Caption;
    player.host.answers = {Answer::No};
    player.deal();
    player.play("tick");
    EXPECT_FALSE(game_dealt(player.table.state));
    EXPECT_EQ(clock, "");

    player.deal();
    const std::string first = player.position();
    for (int i = 0; i < 75; ++i)
        player.play("tick");
    EXPECT_EQ(clock, "1:15");
    player.host.answers = {Answer::No};
    player.host.during_message = [&] { player.play("tick"); };
    player.deal();
    EXPECT_EQ(player.position(), first);
    EXPECT_EQ(clock, "1:16");

    // Whatever a game leaves behind, the next is dealt like the second one of a fresh program.
    player.set_up("D 1; F 1 2 0 0 0 1; W H9 XK; 1 X2 | P4?; 2 K2 | K9; sel 2");
    player.table.state.ClockRunning = false;
    player.deal();
    Player fresh(2);
    fresh.deal();
    EXPECT_EQ(player.position(), fresh.position());
    EXPECT_NE(player.position(), first);
    EXPECT_EQ(clock, "0:00");
    player.play("tick");
    EXPECT_EQ(clock, "0:01");
    EXPECT_EQ(player.table.state.GamesPlayed, 2);
    EXPECT_EQ(player.table.state.PlayedSinceStart, 2);
    EXPECT_EQ(player.host.messages,
              std::vector(4, NullHost::Message("Neues Spiel?", Buttons::YesNo)));
}

}  // namespace
}  // namespace solvanta::test
