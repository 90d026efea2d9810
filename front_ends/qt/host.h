#pragma once

#include <memory>
#include <vector>

#include <QObject>

#include "front_ends/qt/form_window.h"
#include "front_ends/qt/pictures.h"
#include "platform/window_host.h"

namespace solvanta::qt {

/// The Host on Qt Widgets. A QApplication must exist, be prepared by `prepare_application` and
/// outlive it.
class QtHost final : public WindowHost<FormWindow> {
  public:
    QtHost();
    ~QtHost() override { clear(); }

    Answer message(const std::string& text, Buttons buttons) override;
    std::string program_directory() const override;
    LocalTime local_time() const override;
    LocaleTexts locale_texts() const override;

    /// Closes the window shown first, as its close box does; requests to terminate come down to
    /// this. Without a window it ends the program.
    void close_first();

  private:
    FormWindow& create_window(Form& form) override;
    void close_boxes() override;
    void sync() override;
    void destroy(std::vector<Owner>& forgotten) override;
    QWidget* parent_for_box() const;

    Pictures pictures_;
    QObject connections_;  // cuts the connections to the application with the Host's end
};

}  // namespace solvanta::qt
