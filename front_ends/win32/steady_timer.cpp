#include "front_ends/win32/steady_timer.h"

namespace solvanta::win32 {

SteadyTimer::SteadyTimer(const Timer& timer, HWND window, UINT_PTR id)
    : timer_(timer),
      window_(window),
      id_(id),
      interval_(timer.Interval),
      due_(Clock::now() + interval_) {
    ask_for_message(Clock::now());
}

bool SteadyTimer::tick_is_due() {
    const Clock::time_point now = Clock::now();
    const bool is_due = now >= due_;
    if (is_due) due_ += ((now - due_) / interval_ + 1) * interval_;
    ask_for_message(now);
    return is_due;
}

void SteadyTimer::ask_for_message(Clock::time_point now) const {
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(due_ - now);
    SetTimer(window_, id_, static_cast<UINT>(wait.count()), nullptr);
}

}  // namespace solvanta::win32
