#include "front_ends/qt/canvas.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QStyleHints>

#include "front_ends/common/look.h"
#include "front_ends/common/walk.h"
#include "front_ends/qt/accessibility.h"
#include "front_ends/qt/keys.h"
#include "front_ends/qt/look.h"
#include "front_ends/qt/scale.h"

namespace solvanta::qt {
namespace {

int text_flags(Alignment alignment) {
    constexpr int sideways[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
    return sideways[static_cast<std::size_t>(alignment)] | static_cast<int>(Qt::AlignTop) |
           static_cast<int>(Qt::TextWordWrap);
}

}  // namespace

Canvas::Canvas(Container& container, const Element* within, const QColor& background,
               WindowParts& parts, QWidget* parent)
    : QWidget(parent),
      container_(container),
      within_(within),
      background_(background),
      parts_(parts),
      mouse_(container),
      keyboard_(container, parts.deliver, [this](const std::string& text) { say(*this, text); }) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    if (has_key_stops(container)) setFocusPolicy(Qt::TabFocus);
    focus_told_.setSingleShot(true);
    connect(&focus_told_, &QTimer::timeout, this, [this] { tell_news(); });
}

/// Installed on the controls: what is pressed there makes no half of a double click here.
bool Canvas::eventFilter(QObject* /*receiver*/, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) mouse_.forget_press();
    return false;
}

void Canvas::sync() {
    paint_changes();
    tell_news();
}

void Canvas::tell_news() {
    if (is_heard() && has_key_stops(container_)) tell(*this, voice_.news(place_with_focus()));
}

Scale Canvas::scale(double ratio) const {
    const Scale scale(parts_.scale.pixels() * ratio);
    return within_ ? scale.inside(*within_) : scale;
}

void Canvas::paint_changes() {
    keyboard_.sync();
    const bool is_ringed = keyboard_.is_in_use() && hasFocus();
    const Scale scale = this->scale(devicePixelRatioF());
    const PixelRect changed = looks_.changes(
        container_, scale,
        [this](const Picture& picture) { return parts_.pictures.content(picture); },
        is_ringed ? keyboard_.place() : nullptr);
    update(to_logical(changed, devicePixelRatioF()).toAlignedRect());
}

void Canvas::walk_to(const PictureElement& place) {
    keyboard_.walk_to(&place);
    setFocus();
    sync();
}

void Canvas::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), background_);
    paint_elements(painter, event->region());
    paint_ring(painter);
}

