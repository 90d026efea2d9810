#pragma once

#include "front_ends/win32/canvas.h"

namespace solvanta::win32 {

/// A read-only rich-text view. It shows nothing for what is no rich text.
class RichTextView final : public Window {
  public:
    RichTextView(const RichTextBox& box, WindowParts& parts, const Canvas& parent);

    void sync() override;

  protected:
    std::optional<LRESULT> answer(const Message& message) override;

  private:
    std::optional<LRESULT> scroll(const Message& message);
    void zoom();
    void leave_margin();
    void show_text();

    const RichTextBox& box_;
    WindowParts& parts_;
    const Canvas& parent_;
    std::string shown_;
    Scale zoomed_for_;
};

}  // namespace solvanta::win32
