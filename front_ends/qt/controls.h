#pragma once

#include "front_ends/qt/window_parts.h"

namespace solvanta::qt {

/// Makes the toolkit's control for each of the container's, in tab order, as children of `parent`,
/// and adds to `parts` what keeps them in line with their elements.
void build_controls(Container& container, QWidget& parent, WindowParts& parts);

}  // namespace solvanta::qt
