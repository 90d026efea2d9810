#include "front_ends/win32/window_parts.h"

#include "text/windows_text.h"

namespace solvanta::win32 {
namespace {

RECT place_in_parent(HWND control) {
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

bool is_shown(HWND control) {
    return (GetWindowLongPtrW(control, GWL_STYLE) & WS_VISIBLE) != 0;
}

}  // namespace

void sync_place(HWND control, const Element& element, const Scale& scale) {
    // What reaches beyond the parent would be cut off, a scroll bar included.
    const RECT room = client_area(GetParent(control));
    RECT place = to_rect(scale.place_of(element));
    IntersectRect(&place, &place, &room);
    const RECT before = place_in_parent(control);
    // A minimised window has no room, but its controls keep their places.
    if (!IsRectEmpty(&place) && !EqualRect(&place, &before)) {
        const SIZE size = size_of(place);
        SetWindowPos(control, nullptr, place.left, place.top, size.cx, size.cy,
                     SWP_NOZORDER | SWP_NOACTIVATE);
    }
    if (is_shown(control) != element.Visible) {
        ShowWindow(control, element.Visible ? SW_SHOWNA : SW_HIDE);
    }
}

bool sync_text(HWND control, const std::string& text, HFONT font) {
    const bool changes = text_of(control) != text;
    if (changes) SetWindowTextW(control, to_utf16(text).c_str());
    if (reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)) != font) {
        SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    }
    return changes;
}

std::string text_of(HWND control) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(control)) + 1, L'\0');
    const int length = GetWindowTextW(control, text.data(), static_cast<int>(text.size()));
    return to_utf8({text.data(), static_cast<std::size_t>(length)});
}

}  // namespace solvanta::win32
