#include "front_ends/win32/form_window.h"

#include <algorithm>

#include "front_ends/common/walk.h"
#include "front_ends/win32/controls.h"
#include "front_ends/win32/resource.h"
#include "front_ends/win32/table_stop.h"

namespace solvanta::win32 {
namespace {

/// The timer that runs out when the size has not changed for a while; the form's own begin at 1.
constexpr UINT_PTR rest_timer = 1000;

/// How long the machine has been running, without what it slept.
Ticks::Time time_awake() {
    constexpr ULONGLONG per_millisecond = 10'000;
    ULONGLONG time = 0;
    QueryUnbiasedInterruptTime(&time);
    return Ticks::Time(time / per_millisecond);
}

/// Sent to a window by itself once it has been activated though it is disabled.
constexpr UINT active_below_box = WM_USER;

bool takes_focus(HWND window) {
    return IsWindowVisible(window) != FALSE && IsWindowEnabled(window) != FALSE &&
           IsWindowEnabled(GetParent(window)) != FALSE;
}

void move_to(HWND window, POINT corner) {
    SetWindowPos(window, nullptr, corner.x, corner.y, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

/// Puts a window in the middle of `free`, its corner in any case in it.
void centre(HWND window, const RECT& free) {
    RECT place{};
    GetWindowRect(window, &place);
    const SIZE size = size_of(place);
    const SIZE room = size_of(free);
    move_to(window, {free.left + std::max(0L, (room.cx - size.cx) / 2),
                     free.top + std::max(0L, (room.cy - size.cy) / 2)});
}

}  // namespace

FormWindow::FormWindow(Form& form, WindowParts parts, std::function<void(FormWindow&)> close_box,
                       std::function<void()> to_box)
    : Canvas(form, nullptr, parts_),
      form_(form),
      parts_(std::move(parts)),
      close_box_(std::move(close_box)),
      to_box_(std::move(to_box)) {
    create(plain_class(), window_style, extended_window_style, nullptr);
    parts_.background = form.BackColor;
    const bool centred = form.Place == OpeningPlace::Centered;
    const RECT free = work_area(centred && GetActiveWindow() ? GetActiveWindow() : handle());
    // On its screen first, whose resolution makes its size.
    if (centred) move_to(handle(), {free.left, free.top});
    size_.open(form, handle());
    parts_.scale = size_.scale();
    load_icons(GetDpiForWindow(handle()));
    if (centred) centre(handle(), free);
    build_controls(form, *this, parts_);
    if (has_key_stops(form))
        parts_.controls.push_back(std::make_unique<TableStop>(form, parts_, handle()));
    // Whether the focus is marked follows the player's habits, as in every dialog.
    SendMessageW(handle(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_INITIALIZE, 0), 0);
    for (const Timer* timer : form.timers) {
        if (timer->Interval <= 0) continue;
        ticks_.emplace_back(timer, Ticks(Ticks::Time(timer->Interval), time_awake()));
        tick(ticks_.size() - 1);
    }
}

void FormWindow::load_icons(UINT dpi) {
    if (!form_.HasIcon) return;
    for (const std::size_t kind : {std::size_t{ICON_SMALL}, std::size_t{ICON_BIG}}) {
        const int side = GetSystemMetricsForDpi(kind == ICON_SMALL ? SM_CXSMICON : SM_CXICON, dpi);
        // Shared icons would keep the size that was asked for first.
        HANDLE icon = LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_SOLVANTA),
                                 IMAGE_ICON, side, side, LR_DEFAULTCOLOR);
        SendMessageW(handle(), WM_SETICON, kind, reinterpret_cast<LPARAM>(icon));
        icons_.at(kind).reset(static_cast<HICON>(icon));
    }
}

void FormWindow::lay_out() {
    parts_.scale = size_.scale();
    sync();
    RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

LRESULT FormWindow::come_to_rest() {
    KillTimer(handle(), rest_timer);
    parts_.pictures.quick(false);
    RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
    return 0;
}

std::optional<LRESULT> FormWindow::answer_size(const Message& message) {
    if (message.id == WM_GETMINMAXINFO) {
        size_.limit(*reinterpret_cast<MINMAXINFO*>(message.l));
    } else if (message.id != WM_SIZE) {
        size_.stay_on_screen();
    } else if (message.w != SIZE_MINIMIZED && IsWindowVisible(handle()) != FALSE &&
               size_.scale() != parts_.scale) {
        parts_.pictures.quick(true);
        SetTimer(handle(), rest_timer, rest_milliseconds, nullptr);
        lay_out();
    }
    return std::nullopt;
}

void FormWindow::sync() {
    sync_text(handle(), form_.Caption, nullptr);
    sync_controls();
    // Hidden or disabled, a control keeps the focus and goes on taking keys.
    HWND focused = GetFocus();
    if (IsChild(handle(), focused) && !takes_focus(focused)) {
        const bool goes_back = before_box_ != nullptr && takes_focus(before_box_);
        find_focus(goes_back ? before_box_ : focused);
    }
    Canvas::sync();
}

/// Those made in between come to their places in tab order.
void FormWindow::sync_controls() {
    bool made = false;
    for (const auto& control : parts_.controls) {
        const bool was_made = control->handle() != nullptr;
        control->sync();
        made |= was_made != (control->handle() != nullptr);
    }
    if (!made) return;
    for (const auto& control : parts_.controls)
        SetWindowPos(control->handle(), HWND_BOTTOM, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void FormWindow::bring_forward() {
    ShowWindow(handle(), IsIconic(handle()) ? SW_RESTORE : SW_SHOW);
    BringWindowToTop(handle());
    SetForegroundWindow(handle());
}

bool FormWindow::focus(const TextBox& box) {
    const auto found = parts_.text_boxes.find(&box);
    if (found == parts_.text_boxes.end()) return false;
    if (IsChild(handle(), GetFocus()) && GetFocus() != found->second) before_box_ = GetFocus();
    last_focus_ = found->second;
    SetFocus(found->second);
    return true;
}

void FormWindow::let_go() {
    ignore_messages();
    for (const auto& control : parts_.controls)
        control->ignore_messages();
    hide();
}

std::optional<LRESULT> FormWindow::answer(const Message& message) {
    switch (message.id) {
        case WM_TIMER:
            return message.w == rest_timer ? come_to_rest() : tick(message.w - 1);
        case WM_CLOSE:
        case WM_QUERYENDSESSION:
        case WM_ENDSESSION:
            return answer_end(message);
        case WM_ACTIVATE:
        case WM_SETFOCUS:
        case WM_SYSCOMMAND:
            return answer_focus(message);
        case WM_SIZE:
            answer_size(message);
            return answer_focus(message);
        case WM_GETMINMAXINFO:
        case WM_DISPLAYCHANGE:
        case WM_SETTINGCHANGE:
            return answer_size(message);
        case active_below_box:
            to_box_();
            return 0;
        case WM_SYSCOLORCHANGE:
            return change_colors();
        case WM_DPICHANGED:
            return come_to_screen(LOWORD(message.w), *reinterpret_cast<const RECT*>(message.l));
        case WM_CTLCOLORBTN:
            return ground_of_button(reinterpret_cast<HDC>(message.w));
    }
    return Canvas::answer(message);
}

/// Asks for the next timer message.
LRESULT FormWindow::tick(std::size_t timer) {
    auto& [element, ticks] = ticks_.at(timer);
    const Ticks::Time now = time_awake();
    const bool is_due = ticks.take(now);
    SetTimer(handle(), timer + 1, static_cast<UINT>(ticks.until_next(now).count()), nullptr);
    if (is_due) parts_.deliver(element->Tick);
    return 0;
}

/// The desktop may ask whether it may end, and then go on.
LRESULT FormWindow::answer_end(const Message& message) {
    if (message.id == WM_QUERYENDSESSION) {
        parts_.deliver(form_.Saving);
        return TRUE;
    }
    if (message.id == WM_CLOSE || message.w != FALSE) close_box_(*this);
    return 0;
}

/// The keyboard focus belongs to a control, never to the window itself. Minimising takes it away
/// without a word, and restoring does not bring it back.
std::optional<LRESULT> FormWindow::answer_focus(const Message& message) {
    HWND focused = GetFocus();
    if (message.id == WM_ACTIVATE && message.w != WA_INACTIVE && !IsWindowEnabled(handle())) {
        PostMessageW(handle(), active_below_box, 0, 0);
    }
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

LRESULT FormWindow::come_to_screen(UINT dpi, const RECT& place) {
    load_icons(dpi);
    size_.come_to_screen(dpi, place);
    lay_out();
    return 0;
}

/// The system tells only windows like this one.
LRESULT FormWindow::change_colors() {
    for (const auto& control : parts_.controls)
        SendMessageW(control->handle(), WM_SYSCOLORCHANGE, 0, 0);
    RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
    return 0;
}

/// The brush for what shows around a button with round corners.
LRESULT FormWindow::ground_of_button(HDC dc) const {
    SetDCBrushColor(dc, to_ground(parts_.background));
    return reinterpret_cast<LRESULT>(GetStockObject(DC_BRUSH));
}

}  // namespace solvanta::win32
