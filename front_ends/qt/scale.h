#pragma once

#include <QRect>
#include <QRectF>

#include "front_ends/common/scale.h"

namespace solvanta::qt {

/// Twips in logical pixels, which Qt takes to device pixels by itself.
inline constexpr Scale logical_scale;

inline QRectF place_of(const Element& element) {
    return {logical_scale.length(element.Left), logical_scale.length(element.Top),
            logical_scale.length(element.Width), logical_scale.length(element.Height)};
}

inline QRect to_qt(const PixelRect& rect) {
    return {rect.left, rect.top, rect.width(), rect.height()};
}

}  // namespace solvanta::qt
