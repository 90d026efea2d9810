#pragma once

#include <optional>

#include <windows.h>

namespace solvanta::win32 {

struct Message {
    HWND window = nullptr;
    UINT id = 0;
    WPARAM w = 0;
    LPARAM l = 0;
};

/// What a parent adds to the number of a message about one of its controls when it hands it on to
/// the control itself.
inline constexpr UINT handed_on = WM_APP;

/// One window of the system's. Its messages are handled here before its class handles them, and
/// nothing thrown by a handler gets through to the system. A control goes with its parent, every
/// other window with this object.
class Window {
  public:
    Window() = default;
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    virtual ~Window();

    HWND handle() const { return handle_; }

    /// Brings everything shown in line with the element behind the window.
    virtual void sync() = 0;

    /// Leaves the window to its class: nothing reaches this object any more.
    void ignore_messages();

  protected:
    /// Creates the window, hidden, in size 0. Throws std::runtime_error when the system can't.
    void create(const wchar_t* window_class, DWORD style, DWORD extended_style, HWND parent);

    /// The answer to a message; none leaves it to the window's class.
    virtual std::optional<LRESULT> answer(const Message& message) = 0;

    /// What the window's class answers.
    static LRESULT answer_of_class(const Message& message);

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT id, WPARAM w, LPARAM l, UINT_PTR key,
                                      DWORD_PTR self);

    HWND handle_ = nullptr;
};

/// The class of a window that is all ours.
const wchar_t* plain_class();

/// Hands a message about a control on to it, if it is one of those that the controls handle.
std::optional<LRESULT> hand_on(const Message& message);

}  // namespace solvanta::win32
