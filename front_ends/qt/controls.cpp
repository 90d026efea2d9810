#include "front_ends/qt/controls.h"

#include <QAccessible>
#include <QPainter>
#include <QTextDocument>
#include <QTextEdit>

#include "front_ends/common/walk.h"
#include "front_ends/qt/button.h"
#include "front_ends/qt/canvas.h"
#include "front_ends/qt/look.h"
#include "front_ends/qt/rich_text_view.h"
#include "front_ends/qt/scale.h"
#include "rich_text/rtf_reader.h"

namespace solvanta::qt {
namespace {

class NameEdit final : public QLineEdit {
  public:
    NameEdit(TextBox& box, WindowParts& parts, QWidget* parent)
        : QLineEdit(parent), box_(box), parts_(parts) {
        connect(this, &QLineEdit::textEdited, this,
                [this](const QString& text) { box_.Text = text.toStdString(); });
    }

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        const int code = is_enter(*event) ? key_enter : event->key();
        parts_.deliver([&] {
            if (box_.KeyDown) box_.KeyDown(code);
        });
        QLineEdit::keyPressEvent(event);
    }

    /// Not earlier: the font takes long to find, and most boxes are never shown.
    void showEvent(QShowEvent* event) override {
        setFont(to_font(box_.Font));
        QLineEdit::showEvent(event);
    }

  private:
    TextBox& box_;
    WindowParts& parts_;
};

/// The picture is drawn as large as fits, its proportions kept, on the form's background.
class PictureView final : public QWidget {
  public:
    PictureView(const PictureBox& box, WindowParts& parts, QWidget* parent)
        : QWidget(parent), box_(box), parts_(parts) {}

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        if (box_.Picture.load_number() == 0) return;
        QPainter painter(this);
        const QImage* const image =
            parts_.pictures.image(box_.Picture, is_fine(devicePixelRatioF()));
        if (!image) return paint_placeholder(painter, rect(), box_.Picture);
        painter.fillRect(rect(), parts_.background);
        QRectF target(QPointF(),
                      image->deviceIndependentSize().scaled(size(), Qt::KeepAspectRatio));
        target.moveCenter(QRectF(rect()).center());
        paint_image(painter, target, *image, image->rect());
    }

  private:
    const PictureBox& box_;
    WindowParts& parts_;
};

/// The lines common to all controls: where the widget lies and whether it shows.
void sync_place(QWidget& widget, const Element& element) {
    // What reaches beyond the container would be cut off, a scroll bar included.
    const QRect place =
        place_of(element).toAlignedRect().intersected(widget.parentWidget()->rect());
    if (widget.geometry() != place) widget.setGeometry(place);
    if (widget.isHidden() == element.Visible) widget.setVisible(element.Visible);
}

void build(CommandButton& element, QWidget& parent, WindowParts& parts) {
    auto* button = new Button(&parent);
    QObject::connect(button, &QPushButton::clicked, button,
                     [&element, &parts] { parts.deliver(element.Click); });
    parts.syncs.emplace_back([button, &element] {
        const QString caption = QString::fromStdString(element.Caption);
        if (button->text() != caption) button->setText(caption);
        sync_place(*button, element);
    });
}

/// Names a widget for those who listen, whom every setting is told.
void sync_name(QWidget& widget, const std::string& name) {
    const QString text = QString::fromStdString(name);
    if (QAccessible::isActive() && widget.accessibleName() != text) widget.setAccessibleName(text);
}

void build(Frame& frame, QWidget& parent, WindowParts& parts) {
    auto* box = new FrameBox(frame, parts, &parent);
    // First the frame: a control in a frame just shown can take the focus at once.
    parts.syncs.emplace_back([box, &frame, &parts] {
        if (box->isEnabledTo(box->parentWidget()) != frame.Enabled) box->setEnabled(frame.Enabled);
        sync_place(*box, frame);
        sync_name(*box, frame.Caption);
        for (const Control& control : frame.controls) {
            if (auto* const* text_box = std::get_if<TextBox*>(&control))
                sync_name(*parts.text_boxes.at(*text_box), words_of(frame));
        }
        box->sync();
    });
    build_controls(frame, *box, parts);
}

void build(TextBox& box, QWidget& parent, WindowParts& parts) {
    auto* edit = new NameEdit(box, parts, &parent);
    parts.text_boxes[&box] = edit;
    parts.syncs.emplace_back([edit, &box] {
        const QString text = QString::fromStdString(box.Text);
        if (edit->text() != text) edit->setText(text);
        sync_place(*edit, box);
    });
}

void build(PictureBox& box, QWidget& parent, WindowParts& parts) {
    auto* view = new PictureView(box, parts, &parent);
    parts.syncs.emplace_back([view, &box] {
        sync_place(*view, box);
        view->update();
    });
}

void show_rtf(QTextEdit& view, const RichTextBox& box) {
    QTextDocument& document = *view.document();
    document.clear();
    document.setDefaultFont(to_font(box.Font));
    if (const auto text = read_rtf(box.TextRTF)) {
        show_rich_text(*text, document);
    }
    view.moveCursor(QTextCursor::Start);
}

void build(RichTextBox& box, QWidget& parent, WindowParts& parts) {
    auto* view = new QTextEdit(&parent);
    view->setReadOnly(true);
    view->setUndoRedoEnabled(false);
    // By keyboard it shows a caret, with which alone a screen reader goes from line to line.
    view->setTextInteractionFlags(QAccessible::isActive()
                                      ? Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard
                                      : Qt::TextSelectableByMouse);
    view->setFrameShape(QFrame::NoFrame);
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    parts.syncs.emplace_back([view, &box, shown = std::string()]() mutable {
        sync_place(*view, box);
        if (shown == box.TextRTF) return;
        shown = box.TextRTF;
        show_rtf(*view, box);
    });
}

}  // namespace

void build_controls(Container& container, QWidget& parent, WindowParts& parts) {
    for (const Control& control : container.controls) {
        std::visit([&](auto* element) { build(*element, parent, parts); }, control);
    }
    for (QObject* child : parent.children()) {
        if (auto* widget = qobject_cast<QWidget*>(child)) {
            widget->setAttribute(Qt::WA_NoMousePropagation);
            widget->installEventFilter(&parent);
        }
    }
}

}  // namespace solvanta::qt
