#pragma once

#include <functional>
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

/// One window of the system's, which goes with this object. Its messages are handled here before
/// its class handles them, and nothing thrown by a handler gets through to the system.
class Window {
  public:
    Window() = default;
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    virtual ~Window();

    /// Null before it is created.
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
    LRESULT answer_of_class(const Message& message) const;

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT id, WPARAM w, LPARAM l);

    HWND handle_ = nullptr;
    WNDPROC of_class_ = nullptr;
};

/// A window that is painted here, and may be the parent of others.
class PaintedWindow : public Window {
  protected:
    std::optional<LRESULT> answer(const Message& message) override;

    /// Paints the client area, or what of it is to be painted.
    virtual void paint(HDC dc) = 0;

  private:
    void paint_buffered();
};

/// The class of a window that is all ours.
const wchar_t* plain_class();

/// The part of the window's screen that no bar of the desktop covers.
RECT work_area(HWND window);

/// Calls `act`; what is thrown there is told as trouble and goes no further.
void run_safely(const std::function<void()>& act);

}  // namespace solvanta::win32
