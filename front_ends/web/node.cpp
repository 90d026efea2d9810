#include "front_ends/web/node.h"

#include <map>
#include <utility>
#include <vector>

namespace solvanta::web {

struct Node::Held {
    explicit Held(int number) : handle(number) {}
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
    ~Held() {
        for (const int listener : listeners)
            remove_listener(listener);
        page_forget(handle);
    }

    int handle;
    std::vector<int> listeners;
    std::map<std::string, std::string> told;  // by attribute, property or class: all differ
};

Node::Node(int handle) : held_(std::make_shared<Held>(handle)) {}

Node::Node(const Node& parent, const char* tag, const char* class_name)
    : Node(page_create(parent.handle(), tag, class_name)) {}

Node Node::find(const char* id) {
    return Node(page_find(id));
}

Node Node::page() {
    return Node(0);
}

int Node::handle() const {
    return held_->handle;
}

bool Node::is_news(const std::string& name, const std::string& value) const {
    const auto [told, is_new] = held_->told.try_emplace(name, value);
    return is_new || std::exchange(told->second, value) != value;
}

void Node::text(const std::string& text) const {
    if (is_news("text", text)) say(text);
}

void Node::attribute(const char* name, const std::string& value) const {
    if (is_news(name, value)) page_attribute(handle(), name, value.c_str());
}

void Node::attribute_if(const char* name, bool present) const {
    if (is_news(name, present ? "+" : "-")) page_attribute_if(handle(), name, present ? 1 : 0);
}

void Node::style(const char* property, const std::string& value) const {
    if (is_news(property, value)) page_style(handle(), property, value.c_str());
}

void Node::style(const char* property, double value) const {
    style(property, std::to_string(value));
}

void Node::turn(const char* class_name, bool on) const {
    if (is_news(class_name, on ? "+" : "-")) page_turn(handle(), class_name, on ? 1 : 0);
}

void Node::listen(const char* type, Listener listener) const {
    held_->listeners.push_back(add_listener(std::move(listener)));
    page_listen(handle(), type, held_->listeners.back());
}

}  // namespace solvanta::web
