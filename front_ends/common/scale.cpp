#include "front_ends/common/scale.h"

#include <algorithm>

namespace solvanta {

double fitting_scale(double content_width, double content_height, double room_width,
                     double room_height) {
    constexpr double smallest = 0.05;  // of a window that is as good as closed
    return std::max(smallest, std::min(room_width / content_width, room_height / content_height));
}

double next_part(double part, bool larger) {
    constexpr double parts[] = {smallest_part, 0.75, 1, 1.25, 1.5, 2, 2.5, 3, 4, 5, 6, 8};
    constexpr double alike = 0.02;  // a window is never quite as large as asked for
    if (!larger) {
        const auto* next = std::lower_bound(std::begin(parts), std::end(parts), part - alike);
        return next == std::begin(parts) ? *next : *std::prev(next);
    }
    const auto* next = std::upper_bound(std::begin(parts), std::end(parts), part + alike);
    return next == std::end(parts) ? part : *next;
}

Scale Scale::fitted(Twips width, Twips height, PixelSize window) {
    constexpr double unit = twips_per_pixel;
    Scale scale(fitting_scale(width / unit, height / unit, window.width, window.height));
    const auto margin = [&](int room, Twips filled) {
        return std::max(0, (room - scale.edge(filled, {})) / 2);
    };
    scale.across_.pixels = -margin(window.width, width);
    scale.down_.pixels = -margin(window.height, height);
    return scale;
}

Scale Scale::inside(const Element& element) const {
    Scale inner(pixels_);
    inner.across_ = {element.Left, edge(element.Left, {})};
    inner.down_ = {element.Top, edge(element.Top, {})};
    return inner;
}

}  // namespace solvanta
