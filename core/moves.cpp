#include "core/moves.h"

namespace solvanta {
namespace {

/// No column is selected; also the slot of the waste, whose selection is asked for separately.
constexpr int no_column = 0;

int selected_column(const GameState& state) {
    for (int c = 1; c <= columns; ++c) {
        if (state.Selected(c)) return c;
    }
    return no_column;
}

bool waste_card_selected(const GameState& state) {
    return state.Selected(0) && state.WasteCount > 0;
}

/// The card that decides the move: the waste's top card, or the deepest of the selected run.
CardNumber moving_card(const GameState& state, int selected) {
    if (waste_card_selected(state)) return state.Waste(state.WasteCount);
    return state.FaceUp(selected)(state.FaceUpCount(selected));
}

bool column_takes(const GameState& state, int col, CardNumber card) {
    if (state.FaceUpCount(col) == 0) return rank(card) == king;
    return !state.Covered(col) && may_lie_on(card, state.FaceUp(col)(1));
}

bool try_move(GameState& state, int col) {
    const int selected = selected_column(state);
    const bool something_selected = waste_card_selected(state) || selected != no_column;
    if (!something_selected || selected == col) return false;
    if (!column_takes(state, col, moving_card(state, selected))) return false;
    MoveSelection(state, selected, col);
    state.Selected(selected) = false;
    return true;
}

/// Makes room for `cards` new cards at the front of column `to`.
void push_deeper(GameState& state, int to, int cards) {
    for (int r = state.FaceUpCount(to); r >= 1; --r) {
        state.FaceUp(to)(r + cards) = state.FaceUp(to)(r);
    }
    state.FaceUpCount(to) += cards;
}

}  // namespace

bool may_lie_on(CardNumber card, CardNumber target) {
    return is_red(card) != is_red(target) && rank(card) + 1 == rank(target);
}

PointerChange click_waste(GameState& state) {
    if (state.Selected(0)) {
        state.Selected(0) = false;
        return PointerChange::Hidden;
    }
    if (state.WasteCount == 0) return PointerChange::Kept;
    state.Selected.fill(false);
    state.Selected(0) = true;
    return PointerChange::Shown;
}

PointerChange click_column(GameState& state, int col) {
    if (try_move(state, col)) return PointerChange::Hidden;
    if (state.FaceUpCount(col) == 0) return PointerChange::Kept;
    if (state.Covered(col)) {
        state.Covered(col) = false;
        return PointerChange::Kept;
    }
    if (state.Selected(col)) {
        state.Selected(col) = false;
        return PointerChange::Hidden;
    }
    state.Selected.fill(false);
    state.Selected(col) = true;
    return PointerChange::Kept;
}

void MoveSelection(GameState& state, int from, int to) {
    if (from == 0) {
        push_deeper(state, to, 1);
        state.FaceUp(to)(1) = state.Waste(state.WasteCount);
        --state.WasteCount;
        return;
    }
    const int moved = state.FaceUpCount(from);
    push_deeper(state, to, moved);
    for (int r = 1; r <= moved; ++r)
        state.FaceUp(to)(r) = state.FaceUp(from)(r);
    expose_next_card(state, from);
}

void expose_next_card(GameState& state, int col) {
    if (state.FaceDownCount(col) == 0) {
        state.FaceUpCount(col) = 0;
        return;
    }
    state.FaceUpCount(col) = 1;
    state.FaceUp(col)(1) = state.FaceDown(col)(state.FaceDownCount(col));
    --state.FaceDownCount(col);
    state.Covered(col) = true;
}

}  // namespace solvanta
