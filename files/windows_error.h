#pragma once

#include <system_error>

namespace solvanta {

/// The error with the number `code` of a failed Windows call. It equals the condition of std::errc
/// that means the same, and its message is the system's own, in German where the system has it.
std::error_code windows_error(unsigned long code);

}  // namespace solvanta
