#pragma once

#include <string>

#include "core/game_state.h"
#include "view/windows.h"

// The table window shown from the game state. Each operation rebuilds what it shows, loads every
// picture it shows again, and keeps nothing. `directory` is the program directory.

namespace solvanta {

/// Shows one back strip for each face-down card of every column.
void ShowFaceDownCards(const GameState& state, TableWindow& table);

/// Shows the top card of every foundation, or the empty place.
void ShowFoundations(const GameState& state, TableWindow& table, const std::string& directory);

/// Shows the face-up cards of every column as a cascade, the empty place for an empty column. A
/// column with face-down cards only has its next one brought to the front, covered: the one
/// change of game state made here.
void ShowFaceUpCards(GameState& state, TableWindow& table, const std::string& directory);

/// Brings the whole table in line with the game state: columns, foundations, the pointer's place,
/// the status line, waste and stock. It shows the pointer for a selected column and never hides
/// it: that belongs to the operation that ends a selection.
void RefreshTable(GameState& state, TableWindow& table, const std::string& directory);

}  // namespace solvanta
