#pragma once

#include "front_ends/win32/window_parts.h"
#include "front_ends/common/mouse.h"

namespace solvanta::win32 {

/// A window that paints the picture elements and labels of a container and passes the left mouse
/// button on to its Mouse. It is also the parent of the container's controls.
class CanvasWindow : public Window {
  public:
    CanvasWindow(Container& container, WindowParts& parts)
        : container_(container), parts_(parts), mouse_(container) {}

  protected:
    std::optional<LRESULT> answer(const Message& message) override;

    /// Paints the whole client area.
    virtual void paint(HDC dc) = 0;

    void paint_elements(HDC dc) const;
    WindowParts& parts() const { return parts_; }

  private:
    std::optional<LRESULT> answer_mouse(const Message& message);
    void press(const Message& message);
    void release(const Message& message);
    void lose_press();
    void paint_element(HDC dc, const PictureElement& element) const;
    void paint_element(HDC dc, const Label& label) const;

    Container& container_;
    WindowParts& parts_;
    Mouse mouse_;
    bool captured_ = false;  // while the button is held, the mouse reports wherever it is
};

}  // namespace solvanta::win32
