#pragma once

#include "platform/elements.h"

namespace solvanta {

/// Makes clicks and double clicks of the left button out of presses and releases, the same way
/// for every window system; one for each container. Only elements that are visible and have a
/// click handler take the mouse; whatever else lies above them lets it through. Coordinates are
/// twips in the container.
class Mouse {
  public:
    explicit Mouse(Container& container) : container_(container) {}

    /// A first press: arms a click of the element under the pointer.
    void press(Twips x, Twips y);

    /// The second press of a double click: gives the double click of the element under the
    /// pointer at this moment, if it has one. No click follows from its release. If the first
    /// press was not made here, it counts as a first press.
    void double_press(Twips x, Twips y);

    /// Gives the click of the pressed element if the pointer is still on it.
    void release(Twips x, Twips y);

    /// To be told of presses elsewhere: what comes next begins anew.
    void forget_press() { follows_press_ = false; }

    /// The element that takes the mouse at this place; null where there is none.
    PictureElement* element_at(Twips x, Twips y) const;

  private:
    Container& container_;
    PictureElement* pressed_ = nullptr;
    bool follows_press_ = false;  // the latest press was a first press made here
};

}  // namespace solvanta
