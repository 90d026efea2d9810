#pragma once

#include <array>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

#include "front_ends/common/ticks.h"
#include "front_ends/win32/canvas.h"
#include "front_ends/win32/window_size.h"

namespace solvanta::win32 {

struct IconDeleter {
    void operator()(HICON icon) const { DestroyIcon(icon); }
};

/// The window of one form, which the player may enlarge: its layout grows with it, in the middle of
/// what room there is.
class FormWindow final : public Canvas {
  public:
    /// `close_box` is called once the player closes the window, `to_box` when it is activated while
    /// a message box keeps it disabled; the form must outlive the window or the call of `let_go`.
    FormWindow(Form& form, WindowParts parts, std::function<void(FormWindow&)> close_box,
               std::function<void()> to_box);
    ~FormWindow() override { let_go(); }

    Form& form() const { return form_; }

    void sync() override;

    /// Shows the window in front of the others, restored if it is minimised.
    void bring_forward();

    /// Does what a key or the wheel is for in every window; answers whether it is.
    bool take(const MSG& message) { return size_.take(message); }

    void hide() { ShowWindow(handle(), SW_HIDE); }

    /// Gives `box` the keyboard focus; answers whether it is one of this window's.
    bool focus(const TextBox& box);

    /// Hides the window for good; nothing of it touches the form any more.
    void let_go();

  protected:
    std::optional<LRESULT> answer(const Message& message) override;

  private:
    void load_icons(UINT dpi);
    void lay_out();
    void sync_controls();
    LRESULT come_to_rest();
    std::optional<LRESULT> answer_size(const Message& message);
    LRESULT tick(std::size_t timer);
    LRESULT answer_end(const Message& message);
    std::optional<LRESULT> answer_focus(const Message& message);
    LRESULT come_to_screen(UINT dpi, const RECT& place);
    LRESULT change_colors();
    LRESULT ground_of_button(HDC dc) const;
    void find_focus(HWND from);

    Form& form_;
    WindowParts parts_;
    WindowSize size_;
    std::array<std::unique_ptr<std::remove_pointer_t<HICON>, IconDeleter>, 2> icons_;
    std::function<void(FormWindow&)> close_box_;
    std::function<void()> to_box_;
    std::vector<std::pair<const Timer*, Ticks>> ticks_;
    HWND before_box_ = nullptr;  // had the focus before a text box was given it
    HWND last_focus_ = nullptr;  // to get the focus back when the window becomes active again
};

}  // namespace solvanta::win32
