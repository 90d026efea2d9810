#pragma once

#include <cstdint>

#include "platform/elements.h"

namespace solvanta {

/// A press of the left button: where in the container, in twips, and when by any steady clock, in
/// milliseconds.
struct Press {
    Twips x = 0;
    Twips y = 0;
    std::uint32_t milliseconds = 0;
};

/// What two presses of a double click must be less apart than, and what they may be apart.
struct DoubleClickLimits {
    std::uint32_t milliseconds = 500;
    Twips x = 0;
    Twips y = 0;
};

/// Makes clicks and double clicks of the left button out of presses and releases, the same way
/// for every window system; one for each container. Only elements that are visible and have a
/// click handler take the mouse; whatever else lies above them lets it through. What comes of a
/// press or a release is an event to be delivered, or none.
class Mouse {
  public:
    explicit Mouse(Container& container) : container_(container) {}

    /// A first press arms a click of the element under the pointer. The second press of a double
    /// click is the double click of the element under the pointer at this moment, if it has one; no
    /// click follows from its release, and the next press is a first one.
    Event press(const Press& press, const DoubleClickLimits& limits);

    /// The click of the pressed element if the pointer is still on it.
    Event release(Twips x, Twips y);

    /// To be told of presses elsewhere or of another button: the next press here is a first one.
    void forget_press() { follows_press_ = false; }

    /// What is pressed is let go of where it makes no click, and the next press is a first one.
    void cancel();

    /// The element that takes the mouse at this place; null where there is none.
    PictureElement* element_at(Twips x, Twips y) const;

  private:
    bool is_second(const Press& press, const DoubleClickLimits& limits) const;

    Container& container_;
    PictureElement* pressed_ = nullptr;
    Press first_;
    bool follows_press_ = false;  // the latest press was a first one, `first_`, made here
};

}  // namespace solvanta
