#pragma once

#include <memory>
#include <vector>

#include "front_ends/win32/form_window.h"
#include "front_ends/win32/message_box.h"
#include "front_ends/win32/pictures.h"
#include "front_ends/common/window_host.h"

namespace solvanta::win32 {

/// The Host on the windows of the Windows desktop.
class Win32Host final : public WindowHost<FormWindow> {
  public:
    Win32Host();
    ~Win32Host() override;

    Answer message(const std::string& text, Buttons buttons) override;
    std::string program_directory() const override;
    LocalTime local_time() const override;
    LocaleTexts locale_texts() const override;

    /// Handles messages until the program has been asked to quit; the exit status.
    int run();

    /// Handles one message that came from the system's queue.
    void handle(MSG& message);

  private:
    FormWindow& create_window(Form& form) override;
    void close_boxes() override { boxes_.close_all(); }
    void end() override { PostQuitMessage(0); }
    void sync() override;
    void destroy(std::vector<Owner>& forgotten) override;
    HWND owner_of_box() const;

    Pictures pictures_;
    MessageBoxes boxes_;
};

}  // namespace solvanta::win32
