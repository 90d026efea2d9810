#pragma once

#include <QRect>
#include <QRectF>

#include "front_ends/common/scale.h"

namespace solvanta::qt {

// Widgets lie at logical pixels, which Qt takes to those of the screen by a ratio. What is painted
// is laid out in the screen's own.

inline QRect to_qt(const PixelRect& rect) {
    return {rect.left, rect.top, rect.width(), rect.height()};
}

/// The logical pixels of a rectangle in those of the screen.
inline QRectF to_logical(const PixelRect& rect, double ratio) {
    return {rect.left / ratio, rect.top / ratio, rect.width() / ratio, rect.height() / ratio};
}

}  // namespace solvanta::qt
