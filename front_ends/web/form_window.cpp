#include "front_ends/web/form_window.h"

#include <algorithm>
#include <utility>

#include "front_ends/web/controls.h"
#include "front_ends/web/look.h"

namespace solvanta::web {
namespace {

bool has_pictures(const Form& form) {
    return std::any_of(form.canvas.begin(), form.canvas.end(), [](const Painted& item) {
        return std::holds_alternative<PictureElement*>(item);
    });
}

}  // namespace

Size page_size() {
    const Node page = Node::page();
    return {page.number("clientWidth"), page.number("clientHeight")};
}

FormWindow::FormWindow(Form& form, const Node& page, WindowParts parts, bool fixed,
                       std::function<void(FormWindow&)> close_box)
    : form_(form),
      parts_(std::move(parts)),
      close_box_(std::move(close_box)),
      fixed_(fixed),
      frame_(page, "section", "window"),
      title_bar_(frame_, "header", "title-bar"),
      client_(frame_, "div", "client"),
      canvas_(form, nullptr, client_, parts_) {
    hide();
    frame_.turn("fixed", fixed);
    frame_.turn("with-cards", has_pictures(form));
    frame_.attribute("aria-label", form.Caption);
    build_title_bar();
    build_client();
    if (!fixed) make_free();
    for (Timer* timer : form.timers)
        start(*timer);
}

void FormWindow::build_title_bar() {
    if (form_.HasIcon) {
        const Node icon(title_bar_, "img");
        icon.attribute("src", "Solvanta-32.png");
        icon.attribute("alt", "");
    }
    caption_ = Node(title_bar_, fixed_ ? "h1" : "h2", "caption");
    close_ = Node(title_bar_, "button", "close");
    close_.attribute("aria-label", form_.Caption + " schließen");
    close_.text("✕");
    close_.listen("click", [this](const PageEvent&) { close_box_(*this); });
}

void FormWindow::build_client() {
    if (has_pictures(form_)) {
        client_.attribute("role", "application");  // or readers keep the arrow keys
        client_.attribute("aria-label", "Spieltisch");
        client_.attribute("aria-describedby", "keys");
    }
    if (form_.BackColor) client_.style("background", to_css(*form_.BackColor));
    build_controls(form_, canvas_, client_, parts_);
}

Size FormWindow::client_size() const {
    return {logical_scale.length(form_.ClientWidth), logical_scale.length(form_.ClientHeight)};
}

double FormWindow::cards_height() const {
    Twips height = form_.ClientHeight;
    for (const Control& control : form_.controls) {
        if (auto* const* button = std::get_if<CommandButton*>(&control))
            height = std::min(height, (*button)->Top);
    }
    for (const Painted& item : form_.canvas) {
        if (auto* const* label = std::get_if<Label*>(&item))
            height = std::min(height, (*label)->Top);
    }
    return logical_scale.length(height);
}

void FormWindow::start(Timer& timer) {
    if (timer.Interval <= 0) return;
    ticks_.push_back(
        add_listener([this, &timer](const PageEvent&) { parts_.deliver(timer.Tick); }));
    page_start_ticks(ticks_.back(), timer.Interval);
}

void FormWindow::make_free() {
    frame_.listen("keydown", [this](PageEvent& event) {
        event.taken_over = event.key == "Escape";
        if (event.taken_over) close_box_(*this);
    });
    title_bar_.listen("pointerdown", [this](const PageEvent& event) {
        if (!event.is_own || !event.is_left) return;
        page_capture(title_bar_.handle());
        grip_ = Size{event.x - left_, event.y - top_};
    });
    title_bar_.listen("pointermove", [this](const PageEvent& event) {
        if (grip_) move_to(event.x - grip_->width, event.y - grip_->height);
    });
    title_bar_.listen("lostpointercapture", [this](const PageEvent&) { grip_.reset(); });
}

void FormWindow::scale(double scale) {
    parts_.scale = Scale(scale);
    parts_.ratio = page_ratio();
    frame_.style("--scale", scale);
    client_.style("--width", client_size().width * scale);
    client_.style("--height", client_size().height * scale);
    client_.style("--cards-height", cards_height() * scale);
    if (placed_) move_to(left_, top_);
}

void FormWindow::sync() {
    caption_.text(form_.Caption);
    canvas_.sync();
    for (const auto& bring_in_line : parts_.syncs)
        bring_in_line();
}

void FormWindow::bring_forward() {
    static int highest = 0;
    frame_.style("z-index", std::to_string(++highest));
    frame_.turn("foremost", true);
    frame_.attribute_if("hidden", false);
    if (!std::exchange(visible_, true)) page_focus_first(client_.handle());
    if (fixed_ || std::exchange(placed_, true)) return;
    const Size page = page_size();
    const double part = form_.Place == OpeningPlace::Centered ? 0.5 : 0.8;
    move_to((page.width - frame_.number("offsetWidth")) * part,
            (page.height - frame_.number("offsetHeight")) * (1 - part));
}

/// The title bar stays within reach. A window that stands still has its place from the style sheet.
void FormWindow::move_to(double left, double top) {
    if (fixed_) return;
    constexpr double reach = 80;
    const Size page = page_size();
    left_ = std::clamp(left, std::min(0.0, reach - frame_.number("offsetWidth")),
                       std::max(0.0, page.width - reach));
    top_ = std::clamp(top, 0.0, std::max(0.0, page.height - reach / 2));
    frame_.style("left", std::to_string(left_) + "px");
    frame_.style("top", std::to_string(top_) + "px");
}

void FormWindow::hide() {
    visible_ = false;
    frame_.attribute_if("hidden", true);
    step_back();
}

bool FormWindow::focus(const TextBox& box) const {
    const auto found = parts_.text_boxes.find(&box);
    if (found == parts_.text_boxes.end()) return false;
    found->second.focus();
    return true;
}

void FormWindow::let_go() {
    for (const int tick : std::exchange(ticks_, {})) {
        page_stop_ticks(tick);
        remove_listener(tick);
    }
    frame_.remove();
}

}  // namespace solvanta::web
