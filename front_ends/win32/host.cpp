#include "front_ends/win32/host.h"

#include <algorithm>
#include <utility>

#include <commctrl.h>

#include "front_ends/win32/locale_texts.h"
#include "front_ends/win32/message_box.h"
#include "text/windows_text.h"

namespace solvanta::win32 {

FormWindow& Win32Host::create_window(Form& form) {
    WindowParts parts{.deliver = [this](Event event) { deliver(std::move(event)); },
                      .pictures = pictures_,
                      .scale = Scale(),
                      .background = {},
                      .controls = {},
                      .text_boxes = {},
                      .hide_ring = {}};
    return add(std::make_unique<FormWindow>(
        form, std::move(parts), [this](FormWindow& closed) { close(closed); },
        [this] { to_box(); }));
}

/// The system's call returns when the box has been closed, and handles messages until then.
void Win32Host::open_box(const std::string& text, Buttons buttons) {
    soon([this, text, buttons] {
        if (!box_is_open()) return;
        HWND owner = owner_for_box();
        enable_all_but(owner, false);
        const Answer given = show_box(owner, text, buttons, box_);
        enable_all_but(owner, true);
        answer(given);
    });
}

void Win32Host::close_box() {
    SendMessageW(std::exchange(box_, nullptr), TDM_CLICK_BUTTON, IDCANCEL, 0);
}

void Win32Host::soon(Event act) {
    soon_.push_back(std::move(act));
    PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);  // there may be no other to wait for
}

std::string Win32Host::program_directory() const {
    constexpr DWORD longest_path = 0x8000;
    std::wstring path(longest_path, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), longest_path));
    return to_utf8(path.substr(0, path.find_last_of(L'\\')));
}

LocalTime Win32Host::local_time() const {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute};
}

LocaleTexts Win32Host::locale_texts() const {
    return user_texts();
}

int Win32Host::run() {
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        handle(message);
    return static_cast<int>(message.wParam);
}

void Win32Host::handle(MSG& message) {
    HWND window = GetAncestor(message.hwnd, GA_ROOT);
    const auto takes = [&](const Owner& one) {
        return one->handle() == window && one->take(message);
    };
    // The keys that lead from control to control are those of every dialog.
    const bool is_key = message.message == WM_KEYDOWN;
    if (!std::any_of(windows().begin(), windows().end(), takes) &&
        (!is_key || !IsDialogMessageW(window, &message))) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    while (!soon_.empty()) {
        const Event act = std::move(soon_.front());
        soon_.pop_front();
        run_safely(act);
    }
}

bool Win32Host::come_forward() {
    if (is_quitting() || windows().empty()) return false;
    windows().front()->bring_forward();
    to_box();
    return true;
}

/// Brings the box forward if one is open, with its owner out of its icon, and flashes it as the
/// system does with the box of a disabled window that is clicked.
void Win32Host::to_box() const {
    if (!box_) return;
    HWND owner = GetWindow(box_, GW_OWNER);
    if (IsIconic(owner)) ShowWindow(owner, SW_RESTORE);
    SetForegroundWindow(box_);
    FLASHWINFO flash{sizeof flash, box_, FLASHW_CAPTION, 3, 0};
    FlashWindowEx(&flash);
}

HWND Win32Host::owner_for_box() const {
    HWND owner = nullptr;
    for (const Owner& window : windows()) {
        if (window->handle() == GetActiveWindow()) return window->handle();
        if (!owner && IsWindowVisible(window->handle())) owner = window->handle();
    }
    return owner;
}

/// The system itself keeps input from the owner of a box alone.
void Win32Host::enable_all_but(HWND owner, bool enable) const {
    for (const Owner& window : windows()) {
        if (window->handle() != owner) EnableWindow(window->handle(), enable ? TRUE : FALSE);
    }
}

void Win32Host::sync() {
    WindowHost::sync();
    pictures_.keep_only(loads());
}

}  // namespace solvanta::win32
