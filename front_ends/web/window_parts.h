#pragma once

#include <functional>
#include <map>
#include <vector>

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
    Scale scale{1};                                    ///< pixels of the page to one of the form
    bool fine = false;                                 ///< for a screen with more pixels than that
    std::vector<std::function<void()>> syncs;          ///< each brings one element in line
    std::map<const TextBox*, Node> text_boxes;
};

}  // namespace solvanta::web
