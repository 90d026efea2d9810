#pragma once

#include "front_ends/win32/canvas_window.h"

namespace solvanta::win32 {

/// A frame: its border and caption, and inside the border what its container holds.
class FrameBox final : public CanvasWindow {
  public:
    FrameBox(Frame& frame, WindowParts& parts, HWND parent);

    void sync() override;

  protected:
    std::optional<LRESULT> answer(const Message& message) override;
    void paint(HDC dc) override;

  private:
    void paint_border(HDC dc, const RECT& area) const;

    Frame& frame_;
};

}  // namespace solvanta::win32
