#include "front_ends/win32/form_window.h"

#include <algorithm>

#include "front_ends/win32/controls.h"
#include "front_ends/win32/resource.h"
#include "front_ends/win32/scale.h"

namespace solvanta::win32 {
namespace {

constexpr DWORD style = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN;

bool takes_focus(HWND window) {
    return IsWindowVisible(window) != FALSE && IsWindowEnabled(window) != FALSE &&
           IsWindowEnabled(GetParent(window)) != FALSE;
}

/// The part of the screen that no bar of the desktop covers.
RECT work_area(HWND window) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

}  // namespace

FormWindow::FormWindow(Form& form, Pictures& pictures, Deliver deliver,
                       std::function<void(FormWindow&)> close_box)
    : CanvasWindow(form, parts_),
      form_(form),
      parts_{std::move(deliver), pictures, {}, USER_DEFAULT_SCREEN_DPI, 0, {}, {}},
      close_box_(std::move(close_box)) {
    create(plain_class(), style, WS_EX_CONTROLPARENT, nullptr);
    parts_.dpi = static_cast<int>(GetDpiForWindow(handle()));
    if (form.HasIcon) load_icons();
    set_background();
    size_and_place();
    build_controls(form, handle(), parts_);
    // Whether the focus is marked follows the player's habits, as in every dialog.
    SendMessageW(handle(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_INITIALIZE, 0), 0);
    start_timers();
}

FormWindow::~FormWindow() {
    let_go();
}

void FormWindow::load_icons() {
    for (const int kind : {ICON_SMALL, ICON_BIG}) {
        const int side = GetSystemMetricsForDpi(kind == ICON_SMALL ? SM_CXSMICON : SM_CXICON,
                                                static_cast<UINT>(parts_.dpi));
        HANDLE icon = LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_SOLVANTA),
                                 IMAGE_ICON, side, side, LR_SHARED);
        SendMessageW(handle(), WM_SETICON, static_cast<WPARAM>(kind),
                     reinterpret_cast<LPARAM>(icon));
    }
}

void FormWindow::set_background() {
    parts_.background = form_.BackColor ? to_color(*form_.BackColor) : GetSysColor(COLOR_BTNFACE);
}

/// The window around a client area of the form's size.
RECT FormWindow::outer_rect(int dpi) const {
    RECT rect{0, 0, to_pixels(form_.ClientWidth, dpi), to_pixels(form_.ClientHeight, dpi)};
    AdjustWindowRectExForDpi(&rect, style, FALSE, WS_EX_CONTROLPARENT, static_cast<UINT>(dpi));
    return rect;
}

void FormWindow::size_and_place() {
    const SIZE size = size_of(outer_rect(parts_.dpi));
    UINT flags = SWP_NOZORDER | SWP_NOACTIVATE;
    RECT free = work_area(handle());
    if (form_.Place == OpeningPlace::SystemChoice) flags |= SWP_NOMOVE;
    const SIZE room = size_of(free);
    SetWindowPos(handle(), nullptr, free.left + std::max<LONG>(0, (room.cx - size.cx) / 2),
                 free.top + std::max<LONG>(0, (room.cy - size.cy) / 2), size.cx, size.cy, flags);
}

void FormWindow::start_timers() {
    for (const Timer* timer : form_.timers) {
        if (timer->Interval > 0) timers_.emplace_back(*timer, handle(), timers_.size() + 1);
    }
}

void FormWindow::sync() {
    sync_text(handle(), form_.Caption, nullptr);
    for (const auto& control : parts_.controls)
        control->sync();
    // Hidden or disabled, a control keeps the focus and goes on taking keys.
    HWND focused = GetFocus();
    if (IsChild(handle(), focused) && !takes_focus(focused)) find_focus(focused);
    InvalidateRect(handle(), nullptr, FALSE);
}

void FormWindow::bring_forward() {
    ShowWindow(handle(), IsIconic(handle()) ? SW_RESTORE : SW_SHOW);
    BringWindowToTop(handle());
    SetForegroundWindow(handle());
}

void FormWindow::hide() {
    ShowWindow(handle(), SW_HIDE);
}

