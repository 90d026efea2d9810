#pragma once

#include "front_ends/qt/canvas.h"

namespace solvanta::qt {

/// Makes the toolkit's control for each of the container's, in tab order, as children of `parent`,
/// and adds to `parts` what keeps them in line with their elements and the scale.
void build_controls(Container& container, Canvas& parent, WindowParts& parts);

}  // namespace solvanta::qt
