#include "front_ends/win32/window.h"

#include <exception>
#include <stdexcept>
#include <string>

#include <commctrl.h>

#include "platform/trouble.h"

namespace solvanta::win32 {
namespace {

constexpr UINT_PTR our_key = 1;

}  // namespace

Window::~Window() {
    ignore_messages();
    const bool child = (GetWindowLongPtrW(handle_, GWL_STYLE) & WS_CHILD) != 0;
    if (handle_ && !child) DestroyWindow(handle_);
}

void Window::create(const wchar_t* window_class, DWORD style, DWORD extended_style, HWND parent) {
    const bool child = (style & WS_CHILD) != 0;
    const int place = child ? 0 : CW_USEDEFAULT;
    handle_ = CreateWindowExW(extended_style, window_class, L"", style, place, place, 0, 0, parent,
                              nullptr, GetModuleHandleW(nullptr), nullptr);
    if (!handle_) throw std::runtime_error("Fenster kann nicht angelegt werden");
    SetWindowSubclass(handle_, procedure, our_key, reinterpret_cast<DWORD_PTR>(this));
}

void Window::ignore_messages() {
    if (handle_) RemoveWindowSubclass(handle_, procedure, our_key);
}

LRESULT Window::answer_of_class(const Message& message) {
    return DefSubclassProc(message.window, message.id, message.w, message.l);
}

LRESULT CALLBACK Window::procedure(HWND window, UINT id, WPARAM w, LPARAM l, UINT_PTR /*key*/,
                                   DWORD_PTR self) {
    const Message message{window, id, w, l};
    try {
        if (id == WM_NCDESTROY) {
            reinterpret_cast<Window*>(self)->ignore_messages();
            reinterpret_cast<Window*>(self)->handle_ = nullptr;
        } else if (const auto result = reinterpret_cast<Window*>(self)->answer(message)) {
            return *result;
        }
    } catch (const std::exception& error) {
        report_trouble("unerwarteter Fehler: " + std::string(error.what()));
    } catch (...) {
        report_trouble("unerwarteter Fehler");
    }
    return answer_of_class(message);
}

const wchar_t* plain_class() {
    static const ATOM registered = [] {
        WNDCLASSEXW description{};
        description.cbSize = sizeof description;
        description.style = CS_DBLCLKS;
        description.lpfnWndProc = DefWindowProcW;
        description.hInstance = GetModuleHandleW(nullptr);
        description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        description.lpszClassName = L"Solvanta";
        return RegisterClassExW(&description);
    }();
    return MAKEINTATOM(registered);
}

std::optional<LRESULT> hand_on(const Message& message) {
    HWND control = nullptr;
    if (message.id == WM_COMMAND) control = reinterpret_cast<HWND>(message.l);
    if (message.id == WM_NOTIFY) control = reinterpret_cast<NMHDR*>(message.l)->hwndFrom;
    if (!control) return std::nullopt;
    return SendMessageW(control, handed_on + message.id, message.w, message.l);
}

}  // namespace solvanta::win32
