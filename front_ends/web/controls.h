#pragma once

#include "front_ends/web/window_parts.h"

namespace solvanta::web {

/// Makes the page's element for each control of the container, in tab order, within `area`, and
/// adds to `parts` what keeps them in line.
void build_controls(Container& container, const Node& area, WindowParts& parts);

}  // namespace solvanta::web
