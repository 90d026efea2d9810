#pragma once

#include <deque>

#include "front_ends/common/window_host.h"
#include "front_ends/win32/form_window.h"
#include "front_ends/win32/pictures.h"

namespace solvanta::win32 {

/// The Host on the windows of the Windows desktop.
class Win32Host final : public WindowHost<FormWindow> {
  public:
    ~Win32Host() override { clear(); }

    std::string program_directory() const override;
    LocalTime local_time() const override;
    LocaleTexts locale_texts() const override;

    /// Handles messages until the program has been asked to quit; the exit status.
    int run();

    /// Handles one message that came from the system's queue.
    void handle(MSG& message);

    /// Shows the window shown first in front, restored if it is minimised, and the box before it
    /// that is open; answers whether there is one.
    bool come_forward();

  private:
    FormWindow& create_window(Form& form) override;
    void open_box(const std::string& text, Buttons buttons) override;
    void close_box() override;
    void soon(Event act) override;
    void end() override { PostQuitMessage(0); }
    void sync() override;
    void to_box() const;
    HWND owner_for_box() const;
    void enable_all_but(HWND owner, bool enable) const;

    Pictures pictures_{decode_picture};
    std::deque<Event> soon_;  // what is to be called from the event loop
    HWND box_ = nullptr;
};

}  // namespace solvanta::win32
