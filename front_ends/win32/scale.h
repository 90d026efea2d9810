#pragma once

#include <windows.h>

#include "front_ends/common/scale.h"

namespace solvanta::win32 {

/// Twips in device pixels on a screen of `dpi` dots per inch.
inline Scale scale_at(UINT dpi) {
    return Scale(static_cast<double>(dpi) / USER_DEFAULT_SCREEN_DPI);
}

inline RECT to_rect(const PixelRect& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

inline SIZE size_of(const RECT& rect) {
    return {rect.right - rect.left, rect.bottom - rect.top};
}

inline RECT client_area(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    return area;
}

}  // namespace solvanta::win32
