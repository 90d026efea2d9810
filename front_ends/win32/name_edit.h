#pragma once

#include "front_ends/win32/window_parts.h"

namespace solvanta::win32 {

/// A text box of one line.
class NameEdit final : public Window {
  public:
    NameEdit(TextBox& box, WindowParts& parts, HWND parent);

    void sync() override;

  protected:
    std::optional<LRESULT> answer(const Message& message) override;

  private:
    LRESULT answer_border(const Message& message);
    void paint_gaps() const;
    std::optional<LRESULT> answer_text(const Message& message);
    void paste();

    TextBox& box_;
    WindowParts& parts_;
};

}  // namespace solvanta::win32
