#include "core/foundations.h"

#include "core/moves.h"

namespace solvanta {
namespace {

bool foundation_takes(const GameState& state, int f, CardNumber card) {
    const int count = state.FoundationCount(f);
    if (count == 0) return rank(card) == ace;
    return state.FoundationCards(f)(count) + 1 == card;
}

/// Puts the card onto its suit's lower foundation if that takes it, else onto the higher one.
bool place_on_foundation(GameState& state, CardNumber card) {
    const int lower = suit_index(card) + 1;
    for (const int f : {lower, lower + 4}) {
        if (!foundation_takes(state, f, card)) continue;
        ++state.FoundationCount(f);
        state.FoundationCards(f)(state.FoundationCount(f)) = card;
        return true;
    }
    return false;
}

}  // namespace

void send_to_foundation(GameState& state, int Index) {
    const CardNumber card =
        Index >= waste_index ? state.Waste(state.WasteCount) : state.FaceUp(Index + 1)(1);
    state.Selected.fill(false);
    if (place_on_foundation(state, card)) RemoveTopCard(state, Index + 1);
}

void RemoveTopCard(GameState& state, int source) {
    if (source >= waste_index) {
        --state.WasteCount;
        return;
    }
    int& count = state.FaceUpCount(source);
    if (count == 1) {
        expose_next_card(state, source);
    } else if (count > 1) {
        for (int r = 1; r < count; ++r)
            state.FaceUp(source)(r) = state.FaceUp(source)(r + 1);
        --count;
    }
}

}  // namespace solvanta
