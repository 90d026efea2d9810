#pragma once

#include <QKeyEvent>

#include "front_ends/common/keyboard.h"

namespace solvanta::qt {

/// What a key going down means to a canvas. Digits go by their place on the keyboard, where the
/// window system tells it: with Shift, and in some layouts without it, they are other characters.
KeyPress to_key_press(const QKeyEvent& event);

}  // namespace solvanta::qt
