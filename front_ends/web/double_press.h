#pragma once

#include <cmath>

namespace solvanta::web {

/// Tells the second press of a double click from a first one, by time and place.
class DoublePress {
  public:
    /// Whether a press at this moment and place is the second one. Never says so twice in a row.
    bool is_second(double milliseconds, double x, double y) {
        const bool near = std::abs(x - x_) <= reach && std::abs(y - y_) <= reach;
        const bool second = armed_ && milliseconds - milliseconds_ <= longest_pause && near;
        armed_ = !second;
        milliseconds_ = milliseconds;
        x_ = x;
        y_ = y;
        return second;
    }

    /// To be told of presses elsewhere.
    void forget() { armed_ = false; }

  private:
    static constexpr double longest_pause = 500;
    static constexpr double reach = 12;  // a finger does not come down twice on one pixel

    bool armed_ = false;
    double milliseconds_ = 0;
    double x_ = 0;
    double y_ = 0;
};

}  // namespace solvanta::web
