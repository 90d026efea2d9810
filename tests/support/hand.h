#pragma once

#include "front_ends/common/mouse.h"

namespace solvanta::test {

/// A hand with a mouse on a container; what comes of it happens at once.
class Hand {
  public:
    explicit Hand(Container& container) : mouse_(container) {}

    /// A press long after the one before.
    void press(Twips x, Twips y) { press_after(1000, x, y); }

    /// A press that follows the one before at once.
    void double_press(Twips x, Twips y) { press_after(100, x, y); }

    void release(Twips x, Twips y) { run(mouse_.release(x, y)); }

    void click(Twips x, Twips y) {
        press(x, y);
        release(x, y);
    }

  private:
    static void run(const Event& event) {
        if (event) event();
    }

    void press_after(std::uint32_t milliseconds, Twips x, Twips y) {
        now_ += milliseconds;
        run(mouse_.press({x, y, now_}, {500, 100, 100}));
    }

    Mouse mouse_;
    std::uint32_t now_ = 0;
};

}  // namespace solvanta::test
