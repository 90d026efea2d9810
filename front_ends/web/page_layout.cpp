#include "front_ends/web/page_layout.h"

#include <algorithm>

#include "front_ends/common/scale.h"

namespace solvanta::web {
namespace {

// What the style sheet takes for itself.
constexpr double title_height = 30;
constexpr double links_height = 32;
constexpr double border = 2;
constexpr double bar_height = 100;
constexpr double bar_width = 132;

// Below this scale texts of 11 pixels can't be read, and a finger misses buttons up to the other.
constexpr double smallest_legible = 0.8;
constexpr double smallest_touchable = 1.6;

double scale_for(Size room, Size content, double largest) {
    return std::min(fitting_scale(content.width, content.height, room.width, room.height), largest);
}

}  // namespace

Layout layout_for(Size page, Size client, double cards_height, bool touched, double largest) {
    const double width = page.width - border;
    const double height = page.height - title_height - border;
    const double whole = scale_for({width, height - links_height}, client, largest);
    if (whole >= (touched ? smallest_touchable : smallest_legible)) return {whole, false, false};
    const Size cards{client.width, cards_height};
    const double above = scale_for({width, height - links_height - bar_height}, cards, largest);
    const double beside = scale_for({width - bar_width, height}, cards, largest);
    return {std::max(above, beside), true, beside > above};
}

double scale_beside(Size page, Size client, double table_scale) {
    return scale_for({page.width - border, page.height - title_height - border}, client,
                     table_scale);
}

}  // namespace solvanta::web
