#pragma once

#include "front_ends/win32/canvas.h"

namespace solvanta::win32 {

/// Makes the system's control for each of the container's, in tab order, as children of `parent`,
/// and adds them to `parts`. What is seldom seen, the frame, what is in it, and pictures, is a
/// window of the system's only once it has been shown.
void build_controls(Container& container, const Canvas& parent, WindowParts& parts);

}  // namespace solvanta::win32
