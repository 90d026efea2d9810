#include "front_ends/qt/message_box.h"

#include <algorithm>
#include <vector>

#include <QMessageBox>
#include <QPushButton>
#include <QScreen>

namespace solvanta::qt {
namespace {

struct Choice {
    QString text;
    QMessageBox::ButtonRole role;
    Answer answer;
};

/// The buttons of a box, the default one first, the one that Esc means last. Named here rather
/// than by Qt, they are German with or without its translation.
std::vector<Choice> choices(Buttons buttons) {
    switch (buttons) {
        case Buttons::YesNo:
            return {{"&Ja", QMessageBox::YesRole, Answer::Yes},
                    {"&Nein", QMessageBox::NoRole, Answer::No}};
        case Buttons::OkCancel:
            return {{"OK", QMessageBox::AcceptRole, Answer::Ok},
                    {"Abbrechen", QMessageBox::RejectRole, Answer::Cancel}};
        case Buttons::Ok:
            break;
    }
    return {{"OK", QMessageBox::AcceptRole, Answer::Ok}};
}

/// What a window manager may add around a box; it can't be known before the box is shown.
constexpr int frame_allowance = 40;

/// A box that opens in the lower half of its parent, so that a picture shown with it stays in
/// view, and wholly on the screen.
class LowBox final : public QMessageBox {
  public:
    LowBox(const QString& text, QWidget* parent)
        : QMessageBox(NoIcon, "Solvanta", text, NoButton, parent) {
        setTextFormat(Qt::PlainText);
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

Answer ask(QWidget* parent, const QString& text, Buttons buttons) {
    LowBox box(text, parent);
    Answer answer = answer_of_closing(buttons);
    for (const Choice& choice : choices(buttons)) {
        QPushButton* button = box.addButton(choice.text, choice.role);
        QObject::connect(button, &QPushButton::clicked, &box,
                         [&answer, given = choice.answer] { answer = given; });
        if (!box.defaultButton()) box.setDefaultButton(button);
        box.setEscapeButton(button);
    }
    box.exec();
    return answer;
}

}  // namespace solvanta::qt
