#pragma once

#include "front_ends/win32/scale.h"
#include "front_ends/win32/window.h"
#include "platform/elements.h"

namespace solvanta::win32 {

inline constexpr DWORD window_style = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
inline constexpr DWORD extended_window_style = WS_EX_CONTROLPARENT;

/// How large a form's window is, and what the player does to change that.
class WindowSize {
  public:
    /// Gives the window the size its form was designed in, by the resolution of its screen, or the
    /// largest that fits there.
    void open(const Form& form, HWND window);

    /// Keeps the window's part of the designed size on a screen of another resolution, where it is
    /// to lie about `place`.
    void come_to_screen(UINT dpi, const RECT& place);

    /// The scale of the form in the client area as it is.
    Scale scale() const;

    /// Does what a key or the wheel is for: Ctrl with plus, minus, 0 or the wheel, F11, and Esc in
    /// a window that fills its screen. Answers whether it is one of these.
    bool take(const MSG& message);

    /// Below half of the designed size texts can't be read.
    void limit(MINMAXINFO& limits) const;

    /// Brings the window back to its screen, which has changed.
    void stay_on_screen() const;

  private:
    double part() const { return scale().pixels() / scale_at(dpi_).pixels(); }
    SIZE client_size(double part) const;
    SIZE size_at(double part) const;  // with its frame
    void resize_to(double part, POINT corner, UINT flags) const;
    double largest_part() const;
    void enlarge_to(double part);
    void fill_screen(bool fill);
    bool take_key(WPARAM key);
    bool take_with_control(WPARAM key);

    const Form* form_ = nullptr;
    HWND window_ = nullptr;
    UINT dpi_ = USER_DEFAULT_SCREEN_DPI;
    WheelSteps wheel_;
    bool fills_screen_ = false;
    WINDOWPLACEMENT before_{};  // when it did not yet
};

}  // namespace solvanta::win32
