#pragma once

#include <map>
#include <string>

#include "platform/elements.h"

namespace solvanta::qt {

class Canvas;

/// Has every canvas with places answer to the desktop's accessibility service.
void install_accessibility();

/// Tells those who listen, by that service, what becomes of a canvas. As long as nobody does it
/// costs nothing.
class Voice {
  public:
    explicit Voice(Canvas& canvas) : canvas_(canvas) {}

    /// Tells which places have come, gone or changed and which one has the keyboard, and says what
    /// has changed on the table.
    void sync();

    void say(const std::string& text) const;

    /// To be told when the canvas loses the keyboard.
    void forget_focus() { focused_ = nullptr; }

  private:
    void tell_places();
    void tell_focus();

    Canvas& canvas_;
    std::map<const PictureElement*, std::string> names_;
    const PictureElement* focused_ = nullptr;
};

}  // namespace solvanta::qt
