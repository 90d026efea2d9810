#include "front_ends/win32/host.h"

#include <uxtheme.h>

#include "front_ends/win32/locale_texts.h"
#include "text/windows_text.h"

namespace solvanta::win32 {

Win32Host::Win32Host() {
    BufferedPaintInit();
}

Win32Host::~Win32Host() {
    clear();
    BufferedPaintUnInit();
}

FormWindow& Win32Host::create_window(Form& form) {
    return add(std::make_unique<FormWindow>(
        form, pictures_, [this](const Event& event) { deliver(event); },
        [this](FormWindow& window) { close(window); }));
}

Answer Win32Host::message(const std::string& text, Buttons buttons) {
    if (is_quitting()) return answer_of_closing(buttons);
    sync();
    for (const Owner& window : windows())
        UpdateWindow(window->handle());
    return boxes_.ask(owner_of_box(), text, buttons);
}

std::string Win32Host::program_directory() const {
    std::wstring path(MAX_PATH, L'\0');
    DWORD length = 0;
    while ((length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()))) >=
           path.size()) {
        path.resize(2 * path.size());
    }
    path.resize(length);
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
    // The keys that lead from control to control are those of every dialog.
    const bool is_key = message.message == WM_KEYDOWN;
    if (!is_key || !IsDialogMessageW(GetAncestor(message.hwnd, GA_ROOT), &message)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    destroy_forgotten();
}

HWND Win32Host::owner_of_box() const {
    HWND owner = nullptr;
    for (const Owner& window : windows()) {
        if (window->handle() == GetActiveWindow()) return window->handle();
        if (!owner && IsWindowVisible(window->handle())) owner = window->handle();
    }
    return owner;
}

void Win32Host::sync() {
    WindowHost::sync();
    pictures_.keep_only(loads());
}

/// Not yet: the system may be in the midst of a message of theirs.
void Win32Host::destroy(std::vector<Owner>& /*forgotten*/) {}

}  // namespace solvanta::win32
