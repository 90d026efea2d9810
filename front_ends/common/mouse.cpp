#include "front_ends/common/mouse.h"

#include <cstdlib>
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

bool Mouse::is_second(const Press& press, const DoubleClickLimits& limits) const {
    return follows_press_ && press.milliseconds - first_.milliseconds < limits.milliseconds &&
           std::abs(press.x - first_.x) <= limits.x && std::abs(press.y - first_.y) <= limits.y;
}

Event Mouse::press(const Press& press, const DoubleClickLimits& limits) {
    const bool second = is_second(press, limits);
    PictureElement* const element = element_at(press.x, press.y);
    follows_press_ = !second;
    first_ = press;
    pressed_ = second ? nullptr : element;
    return second && element ? element->DblClick : nullptr;
}

Event Mouse::release(Twips x, Twips y) {
    const PictureElement* const pressed = std::exchange(pressed_, nullptr);
    return pressed && pressed == element_at(x, y) ? pressed->Click : nullptr;
}

void Mouse::cancel() {
    pressed_ = nullptr;
    forget_press();
}

}  // namespace solvanta
