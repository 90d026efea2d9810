#pragma once

#include <string>

#include <windows.h>

#include "platform/host.h"

namespace solvanta::win32 {

/// Shows a modal box over `owner`, which may be none, and waits until it has been closed. Meanwhile
/// `box` is its window; set to null, that of a box that the program itself closes.
Answer show_box(HWND owner, const std::string& text, Buttons buttons, HWND& box);

}  // namespace solvanta::win32
