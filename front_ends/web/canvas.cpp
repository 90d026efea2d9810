#include "front_ends/web/canvas.h"

#include <cctype>
#include <cstdint>

#include "front_ends/common/walk.h"
#include "front_ends/web/look.h"

namespace solvanta::web {
namespace {

KeyPress to_key_press(const PageEvent& event) {
    static const std::map<std::string, TableKey> keys{
        {"ArrowLeft", TableKey::Left}, {"ArrowRight", TableKey::Right},  {"ArrowUp", TableKey::Up},
        {"ArrowDown", TableKey::Down}, {"Home", TableKey::Home},         {"End", TableKey::End},
        {"PageUp", TableKey::PageUp},  {"PageDown", TableKey::PageDown}, {"Enter", TableKey::Click},
        {" ", TableKey::Click}};
    const auto found = keys.find(event.key);
    const int character = event.key.size() == 1 ? std::toupper(event.key[0]) : 0;
    return {.key = found == keys.end() ? TableKey::Character : found->second,
            .character = static_cast<char>(character),
            .shift = event.shift,
            .control = event.modified,
            .repeated = event.repeated};
}

}  // namespace

Canvas::Canvas(Container& container, const Element* within, Node area, WindowParts& parts)
    : container_(container),
      within_(within),
      area_(std::move(area)),
      parts_(parts),
      mouse_(container),
      keyboard_(container, parts.deliver, parts.announce) {
    for (const Painted& item : container.canvas)
        std::visit([this](auto* element) { add(*element); }, item);
    listen();
}

void Canvas::add(PictureElement& element) {
    views_.try_emplace(&element, area_, "element picture", parts_.pictures);
}

/// What holds for an element from when it is first seen.
void Canvas::prepare(const PictureElement& element, const Node& node) {
    node.attribute("role", element.Click ? "button" : "img");
    if (element.KeyStop) node.attribute("tabindex", "-1");
    if (element.Key != 0) node.attribute("aria-keyshortcuts", std::string(1, element.Key));
    node.listen("focus", [this, &element](const PageEvent&) { stop_at(&element); });
    node.listen("click", [this, &element](const PageEvent& event) {
        if (event.is_synthetic) keyboard_.click(element);
    });
}

void Canvas::add(Label& label) {
    const Node& node = labels_.emplace_back(&label, Node(area_, "div", "element label")).second;
    set_font(node, label.Font);
    node.style("color", to_css(label.ForeColor));
    if (label.BackColor) node.style("background", to_css(*label.BackColor));
    node.style("text-align", to_css(label.Alignment));
}

void Canvas::sync() {
    for (auto& [element, view] : views_)
        bring_in_line(*element, view);
    for (const auto& [label, node] : labels_) {
        node.text(label->Caption);
        place(node, *label);
    }
    sync_walk();
    const std::string said = container_.SpokenChanges ? container_.SpokenChanges() : std::string();
    if (!said.empty()) parts_.announce(said);
}

void Canvas::bring_in_line(const PictureElement& element, PictureView& view) {
    const Node& node = view.node();
    place(node, element);
    if (!element.Visible) return;
    if (!view.has_shown()) prepare(element, node);
    node.turn("cut", element.CutToHeight);
    const std::string name = place_name(element);
    node.attribute("aria-hidden", name.empty() ? "true" : "false");
    node.attribute("aria-label", name);
    const bool is_selected = element.IsSelected && element.IsSelected();
    if (element.Click) node.attribute("aria-pressed", is_selected ? "true" : "false");
    view.show(element.Picture, parts_.prepared());
    view.own_size(element, scale(parts_.ratio), parts_.ratio);
}

/// For pixels of a screen that has so many to one of the page.
Scale Canvas::scale(double ratio) const {
    const Scale scale(parts_.scale.pixels() * ratio);
    return within_ ? scale.inside(*within_) : scale;
}

/// By whole pixels of the screen, so that edges are sharp.
void Canvas::place(const Node& node, const Element& element) const {
    const PixelRect place = scale(parts_.ratio).place_of(element);
    node.attribute_if("hidden", !element.Visible);
    if (!element.Visible) return;
    node.style("--left", place.left / parts_.ratio);
    node.style("--top", place.top / parts_.ratio);
    node.style("--width", place.width() / parts_.ratio);
    node.style("--height", place.height() / parts_.ratio);
}

/// When the place with the focus goes, the nearest takes it over.
void Canvas::sync_walk() {
    const bool had_focus = stop_ != nullptr && node_of(stop_).has_focus();
    keyboard_.sync();
    if (keyboard_.place() == stop_) return;
    stop_at(keyboard_.place());
    if (had_focus && stop_) node_of(stop_).focus();
}

/// One place at a time is a stop of the Tab key.
void Canvas::stop_at(const PictureElement* place) {
    if (stop_) node_of(stop_).attribute("tabindex", "-1");
    keyboard_.walk_to(stop_ = place);
    if (stop_) node_of(stop_).attribute("tabindex", "0");
}

void Canvas::listen() {
    area_.listen("pointerdown", [this](const PageEvent& event) { press(event); });
    area_.listen("pointerup", [this](const PageEvent& event) {
        if (!event.is_left) return;
        const auto [x, y] = place_in_twips(event);
        parts_.deliver(mouse_.release(x, y));
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
    const Twips reach = scale().twips(12);  // a finger does not come down twice on one pixel
    const auto [x, y] = place_in_twips(event);
    parts_.deliver(
        mouse_.press({x, y, static_cast<std::uint32_t>(event.milliseconds)}, {500, reach, reach}));
}

std::pair<Twips, Twips> Canvas::place_in_twips(const PageEvent& event) const {
    const Scale scale = this->scale(parts_.ratio);
    return {scale.twips_across(event.inside_x * parts_.ratio),
            scale.twips_down(event.inside_y * parts_.ratio)};
}

void Canvas::key(PageEvent& event) {
    if (event.alt || !stop_ || !node_of(stop_).has_focus()) return;
    event.taken_over = keyboard_.press(to_key_press(event));
    if (keyboard_.place() != stop_) node_of(keyboard_.place()).focus();
}

}  // namespace solvanta::web
