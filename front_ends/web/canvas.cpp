#include "front_ends/web/canvas.h"

#include <cmath>
#include <optional>
#include <utility>

#include "front_ends/web/border.h"

namespace solvanta::web {
namespace {

bool same_place(const Element& one, const Element& other) {
    return one.Left == other.Left && one.Top == other.Top && one.Width == other.Width &&
           one.Height == other.Height && one.Visible == other.Visible;
}

const char* to_css(Alignment alignment) {
    switch (alignment) {
        case Alignment::Right:
            return "right";
        case Alignment::Centered:
            return "center";
        case Alignment::Left:
            break;
    }
    return "left";
}

std::optional<Direction> direction_of(const std::string& key) {
    if (key == "ArrowLeft") return Direction::Left;
    if (key == "ArrowRight") return Direction::Right;
    if (key == "ArrowUp") return Direction::Up;
    if (key == "ArrowDown") return Direction::Down;
    return std::nullopt;
}

}  // namespace

Canvas::Canvas(Container& container, const Node& area, WindowParts& parts)
    : container_(container), area_(area), parts_(parts), mouse_(container) {
    for (const Painted& item : container.canvas)
        std::visit([this](auto* element) { add(*element); }, item);
    listen();
}

void Canvas::add(PictureElement& element) {
    Drawn& drawn = drawn_.emplace_back();
    drawn.element = &element;
    drawn.node = Node(area_, "div", "element picture");
    drawn.node.attribute("hidden", "");
    drawn.node.attribute("role", element.Click ? "button" : "img");
    drawn.view = std::make_unique<PictureView>(drawn.node, parts_.pictures);
    drawn.shown.Visible = false;
    drawn.node.listen(EventKind::Focus, [this, &element](const PageEvent&) {
        current_ = &element;
        sync_walk();
    });
}

void Canvas::add(Label& label) {
    const auto node = std::make_shared<Node>(area_, "div", "element label");
    set_font(*node, label.Font);
    node->style("color", to_css(label.ForeColor));
    if (label.BackColor) node->style("background", to_css(*label.BackColor));
    node->style("text-align", to_css(label.Alignment));
    label_syncs_.emplace_back(
        [node, &label, shown = Element{.Visible = false}, caption = std::string()]() mutable {
            if (caption != label.Caption) node->text(label.Caption);
            caption = label.Caption;
            if (!same_place(shown, label)) place(*node, label);
            shown = label;
        });
}

void Canvas::sync() {
    for (Drawn& drawn : drawn_)
        bring_in_line(drawn);
    for (const auto& sync_label : label_syncs_)
        sync_label();
    sync_walk();
    if (const std::string said = changes_.since_last_time(container_); !said.empty())
        parts_.announce(said);
}

void Canvas::bring_in_line(Drawn& drawn) const {
    const PictureElement& element = *drawn.element;
    PictureElement& shown = drawn.shown;
    if (!element.Visible && !shown.Visible) return;
    if (!same_place(shown, element)) place(drawn.node, element);
    if (shown.CutToHeight != element.CutToHeight) drawn.node.turn("cut", element.CutToHeight);
    if (std::string name = element.spoken_name(); name != drawn.name) {
        drawn.node.attribute("aria-label", name);
        drawn.node.attribute_if(name.empty(), "aria-hidden");
        drawn.name = std::move(name);
    }
    drawn.view->show(element.Picture, is_fine(parts_.scale));
    static_cast<Element&>(shown) = element;
    shown.CutToHeight = element.CutToHeight;
}

/// One place at a time is a stop of the Tab key. When the one with the focus goes, the nearest
/// takes it over.
void Canvas::sync_walk() {
    const PictureElement nowhere;
    const PictureElement* const before = current_;
    if (before == nullptr || !is_place(*before)) {
        current_ = nearest_place(container_, before != nullptr ? *before : nowhere);
    }
    const Drawn* const drawn_before = drawn_of(before);
    const bool takes_over =
        current_ != before && drawn_before != nullptr && drawn_before->node.has_focus();
    for (const Drawn& drawn : drawn_) {
        if (drawn.element->KeyStop)
            drawn.node.attribute("tabindex", drawn.element == current_ ? "0" : "-1");
    }
    if (takes_over) go_to(current_);
}

void Canvas::listen() {
    area_.listen(EventKind::Press, [this](const PageEvent& event) { press(event); });
    area_.listen(EventKind::Release, [this](const PageEvent& event) {
        parts_.deliver([&] { mouse_.release(to_twips_x(event.x), to_twips_y(event.y)); });
    });
    area_.listen(EventKind::WalkKey, [this](const PageEvent& event) { walk(event.key); });
}

void Canvas::press(const PageEvent& event) {
    const Twips x = to_twips_x(event.x);
    const Twips y = to_twips_y(event.y);
    if (!double_press_.is_second(event.milliseconds, event.x, event.y)) return mouse_.press(x, y);
    parts_.deliver([=, this] { mouse_.double_press(x, y); });
}

void Canvas::forget_press() {
    double_press_.forget();
    mouse_.forget_press();
}

void Canvas::walk(const std::string& key) {
    if (!current_) return;
    if (const auto direction = direction_of(key)) {
        return go_to(next_place(container_, *current_, *direction));
    }
    click_current(key == "d" || key == "D");
}

/// What the hand on the mouse would do there, once or twice.
void Canvas::click_current(bool twice) {
    const Twips x = current_->Left + current_->Width / 2;
    const Twips y = current_->Top + current_->Height / 2;
    mouse_.press(x, y);
    parts_.deliver([=, this] { mouse_.release(x, y); });
    if (!twice) return;
    parts_.deliver([=, this] { mouse_.double_press(x, y); });
}

void Canvas::go_to(PictureElement* place) {
    if (Drawn* const drawn = drawn_of(place)) drawn->node.focus();
}

Canvas::Drawn* Canvas::drawn_of(const PictureElement* element) {
    for (Drawn& drawn : drawn_) {
        if (drawn.element == element) return &drawn;
    }
    return nullptr;
}

Twips Canvas::to_twips_x(double x) const {
    return static_cast<Twips>(
        std::floor((x - page_left(area_.handle())) / parts_.scale * twips_per_pixel));
}

Twips Canvas::to_twips_y(double y) const {
    return static_cast<Twips>(
        std::floor((y - page_top(area_.handle())) / parts_.scale * twips_per_pixel));
}

}  // namespace solvanta::web
