#pragma once

#include <algorithm>
#include <chrono>

namespace solvanta {

/// When the ticks of a timer are due: at whole intervals from the start, so that being late does
/// not add up, and those that were missed are made up for one after the other. All times are those
/// of one steady clock that stands still while the machine sleeps, so that what was slept through
/// is not made up for.
class Ticks {
  public:
    using Time = std::chrono::milliseconds;

    /// `interval` is more than 0.
    Ticks(Time interval, Time now) : interval_(interval), due_(now + interval) {}

    /// Whether a tick is due, which is taken by this.
    bool take(Time now) {
        const bool is_due = now >= due_;
        if (is_due) due_ += interval_;
        return is_due;
    }

    /// The time until the next one; 0 when it is due.
    Time until_next(Time now) const { return std::max(Time(0), due_ - now); }

  private:
    Time interval_;
    Time due_;
};

}  // namespace solvanta
