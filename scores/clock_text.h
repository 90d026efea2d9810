#pragma once

#include <cstdint>
#include <string>

namespace solvanta {

/// Playing time as minutes, a colon and two digits of seconds. There are no hours: minutes go on
/// past 60. `seconds` is 0 or more.
std::string clock_text(std::int32_t seconds);

}  // namespace solvanta
