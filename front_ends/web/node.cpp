#include "front_ends/web/node.h"

#include <map>
#include <utility>

#include "front_ends/web/border.h"
#include "rich_text/font_kind.h"

namespace solvanta::web {
namespace {

using Listeners = std::map<std::pair<int, EventKind>, Listener>;

Listeners& listeners() {
    static Listeners all;
    return all;
}

double to_pixels(Twips twips) {
    return static_cast<double>(twips) / twips_per_pixel;
}

}  // namespace

Node::Node(const Node& parent, const char* tag, const char* class_name)
    : handle_(page_create(parent.handle_, tag, class_name)), is_own_(true) {}

Node Node::find(const char* id) {
    Node node;
    node.handle_ = page_find(id);
    return node;
}

Node::Node(Node&& other) noexcept
    : handle_(std::exchange(other.handle_, 0)), is_own_(std::exchange(other.is_own_, false)) {}

Node& Node::operator=(Node&& other) noexcept {
    std::swap(handle_, other.handle_);
    std::swap(is_own_, other.is_own_);
    return *this;
}

Node::~Node() {
    remove();
}

void Node::remove() {
    if (handle_ == 0) return;
    std::erase_if(listeners(), [this](const auto& entry) { return entry.first.first == handle_; });
    is_own_ ? page_remove(handle_) : page_forget(handle_);
    handle_ = 0;
}

void Node::leave_to_parent() {
    is_own_ = false;
    remove();
}

void Node::text(const std::string& text) const {
    page_text(handle_, text.c_str());
}

void Node::attribute(const char* name, const std::string& value) const {
    page_attribute(handle_, name, value.c_str());
}

void Node::remove_attribute(const char* name) const {
    page_attribute(handle_, name, nullptr);
}

void Node::attribute_if(bool present, const char* name) const {
    present ? attribute(name, "") : remove_attribute(name);
}

void Node::style(const char* property, const std::string& value) const {
    page_style(handle_, property, value.c_str());
}

void Node::style(const char* property, double value) const {
    style(property, std::to_string(value));
}

void Node::turn(const char* class_name, bool on) const {
    page_class(handle_, class_name, on ? 1 : 0);
}

void Node::focus() const {
    page_focus(handle_);
}

bool Node::has_focus() const {
    return page_has_focus(handle_) != 0;
}

void Node::listen(EventKind kind, Listener listener) const {
    listeners()[{handle_, kind}] = std::move(listener);
    page_listen(handle_, static_cast<int>(kind));
}

void listen_to_page(EventKind kind, Listener listener) {
    static bool listening = false;
    if (!std::exchange(listening, true)) page_listen_everywhere();
    listeners()[{0, kind}] = std::move(listener);
}

void place(const Node& node, const Element& element) {
    node.style("--left", to_pixels(element.Left));
    node.style("--top", to_pixels(element.Top));
    node.style("--width", to_pixels(element.Width));
    node.style("--height", to_pixels(element.Height));
    node.attribute_if(!element.Visible, "hidden");
}

std::string to_css(const Color& color) {
    return "rgb(" + std::to_string(color.red) + ' ' + std::to_string(color.green) + ' ' +
           std::to_string(color.blue) + ')';
}

std::string font_families(const std::string& family) {
    std::string quoted;
    for (const char c : family) {
        if (c != '"' && c != '\\') quoted += c;
    }
    const std::string own = quoted.empty() ? "" : '"' + quoted + "\", ";
    switch (font_kind(family)) {
        case FontKind::Serif:
            return own + "\"Liberation Serif\", serif";
        case FontKind::FixedPitch:
            return own + "\"Liberation Mono\", monospace";
        case FontKind::Symbols:
        case FontKind::Sans:
        case FontKind::Unknown:
            break;
    }
    return own + "\"Liberation Sans\", Arial, sans-serif";
}

void set_font(const Node& node, const Font& font) {
    if (font.family.empty()) return;
    constexpr double pixels_per_point = 96.0 / 72;
    node.style("--font", font.points * pixels_per_point);
    node.style("font-family", font_families(font.family));
    if (font.bold) node.style("font-weight", "bold");
}

}  // namespace solvanta::web

extern "C" {

/// An event of the page, for whoever listens; `key` may be null.
__attribute__((used, visibility("default"))) void web_event(int node, int kind, double x, double y,
                                                            double milliseconds, const char* key) {
    using namespace solvanta::web;
    const auto event_kind = static_cast<EventKind>(kind);
    const int of_page = event_kind >= EventKind::Resize ? 0 : node;
    const auto found = listeners().find({of_page, event_kind});
    if (found == listeners().end()) return;
    const Listener listener = found->second;  // it may remove the element
    listener({node, x, y, milliseconds, key ? key : ""});
}
}
