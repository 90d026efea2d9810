#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include <QColor>
#include <QWidget>

#include "front_ends/qt/window_parts.h"
#include "platform/mouse.h"

namespace solvanta::qt {

/// Paints the picture elements and labels of a container and passes the left mouse button on to
/// its Mouse. It is also the parent of the container's controls.
class Canvas : public QWidget {
  public:
    Canvas(Container& container, const QColor& background, WindowParts& parts, QWidget* parent);

    /// Has what looks otherwise than at the last call painted anew.
    void sync();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* receiver, QEvent* event) override;

    const QColor& background() const { return background_; }
    void paint_elements(QPainter& painter, const QRegion& region) const;

  private:
    /// What is to be seen of an element: nothing while the area is empty.
    struct Look {
        QRect area;
        std::uint64_t load = 0;      // of a picture
        std::optional<Label> label;  // a label, as it is
        bool operator==(const Look&) const = default;
    };

    Look look(const PictureElement& element) const;
    Look look(const Label& label) const;
    QPointF place_in_canvas(const QMouseEvent& event) const;
    void paint(QPainter& painter, const PictureElement& element) const;
    void paint(QPainter& painter, const Label& label) const;

    Container& container_;
    QColor background_;
    WindowParts& parts_;
    Mouse mouse_;
    std::vector<Look> looks_;  // of the container's elements, as of the last `sync`
};

/// A frame: its border and caption, and inside the border what its container holds.
class FrameBox final : public Canvas {
  public:
    FrameBox(Frame& frame, WindowParts& parts, QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void paint_border(QPainter& painter) const;

    Frame& frame_;
};

}  // namespace solvanta::qt
