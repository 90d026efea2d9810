#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "core/moves.h"
#include "tests/support/golden_game.h"
#include "tests/support/player.h"
#include "tests/support/position.h"

namespace solvanta::test {
namespace {

constexpr int games = 300;
constexpr int events_per_game = 400;

/// The moves between columns and from the waste that the rules allow, as words for the player.
/// A lone king is not sent from one empty place to another.
std::vector<std::string> moves(const GameState& state) {
    std::vector<std::string> found;
    for (int from = 0; from <= columns; ++from) {
        const int run = from == 0 ? state.WasteCount : state.FaceUpCount(from);
        if (run == 0) continue;
        const CardNumber card = from == 0 ? state.Waste(run) : state.FaceUp(from)(run);
        const bool goes_down = from == 0 || state.FaceDownCount(from) > 0;
        for (int to = 1; to <= columns; ++to) {
            const bool fits = state.FaceUpCount(to) > 0 ? may_lie_on(card, state.FaceUp(to)(1))
                                                        : rank(card) == king && goes_down;
            const std::string source = from == 0 ? "waste" : "c" + std::to_string(from);
            if (fits) found.push_back(source + " c" + std::to_string(to));
        }
    }
    return found;
}

class RandomPlayer {
  public:
    explicit RandomPlayer(std::uint64_t seed) : random_(random_from_seed(seed)) {}

    /// Mostly moves that the rules allow and double clicks, sometimes any place at all.
    void play(Player& player) {
        const int choice = below(20);
        if (choice == 0) return player.play("tick");
        if (choice == 1) {
            return player.click(below(player.table.ClientWidth), below(player.table.ClientHeight));
        }
        if (choice <= 4) return player.play("stock");
        if (choice <= 6) return player.play(choice == 5 ? "waste!" : "waste");
        const auto allowed = moves(player.table.state);
        if (choice <= 11 && !allowed.empty()) {
            return player.play(allowed[std::size_t(below(static_cast<int>(allowed.size())))]);
        }
        const int c = 1 + below(columns);
        const int up = player.table.state.FaceUpCount(c);
        const std::string row = up > 1 && choice == 12 ? "." + std::to_string(1 + below(up)) : "";
        player.play("c" + std::to_string(c) + row + (choice >= 14 ? "!" : ""));
    }

  private:
    int below(int limit) { return static_cast<int>(random_() * limit); }

    RandomSource random_;
};

/// Each event is followed by the checks of the player: the record's invariants, and every element
/// held against the record.
TEST(RandomPlay, KeepsRecordAndTableInOrder) {
    int foundation_cards = 0;
    int third_passes = 0;
    for (int game = 0; game < games; ++game) {
        SCOPED_TRACE("game " + std::to_string(game));
        Player player(static_cast<std::uint64_t>(game));
        player.deal();
        RandomPlayer random(static_cast<std::uint64_t>(1000 + game));
        for (int event = 0; event < events_per_game && !HasFailure(); ++event)
            random.play(player);
        ASSERT_FALSE(HasFailure()) << player.position();
        foundation_cards += cards_in_game - cards_outside_foundations(player.table.state);
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
    player.play("c3! stock stock waste");
    for (int i = 0; i < 75; ++i)
        player.play("tick");
    EXPECT_EQ(clock, "1:15");
    const std::string played = player.position();
    player.host.answers = {Answer::No};
    player.host.during_message = [&] { player.play("tick"); };
    player.deal();
    EXPECT_EQ(player.position(), played);
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
