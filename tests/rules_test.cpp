#include <algorithm>
#include <cstdlib>
#include <functional>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "core/moves.h"
#include "tests/support/player.h"
#include "tests/support/position.h"

namespace solvanta::test {
namespace {

TEST(Rules, PlacementFollowsTheCardNumbers) {
    for (CardNumber s = 1; s <= 52; ++s) {
        for (CardNumber t = 1; t <= 52; ++t) {
            const int step = std::abs(t - 1 - s);
            EXPECT_EQ(may_lie_on(s, t), s % 13 != 0 && (step == 13 || step == 39))
                << print_card(s) << " on " << print_card(t);
        }
    }
}

/// What is played on a position and what it leads to.
struct Case {
    std::string name;
    std::string before;
    std::string played;
    std::string after;
};

void expect_plays(const Case& c) {
    SCOPED_TRACE(c.name);
    Player player;
    player.set_up(c.before);
    player.play(c.played);
    EXPECT_EQ(player.position(), print_position(parse_position(c.after)));
    EXPECT_TRUE(player.host.messages.empty() && !player.table.state.GameWon);
}

TEST(Rules, SelectionAndMoves) {
    const std::string run = "1 HK PD HB X10 K9 P8 H7 X6 K5 P4 H3 X2 K1";
    const Case cases[] = {
        {"a column is selected and given up", "1 H5", "c1 c1", "1 H5"},
        {"the waste is selected and given up", "W H5", "waste waste", "W H5"},
        {"the waste takes the selection over", "W P2; 1 H5", "c1 waste", "W P2; 1 H5; sel 0"},
        {"an empty waste leaves a selection", "1 H5", "c1 waste", "1 H5; sel 1"},
        {"a refused waste card is given up", "W H4; 1 H5", "waste c1", "W H4; 1 H5; sel 1"},
        {"runs move by any card", "10 P9 H8; 2 XB K10", "c10.2 c2.2", "2 XB K10 P9 H8"},
        {"a run is never split", "1 P9 H8; 2 X9", "c1 c2", "1 P9 H8; 2 X9; sel 2"},
        {"a king's run fills a column", "1 H2 P5 | HK XD", "c1 c2", "1 H2 | P5?; 2 HK XD"},
        {"no other card does", "W PD; 1 H5 X4", "waste c3 c1 c3 c3", "W PD; 1 H5 X4; sel 1"},
        {"a click turns a card, the next selects", "1 H2 | X3?", "c1 c1", "1 H2 | X3; sel 1"},
        {"a selected card waits for it", "W H4; 1 H2 | P5?", "waste c1 c1", "1 H2 | P5 H4"},
        {"where no card is open one is turned", "3 H1 H2 |; 5 H6 |", "", "3 H1 | H2?; 5 H6?"},
        {"up to thirteen", "1 HK; 2" + run.substr(4), "c2 c1", run},
    };
    std::for_each(std::begin(cases), std::end(cases), expect_plays);
    for (int row = 1; row <= 13; ++row)
        expect_plays({"any card of a run", run, "c1." + std::to_string(row), run + "; sel 1"});
}

TEST(Rules, StockAndPasses) {
    // Five cards are in play: the four highest hearts and the king of spades.
    const std::string others_done = "F 13 13 13 13 9 12 13 13; ";
    const Case cases[] = {
        {"three for a double click", "S H10 HB HD HK; W PK", "stock!", "S H10; W PK HK HD HB"},
        {"one left of three", "S H10; W HB HD HK PK", "stock", "S; W HB HD HK PK H10"},
        {"one in pass three", "D 1; S H10 HB; W HD HK PK", "stock", "D 1; S H10; W HD HK PK HB"},
        {"in the same order", "S; W H10 HB HD HK PK", "stock stock", "D 2; S PK HK HD; W H10 HB"},
        {"an empty waste uses up a pass", "S; 1 PK HD; 2 HK; 3 HB; 4 H10", "stock stock",
         "D 1; S; 1 PK HD; 2 HK; 3 HB; 4 H10"},
        {"a selection means the new top card", "S HD H10 HB; W HK; 1 PK", "waste stock c1",
         "S; W HK HB H10; 1 PK HD"},
        {"ends by a column click", "S; W H10 HB HK HD; 1 PK", "waste stock c1",
         "D 2; S HD HK HB H10; 1 PK; sel 1"},
        {"or comes to life with a draw", "S; W H10 HD HK HB; 1 PK", "waste stock stock c1",
         "D 2; S HB HK; W H10; 1 PK HD"},
    };
    for (const Case& c : cases)
        expect_plays({c.name, others_done + c.before, c.played, others_done + c.after});
}

TEST(Rules, DoubleClicks) {
    const Case cases[] = {
        {"the first ace opens the lower foundation", "1 H1", "c1!", "F 1"},
        {"the second ace the higher one", "F 1; 1 H1", "c1!", "F 1 0 0 0 1"},
        {"at equal height the lower one grows", "F 3 0 0 0 3; 1 H4", "c1!", "F 4 0 0 0 3"},
        {"otherwise the one that fits", "F 4 0 0 0 3; 1 H4", "c1!", "F 4 0 0 0 4"},
        {"a misfit only ends the selection", "W H9; 1 H5", "waste c1!", "W H9; 1 H5"},
        {"a covered card is turned, then sent", "1 X9 | H1?", "c1!", "F 1; 1 X9?"},
        {"a strip takes it as one click", "1 H3 P2 H1", "c1.2!", "1 H3 P2 H1; sel 1"},
        {"without a click before it turns a covered card", "1 X9 | H1?", "c1!!", "1 X9 | H1"},
        {"or moves a selected king in", "1 P5 | HK; sel 1", "c2!!", "1 P5?; 2 HK"},
        {"a king moved in is tried at once", "F 12; W HK", "waste c3!", "F 13"},
        {"and stays when it does not fit", "W PK", "waste c3!", "3 PK"},
        {"no game is won while the stock has cards", "S PK; F 13 13 13 13 13 12 13 11; W XK XD",
         "waste!", "S PK; F 13 13 13 13 13 12 13 12; W XK"},
    };
    std::for_each(std::begin(cases), std::end(cases), expect_plays);
}

TEST(Rules, ConsistencyCheckNoticesEveryFault) {
    const char* const won = "S; F 13 13 13 13 13 13 13 13";
    using Fault = std::function<void(GameState&)>;
    const std::tuple<const char*, const char*, Fault> cases[] = {
        {"the cards", "S H1", {}},
        {"the cards", "W H9", [](GameState& s) { s.Waste(1) = 0; }},
        {"a column", "1 PK HD?", {}},
        {"a column", "10 PK |", {}},
        {"a run", "1 HD PK", {}},
        {"a run", "10 HD PK", {}},
        {"the selection", "1 X7 | H8?; sel 1", {}},
        {"the selection", "sel 10", {}},
        {"the selection", "W H9; 1 H8; sel 0; sel 1", {}},
        {"a foundation", "F 0 0 0 0 0 0 0 1", {}},
        // The suit's cards under another suit's number.
        {"a foundation", "F 1 1",
         [](GameState& s) { std::swap(s.FoundationCards(1), s.FoundationCards(2)); }},
        {"the flags", won, [](GameState& s) { s.GameWon = true; }},
        {"the flags", "S; F 13 13 13 13 13 13 13 12; 1 XK",
         [](GameState& s) { s.ClockRunning = false, s.GameWon = true; }},
        {"the flags", "", [](GameState& s) { s.WinPending = true; }},
        {"the flags", won,
         [](GameState& s) { s.ClockRunning = false, s.GameWon = s.NameEntryOpen = true; }},
        {"the clock", "", [](GameState& s) { s.Seconds = -1; }},
    };
    for (const auto& [violated, position, fault] : cases) {
        GameState state = parse_position(position);
        if (fault) fault(state);
        EXPECT_TRUE(violated_invariant(state).starts_with(violated)) << position;
    }
    GameState s;
    for (const auto& [count, most] : {std::pair(&s.DeckCount, 104),
                                      {&s.WasteCount, 104},
                                      {&s.FaceDownCount(10), 9},
                                      {&s.FaceUpCount(10), 13},
                                      {&s.FoundationCount(8), 13},
                                      {&s.DrawSize, 3}}) {
        for (*count = -1; *count <= most + 1; ++*count) {
            EXPECT_EQ(violated_invariant(s) == "a count is out of bounds",
                      *count < 0 || *count > most)
                << *count;
        }
        *count = 0;
    }
}

}  // namespace
}  // namespace solvanta::test
