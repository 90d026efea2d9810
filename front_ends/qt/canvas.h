#pragma once

#include <QColor>
#include <QTimer>
#include <QWidget>

#include "front_ends/common/canvas_looks.h"
#include "front_ends/common/keyboard.h"
#include "front_ends/common/mouse.h"
#include "front_ends/common/voice.h"
#include "front_ends/qt/window_parts.h"

namespace solvanta::qt {

/// Paints the picture elements and labels of a container and passes the left mouse button on to
/// its Mouse, keys to its Keyboard. It is also the parent of the container's controls.
class Canvas : public QWidget {
  public:
    /// `within` is the element that holds the container, unless that is the form.
    Canvas(Container& container, const Element* within, const QColor& background,
           WindowParts& parts, QWidget* parent);

    /// Has what looks otherwise than at the last call painted anew.
    void sync();

    Container& container() const { return container_; }

    /// Of what is inside, in logical pixels.
    Scale scale() const { return scale(1); }

    /// The place of the walk, while the canvas has the keyboard; null otherwise.
    const PictureElement* place_with_focus() const {
        return hasFocus() ? keyboard_.place() : nullptr;
    }

    /// Clicks a place as a hand on the mouse would.
    void click(const PictureElement& place) const { keyboard_.click(place); }

    /// Takes the keyboard, and the walk to a place.
    void walk_to(const PictureElement& place);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool eventFilter(QObject* receiver, QEvent* event) override;

    const QColor& background() const { return background_; }
    /// Of what is inside, in pixels of a screen that has so many to a logical one.
    Scale scale(double ratio) const;
    void paint_elements(QPainter& painter, const QRegion& region) const;

  private:
    void paint_changes();
    void tell_news();
    void press(const QMouseEvent& event);
    QPoint place_in_twips(const QMouseEvent& event) const;
    void paint(QPainter& painter, const PixelRect& area, const PictureElement& element) const;
    void paint_ring(QPainter& painter) const;
    void paint(QPainter& painter, const PixelRect& area, const Label& label) const;

    Container& container_;
    const Element* within_;
    QColor background_;
    WindowParts& parts_;
    Mouse mouse_;
    Keyboard keyboard_;
    Voice voice_{container_};
    QTimer focus_told_;  // when Qt has told that the canvas as a whole has the focus
    CanvasLooks looks_;  // as of the last `sync`, in pixels of the screen
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
