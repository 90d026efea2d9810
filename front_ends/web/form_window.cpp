#include "front_ends/web/form_window.h"

#include <algorithm>
#include <utility>

#include "front_ends/web/border.h"
#include "front_ends/web/controls.h"
#include "front_ends/web/ticks.h"

namespace solvanta::web {
namespace {

constexpr const char* foremost = "foremost";

double to_pixels(Twips twips) {
    return static_cast<double>(twips) / twips_per_pixel;
}

bool has_pictures(const Form& form) {
    return std::any_of(form.canvas.begin(), form.canvas.end(), [](const Painted& item) {
        return std::holds_alternative<PictureElement*>(item);
    });
}

}  // namespace

FormWindow::FormWindow(Form& form, const Node& page, WindowParts parts, bool fixed,
                       std::function<void(FormWindow&)> close_box)
    : form_(form),
      parts_(std::move(parts)),
      close_box_(std::move(close_box)),
      fixed_(fixed),
      frame_(page, "section", "window") {
    frame_.attribute("hidden", "");
    frame_.turn("fixed", fixed);
    frame_.turn("with-cards", has_pictures(form));
    frame_.attribute("aria-label", form.Caption);
    build_title_bar();
    build_client();
    sync();
    for (Timer* timer : form.timers)
        start(*timer);
}

FormWindow::~FormWindow() {
    let_go();
}

void FormWindow::build_title_bar() {
    title_bar_ = Node(frame_, "header", "title-bar");
    if (form_.HasIcon) {
        Node icon(title_bar_, "img");
        icon.attribute("src", "Solvanta-32.png");
        icon.attribute("alt", "");
        icon.leave_to_parent();
    }
    caption_ = Node(title_bar_, fixed_ ? "h1" : "h2", "caption");
    close_ = Node(title_bar_, "button", "close");
    close_.attribute("aria-label", form_.Caption + " schließen");
    close_.text("✕");
    close_.listen(EventKind::Click, [this](const PageEvent&) { close_box_(*this); });
    if (fixed_) return;
    title_bar_.listen(EventKind::Press, [this](const PageEvent& event) {
        grip_x_ = event.x - left_;
        grip_y_ = event.y - top_;
    });
    title_bar_.listen(EventKind::Drag, [this](const PageEvent& event) { drag(event); });
}

void FormWindow::build_client() {
    client_ = Node(frame_, "div", "client");
    client_.style("--width", to_pixels(form_.ClientWidth));
    client_.style("--height", to_pixels(form_.ClientHeight));
    client_.style("--cards-height", cards_height());
    if (has_pictures(form_)) {
        client_.attribute("role", "group");
        client_.attribute("aria-label", "Spieltisch");
        client_.attribute("aria-describedby", "keys");
    }
    if (form_.BackColor) client_.style("background", to_css(*form_.BackColor));
    canvas_ = std::make_unique<Canvas>(form_, client_, parts_);
    build_controls(form_, client_, parts_);
}

Size FormWindow::client_size() const {
    return {to_pixels(form_.ClientWidth), to_pixels(form_.ClientHeight)};
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
    return to_pixels(height);
}

void FormWindow::start(Timer& timer) {
    if (timer.Interval <= 0) return;
    timers_.push_back(start_ticks(timer.Interval, [this, &timer] { parts_.deliver(timer.Tick); }));
}

void FormWindow::scale(double scale) {
    parts_.scale = scale;
    frame_.style("--scale", scale);
    if (placed_ && !fixed_) move_to(left_, top_);
}

void FormWindow::sync() {
    caption_.text(form_.Caption);
    canvas_->sync();
    for (const auto& bring_in_line : parts_.syncs)
        bring_in_line();
}

void FormWindow::bring_forward() {
    static int highest = 0;
    frame_.style("z-index", std::to_string(++highest));
    frame_.turn(foremost, true);
    frame_.remove_attribute("hidden");
    if (!std::exchange(visible_, true)) page_focus_first(client_.handle());
    if (!std::exchange(placed_, true) && !fixed_) open_where_it_belongs();
}

void FormWindow::step_back() const {
    frame_.turn(foremost, false);
}

void FormWindow::open_where_it_belongs() {
    const double width = page_node_width(frame_.handle());
    const double height = page_node_height(frame_.handle());
    const double part = form_.Place == OpeningPlace::Centered ? 0.5 : 0.8;
    move_to((page_width() - width) * part, (page_height() - height) * (1 - part));
}

void FormWindow::drag(const PageEvent& event) {
    move_to(event.x - grip_x_, event.y - grip_y_);
}

/// The title bar stays within reach.
void FormWindow::move_to(double left, double top) {
    constexpr double reach = 80;
    const double width = page_node_width(frame_.handle());
    left_ = std::clamp(left, std::min(0.0, reach - width), std::max(0.0, page_width() - reach));
    top_ = std::clamp(top, 0.0, std::max(0.0, page_height() - reach / 2));
    frame_.style("left", std::to_string(left_) + "px");
    frame_.style("top", std::to_string(top_) + "px");
}

void FormWindow::hide() {
    visible_ = false;
    frame_.attribute("hidden", "");
    step_back();
}

bool FormWindow::focus(const TextBox& box) {
    const auto found = parts_.text_boxes.find(&box);
    if (found == parts_.text_boxes.end()) return false;
    found->second->focus();
    return true;
}

void FormWindow::pressed(int node) {
    if (node != client_.handle()) canvas_->forget_press();
}

void FormWindow::let_go() {
    for (const int timer : std::exchange(timers_, {}))
        stop_ticks(timer);
    hide();
}

}  // namespace solvanta::web
