#pragma once

#include "core/game_state.h"

namespace solvanta {

/// Whether `card` may be put onto the exposed card `target`: other colour and one rank lower.
bool may_lie_on(CardNumber card, CardNumber target);

/// What a click did to the selection pointer. `Kept` also covers the choice of a column, whose
/// pointer the refresh shows.
enum class PointerChange { Kept, Shown, Hidden };

/// A click on the waste selects its top card or, when it is selected, gives it up. With nothing
/// to select nothing changes.
PointerChange click_waste(GameState& state);

/// A click on column `col` (1 to 10). A covered card is turned over, and the selection stands.
/// Otherwise the selection moves here if the rules allow it; if not, the clicked column becomes
/// the selection, or gives it up if it was selected already. An empty column takes a king or a
/// run headed by one and ignores everything else.
PointerChange click_column(GameState& state, int col);

/// Moves the waste's top card (`from` 0) or the whole face-up run of column `from` (1 to 10) onto
/// column `to` (1 to 10, not `from`). A face-down card that comes to the front is left covered.
/// The rules must allow the move.
void MoveSelection(GameState& state, int from, int to);

/// Brings the next face-down card of column `col` to the front, covered; without one the column
/// is left empty. For a column whose last face-up card has just left.
void expose_next_card(GameState& state, int col);

}  // namespace solvanta