bool FormWindow::focus(const TextBox& box) {
    const auto found = parts_.text_boxes.find(&box);
    if (found == parts_.text_boxes.end()) return false;
    last_focus_ = found->second;
    SetFocus(found->second);
    return true;
}

void FormWindow::let_go() {
    for (const SteadyTimer& timer : timers_)
        timer.stop();
    ignore_messages();
    for (const auto& control : parts_.controls)
        control->ignore_messages();
    hide();
}

void FormWindow::paint(HDC dc) {
    RECT area{};
    GetClientRect(handle(), &area);
    fill(dc, area, parts_.background);
    paint_elements(dc);
}

std::optional<LRESULT> FormWindow::answer(const Message& message) {
    switch (message.id) {
        case WM_CLOSE:
            close_box_(*this);
            return 0;
        case WM_TIMER:
            tick(message.w);
            return 0;
        case WM_CTLCOLORBTN:
            return ground_of_button(reinterpret_cast<HDC>(message.w));
        case WM_ACTIVATE:
        case WM_SETFOCUS:
        case WM_SIZE:
        case WM_SYSCOMMAND:
            return answer_focus(message);
        case WM_GETDPISCALEDSIZE:
        case WM_DPICHANGED:
            return answer_dpi(message);
        default:
            break;
    }
    const auto result = answer_desktop(message);
    return result ? result : CanvasWindow::answer(message);
}

/// The brush for what shows around a button with round corners.
LRESULT FormWindow::ground_of_button(HDC dc) const {
    SetDCBrushColor(dc, parts().background);
    return reinterpret_cast<LRESULT>(GetStockObject(DC_BRUSH));
}

void FormWindow::tick(UINT_PTR id) {
    const auto timer = std::find_if(timers_.begin(), timers_.end(),
                                    [id](const SteadyTimer& each) { return each.id() == id; });
    if (timer != timers_.end() && timer->tick_is_due()) parts_.deliver(timer->timer().Tick);
}

/// The keyboard focus belongs to a control, never to the window itself. Minimising takes it away
/// without a word, and restoring does not bring it back.
std::optional<LRESULT> FormWindow::answer_focus(const Message& message) {
    HWND focused = GetFocus();
    if (message.id == WM_SETFOCUS) {
        HWND from = reinterpret_cast<HWND>(message.w);
        find_focus(IsChild(handle(), from) ? from : last_focus_);
        return 0;
    }
    if (IsChild(handle(), focused)) {
        last_focus_ = focused;
    } else if (message.id == WM_SIZE && message.w == SIZE_RESTORED &&
               GetActiveWindow() == handle()) {
        find_focus(last_focus_);
    }
    return std::nullopt;
}

/// Gives the focus to `from`, or where that has become impossible to what follows in tab order.
void FormWindow::find_focus(HWND from) {
    HWND next = from;
    if (!from || !takes_focus(from)) next = GetNextDlgTabItem(handle(), from, FALSE);
    if (next && takes_focus(next)) SetFocus(next);
}

std::optional<LRESULT> FormWindow::answer_desktop(const Message& message) {
    switch (message.id) {
        case WM_QUERYENDSESSION:
            parts_.deliver(form_.Saving);
            return TRUE;
        case WM_ENDSESSION:
            if (message.w != FALSE) close_box_(*this);
            return 0;
        case WM_SYSCOLORCHANGE:
        case WM_THEMECHANGED:
            set_background();
            InvalidateRect(handle(), nullptr, FALSE);
            return std::nullopt;
        default:
            return std::nullopt;
    }
}

/// The window has come to a screen of another resolution, or is about to.
LRESULT FormWindow::answer_dpi(const Message& message) {
    if (message.id == WM_GETDPISCALEDSIZE) {
        *reinterpret_cast<SIZE*>(message.l) = size_of(outer_rect(static_cast<int>(message.w)));
        return TRUE;
    }
    parts_.dpi = LOWORD(message.w);
    const RECT& place = *reinterpret_cast<const RECT*>(message.l);
    const SIZE size = size_of(place);
    SetWindowPos(handle(), nullptr, place.left, place.top, size.cx, size.cy,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    if (form_.HasIcon) load_icons();
    sync();
    return 0;
}

}  // namespace solvanta::win32
