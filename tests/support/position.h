#pragma once

#include <string>
#include <string_view>

#include "core/game_state.h"

namespace solvanta::test {

// Positions as one line of text, sections separated by ';', in any order and all optional:
//
//     D 2                  cards per draw (3 when absent)
//     S H7 P1              the stock, bottom to top; when absent, all cards not named elsewhere
//     W X3 HK              the waste, bottom to top
//     F 13 0 0 1 5 0 0 0   cards on foundations 1 to 8
//     4 K2 P9 | HD XB      column 4: face-down cards in the order dealt, then the run from its
//                          deepest card to the exposed one; '?' behind it: still covered
//     sel 4                the selected column, or 0 for the waste
//
// A card is its suit (H hearts, P spades, K diamonds, X clubs) and its rank (1 to 10, B, D, K).

/// The position described; throws std::invalid_argument with the offending word.
GameState parse_position(std::string_view text);

/// The position in full, the stock included.
std::string print_position(const GameState& state);

std::string print_card(CardNumber card);

}  // namespace solvanta::test
