#pragma once

#include <memory>
#include <vector>

#include <QObject>

#include "front_ends/qt/form_window.h"
#include "front_ends/qt/pictures.h"
#include "platform/host.h"

namespace solvanta::qt {

/// The Host on Qt Widgets. A QApplication must exist, be prepared by `prepare_application` and
/// outlive it.
class QtHost final : public Host {
  public:
    QtHost();
    ~QtHost() override;

    void show(Form& form) override;
    void hide(Form& form) override;
    Answer message(const std::string& text, Buttons buttons) override;
    void set_focus(TextBox& box) override;
    void quit() override;
    std::string program_directory() const override;
    LocalTime local_time() const override;
    LocaleTexts locale_texts() const override;

    /// Closes the window shown first, as its close box does; requests to terminate come down to
    /// this. Without a window it ends the program.
    void close_first();

    /// Tells every form that the desktop saves its state. Nothing is closed: the desktop may go on,
    /// and when it ends it asks the windows to close.
    void save();

  private:
    using Window = std::unique_ptr<FormWindow>;

    FormWindow* window_of(const Form& form) const;
    FormWindow& create_window(Form& form);
    QWidget* parent_for_box() const;
    void deliver(const Event& event);
    void sync();
    void close(FormWindow& window);
    void forget(FormWindow& window);
    void settle();

    Pictures pictures_;
    std::vector<Window> windows_;    // in the order in which they were first shown
    std::vector<Window> forgotten_;  // kept while their own events may still run
    int running_events_ = 0;
    bool quitting_ = false;
    QObject connections_;  // cuts the connections to the application with the Host's end
};

}  // namespace solvanta::qt
