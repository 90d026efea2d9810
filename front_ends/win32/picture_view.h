#pragma once

#include "front_ends/win32/window_parts.h"

namespace solvanta::win32 {

/// A picture drawn as large as fits, its proportions kept, on the form's background.
class PictureView final : public Window {
  public:
    PictureView(const PictureBox& box, WindowParts& parts, HWND parent);

    void sync() override;

  protected:
    std::optional<LRESULT> answer(const Message& message) override;

  private:
    void paint(HDC dc) const;

    const PictureBox& box_;
    WindowParts& parts_;
};

}  // namespace solvanta::win32
