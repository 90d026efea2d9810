#include "core/stock.h"

namespace solvanta {
namespace {

void draw(GameState& state) {
    for (int taken = 0; taken < state.DrawSize && state.DeckCount > 0; ++taken) {
        ++state.WasteCount;
        state.Waste(state.WasteCount) = state.Deck(state.DeckCount);
        --state.DeckCount;
    }
}

/// The waste's bottom card becomes the stock's top, so the next pass meets the cards in the same
/// order as the pass before.
void turn(GameState& state) {
    --state.DrawSize;
    for (int i = 1; i <= state.WasteCount; ++i) {
        state.Deck(i) = state.Waste(state.WasteCount - i + 1);
    }
    state.DeckCount = state.WasteCount;
    state.WasteCount = 0;
}

}  // namespace

StockClick click_stock(GameState& state) {
    if (state.DeckCount > 0) {
        draw(state);
        return StockClick::Drawn;
    }
    if (state.DrawSize > 1) {
        turn(state);
        return StockClick::Turned;
    }
    return StockClick::Refused;
}

}  // namespace solvanta
