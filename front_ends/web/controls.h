#pragma once

#include "front_ends/web/canvas.h"

namespace solvanta::web {

/// Makes the page's element for each control of the container, in tab order, within `area`, and
/// adds to `parts` what keeps them in line; `canvas` is the container's.
void build_controls(Container& container, const Canvas& canvas, const Node& area,
                    WindowParts& parts);

}  // namespace solvanta::web
