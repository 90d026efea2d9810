#pragma once

#include <windows.h>

#include "platform/elements.h"

namespace solvanta::win32 {

/// Twips as device pixels on a screen of `dpi` dots per inch, to the nearest.
inline int to_pixels(Twips twips, int dpi) {
    constexpr int twips_per_inch = twips_per_pixel * USER_DEFAULT_SCREEN_DPI;
    return MulDiv(twips, dpi, twips_per_inch);
}

/// The twip in which the middle of a device pixel lies: a pixel belongs to the element that
/// paints it.
inline Twips to_twips(int pixel, int dpi) {
    constexpr int half_twips_per_inch = twips_per_pixel * USER_DEFAULT_SCREEN_DPI / 2;
    const int middle = (2 * pixel + 1) * half_twips_per_inch;
    return middle >= 0 ? middle / dpi : -1;
}

/// A length designed in pixels of 96 to the inch, as device pixels.
inline int scaled(int length, int dpi) {
    return MulDiv(length, dpi, USER_DEFAULT_SCREEN_DPI);
}

/// Where an element lies in its container, in device pixels.
inline RECT place_of(const Element& element, int dpi) {
    return {to_pixels(element.Left, dpi), to_pixels(element.Top, dpi),
            to_pixels(element.Left + element.Width, dpi),
            to_pixels(element.Top + element.Height, dpi)};
}

inline SIZE size_of(const RECT& rect) {
    return {rect.right - rect.left, rect.bottom - rect.top};
}

}  // namespace solvanta::win32
