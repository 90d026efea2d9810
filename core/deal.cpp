#include "core/deal.h"

#include <cassert>

namespace solvanta {
namespace {

void deal_columns(GameState& state) {
    for (int i = 0; i < columns; ++i) {
        state.FaceDownCount(columns - i) = i;
        state.FaceUpCount(columns - i) = 1;
    }
    for (int pass = 1; pass <= columns; ++pass) {
        state.FaceUp(columns + 1 - pass)(1) = DrawCard(state);
        for (int c = 1; c <= columns - pass; ++c)
            state.FaceDown(c)(pass) = DrawCard(state);
    }
}

}  // namespace

CardNumber DrawCard(GameState& state) {
    assert(state.DeckCount > 0);
    const CardNumber card = state.Deck(1);
    --state.DeckCount;
    for (int k = 1; k <= state.DeckCount; ++k)
        state.Deck(k) = state.Deck(k + 1);
    return card;
}

void shuffle(GameState& state, const RandomSource& random) {
    Bounded<bool, 1, cards_in_game> drawn;
    state.DeckCount = cards_in_game;
    for (CardNumber& card : state.Deck) {
        int candidate = 0;
        do {
            candidate = static_cast<int>(random() * cards_in_game) + 1;
        } while (drawn(candidate));
        drawn(candidate) = true;
        card = candidate > cards_per_deck ? candidate - cards_per_deck : candidate;
    }
}

void deal(GameState& state, const RandomSource& random) {
    state.GameWon = false;
    shuffle(state, random);
    deal_columns(state);
    state.DrawSize = 3;
    state.WasteCount = 0;
    state.FoundationCount.fill(0);
    state.Selected.fill(false);
    state.Covered.fill(false);
}

}  // namespace solvanta
