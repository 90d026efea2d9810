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

Canvas::Canvas(Container& container, const QColor& background, WindowParts& parts, QWidget* parent)
    : QWidget(parent),
      container_(container),
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

void Canvas::paint_changes() {
    keyboard_.sync();
    const bool is_ringed = keyboard_.is_in_use() && hasFocus();
    const PixelRect changed = looks_.changes(
        container_, logical_scale,
        [this](const PictureElement& element) {
            const QRect area = painted_area(element).toAlignedRect();
            return PixelRect{area.left(), area.top(), area.left() + area.width(),
                             area.top() + area.height()};
        },
        is_ringed ? keyboard_.place() : nullptr);
    update(to_qt(changed));
}

void Canvas::walk_to(const PictureElement& place) {
    keyboard_.walk_to(&place);
    setFocus();
    sync();
}

/// A picture is painted at its own size; the stand-in of one that can't be read at the element's.
QRectF Canvas::painted_area(const PictureElement& element) const {
    QRectF area = place_of(element);
    const QImage* const image =
        parts_.pictures.image(element.Picture, is_fine(devicePixelRatioF()));
    if (!image) return area;
    const QSizeF size = image->deviceIndependentSize();
    area.setWidth(size.width());
    if (!element.CutToHeight || size.height() < area.height()) area.setHeight(size.height());
    return area;
}

void Canvas::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), background_);
    paint_elements(painter, event->region());
    paint_ring(painter);
}

void Canvas::paint_ring(QPainter& painter) const {
    if (looks_.ring().empty() || !hasFocus()) return;
    QRectF line = to_qt(looks_.ring());
    for (const Color& color : {ring_outside, ring_inside}) {
        constexpr double half = ring_line / 2.0;
        painter.setPen(
            QPen(to_color(color), ring_line, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter.drawRect(line.adjusted(half, half, -half, -half));
        line.adjust(ring_line, ring_line, -ring_line, -ring_line);
    }
}

void Canvas::paint_elements(QPainter& painter, const QRegion& region) const {
    for (std::size_t i = 0; i < container_.canvas.size(); ++i) {
        if (!region.intersects(to_qt(looks_.area(i)))) continue;
        std::visit([&](const auto* element) { paint(painter, *element); }, container_.canvas[i]);
    }
}

void Canvas::paint(QPainter& painter, const PictureElement& element) const {
    const QRectF area = painted_area(element);
    const QImage* const image =
        parts_.pictures.image(element.Picture, is_fine(devicePixelRatioF()));
    if (!image) return paint_placeholder(painter, area, element.Picture);
    const QRectF source(QPointF(), area.size() * image->devicePixelRatioF());
    paint_image(painter, area, *image, source);
}

void Canvas::paint(QPainter& painter, const Label& label) const {
    const QRectF place = place_of(label);
    painter.fillRect(
        place, label.BackColor ? to_color(*label.BackColor) : palette().color(QPalette::Window));
    painter.setFont(to_font(label.Font));
    painter.setPen(to_color(label.ForeColor));
    painter.drawText(place, text_flags(label.Alignment), QString::fromStdString(label.Caption));
}

/// To a part of a pixel: the position that Qt gives a widget is rounded.
QPoint Canvas::place_in_twips(const QMouseEvent& event) const {
    const QPointF at = mapFrom(window(), event.scenePosition());
    return {logical_scale.twips(at.x()), logical_scale.twips(at.y())};
}

void Canvas::press(const QMouseEvent& event) {
    keyboard_.use(false);
    if (event.button() != Qt::LeftButton) return mouse_.forget_press();
    const QStyleHints& hints = *QGuiApplication::styleHints();
    const Twips reach = hints.mouseDoubleClickDistance() * twips_per_pixel;
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
    update(to_qt(looks_.ring()));
}

FrameBox::FrameBox(Frame& frame, WindowParts& parts, QWidget* parent)
    : Canvas(frame, parent->palette().color(QPalette::Window), parts, parent), frame_(frame) {}

void FrameBox::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), background());
    paint_border(painter);
    painter.setClipRect(
        rect().adjusted(frame_margin, frame_caption_height, -frame_margin, -frame_margin));
    paint_elements(painter, event->region());
}

void FrameBox::paint_border(QPainter& painter) const {
    const QRect line = rect().adjusted(0, frame_caption_height / 2, -2, -2);
    painter.setPen(Qt::white);
    painter.drawRect(line.translated(1, 1));
    painter.setPen(palette().color(QPalette::Dark));
    painter.drawRect(line);
    painter.setFont(to_font(Font{}));
    const QString caption = QString::fromStdString(frame_.Caption);
    const QRect text(frame_caption_indent, 0, painter.fontMetrics().horizontalAdvance(caption) + 6,
                     frame_caption_height);
    painter.fillRect(text, background());
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    painter.drawText(text, Qt::AlignCenter, caption);
}

}  // namespace solvanta::qt
