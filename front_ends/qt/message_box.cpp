#include "front_ends/qt/message_box.h"

#include <algorithm>
#include <utility>

#include <QPushButton>
#include <QScreen>

#include "front_ends/common/boxes.h"

namespace solvanta::qt {
namespace {

/// What a window manager may add around a box; it can't be known before the box is shown.
constexpr int frame_allowance = 40;

/// A box that opens in the lower half of its parent, so that a picture shown with it stays in
/// view, and wholly on the screen.
class LowBox final : public QMessageBox {
  public:
    LowBox(const QString& text, QWidget* parent)
        : QMessageBox(NoIcon, "Solvanta", text, NoButton, parent) {
        setTextFormat(Qt::PlainText);
        setWindowModality(Qt::ApplicationModal);
    }

  protected:
    void showEvent(QShowEvent* event) override {
        QMessageBox::showEvent(event);
        if (!parentWidget()) return;
        const QRect over = parentWidget()->geometry();
        const QRect screen_area = parentWidget()->screen()->availableGeometry();
        const QSize room = screen_area.size() - frameGeometry().size();
        const QPoint corner(over.center().x() - width() / 2, over.top() + over.height() * 5 / 8);
        move(std::clamp(corner.x(), screen_area.left(),
                        screen_area.left() + std::max(0, room.width() - frame_allowance)),
             std::clamp(corner.y(), screen_area.top(),
                        screen_area.top() + std::max(0, room.height() - frame_allowance)));
    }
};

}  // namespace

QMessageBox* show_box(QWidget* parent, const QString& text, Buttons buttons, Answered answered) {
    constexpr const char* answer = "answer";
    auto* const box = new LowBox(text, parent);
    for (const BoxButton& choice : buttons_of(buttons)) {
        QPushButton* button = box->addButton(choice.caption, QMessageBox::AcceptRole);
        button->setProperty(answer, static_cast<int>(choice.answer));
        if (!box->defaultButton()) box->setDefaultButton(button);
        box->setEscapeButton(button);
    }
    QObject::connect(box, &QDialog::finished, box, [box, answered = std::move(answered)] {
        const bool pressed = box->clickedButton() != nullptr;
        const QAbstractButton& button = *(pressed ? box->clickedButton() : box->escapeButton());
        box->deleteLater();
        answered(static_cast<Answer>(button.property(answer).toInt()));
    });
    box->show();
    return box;
}

}  // namespace solvanta::qt
