#pragma once

#include <memory>
#include <string>

#include "front_ends/common/scale.h"
#include "front_ends/web/border.h"
#include "platform/elements.h"

namespace solvanta::web {

/// Twips in pixels of an unscaled form; the style sheet takes these to the page's own.
inline constexpr Scale logical_scale;

/// An element of the page; copies are the same one. It stays in the page until it, or one around
/// it, is removed, and is listened to for as long as there is a copy. The page is told only what it
/// has not been told last.
class Node {
  public:
    Node() = default;
    /// A new element at the end of `parent`.
    Node(const Node& parent, const char* tag, const char* class_name = "");
    /// The element with this id in the page's own text.
    static Node find(const char* id);
    /// The page itself, for its size and its events.
    static Node page();

    int handle() const;

    void text(const std::string& text) const;
    /// Sets a text that is to be heard, even if it is the same again.
    void say(const std::string& text) const { page_set(handle(), "textContent", text.c_str()); }
    void attribute(const char* name, const std::string& value) const;
    void attribute_if(const char* name, bool present) const;
    void style(const char* property, const std::string& value) const;
    void style(const char* property, double value) const;
    void turn(const char* class_name, bool on) const;

    double number(const char* property) const { return page_number(handle(), property); }
    void focus() const { page_focus(handle()); }
    bool has_focus() const { return page_has_focus(handle()) != 0; }
    void remove() const { page_call(handle(), "remove"); }

    /// Has `listener` told of the events that the browser calls `type`.
    void listen(const char* type, Listener listener) const;

  private:
    struct Held;

    explicit Node(int handle);
    bool is_news(const std::string& name, const std::string& value) const;

    std::shared_ptr<Held> held_;
};

}  // namespace solvanta::web
