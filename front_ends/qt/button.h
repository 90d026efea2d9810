#pragma once

#include <QKeyEvent>
#include <QPushButton>

namespace solvanta::qt {

/// Whether the key is Enter, that of the key pad included.
bool is_enter(const QKeyEvent& event);

/// A push button of the table and the list, which paints itself: style sheets would take a part of
/// the start. Enter presses it as well as Space. A mouse click leaves the keyboard focus where it
/// is, so that a name half typed can be finished.
class Button final : public QPushButton {
  public:
    explicit Button(QWidget* parent);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    QBrush face() const;
};

}  // namespace solvanta::qt
