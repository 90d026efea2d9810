#pragma once

#include "front_ends/common/canvas_looks.h"
#include "front_ends/common/mouse.h"
#include "front_ends/win32/window_parts.h"

namespace solvanta::win32 {

/// Paints the picture elements and labels of a container and passes the left mouse button on to
/// its Mouse. It is also the parent of the container's controls.
class Canvas : public PaintedWindow {
  public:
    /// `within` is the element that holds the container, unless that is the form.
    Canvas(Container& container, const Element* within, WindowParts& parts)
        : container_(container), within_(within), parts_(parts), mouse_(container) {}

    /// Has what looks otherwise than at the last call painted anew.
    void sync() override;

    /// Of what is inside.
    Scale scale() const { return within_ ? parts_.scale.inside(*within_) : parts_.scale; }

  protected:
    std::optional<LRESULT> answer(const Message& message) override;
    void paint(HDC dc) override;

    void paint_elements(HDC dc) const;

  private:
    LRESULT press(const Message& message);
    LRESULT release(const Message& message);
    POINT place_in_twips(const Message& message) const;
    void paint_ring(HDC dc) const;
    void paint(HDC dc, const RECT& area, const PictureElement& element) const;
    void paint(HDC dc, const RECT& area, const Label& label) const;

    Container& container_;
    const Element* within_;
    WindowParts& parts_;
    Mouse mouse_;
    CanvasLooks looks_;      // as of the last `sync`
    bool captured_ = false;  // while the button is held, the mouse reports wherever it is
};

/// A frame: its border and caption, and inside the border what its container holds.
class FrameBox final : public Canvas {
  public:
    FrameBox(Frame& frame, WindowParts& parts, const Canvas& parent)
        : Canvas(frame, &frame, parts), frame_(frame), parent_(parent) {}

    void sync() override;

  protected:
    std::optional<LRESULT> answer(const Message& message) override;
    void paint(HDC dc) override;

  private:
    void make();
    void paint_border(HDC dc) const;

    Frame& frame_;
    const Canvas& parent_;
    HWND words_ = nullptr;  // hidden before the text box: readers take it for the box's name
};

}  // namespace solvanta::win32
