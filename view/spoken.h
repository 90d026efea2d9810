#pragma once

#include "core/game_state.h"
#include "view/windows.h"

// What the table says to those who can't see it, in German, the most important word first. It is
// read from the record whenever somebody asks, and costs nothing before.

namespace solvanta {

/// Gives the table, once, what it says: a name and a key for each place, its changes, and the
/// answers to T, the whole table, and Z, clock and counters. Both must outlive the calls.
void let_speak(const GameState& state, TableWindow& table);

}  // namespace solvanta
