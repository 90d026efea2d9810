#pragma once

#include <functional>
#include <string>

#include "platform/elements.h"

namespace solvanta::web {

/// What an element of the page may be asked to tell; border.js has the same numbers.
enum class EventKind {
    Click,
    Press,    ///< the left button, or a finger, on the element itself
    Release,  ///< of such a press, wherever it happens
    Drag,     ///< between the two
    Key,      ///< any key, before the element handles it
    WalkKey,  ///< a key that moves on the places within, or clicks one
    Input,
    Failure,  ///< what the element shows can't be shown
    Focus,
    Resize,   ///< of the page
    Leave,    ///< of the page
    AnyPress  ///< on whatever element of the page
};

struct PageEvent {
    int node = 0;
    double x = 0;  ///< in the page
    double y = 0;
    double milliseconds = 0;  ///< the moment, by a steady clock
    std::string key;
};

using Listener = std::function<void(const PageEvent&)>;

/// An element of the page. It lives as long as this object, unless it is left to its parent.
class Node {
  public:
    Node() = default;
    /// A new element at the end of `parent`.
    Node(const Node& parent, const char* tag, const char* class_name = "");
    /// The element with this id in the page's own text; it is only let go of in the end.
    static Node find(const char* id);

    Node(Node&& other) noexcept;
    Node& operator=(Node&& other) noexcept;
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;
    ~Node();

    int handle() const { return handle_; }

    void text(const std::string& text) const;
    void attribute(const char* name, const std::string& value) const;
    void remove_attribute(const char* name) const;
    void attribute_if(bool present, const char* name) const;
    void style(const char* property, const std::string& value) const;
    void style(const char* property, double value) const;
    void turn(const char* class_name, bool on) const;
    void focus() const;
    bool has_focus() const;

    /// Has `listener` told of such events from now on; one listener for each kind.
    void listen(EventKind kind, Listener listener) const;

    /// Leaves the element in the page for as long as its parent is there.
    void leave_to_parent();

  private:
    void remove();

    int handle_ = 0;
    bool is_own_ = false;
};

/// Has `listener` told of what happens to the page as a whole: Resize, Leave or AnyPress.
void listen_to_page(EventKind kind, Listener listener);

/// Puts the element where `element` lies in its container, and shows or hides it. The style sheet
/// makes sizes of the numbers, which are pixels of an unscaled form.
void place(const Node& node, const Element& element);

/// A color as style sheets write it.
std::string to_css(const Color& color);

/// The families of a font, for a style sheet: its own name and a kind that every browser has.
std::string font_families(const std::string& family);

/// Sets size, weight and families; nothing for the standard font.
void set_font(const Node& node, const Font& font);

}  // namespace solvanta::web
