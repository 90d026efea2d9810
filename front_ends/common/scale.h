#pragma once

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <tuple>
#include <utility>

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

struct PixelSize {
    int width = 0;
    int height = 0;

    friend bool operator==(const PixelSize&, const PixelSize&) = default;
    friend bool operator<(const PixelSize& one, const PixelSize& other) {
        return std::tie(one.width, one.height) < std::tie(other.width, other.height);
    }
};

/// What is shown of a picture's file.
struct PictureContent {
    PixelSize size;            ///< its own, in pixels at 96 dots per inch
    std::uint64_t number = 0;  ///< tells it from what other files held, and this one at other times
};

/// The largest scale at which `content` fits into `room`, both in the same units; above 0.
double fitting_scale(double content_width, double content_height, double room_width,
                     double room_height);

/// A window is never made smaller than at this part of its designed size.
inline constexpr double smallest_part = 0.5;

/// The next part of the designed size that a window is given when the player enlarges it or makes
/// it smaller by a step.
double next_part(double part, bool larger);

/// For how long the size of a window has not changed when it rests.
inline constexpr int rest_milliseconds = 150;

/// Makes steps of the turns of a wheel, of which a fine one needs several.
class WheelSteps {
  public:
    /// Forward is above 0, and 120 are a step; 1 or -1 once there is one.
    int turn(int by) {
        constexpr int step = 120;
        turned_ += by;
        if (std::abs(turned_) < step) return 0;
        return std::exchange(turned_, 0) > 0 ? 1 : -1;
    }

  private:
    int turned_ = 0;
};

/// How a container's twips become pixels of a window.
class Scale {
  public:
    /// `pixels` of the window to one at 96 dots per inch; the container begins at its corner.
    explicit constexpr Scale(double pixels = 1) : pixels_(pixels) {}

    /// The largest scale at which an area of so many twips fits a window of that size, in its
    /// middle.
    static Scale fitted(Twips width, Twips height, PixelSize window);

    /// For what is inside an element whose own window begins at its corner: nothing lies elsewhere
    /// than it would without that window.
    Scale inside(const Element& element) const;

    constexpr double pixels() const { return pixels_; }

    constexpr double length(Twips twips) const { return twips * pixels_ / twips_per_pixel; }

    /// Whole pixels by the element's edges, so that neighbours neither overlap nor gap.
    PixelRect place_of(const Element& element) const {
        return {across(element.Left), down(element.Top), across(element.Left + element.Width),
                down(element.Top + element.Height)};
    }

    /// A length designed in pixels at 96 dots per inch.
    int scaled(double length) const { return static_cast<int>(std::lround(length * pixels_)); }

    /// The twip across or down the container that the pixel at this place of the window shows: an
    /// element takes the mouse where it is painted.
    Twips twips_across(double place) const { return twips(place, across_); }
    Twips twips_down(double place) const { return twips(place, down_); }
    /// The whole twips in a length.
    Twips twips(double length) const { return static_cast<Twips>(length * to_twips()); }

    friend bool operator==(const Scale&, const Scale&) = default;

  private:
    /// Where the container begins: in twips of the form, and before which pixel of the form's
    /// window its own window does.
    struct Start {
        Twips twips = 0;
        int pixels = 0;
        friend bool operator==(const Start&, const Start&) = default;
    };

    int edge(Twips twips, Start start) const {
        return static_cast<int>(std::lround(length(start.twips + twips))) - start.pixels;
    }
    int across(Twips twips) const { return edge(twips, across_); }
    int down(Twips twips) const { return edge(twips, down_); }
    double to_twips() const { return twips_per_pixel / pixels_; }
    Twips twips(double place, Start start) const {
        constexpr double middle = 0.49;  // an edge in the middle is rounded up
        const double twips = (std::floor(place) + start.pixels + middle) * to_twips();
        return static_cast<Twips>(std::floor(twips)) - start.twips;
    }

    double pixels_;
    Start across_;
    Start down_;
};

}  // namespace solvanta
