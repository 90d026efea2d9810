#include "front_ends/qt/canvas.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

#include "front_ends/qt/look.h"
#include "front_ends/qt/scale.h"

namespace solvanta::qt {
namespace {

int text_flags(Alignment alignment) {
    constexpr int flags = static_cast<int>(Qt::AlignTop) | static_cast<int>(Qt::TextWordWrap);
    switch (alignment) {
        case Alignment::Right:
            return flags | Qt::AlignRight;
        case Alignment::Centered:
            return flags | Qt::AlignHCenter;
        case Alignment::Left:
            break;
    }
    return flags | Qt::AlignLeft;
}

/// A picture is painted at its own size; the stand-in of one that can't be read at the element's.
QRectF painted_area(const PictureElement& element, const QImage& image) {
    QRectF area = place_of(element);
    if (image.isNull()) return area;
    const QSizeF size = image.deviceIndependentSize();
    area.setWidth(size.width());
    if (!element.CutToHeight || size.height() < area.height()) area.setHeight(size.height());
    return area;
}

constexpr int border_margin = 4;
constexpr int caption_height = 15;
constexpr int caption_indent = 9;

}  // namespace

Canvas::Canvas(Container& container, const QColor& background, WindowParts& parts, QWidget* parent)
    : QWidget(parent),
      container_(container),
      background_(background),
      parts_(parts),
      mouse_(container) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    qApp->installEventFilter(this);
}

/// A press on anything else: Qt may take the next one here for the second of a double click.
bool Canvas::eventFilter(QObject* receiver, QEvent* event) {
    const bool press =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if (press && receiver != this && receiver->isWidgetType()) mouse_.forget_press();
    return false;
}

void Canvas::sync() {
    // One rectangle: clipped to many, the pictures would be slower to paint than all between them.
    QRect changed;
    looks_.resize(container_.canvas.size());
    auto before = looks_.begin();
    for (const Painted& item : container_.canvas) {
        Look now = std::visit([this](const auto* element) { return look(*element); }, item);
        if (now != *before) {
            changed |= before->area | now.area;
            *before = std::move(now);
        }
        ++before;
    }
    update(changed);
}

Canvas::Look Canvas::look(const PictureElement& element) const {
    const std::uint64_t load = element.Picture.load_number();
    if (!element.Visible || load == 0) return {};
    const QImage& image = parts_.pictures.image(element.Picture, devicePixelRatioF());
    return {painted_area(element, image).toAlignedRect(), load, {}};
}

Canvas::Look Canvas::look(const Label& label) const {
    if (!label.Visible) return {};
    return {place_of(label).toAlignedRect(), 0, label};
}

void Canvas::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), background_);
    paint_elements(painter, event->region());
}

void Canvas::paint_elements(QPainter& painter, const QRegion& region) const {
    auto item = container_.canvas.begin();
    for (const Look& look : looks_) {
        if (region.intersects(look.area)) {
            std::visit([&](const auto* element) { paint(painter, *element); }, *item);
        }
        ++item;
    }
}

void Canvas::paint(QPainter& painter, const PictureElement& element) const {
    const QImage& image = parts_.pictures.image(element.Picture, devicePixelRatioF());
    const QRectF area = painted_area(element, image);
    if (image.isNull()) {
        return paint_placeholder(painter, area, element.Picture);
    }
    const QRectF source(QPointF(), area.size() * image.devicePixelRatioF());
    paint_image(painter, area, image, source);
}

void Canvas::paint(QPainter& painter, const Label& label) const {
    const QRectF place = place_of(label);
    painter.fillRect(
        place, label.BackColor ? to_color(*label.BackColor) : palette().color(QPalette::Window));
    painter.setFont(to_font(label.Font));
    painter.setPen(to_color(label.ForeColor));
    painter.drawText(place, text_flags(label.Alignment), QString::fromStdString(label.Caption));
}

/// Where the mouse is, to a part of a pixel: the position Qt gives a widget is rounded.
QPointF Canvas::place_in_canvas(const QMouseEvent& event) const {
    return mapFrom(window(), event.scenePosition());
}

void Canvas::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const QPointF at = place_in_canvas(*event);
    mouse_.press(to_twips(at.x()), to_twips(at.y()));
}

void Canvas::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const QPointF at = place_in_canvas(*event);
    parts_.deliver([&] { mouse_.double_press(to_twips(at.x()), to_twips(at.y())); });
}

void Canvas::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const QPointF at = place_in_canvas(*event);
    parts_.deliver([&] { mouse_.release(to_twips(at.x()), to_twips(at.y())); });
}

FrameBox::FrameBox(Frame& frame, WindowParts& parts, QWidget* parent)
    : Canvas(frame, parent->palette().color(QPalette::Window), parts, parent), frame_(frame) {}

void FrameBox::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), background());
    paint_border(painter);
    painter.setClipRect(
        rect().adjusted(border_margin, caption_height, -border_margin, -border_margin));
    paint_elements(painter, event->region());
}

void FrameBox::paint_border(QPainter& painter) const {
    const QRect line = rect().adjusted(0, caption_height / 2, -2, -2);
    painter.setPen(Qt::white);
    painter.drawRect(line.translated(1, 1));
    painter.setPen(palette().color(QPalette::Dark));
    painter.drawRect(line);
    painter.setFont(to_font(Font{}));
    const QString caption = QString::fromStdString(frame_.Caption);
    const QRect text(caption_indent, 0, painter.fontMetrics().horizontalAdvance(caption) + 6,
                     caption_height);
    painter.fillRect(text, background());
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    painter.drawText(text, Qt::AlignCenter, caption);
}

}  // namespace solvanta::qt
