#include "core/game_state.h"

#include <algorithm>

#include "core/moves.h"

namespace solvanta {
namespace {

template <typename Counts>
bool counts_within(const Counts& counts, int most) {
    return std::all_of(counts.begin(), counts.end(),
                       [most](int count) { return count >= 0 && count <= most; });
}

bool counts_in_bounds(const GameState& state) {
    return state.DeckCount >= 0 && state.DeckCount <= cards_in_game && state.WasteCount >= 0 &&
           state.WasteCount <= cards_in_game && counts_within(state.FaceDownCount, 9) &&
           counts_within(state.FaceUpCount, 13) && counts_within(state.FoundationCount, 13) &&
           state.DrawSize >= 0 && state.DrawSize <= 3;
}

/// Counts every card of the game; a number that is no card counts in slot 0.
Bounded<int, 0, cards_per_deck> census(const GameState& state) {
    Bounded<int, 0, cards_per_deck> seen;
    const auto count = [&seen](const auto& cards, int cards_count) {
        for (int i = 1; i <= cards_count; ++i)
            ++seen(is_card(cards(i)) ? cards(i) : 0);
    };
    count(state.Deck, state.DeckCount);
    count(state.Waste, state.WasteCount);
    for (int c = 1; c <= columns; ++c) {
        count(state.FaceDown(c), state.FaceDownCount(c));
        count(state.FaceUp(c), state.FaceUpCount(c));
    }
    for (int f = 1; f <= foundations; ++f) {
        count(state.FoundationCards(f), state.FoundationCount(f));
    }
    return seen;
}

bool cards_complete(const GameState& state) {
    Bounded<int, 0, cards_per_deck> expected;
    expected.fill(game_dealt(state) ? 2 : 0);
    expected(0) = 0;
    return census(state) == expected;
}

bool runs_descend(const GameState& state) {
    for (int c = 1; c <= columns; ++c) {
        for (int r = 1; r < state.FaceUpCount(c); ++r) {
            if (!may_lie_on(state.FaceUp(c)(r), state.FaceUp(c)(r + 1))) return false;
        }
    }
    return true;
}

bool columns_have_fronts(const GameState& state) {
    for (int c = 1; c <= columns; ++c) {
        if (state.FaceUpCount(c) == 0 && state.FaceDownCount(c) > 0) return false;
        if (state.Covered(c) && state.FaceUpCount(c) != 1) return false;
    }
    return true;
}

bool selection_valid(const GameState& state) {
    if (std::count(state.Selected.begin(), state.Selected.end(), true) > 1) return false;
    for (int c = 1; c <= columns; ++c) {
        if (state.Selected(c) && (state.FaceUpCount(c) == 0 || state.Covered(c))) return false;
    }
    return true;
}

bool foundations_ascend(const GameState& state) {
    for (int f = 1; f <= foundations; ++f) {
        const CardNumber first = (f - 1) % 4 * cards_per_suit + 1;
        for (int level = 1; level <= state.FoundationCount(f); ++level) {
            if (state.FoundationCards(f)(level) != first + level - 1) return false;
        }
        if (f > 4 && state.FoundationCount(f) > 0 && state.FoundationCount(f - 4) == 0) {
            return false;
        }
    }
    return true;
}

bool win_flags_agree(const GameState& state) {
    if (state.GameWon && (state.ClockRunning || cards_outside_foundations(state) != 0)) {
        return false;
    }
    return (state.GameWon || !state.WinPending) && (state.WinPending || !state.NameEntryOpen);
}

}  // namespace

int cards_outside_foundations(const GameState& state) {
    int cards = state.WasteCount + state.DeckCount;
    for (int c = 1; c <= columns; ++c)
        cards += state.FaceUpCount(c) + state.FaceDownCount(c);
    return cards;
}

std::string_view violated_invariant(const GameState& state) {
    if (!counts_in_bounds(state)) return "a count is out of bounds";
    if (!cards_complete(state)) return "the cards are not every number twice";
    if (!columns_have_fronts(state)) return "a column's front is neither exposed nor covered";
    if (!runs_descend(state)) return "a run does not descend in alternating colours";
    if (!selection_valid(state)) return "the selection is not one waste card or one open run";
    if (!foundations_ascend(state)) return "a foundation does not ascend in its suit";
    if (!win_flags_agree(state)) return "the flags of a won game disagree with the table";
    if (state.Seconds < 0) return "the clock is negative";
    return {};
}

}  // namespace solvanta
