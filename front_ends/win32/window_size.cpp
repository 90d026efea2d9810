#include "front_ends/win32/window_size.h"

#include <algorithm>

namespace solvanta::win32 {
namespace {

void move(HWND window, const RECT& to, UINT flags) {
    const SIZE size = size_of(to);
    SetWindowPos(window, nullptr, to.left, to.top, size.cx, size.cy,
                 flags | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

void WindowSize::open(const Form& form, HWND window) {
    form_ = &form;
    window_ = window;
    dpi_ = GetDpiForWindow(window);
    resize_to(std::min(1.0, largest_part()), {}, SWP_NOMOVE);
}

void WindowSize::come_to_screen(UINT dpi, const RECT& place) {
    const double part = this->part();
    dpi_ = dpi;
    if (IsZoomed(window_) || fills_screen_) {
        move(window_, place, 0);
    } else {
        resize_to(part, {place.left, place.top}, 0);
    }
}

/// Until the system has drawn it anew, the window may have the frame of another resolution.
void WindowSize::resize_to(double part, POINT corner, UINT flags) const {
    const auto resize = [&](SIZE size) {
        move(window_, {corner.x, corner.y, corner.x + size.cx, corner.y + size.cy}, flags);
    };
    const SIZE size = size_at(part);
    const SIZE wanted = client_size(part);
    resize(size);
    const SIZE client = size_of(client_area(window_));
    const SIZE lacking{wanted.cx - client.cx, wanted.cy - client.cy};
    if (lacking.cx != 0 || lacking.cy != 0) resize({size.cx + lacking.cx, size.cy + lacking.cy});
}

Scale WindowSize::scale() const {
    const SIZE client = size_of(client_area(window_));
    return Scale::fitted(form_->ClientWidth, form_->ClientHeight,
                         {static_cast<int>(client.cx), static_cast<int>(client.cy)});
}

SIZE WindowSize::client_size(double part) const {
    const Scale scale(part * scale_at(dpi_).pixels());
    return size_of(to_rect(scale.place_of({0, 0, form_->ClientWidth, form_->ClientHeight})));
}

SIZE WindowSize::size_at(double part) const {
    const SIZE client = client_size(part);
    RECT rect{0, 0, client.cx, client.cy};
    AdjustWindowRectExForDpi(&rect, window_style, FALSE, extended_window_style, dpi_);
    return size_of(rect);
}

/// The part of its designed size at which the window just fits its screen.
double WindowSize::largest_part() const {
    const SIZE free = size_of(work_area(window_));
    RECT frame{};
    AdjustWindowRectExForDpi(&frame, window_style, FALSE, extended_window_style, dpi_);
    const Scale designed = scale_at(dpi_);
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
    if (part() > largest_part()) resize_to(largest_part(), {}, SWP_NOMOVE);
    const RECT free = work_area(window_);
    RECT rect{};
    GetWindowRect(window_, &rect);
    const LONG left = std::max(free.left, std::min(rect.left, free.right - size_of(rect).cx));
    const LONG top = std::max(free.top, std::min(rect.top, free.bottom - size_of(rect).cy));
    move(window_, {left, top, left, top}, SWP_NOSIZE);
}

void WindowSize::enlarge_to(double part) {
    fill_screen(false);
    if (IsZoomed(window_)) ShowWindow(window_, SW_RESTORE);
    resize_to(std::min(part, largest_part()), {}, SWP_NOMOVE);
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
        move(window_, monitor.rcMonitor, SWP_FRAMECHANGED);
    } else {
        SetWindowLongPtrW(window_, GWL_STYLE, others | WS_OVERLAPPEDWINDOW);
        SetWindowPlacement(window_, &before_);
        move(window_, {}, SWP_NOMOVE | SWP_NOSIZE | SWP_FRAMECHANGED);
    }
}

bool WindowSize::take(const MSG& message) {
    const bool is_key = message.message == WM_KEYDOWN;
    if (!is_key && message.message != WM_MOUSEWHEEL) return false;
    const bool control = GetKeyState(VK_CONTROL) < 0;
    if (is_key) return control ? take_with_control(message.wParam) : take_key(message.wParam);
    if (!control) return false;
    const int step = wheel_.turn(GET_WHEEL_DELTA_WPARAM(message.wParam));
    if (step != 0) enlarge_to(next_part(part(), step > 0));
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
