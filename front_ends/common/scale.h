#pragma once

#include <cmath>

#include "platform/elements.h"

namespace solvanta {

/// A rectangle in pixels of a window, the right and lower edge outside of it.
struct PixelRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    friend bool operator==(const PixelRect&, const PixelRect&) = default;

    int width() const { return right - left; }
    int height() const { return bottom - top; }
    bool empty() const { return right <= left || bottom <= top; }
};

/// How a window's twips become pixels.
class Scale {
  public:
    /// `pixels` of the window to one at 96 dots per inch.
    explicit constexpr Scale(double pixels = 1) : pixels_(pixels) {}

    constexpr double pixels() const { return pixels_; }

    constexpr double length(Twips twips) const { return twips * pixels_ / twips_per_pixel; }

    /// The edge of a pixel that lies nearest.
    int edge(Twips twips) const { return static_cast<int>(std::lround(length(twips))); }

    /// Whole pixels by the element's edges, so that neighbours neither overlap nor gap.
    PixelRect place_of(const Element& element) const {
        return {edge(element.Left), edge(element.Top), edge(element.Left + element.Width),
                edge(element.Top + element.Height)};
    }

    /// A length designed in pixels at 96 dots per inch.
    int scaled(int length) const { return static_cast<int>(std::lround(length * pixels_)); }

    /// The twip in which a place lies.
    Twips twips(double place) const {
        return static_cast<Twips>(std::floor(place * twips_per_pixel / pixels_));
    }

    friend bool operator==(const Scale&, const Scale&) = default;

  private:
    double pixels_;
};

}  // namespace solvanta
