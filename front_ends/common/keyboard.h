#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/elements.h"

namespace solvanta {

enum class TableKey { Character, Left, Right, Up, Down, Home, End, PageUp, PageDown, Click };

/// A key as it goes down on a canvas that has the keyboard.
struct KeyPress {
    TableKey key = TableKey::Character;
    char character = 0;  ///< a capital or a digit, whatever else shift makes of the key
    bool shift = false;
    bool control = false;
    bool repeated = false;  ///< by a key held down
};

/// Makes clicks and double clicks of keys and walks over a container's places, the same way for
/// every window system; one for each container. Arrows lead from place to place; with Control, and
/// Home, End and Page keys, as far as it goes. Enter and Space click the place of the walk, D
/// double clicks it; the key of a place clicks that one, with Shift twice.
class Keyboard {
  public:
    /// `deliver` runs an event, `say` tells a text to those who listen.
    Keyboard(Container& container, std::function<void(Event)> deliver,
             std::function<void(const std::string&)> say)
        : container_(container), deliver_(std::move(deliver)), say_(std::move(say)) {}

    /// Does what the key is for; answers whether it is of use.
    bool press(const KeyPress& press);

    /// Clicks a place as a hand on the mouse would.
    void click(const PictureElement& place, bool twice = false) const;

    /// Where the walk is; null while there are no places.
    const PictureElement* place() const { return place_; }
    void walk_to(const PictureElement* place) { place_ = place; }

    /// The place goes on to the nearest one when it has gone.
    void sync();

    /// Whether the place is to be marked: from the first key to the next press of the mouse.
    bool is_in_use() const { return is_in_use_; }
    void use(bool used) { is_in_use_ = used; }

  private:
    void walk(TableKey key, bool far);
    bool press_character(const KeyPress& press) const;
    bool answer(char key) const;

    Container& container_;
    std::function<void(Event)> deliver_;
    std::function<void(const std::string&)> say_;
    const PictureElement* place_ = nullptr;
    bool is_in_use_ = false;
};

}  // namespace solvanta
