#pragma once

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <vector>

#include "front_ends/common/picture_files.h"
#include "front_ends/web/node.h"
#include "front_ends/web/pictures.h"

namespace solvanta::web {

/// Runs one event of an element and then brings all windows in line with their forms.
using Deliver = std::function<void(Event)>;

/// What the elements of one window share.
struct WindowParts {
    Deliver deliver;
    Pictures& pictures;
    std::function<void(const std::string&)> announce;  ///< says something to those who listen
    Scale scale;                                       ///< of the form in pixels of the page
    double ratio = 1;                                  ///< pixels of the screen to one of the page
    std::vector<std::function<void()>> syncs;          ///< each brings one element in line
    std::map<const TextBox*, Node> text_boxes;

    /// For how many times their size pictures are best prepared.
    int prepared() const {
        constexpr double rounding = 0.001;
        const double times = std::ceil(scale.pixels() * ratio - rounding);
        return std::clamp(static_cast<int>(times), 1, largest_prepared);
    }
};

}  // namespace solvanta::web
