#pragma once

#include "core/game_state.h"
#include "view/windows.h"

namespace solvanta {

/// Gives every picture element of the table, once, the function that names what it shows, read from
/// `state` whenever somebody asks: "Spalte 3: Herz König, ausgewählt", "Stapel, 49 Karten",
/// "Ziel 1: leerer Platz". Before the first deal nothing has a name. Both must outlive the calls.
void name_places(const GameState& state, TableWindow& table);

}  // namespace solvanta
