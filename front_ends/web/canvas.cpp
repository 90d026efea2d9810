#include "front_ends/web/canvas.h"

#include <cstdint>

#include "front_ends/common/walk.h"
#include "front_ends/web/look.h"

namespace solvanta::web {

Canvas::Canvas(Container& container, Node area, WindowParts& parts)
    : container_(container), area_(std::move(area)), parts_(parts), mouse_(container) {
    for (const Painted& item : container.canvas)
        std::visit([this](auto* element) { add(*element); }, item);
    listen();
}

void Canvas::add(PictureElement& element) {
    views_.try_emplace(&element, area_, "element picture", parts_.pictures);
    const Node& node = node_of(&element);
    node.attribute("role", element.Click ? "button" : "img");
    if (element.KeyStop) node.attribute("tabindex", "-1");
    node.listen("focus", [this, &element](const PageEvent&) { stop_at(&element); });
}

void Canvas::add(Label& label) {
    const Node& node = labels_.emplace_back(&label, Node(area_, "div", "element label")).second;
    set_font(node, label.Font);
    node.style("color", to_css(label.ForeColor));
    if (label.BackColor) node.style("background", to_css(*label.BackColor));
    node.style("text-align", to_css(label.Alignment));
}

void Canvas::sync() {
    const std::string said = changes_.since_last_time(container_);
    for (auto& [element, view] : views_)
        bring_in_line(*element, view);
    for (const auto& [label, node] : labels_) {
        node.text(label->Caption);
        node.place(*label);
    }
    sync_walk();
    if (!said.empty()) parts_.announce(said);
}

void Canvas::bring_in_line(const PictureElement& element, PictureView& view) const {
    const Node& node = view.node();
    node.place(element);
    if (!element.Visible) return;
    node.turn("cut", element.CutToHeight);
    const auto name = changes_.names().find(&element);
    const bool is_named = name != changes_.names().end();
    node.attribute("aria-hidden", is_named ? "false" : "true");
    node.attribute("aria-label", is_named ? name->second : "");
    view.show(element.Picture, parts_.fine);
}

/// When the place with the focus goes, the nearest takes it over.
void Canvas::sync_walk() {
    if (current_ && changes_.names().contains(current_)) return;
    const bool had_focus = current_ != nullptr && node_of(current_).has_focus();
    stop_at(nearest_place(container_, current_ ? *current_ : PictureElement()));
    if (had_focus && current_) node_of(current_).focus();
}

/// One place at a time is a stop of the Tab key.
void Canvas::stop_at(PictureElement* place) {
    if (current_) node_of(current_).attribute("tabindex", "-1");
    current_ = place;
    if (current_) node_of(current_).attribute("tabindex", "0");
}

void Canvas::listen() {
    area_.listen("pointerdown", [this](const PageEvent& event) { press(event); });
    area_.listen("pointerup", [this](const PageEvent& event) {
        const Scale& scale = parts_.scale;
        if (!event.is_left) return;
        parts_.deliver(mouse_.release(scale.twips(event.inside_x), scale.twips(event.inside_y)));
    });
    area_.listen("pointercancel", [this](const PageEvent&) { mouse_.cancel(); });
    // Or the browser would make a click of the finger's touch on what it takes to be meant.
    area_.listen("touchend", [](PageEvent& event) { event.taken_over = event.is_own; });
    area_.listen("keydown", [this](PageEvent& event) { key(event); });
}

/// The presses on the controls within come here too.
void Canvas::press(const PageEvent& event) {
    if (!event.is_own || !event.is_left) return mouse_.forget_press();
    page_capture(area_.handle());
    const Scale& scale = parts_.scale;
    const Twips reach = scale.twips(12);  // a finger does not come down twice on one pixel
    parts_.deliver(mouse_.press({scale.twips(event.inside_x), scale.twips(event.inside_y),
                                 static_cast<std::uint32_t>(event.milliseconds)},
                                {500, reach, reach}));
}

void Canvas::key(PageEvent& event) {
    static const std::map<std::string, Direction> arrows{{"ArrowLeft", Direction::Left},
                                                         {"ArrowRight", Direction::Right},
                                                         {"ArrowUp", Direction::Up},
                                                         {"ArrowDown", Direction::Down}};
    if (event.modified || !current_ || !node_of(current_).has_focus()) return;
    const bool twice = event.key == "d" || event.key == "D";
    const auto arrow = arrows.find(event.key);
    event.taken_over = twice || event.key == "Enter" || event.key == " " || arrow != arrows.end();
    if (arrow != arrows.end()) {
        const PictureElement* const next = next_place(container_, *current_, arrow->second);
        if (next) node_of(next).focus();
    } else if (event.taken_over && !event.repeated) {
        click_current(twice);
    }
}

/// What the hand on the mouse would do there, once or twice.
void Canvas::click_current(bool twice) {
    const Press press{current_->Left + current_->Width / 2, current_->Top + current_->Height / 2};
    mouse_.cancel();
    mouse_.press(press, {});
    parts_.deliver(mouse_.release(press.x, press.y));
    if (twice) parts_.deliver(mouse_.press(press, {}));
    mouse_.cancel();
}

}  // namespace solvanta::web
