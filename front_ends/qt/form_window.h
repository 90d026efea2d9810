#pragma once

#include <functional>
#include <vector>

#include <QTimer>
#include <QWidget>

#include "front_ends/qt/window_parts.h"

namespace solvanta::qt {

class Canvas;

/// The window of one form, which the player may enlarge: its layout grows with it, in the middle of
/// what room there is.
class FormWindow final : public QWidget {
  public:
    /// `close_box` is called once the player closes the window; the form must outlive the window
    /// or the call of `let_go`.
    FormWindow(Form& form, WindowParts parts, std::function<void(FormWindow&)> close_box);

    Form& form() const { return form_; }

    /// Brings everything shown in line with the form.
    void sync();

    /// Shows the window in front of the others, restored if it is minimised.
    void bring_forward();

    /// Gives `box` the keyboard focus; answers whether it is one of this window's.
    bool focus(const TextBox& box);

    /// Hides the window for good; nothing of it touches the form any more.
    void let_go();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    void start(const Timer& timer);
    void watch_screen();
    void lay_out();
    void come_to_rest();
    void enlarge_to(double part);
    void stay_on_screen();
    QSize size_at(double part) const;
    double largest_part() const;
    void centre();

    Form& form_;
    WindowParts parts_;
    Canvas* canvas_ = nullptr;
    WheelSteps wheel_;
    QTimer rest_;  // runs out when the size has not changed for a while
    std::function<void(FormWindow&)> close_box_;
    std::vector<QTimer*> timers_;
    QLineEdit* box_ = nullptr;       // that was given the focus last
    QWidget* before_box_ = nullptr;  // gets it back when that box is hidden
    bool let_go_ = false;
};

}  // namespace solvanta::qt
