#pragma once

#include <chrono>

#include <windows.h>

#include "platform/elements.h"

namespace solvanta::win32 {

/// The ticks of one timer of a form, by timer messages to the form's window. They are due at whole
/// intervals from the start, so that the lateness of messages does not add up; those missed are
/// skipped.
class SteadyTimer {
  public:
    SteadyTimer(const Timer& timer, HWND window, UINT_PTR id);

    const Timer& timer() const { return timer_; }

    /// To be called at each message; whether a tick is due. Asks for the next message.
    bool tick_is_due();

  private:
    using Clock = std::chrono::steady_clock;

    void ask_for_message(Clock::time_point now) const;

    const Timer& timer_;
    HWND window_;
    UINT_PTR id_;
    std::chrono::milliseconds interval_;
    Clock::time_point due_;
};

}  // namespace solvanta::win32
