#pragma once

#include <memory>
#include <vector>

#include "front_ends/win32/form_window.h"
#include "front_ends/win32/message_box.h"
#include "front_ends/win32/pictures.h"
#include "platform/host.h"

namespace solvanta::win32 {

/// The Host on the windows of the Windows desktop.
class Win32Host final : public Host {
  public:
    Win32Host();
    ~Win32Host() override;

    void show(Form& form) override;
    void hide(Form& form) override;
    Answer message(const std::string& text, Buttons buttons) override;
    void set_focus(TextBox& box) override;
    void quit() override;
    std::string program_directory() const override;
    LocalTime local_time() const override;
    LocaleTexts locale_texts() const override;

    /// Handles messages until the program has been asked to quit; the exit status.
    int run();

    /// Handles one message that came from the system's queue.
    void handle(MSG& message);

  private:
    using WindowOwner = std::unique_ptr<FormWindow>;
    class RunningEvent;

    FormWindow* window_of(const Form& form) const;
    FormWindow& create_window(Form& form);
    HWND owner_of_box() const;
    void deliver(const Event& event);
    void sync();
    void close(FormWindow& window);
    void forget(FormWindow& window);
    void settle();

    Pictures pictures_;
    MessageBoxes boxes_;
    std::vector<WindowOwner> windows_;    // in the order in which they were first shown
    std::vector<WindowOwner> forgotten_;  // kept while code of theirs may still run
    int running_events_ = 0;
    bool quitting_ = false;
};

}  // namespace solvanta::win32
