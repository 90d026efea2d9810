#include "core/deal.h"

#include <vector>

#include <gtest/gtest.h>

#include "app/random.h"
#include "tests/support/player.h"
#include "tests/support/position.h"

namespace solvanta::test {
namespace {

/// Random values that make the shuffle put 1, 2, ... 104 into the slots in this order, each
/// drawn twice so that the second one must be refused.
RandomSource ascending() {
    return [next = 0]() mutable {
        const double slot = next++ / 2;
        return (slot + 0.5) / 104;
    };
}

TEST(Deal, TakesTheShuffledCardsInTheirOrder) {
    GameState state;
    deal(state, ascending());
    EXPECT_EQ(print_position(state),
              "D 3; S H4 H5 H6 H7 H8 H9 H10 HB HD HK "
              "P1 P2 P3 P4 P5 P6 P7 P8 P9 P10 PB PD PK "
              "K1 K2 K3 K4 K5 K6 K7 K8 K9 K10 KB KD KK "
              "X1 X2 X3 X4 X5 X6 X7 X8 X9 X10 XB XD XK; W; F 0 0 0 0 0 0 0 0; "
              "1 H2 HD P8 K3 K10 X3 X8 XD H2 | H3; 2 H3 HK P9 K4 KB X4 X9 XK | H1; "
              "3 H4 P1 P10 K5 KD X5 X10 | XB; 4 H5 P2 PB K6 KK X6 | X7; 5 H6 P3 PD K7 X1 | X2; "
              "6 H7 P4 PK K8 | K9; 7 H8 P5 K1 | K2; 8 H9 P6 | P7; 9 H10 | HB; 10 H1");
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
