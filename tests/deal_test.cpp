#include <gtest/gtest.h>

#include "tests/support/golden_game.h"
#include "tests/support/player.h"

namespace solvanta::test {
namespace {

TEST(GoldenGame, IsDealtAndWonAsEver) {
    const GoldenGame game = read_golden_game();
    Player player(game.seed());
    player.deal();
    EXPECT_EQ(player.position(),
              "D 3; S XB X2 H9 PK X7 P6 X4 K7 X1 H3 HD K3 P5 P10 X6 KK K9 H9 H10 PB K4 P6 K6 HK "
              "H7 P3 H5 X2 P1 X10 H1 KB K8 X4 K5 X10 K8 P8 P4 X9 H2 XK H8 X5 H8 PK P2 K10 KD; W; "
              "F 0 0 0 0 0 0 0 0; 1 PB X8 X5 P9 X7 K6 P5 P3 KK | P7; 2 X6 K3 H5 H7 X1 P9 XB K1 | "
              "XK; 3 HB P10 K2 H4 PD P2 H6 | KD; 4 HD H10 K1 HK XD X8 | KB; 5 P8 HB P7 XD K2 | "
              "X9; 6 K10 H6 P1 X3 | H2; 7 K7 K9 K5 | P4; 8 X3 K4 | PD; 9 H3 | H1; 10 H4");
    player.play(game.words);
    EXPECT_EQ(player.position(), "D 2; S; W; F 13 13 13 13 13 13 13 13");
    EXPECT_TRUE(player.table.state.NameEntryOpen);
}

TEST(Deal, EveryDealIsNewAndForgetsTheGameBefore) {
    Player player;
    player.host.answers = {Answer::No};
    player.deal();
    EXPECT_FALSE(game_dealt(player.table.state));
    EXPECT_TRUE(player.table.Zeitanzeige.Caption.empty());

    player.deal();
    const std::string first = player.position();
    player.play("c3! stock stock waste tick tick");
    const std::string played = player.position();
    player.host.answers = {Answer::No};
    player.deal();
    EXPECT_EQ(player.position(), played);
    EXPECT_EQ(player.table.Zeitanzeige.Caption, "0:02");

    // Whatever a game leaves behind, the next is dealt like the second one of a fresh program.
    player.set_up("D 1; F 1 2 0 0 0 1; W H9 XK; 1 X2 | P4?; 2 K2 | K9; sel 2");
    player.deal();
    Player fresh(2);
    fresh.deal();
    EXPECT_EQ(player.position(), fresh.position());
    EXPECT_NE(player.position(), first);
    EXPECT_EQ(player.table.Zeitanzeige.Caption, "0:00");
    EXPECT_EQ(player.table.state.GamesPlayed, 2);
    EXPECT_EQ(player.table.state.PlayedSinceStart, 2);
    EXPECT_EQ(player.host.messages,
              std::vector(4, NullHost::Message("Neues Spiel?", Buttons::YesNo)));
}

}  // namespace
}  // namespace solvanta::test
