#pragma once

#include <string>

#include "front_ends/common/voice.h"

namespace solvanta::qt {

class Canvas;

/// Has every canvas with places answer to the desktop's accessibility service.
void install_accessibility();

/// Whether anybody listens.
bool is_heard();

/// Tells the service what has become of a canvas.
void tell(Canvas& canvas, const News& news);

/// Has `text` said, where anybody listens.
void say(Canvas& canvas, const std::string& text);

}  // namespace solvanta::qt
