#pragma once

#include <string>
#include <string_view>

#include "core/game_state.h"

namespace solvanta {

/// The best-times file as it is stored: 31 lines ended by CR LF, places 1 to 10, the counters,
/// places 11 to 30.
std::string format_best_times(const GameState& state);

/// Reads list and counters from the bytes of a best-times file, whatever they are. Fields follow
/// one another: each ends at a comma or line end (CR LF, LF or CR), blanks before it are skipped,
/// a quoted one runs to the next quote. Records that the bytes don't reach come out empty, and so
/// do missing fields of the last one; numbers are clamped to 32 bits, and what is no number is 0.
void parse_best_times(std::string_view bytes, GameState& state);

/// Whether `bytes` are a best-times file as a program of ours writes it, or its first 11 lines or
/// more; its line ends may have been changed on the way here, the last one lost, a byte order mark
/// put before.
bool is_best_times_file(std::string_view bytes);

}  // namespace solvanta
