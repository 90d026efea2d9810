#pragma once

#include <functional>

namespace solvanta::web {

/// Calls `tick` every `interval` milliseconds of a steady clock until it is stopped, in a page
/// that is not to be seen as well. While a tick is handled no other falls due. Answers a number
/// for `stop_ticks`.
int start_ticks(int interval, std::function<void()> tick);

void stop_ticks(int timer);

}  // namespace solvanta::web
