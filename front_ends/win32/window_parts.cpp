#include "front_ends/win32/window_parts.h"

#include "text/windows_text.h"

namespace solvanta::win32 {

bool is_shown(HWND control) {
    return (GetWindowLongPtrW(control, GWL_STYLE) & WS_VISIBLE) != 0;
}

void sync_place(HWND control, const Element& element, const Scale& scale) {
    HWND parent = GetParent(control);
    RECT before{};
    GetWindowRect(control, &before);
    MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&before), 2);
    // What reaches beyond the parent would be cut off, a scroll bar included.
    const RECT room = client_area(parent);
    RECT place = to_rect(scale.place_of(element));
    // A minimised window has no room, but its controls keep their places.
    if (IntersectRect(&place, &place, &room) && !EqualRect(&place, &before)) {
        const SIZE size = size_of(place);
        MoveWindow(control, place.left, place.top, size.cx, size.cy, TRUE);
    }
    if (is_shown(control) != element.Visible)
        ShowWindow(control, element.Visible ? SW_SHOWNA : SW_HIDE);
}

void sync_text(HWND control, const std::string& text, HFONT font) {
    if (text_of(control) != text) SetWindowTextW(control, to_utf16(text).c_str());
    if (reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)) != font) {
        SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    }
}

std::string text_of(HWND control) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(control)) + 1, L'\0');
    const int length = GetWindowTextW(control, text.data(), static_cast<int>(text.size()));
    return to_utf8({text.data(), static_cast<std::size_t>(length)});
}

}  // namespace solvanta::win32
