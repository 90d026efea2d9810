#pragma once

#include <string_view>

namespace solvanta {

/// Tells of trouble that the game goes on with: writes "Solvanta: ", `text` (one German line in
/// UTF-8) and a line end to standard error, on Windows to debuggers as well. It does no harm where
/// nobody reads there.
void report_trouble(std::string_view text);

}  // namespace solvanta
