#include "front_ends/win32/host.h"

#include <algorithm>
#include <utility>

#include <uxtheme.h>

#include "front_ends/win32/locale_texts.h"
#include "platform/windows_text.h"

namespace solvanta::win32 {

/// Counts an event while it runs, also when it ends by an exception.
class Win32Host::RunningEvent {
  public:
    explicit RunningEvent(int& count) : count_(count) { ++count_; }
    RunningEvent(const RunningEvent&) = delete;
    RunningEvent& operator=(const RunningEvent&) = delete;
    ~RunningEvent() { --count_; }

  private:
    int& count_;
};

Win32Host::Win32Host() {
    BufferedPaintInit();
}

Win32Host::~Win32Host() {
    windows_.clear();
    forgotten_.clear();
    BufferedPaintUnInit();
}

void Win32Host::show(Form& form) {
    if (quitting_) return;
    FormWindow* window = window_of(form);
    if (!window) window = &create_window(form);
    window->sync();
    window->bring_forward();
}

FormWindow& Win32Host::create_window(Form& form) {
    windows_.push_back(std::make_unique<FormWindow>(
        form, pictures_, [this](const Event& event) { deliver(event); },
        [this](FormWindow& window) { close(window); }));
    return *windows_.back();
}

void Win32Host::hide(Form& form) {
    if (FormWindow* window = window_of(form)) window->hide();
}

Answer Win32Host::message(const std::string& text, Buttons buttons) {
    if (quitting_) return answer_of_closing(buttons);
    sync();
    for (const WindowOwner& window : windows_)
        UpdateWindow(window->handle());
    return boxes_.ask(owner_of_box(), text, buttons);
}

void Win32Host::set_focus(TextBox& box) {
    sync();
    for (const WindowOwner& window : windows_) {
        if (window->focus(box)) return;
    }
}

void Win32Host::quit() {
    quitting_ = true;
    boxes_.close_all();
    settle();
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
    if (running_events_ == 0) forgotten_.clear();
}

FormWindow* Win32Host::window_of(const Form& form) const {
    for (const WindowOwner& window : windows_) {
        if (&window->form() == &form) return window.get();
    }
    return nullptr;
}

HWND Win32Host::owner_of_box() const {
    HWND owner = nullptr;
    for (const WindowOwner& window : windows_) {
        if (window->handle() == GetActiveWindow()) return window->handle();
        if (!owner && IsWindowVisible(window->handle())) owner = window->handle();
    }
    return owner;
}

void Win32Host::deliver(const Event& event) {
    if (quitting_) return;
    {
        const RunningEvent running(running_events_);
        if (event) event();
    }
    if (!quitting_) sync();
    settle();
}

void Win32Host::sync() {
    Loads loads;
    for (const WindowOwner& window : windows_) {
        window->sync();
        collect_loads(window->form(), loads);
    }
    pictures_.keep_only(std::move(loads));
}

void Win32Host::close(FormWindow& window) {
    const Event closed = window.form().Closed;  // the handler may destroy the form
    forget(window);
    deliver(closed);
}

void Win32Host::forget(FormWindow& window) {
    window.let_go();
    const auto found =
        std::find_if(windows_.begin(), windows_.end(),
                     [&](const WindowOwner& other) { return other.get() == &window; });
    forgotten_.push_back(std::move(*found));
    windows_.erase(found);
}

/// Between events: closes all windows after `quit`.
void Win32Host::settle() {
    if (running_events_ > 0 || !quitting_) return;
    while (!windows_.empty())
        forget(*windows_.back());
    PostQuitMessage(0);
}

}  // namespace solvanta::win32
