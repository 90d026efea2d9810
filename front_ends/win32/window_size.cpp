#include "front_ends/win32/window_size.h"

#include <algorithm>

namespace solvanta::win32 {
namespace {

void place(HWND window, const RECT& place, UINT flags) {
    const SIZE size = size_of(place);
    SetWindowPos(window, nullptr, place.left, place.top, size.cx, size.cy,
                 flags | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

void WindowSize::open(const Form& form, HWND window) {
    form_ = &form;
    window_ = window;
    const SIZE size = size_at(std::min(1.0, largest_part()));
    place(window_, {0, 0, size.cx, size.cy}, SWP_NOMOVE);
}

Scale WindowSize::scale() const {
    const SIZE client = size_of(client_area(window_));
    return Scale::fitted(form_->ClientWidth, form_->ClientHeight,
                         {static_cast<int>(client.cx), static_cast<int>(client.cy)});
}

/// Of the window with its frame.
SIZE WindowSize::size_at(double part) const {
    const Scale scale(part * scale_at(dpi()).pixels());
    RECT rect = to_rect(scale.place_of({0, 0, form_->ClientWidth, form_->ClientHeight}));
    AdjustWindowRectExForDpi(&rect, window_style, FALSE, extended_window_style, dpi());
    return size_of(rect);
}

/// The part of its designed size at which the window just fits its screen.
double WindowSize::largest_part() const {
    const SIZE free = size_of(work_area(window_));
    RECT frame{};
    AdjustWindowRectExForDpi(&frame, window_style, FALSE, extended_window_style, dpi());
    const Scale designed = scale_at(dpi());
    return std::max(
        smallest_part,
        fitting_scale(designed.length(form_->ClientWidth), designed.length(form_->ClientHeight),
                      free.cx - size_of(frame).cx, free.cy - size_of(frame).cy));
}

void WindowSize::limit(MINMAXINFO& limits) const {
    const SIZE size = size_at(smallest_part);
    limits.ptMinTrackSize = {size.cx, size.cy};
}

void WindowSize::stay_on_screen() const {
    if (IsZoomed(window_) || IsIconic(window_) || fills_screen_) return;
    const RECT free = work_area(window_);
    RECT rect{};
    GetWindowRect(window_, &rect);
    SIZE size = size_of(rect);
    if (size.cx > size_of(free).cx || size.cy > size_of(free).cy) {
        size = size_at(std::min(part(), largest_part()));
    }
    const LONG left = std::clamp(rect.left, free.left, std::max(free.left, free.right - size.cx));
    const LONG top = std::clamp(rect.top, free.top, std::max(free.top, free.bottom - size.cy));
    place(window_, {left, top, left + size.cx, top + size.cy}, 0);
}

void WindowSize::enlarge_to(double part) {
    fill_screen(false);
    if (IsZoomed(window_)) ShowWindow(window_, SW_RESTORE);
    const SIZE size = size_at(std::min(part, largest_part()));
    place(window_, {0, 0, size.cx, size.cy}, SWP_NOMOVE);
    stay_on_screen();
}

void WindowSize::fill_screen(bool fill) {
    if (fill == fills_screen_) return;
    fills_screen_ = fill;
    const LONG_PTR others = GetWindowLongPtrW(window_, GWL_STYLE) & ~LONG_PTR{WS_OVERLAPPEDWINDOW};
    if (fill) {
        before_.length = sizeof before_;
        GetWindowPlacement(window_, &before_);
        MONITORINFO monitor{};
        monitor.cbSize = sizeof monitor;
        GetMonitorInfoW(MonitorFromWindow(window_, MONITOR_DEFAULTTONEAREST), &monitor);
        SetWindowLongPtrW(window_, GWL_STYLE, others);
        place(window_, monitor.rcMonitor, SWP_FRAMECHANGED);
    } else {
        SetWindowLongPtrW(window_, GWL_STYLE, others | WS_OVERLAPPEDWINDOW);
        SetWindowPlacement(window_, &before_);
        place(window_, {}, SWP_NOMOVE | SWP_NOSIZE | SWP_FRAMECHANGED);
    }
}

bool WindowSize::take(const MSG& message) {
    const bool control = GetKeyState(VK_CONTROL) < 0;
    if (message.message == WM_KEYDOWN)
        return control ? take_with_control(message.wParam) : take_key(message.wParam);
    if (message.message != WM_MOUSEWHEEL || !control) return false;
    enlarge_to(next_part(part(), GET_WHEEL_DELTA_WPARAM(message.wParam) > 0));
    return true;
}

bool WindowSize::take_key(WPARAM key) {
    if (key != VK_F11 && (key != VK_ESCAPE || !fills_screen_)) return false;
    fill_screen(!fills_screen_);
    return true;
}

bool WindowSize::take_with_control(WPARAM key) {
    // By what stands on the key: layouts have these at several places.
    switch (MapVirtualKeyW(static_cast<UINT>(key), MAPVK_VK_TO_CHAR)) {
        case '+':
        case '=':  // below the plus
            enlarge_to(next_part(part(), true));
            return true;
        case '-':
            enlarge_to(next_part(part(), false));
            return true;
        case '0':
            enlarge_to(1);
            return true;
    }
    return false;
}

}  // namespace solvanta::win32
