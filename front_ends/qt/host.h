#pragma once

#include <memory>
#include <vector>

#include <QMessageBox>
#include <QObject>
#include <QPointer>

#include "front_ends/common/window_host.h"
#include "front_ends/qt/form_window.h"
#include "front_ends/qt/pictures.h"

namespace solvanta::qt {

/// The Host on Qt Widgets. A QApplication must exist, be prepared by `prepare_application` and
/// outlive it.
class QtHost final : public WindowHost<FormWindow> {
  public:
    /// `directory` is that of the program.
    explicit QtHost(std::string directory);
    ~QtHost() override { clear(); }

    std::string program_directory() const override { return directory_; }
    LocalTime local_time() const override;
    LocaleTexts locale_texts() const override;

    /// Closes the window shown first, as its close box does; requests to terminate come down to
    /// this. Without a window it ends the program.
    void close_first();

    /// Shows the window shown first in front, restored if it is minimised, and the box before it
    /// that is open; answers whether there is one.
    bool come_forward();

  private:
    FormWindow& create_window(Form& form) override;
    void open_box(const std::string& text, Buttons buttons) override;
    void close_box() override;
    void soon(Event act) override;
    void end() override;
    void sync() override;
    QWidget* parent_for_box() const;

    std::string directory_;
    Pictures pictures_{decode_picture};
    QPointer<QMessageBox> box_;
    QObject connections_;  // cuts the connections to the application with the Host's end
};

}  // namespace solvanta::qt