void Canvas::paint_ring(QPainter& painter) const {
    if (looks_.ring().empty() || !hasFocus()) return;
    const double ratio = devicePixelRatioF();
    const double width = scale(ratio).scaled(ring_line) / ratio;
    QRectF line = to_logical(looks_.ring(), ratio);
    for (const Color& color : {ring_outside, ring_inside}) {
        const double half = width / 2;
        painter.setPen(QPen(to_color(color), width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter.drawRect(line.adjusted(half, half, -half, -half));
        line.adjust(width, width, -width, -width);
    }
}

void Canvas::paint_elements(QPainter& painter, const QRegion& region) const {
    for (std::size_t i = 0; i < container_.canvas.size(); ++i) {
        const PixelRect& area = looks_.area(i);
        if (!region.intersects(to_logical(area, devicePixelRatioF()).toAlignedRect())) continue;
        std::visit([&](const auto* element) { paint(painter, area, *element); },
                   container_.canvas[i]);
    }
}

void Canvas::paint(QPainter& painter, const PixelRect& area, const PictureElement& element) const {
    const double ratio = devicePixelRatioF();
    const QRectF place = to_logical(area, ratio);
    const PictureContent* const content = parts_.pictures.content(element.Picture);
    if (!content) return paint_placeholder(painter, place, element.Picture, parts_.scale);
    const PixelSize whole = painted_area(element, &content->size, scale(ratio)).whole;
    paint_image(painter, place, parts_.pictures.image(element.Picture, whole).pixels,
                static_cast<double>(area.height()) / whole.height);
}

void Canvas::paint(QPainter& painter, const PixelRect& area, const Label& label) const {
    const QRectF place = to_logical(area, devicePixelRatioF());
    painter.fillRect(
        place, label.BackColor ? to_color(*label.BackColor) : palette().color(QPalette::Window));
    painter.setFont(to_font(label.Font, parts_.scale));
    painter.setPen(to_color(label.ForeColor));
    painter.drawText(place, text_flags(label.Alignment), QString::fromStdString(label.Caption));
}

/// To a part of a logical pixel: the position that Qt gives a widget is rounded.
QPoint Canvas::place_in_twips(const QMouseEvent& event) const {
    const double ratio = devicePixelRatioF();
    const QPointF at = mapFrom(window(), event.scenePosition()) * ratio;
    return {scale(ratio).twips_across(at.x()), scale(ratio).twips_down(at.y())};
}

void Canvas::press(const QMouseEvent& event) {
    keyboard_.use(false);
    if (event.button() != Qt::LeftButton) return mouse_.forget_press();
    const QStyleHints& hints = *QGuiApplication::styleHints();
    const Twips reach = scale().twips(hints.mouseDoubleClickDistance());
    const QPoint at = place_in_twips(event);
    const Press press{at.x(), at.y(), static_cast<std::uint32_t>(event.timestamp())};
    const auto interval = static_cast<std::uint32_t>(hints.mouseDoubleClickInterval());
    parts_.deliver(mouse_.press(press, {interval, reach, reach}));
}

void Canvas::mousePressEvent(QMouseEvent* event) {
    press(*event);
}

void Canvas::mouseDoubleClickEvent(QMouseEvent* event) {
    press(*event);
}

void Canvas::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const QPoint at = place_in_twips(*event);
    parts_.deliver(mouse_.release(at.x(), at.y()));
}

/// The keys that a control has no use for come here too.
void Canvas::keyPressEvent(QKeyEvent* event) {
    if (!hasFocus() || !keyboard_.press(to_key_press(*event))) return event->ignore();
    sync();
}

void Canvas::focusInEvent(QFocusEvent* event) {
    const bool by_key =
        event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    if (by_key) keyboard_.use(true);
    paint_changes();
    focus_told_.start();
}

/// The form may be gone by now.
void Canvas::focusOutEvent(QFocusEvent* /*event*/) {
    voice_.forget_focus();
    update(to_logical(looks_.ring(), devicePixelRatioF()).toAlignedRect());
}

FrameBox::FrameBox(Frame& frame, WindowParts& parts, QWidget* parent)
    : Canvas(frame, &frame, parent->palette().color(QPalette::Window), parts, parent),
      frame_(frame) {}

void FrameBox::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), background());
    paint_border(painter);
    const int margin = scale().scaled(frame_margin);
    painter.setClipRect(
        rect().adjusted(margin, scale().scaled(frame_caption_height), -margin, -margin));
    paint_elements(painter, event->region());
}

void FrameBox::paint_border(QPainter& painter) const {
    constexpr int caption_margin = 3;
    const int caption_height = scale().scaled(frame_caption_height);
    const int middle = caption_height / 2;
    const double unit = scale().pixels();
    const QRectF line =
        QRectF(rect()).adjusted(unit / 2, middle + unit / 2, -1.5 * unit, -1.5 * unit);
    painter.setPen(QPen(Qt::white, unit));
    painter.drawRect(line.translated(unit, unit));
    painter.setPen(QPen(palette().color(QPalette::Dark), unit));
    painter.drawRect(line);
    painter.setFont(to_font(Font{}, scale()));
    const QString caption = QString::fromStdString(frame_.Caption);
    const int width = painter.fontMetrics().horizontalAdvance(caption);
    const QRect text(scale().scaled(frame_caption_indent), 0,
                     width + 2 * scale().scaled(caption_margin), caption_height);
    painter.fillRect(text, background());
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    painter.drawText(text, Qt::AlignCenter, caption);
}

}  // namespace solvanta::qt
