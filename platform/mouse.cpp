#include "platform/mouse.h"

#include <utility>

namespace solvanta {

PictureElement* Mouse::element_at(Twips x, Twips y) const {
    for (auto item = container_.canvas.rbegin(); item != container_.canvas.rend(); ++item) {
        auto* const* element = std::get_if<PictureElement*>(&*item);
        if (!element) continue;
        PictureElement& candidate = **element;
        if (candidate.Visible && candidate.Click && x >= candidate.Left &&
            x < candidate.Left + candidate.Width && y >= candidate.Top &&
            y < candidate.Top + candidate.Height) {
            return &candidate;
        }
    }
    return nullptr;
}

void Mouse::press(Twips x, Twips y) {
    pressed_ = element_at(x, y);
    follows_press_ = true;
}

void Mouse::double_press(Twips x, Twips y) {
    if (!follows_press_) return press(x, y);
    follows_press_ = false;
    pressed_ = nullptr;
    const PictureElement* element = element_at(x, y);
    if (element && element->DblClick) element->DblClick();
}

void Mouse::release(Twips x, Twips y) {
    const PictureElement* pressed = std::exchange(pressed_, nullptr);
    if (pressed && pressed == element_at(x, y)) pressed->Click();
}

}  // namespace solvanta
