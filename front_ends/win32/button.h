#pragma once

#include "front_ends/win32/canvas.h"

namespace solvanta::win32 {

/// A push button that Enter presses as well as Space. A mouse click leaves the keyboard focus where
/// it is, so that a name half typed can be finished.
class Button final : public Window {
  public:
    Button(CommandButton& element, WindowParts& parts, const Canvas& parent);

    void sync() override;

  protected:
    std::optional<LRESULT> answer(const Message& message) override;

  private:
    std::optional<LRESULT> answer_mouse(const Message& message);
    std::optional<LRESULT> press_by_enter(const Message& message) const;
    LRESULT paint_caption(const NMHDR& notice) const;
    LRESULT release(const Message& message) const;
    void push(bool pushed) const;
    void click() const;

    CommandButton& element_;
    WindowParts& parts_;
    const Canvas& parent_;
    bool held_ = false;  // by the mouse
};

}  // namespace solvanta::win32
