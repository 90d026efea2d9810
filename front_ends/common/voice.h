#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/elements.h"

namespace solvanta {

/// What has become of a container's places, for those who listen.
struct News {
    std::vector<const PictureElement*> renamed;  ///< what they show has changed
    bool others = false;                         ///< places have come or gone
    const PictureElement* focused = nullptr;     ///< has got the keyboard; null without news of it
    std::string said;                            ///< what has happened, in words
};

/// Finds out what those who listen must be told; one for each container. A Host to whom nobody
/// listens never asks.
class Voice {
  public:
    explicit Voice(const Container& container) : container_(container) {}

    /// What is new since the last call; `focused` is the place that has the keyboard, or null.
    News news(const PictureElement* focused);

    /// To be told when the container loses the keyboard.
    void forget_focus() { focused_ = nullptr; }

  private:
    const Container& container_;
    std::map<const PictureElement*, std::string> names_;
    const PictureElement* focused_ = nullptr;
};

}  // namespace solvanta
