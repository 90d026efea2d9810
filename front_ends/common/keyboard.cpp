#include "front_ends/common/keyboard.h"

#include <algorithm>
#include <map>

#include "front_ends/common/mouse.h"
#include "front_ends/common/walk.h"

namespace solvanta {

bool Keyboard::press(const KeyPress& press) {
    sync();
    const bool used = press.key == TableKey::Character ? !press.control && press_character(press)
                                                       : place_ != nullptr;
    if (used && press.key == TableKey::Click && !press.repeated) click(*place_);
    if (used) walk(press.key, press.control);
    is_in_use_ |= used;
    return used;
}

/// Does nothing at a key that is none of the walk's.
void Keyboard::walk(TableKey key, bool far) {
    static const std::map<TableKey, Direction> directions{
        {TableKey::Left, Direction::Left}, {TableKey::Right, Direction::Right},
        {TableKey::Up, Direction::Up},     {TableKey::Down, Direction::Down},
        {TableKey::Home, Direction::Left}, {TableKey::End, Direction::Right},
        {TableKey::PageUp, Direction::Up}, {TableKey::PageDown, Direction::Down},
    };
    const auto direction = directions.find(key);
    if (direction == directions.end()) return;
    far |= key >= TableKey::Home;
    do {
        const PictureElement* const next = next_place(container_, *place_, direction->second);
        if (!next) break;
        place_ = next;
    } while (far);
}

bool Keyboard::press_character(const KeyPress& press) const {
    if (press.character == 0) return false;
    const auto places = places_of(container_);
    const auto meant = std::find_if(places.begin(), places.end(), [&](const auto* place) {
        return place->Key == press.character;
    });
    const bool at_walk = press.character == 'D' && place_ != nullptr;
    if (!at_walk && meant == places.end()) return answer(press.character);
    if (!press.repeated) at_walk ? click(*place_, true) : click(**meant, press.shift);
    return true;
}

bool Keyboard::answer(char key) const {
    const std::string text = container_.SpokenAnswer ? container_.SpokenAnswer(key) : std::string();
    if (!text.empty()) say_(text);
    return !text.empty();
}

void Keyboard::click(const PictureElement& place, bool twice) const {
    const Press middle{place.Left + place.Width / 2, place.Top + place.Height / 2};
    Mouse mouse(container_);
    mouse.press(middle, {});
    deliver_(mouse.release(middle.x, middle.y));
    if (twice) deliver_(mouse.press(middle, {}));
}

void Keyboard::sync() {
    if (place_ && is_place(*place_)) return;
    place_ = nearest_place(container_, place_ ? *place_ : PictureElement());
}

}  // namespace solvanta
