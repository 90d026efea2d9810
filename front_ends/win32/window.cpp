#include "front_ends/win32/window.h"

#include <exception>
#include <stdexcept>
#include <string>

#include <uxtheme.h>

#include "platform/trouble.h"

namespace solvanta::win32 {
namespace {

/// Hands a message about a control on to it, if it came from one.
std::optional<LRESULT> hand_on(const Message& message, HWND control) {
    if (!control) return std::nullopt;
    return SendMessageW(control, handed_on + message.id, message.w, message.l);
}

}  // namespace

Window::~Window() {
    ignore_messages();
    DestroyWindow(handle_);
}

void Window::create(const wchar_t* window_class, DWORD style, DWORD extended_style, HWND parent) {
    const int place = parent ? 0 : CW_USEDEFAULT;
    handle_ = CreateWindowExW(extended_style, window_class, L"", style, place, place, 0, 0, parent,
                              nullptr, GetModuleHandleW(nullptr), nullptr);
    if (!handle_) throw std::runtime_error("Fenster kann nicht angelegt werden");
    // Not by the system's subclassing, which looks a property up at every message.
    SetWindowLongPtrW(handle_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    const LONG_PTR before =
        SetWindowLongPtrW(handle_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
    of_class_ = reinterpret_cast<WNDPROC>(before);
}

void Window::ignore_messages() {
    SetWindowLongPtrW(handle_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(of_class_));
}

LRESULT Window::answer_of_class(const Message& message) const {
    return CallWindowProcW(of_class_, message.window, message.id, message.w, message.l);
}

LRESULT CALLBACK Window::procedure(HWND window, UINT id, WPARAM w, LPARAM l) {
    auto* const self = reinterpret_cast<Window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    const Message message{window, id, w, l};
    std::optional<LRESULT> result;
    run_safely([&] { result = self->answer(message); });
    return result ? *result : self->answer_of_class(message);
}

std::optional<LRESULT> PaintedWindow::answer(const Message& message) {
    switch (message.id) {
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            paint_buffered();
            return 0;
        case WM_PRINTCLIENT:  // by a button with round corners, for what is behind them
            paint(reinterpret_cast<HDC>(message.w));
            return 0;
        case WM_COMMAND:
            return hand_on(message, reinterpret_cast<HWND>(message.l));
        case WM_NOTIFY:
            return hand_on(message, reinterpret_cast<NMHDR*>(message.l)->hwndFrom);
        default:
            return std::nullopt;
    }
}

/// In memory first, so that nothing flickers.
void PaintedWindow::paint_buffered() {
    [[maybe_unused]] static const HRESULT prepared = BufferedPaintInit();
    PAINTSTRUCT area{};
    HDC screen = BeginPaint(handle(), &area);
    HDC memory = nullptr;
    HPAINTBUFFER buffer =
        BeginBufferedPaint(screen, &area.rcPaint, BPBF_COMPATIBLEBITMAP, nullptr, &memory);
    paint(buffer ? memory : screen);
    if (buffer) EndBufferedPaint(buffer, TRUE);
    EndPaint(handle(), &area);
}

const wchar_t* plain_class() {
    static const ATOM registered = [] {
        WNDCLASSEXW description{};
        description.cbSize = sizeof description;
        description.lpfnWndProc = DefWindowProcW;
        description.hInstance = GetModuleHandleW(nullptr);
        description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        description.lpszClassName = L"Solvanta";
        return RegisterClassExW(&description);
    }();
    return MAKEINTATOM(registered);
}

RECT work_area(HWND window) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

void run_safely(const std::function<void()>& act) {
    try {
        act();
    } catch (const std::exception& error) {
        report_trouble("unerwarteter Fehler: " + std::string(error.what()));
    }
}

}  // namespace solvanta::win32
