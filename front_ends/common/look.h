#pragma once

#include <algorithm>

#include "front_ends/common/scale.h"

// What looks the same in every window system that paints it. Lengths are pixels at 96 dots per
// inch.

namespace solvanta {

/// A frame: its border lies so far inside its area, and its caption begins so far from the left.
inline constexpr int frame_margin = 4;
inline constexpr int frame_caption_height = 15;
inline constexpr int frame_caption_indent = 9;

inline constexpr int standard_font_pixels = 12;
inline constexpr int button_font_pixels = 11;  // legible in a button 17 pixels high

/// The ring around the place that has the keyboard: a white line outside of it and a black one
/// inside, so that it stands out on every ground.
inline constexpr int ring_line = 2;
inline constexpr Color ring_outside{0xFF, 0xFF, 0xFF};
inline constexpr Color ring_inside{0, 0, 0};

/// Where a picture is painted.
struct PaintedArea {
    PixelRect shown;
    PixelSize whole;  ///< with what is cut off
};

/// A picture is painted at its own size, in pixels at 96 dots per inch; without one, as the
/// stand-in of a picture that can't be read, at the element's.
inline PaintedArea painted_area(const PictureElement& element, const PixelSize* own,
                                const Scale& scale) {
    Element area = element;
    if (own) {
        area.Width = own->width * twips_per_pixel;
        area.Height = own->height * twips_per_pixel;
    }
    const PixelRect whole = scale.place_of(area);
    if (element.CutToHeight) area.Height = std::min(area.Height, element.Height);
    return {scale.place_of(area), {whole.width(), whole.height()}};
}

/// The ring's outer edge.
inline PixelRect ring_around(const Element& place, const Scale& scale) {
    const PixelRect inner = scale.place_of(place);
    const int line = scale.scaled(ring_line);
    return {inner.left - line, inner.top - line, inner.right + line, inner.bottom + line};
}

/// What stands in for a picture that can't be read: a light box bearing its file's name.
inline constexpr Color placeholder_border{0x50, 0x50, 0x50};
inline constexpr Color placeholder_ground{0xF6, 0xF2, 0xE4};
inline constexpr Color placeholder_ink{0, 0, 0};

/// The largest font, in pixels of the window, in which a placeholder's name is one line that fits;
/// `fits` is asked for each size.
template <typename Fits>
int placeholder_font_pixels(const Scale& scale, const Fits& fits) {
    const int smallest = scale.scaled(7);
    int pixels = scale.scaled(11);
    while (pixels > smallest && !fits(pixels))
        --pixels;
    return pixels;
}

}  // namespace solvanta
