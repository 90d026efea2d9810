#pragma once

#include <cmath>

#include <QRect>
#include <QRectF>

#include "platform/elements.h"

namespace solvanta::qt {

/// Twips in logical pixels, which Qt takes to device pixels by itself.
inline double to_pixels(Twips twips) {
    return static_cast<double>(twips) / twips_per_pixel;
}

/// The twip in which a place given in logical pixels lies.
inline Twips to_twips(double pixels) {
    return static_cast<Twips>(std::floor(pixels * twips_per_pixel));
}

inline QRectF place_of(const Element& element) {
    return {to_pixels(element.Left), to_pixels(element.Top), to_pixels(element.Width),
            to_pixels(element.Height)};
}

}  // namespace solvanta::qt
