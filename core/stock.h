#pragma once

#include "core/game_state.h"

namespace solvanta {

enum class StockClick { Drawn, Turned, Refused };

/// What a click on the stock does: draws up to `DrawSize` cards onto the waste; with an empty
/// stock turns the waste over into a new stock for the next pass, which an empty waste uses up
/// as well; after the third pass refuses and changes nothing. The selection always stands.
StockClick click_stock(GameState& state);

}  // namespace solvanta
