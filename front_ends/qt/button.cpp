#include "front_ends/qt/button.h"

#include <QPainter>

#include "front_ends/common/look.h"
#include "front_ends/qt/look.h"

namespace solvanta::qt {
namespace {

constexpr double corner_radius = 3;
constexpr QRgb border = qRgb(0x23, 0x30, 0x2a);
constexpr QRgb focus_border = qRgb(0xff, 0xc2, 0x28);
constexpr QRgb caption = qRgb(0x16, 0x16, 0x16);
constexpr QRgb disabled_caption = qRgb(0x8c, 0x8c, 0x88);
constexpr QRgb pressed_face = qRgb(0xc3, 0xc6, 0xbc);
constexpr QRgb disabled_face = qRgb(0xd6, 0xd6, 0xd2);
constexpr QRgb hover_face = qRgb(0xff, 0xfd, 0xf0);

}  // namespace

bool is_enter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

Button::Button(QWidget* parent) : QPushButton(parent) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
}

void Button::keyPressEvent(QKeyEvent* event) {
    if (!is_enter(*event)) return QPushButton::keyPressEvent(event);
    // An Enter held down since it ended the name entry is not meant for the button.
    if (!event->isAutoRepeat()) click();
}

QBrush Button::face() const {
    if (!isEnabled()) return QColor(disabled_face);
    if (isDown()) return QColor(pressed_face);
    QLinearGradient face(0, 0, 0, height());
    if (hasFocus()) {
        face.setStops({{0, QColor(0xff, 0xfd, 0xf2)}, {1, QColor(0xec, 0xd9, 0xa0)}});
    } else if (underMouse()) {
        return QColor(hover_face);
    } else {
        face.setStops({{0, QColor(0xfd, 0xfd, 0xfb)},
                       {0.5, QColor(0xec, 0xec, 0xe6)},
                       {1, QColor(0xcf, 0xd0, 0xc8)}});
    }
    return face;
}

void Button::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double unit = double(font().pixelSize()) / button_font_pixels;
    const double middle = unit / 2;  // of the line around it
    const double radius = corner_radius * unit;
    painter.setPen(QPen(QColor(hasFocus() ? focus_border : border), unit));
    painter.setBrush(face());
    painter.drawRoundedRect(QRectF(rect()).adjusted(middle, middle, -middle, -middle), radius,
                            radius);
    painter.setPen(QColor(isEnabled() ? caption : disabled_caption));
    painter.drawText(rect().translated(isDown() ? QPoint(1, 1) * unit : QPoint()),
                     Qt::AlignCenter | Qt::TextShowMnemonic, text());
}

}  // namespace solvanta::qt
