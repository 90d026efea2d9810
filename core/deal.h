#pragma once

#include <functional>

#include "core/game_state.h"

namespace solvanta {

/// Gives random values r with 0 <= r < 1, over and over.
using RandomSource = std::function<double()>;

/// Takes the bottom card of the stock; the cards above it move one place down. The stock must
/// not be empty.
CardNumber DrawCard(GameState& state);

/// Fills the stock with both decks in random order: numbers 1 to 104 are drawn until each has
/// its slot, then folded to card numbers. The same random values always give the same order.
void shuffle(GameState& state, const RandomSource& random);

/// Puts a fresh deal in place of whatever the record holds: ten columns, 49 cards in the stock,
/// pass 1, no selection, nothing covered. Clock, counters and list are left alone.
void deal(GameState& state, const RandomSource& random);

}  // namespace solvanta
