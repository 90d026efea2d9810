#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "core/moves.h"
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

}  // namespace
}  // namespace solvanta::test
