#pragma once

#include "core/game_state.h"

namespace solvanta {

/// Stands for the waste where a double click names its source by column index.
inline constexpr int waste_index = 100;

/// Sends the exposed card of column `Index` + 1 (`Index` 0 to 9), or with an index of
/// `waste_index` or more the waste's top card, to the first foundation of its suit's pair that
/// takes it. The selection ends whether or not the card found a place. There must be an open card.
void send_to_foundation(GameState& state, int Index);

/// Takes the card that has just gone to a foundation away from where it lay: the waste (`source`
/// `waste_index` or more) or a column (1 to 10). A face-down card that comes to the front is left
/// covered; an empty column stays as it is.
void RemoveTopCard(GameState& state, int source);

}  // namespace solvanta
