#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/game_state.h"

namespace solvanta {

/// `won` of `played` as a percentage with two decimals and the locale's decimal separator (UTF-8),
/// rounded to the nearest, halves away from zero; without games 0.
std::string percentage(std::int32_t won, std::int32_t played, std::string_view decimal_separator);

/// The lines of the best-times window, in Windows-1252: one for each filled place with its
/// columns, an empty one, the statistics.
std::vector<std::string> list_lines(const GameState& state, std::string_view decimal_separator);

/// The lines as one Rich Text Format document without fonts or colours of its own. Characters
/// that mean something there, or lie outside ASCII, are escaped, so every line shows as it is.
std::string list_document(const std::vector<std::string>& lines);

}  // namespace solvanta
