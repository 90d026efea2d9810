#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "front_ends/web/canvas.h"
#include "front_ends/web/page_layout.h"
#include "front_ends/web/window_parts.h"

namespace solvanta::web {

/// The room that the page has.
Size page_size();

/// The window of one form, within the page.
class FormWindow {
  public:
    /// A `fixed` window stands still; any other can be moved by its title bar and closed by Escape.
    /// `close_box` is called once the player closes the window. The form must outlive it or the
    /// call of `let_go`.
    FormWindow(Form& form, const Node& page, WindowParts parts, bool fixed,
               std::function<void(FormWindow&)> close_box);
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;
    ~FormWindow() { let_go(); }

    Form& form() const { return form_; }

    /// The client area's size in pixels of the form.
    Size client_size() const;

    /// The height above the buttons and labels of the form itself: what is left to the cards.
    double cards_height() const;

    /// Sets the scale, in pixels of the page to one of the form.
    void scale(double scale);

    /// For how many times their size pictures are best prepared at this scale.
    int prepared() const { return parts_.prepared(); }

    /// Brings everything shown in line with the form.
    void sync();

    /// Shows the window in front of the others and gives it the keyboard.
    void bring_forward();
    /// Puts it behind the one that comes to the front.
    void step_back() const { frame_.turn("foremost", false); }
    void hide();
    bool is_visible() const { return visible_; }

    /// Gives `box` the keyboard focus; answers whether it is one of this window's.
    bool focus(const TextBox& box) const;

    /// Takes the window out of the page; nothing of it touches the form any more.
    void let_go();

  private:
    void build_title_bar();
    void build_client();
    void start(Timer& timer);
    void make_free();
    void move_to(double left, double top);

    Form& form_;
    WindowParts parts_;
    std::function<void(FormWindow&)> close_box_;
    bool fixed_;
    Node frame_;
    Node title_bar_;
    Node caption_;
    Node close_;
    Node client_;
    Canvas canvas_;
    std::vector<int> ticks_;
    double left_ = 0;  // in the page
    double top_ = 0;
    std::optional<Size> grip_;  // how far from its corner the pointer holds the window
    bool visible_ = false;
    bool placed_ = false;
};

}  // namespace solvanta::web
