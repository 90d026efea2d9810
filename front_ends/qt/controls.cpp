#include "front_ends/qt/controls.h"

#include <QAccessible>
#include <QPainter>
#include <QScrollBar>
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
        const PictureContent* const content = parts_.pictures.content(box_.Picture);
        if (!content) return paint_placeholder(painter, rect(), box_.Picture, parts_.scale);
        painter.fillRect(rect(), parts_.background);
        const double ratio = devicePixelRatioF();
        const QSize whole = QSize(content->size.width, content->size.height)
                                .scaled((QSizeF(size()) * ratio).toSize(), Qt::KeepAspectRatio)
                                .expandedTo({1, 1});
        QRectF target(QPointF(), QSizeF(whole) / ratio);
        target.moveCenter(QRectF(rect()).center());
        paint_image(painter, target,
                    parts_.pictures.image(box_.Picture, {whole.width(), whole.height()}).pixels, 1);
    }

  private:
    const PictureBox& box_;
    WindowParts& parts_;
};

/// The lines common to all controls: where the widget lies and whether it shows.
void sync_place(QWidget& widget, const Element& element, const Canvas& parent) {
    // What reaches beyond the container would be cut off, a scroll bar included.
    const QRect place = to_qt(parent.scale().place_of(element)).intersected(parent.rect());
    if (widget.geometry() != place) widget.setGeometry(place);
    if (widget.isHidden() == element.Visible) widget.setVisible(element.Visible);
}

void sync_font(QWidget& widget, const QFont& font) {
    if (widget.font() != font) widget.setFont(font);
}

void build(CommandButton& element, Canvas& parent, WindowParts& parts) {
    auto* button = new Button(&parent);
    QObject::connect(button, &QPushButton::clicked, button,
                     [&element, &parts] { parts.deliver(element.Click); });
    parts.syncs.emplace_back([button, &element, &parent] {
        sync_font(*button, button_font(parent.scale()));
        const QString caption = QString::fromStdString(element.Caption);
        if (button->text() != caption) button->setText(caption);
        sync_place(*button, element, parent);
    });
}

/// Names a widget for those who listen, whom every setting is told.
void sync_name(QWidget& widget, const std::string& name) {
    const QString text = QString::fromStdString(name);
    if (QAccessible::isActive() && widget.accessibleName() != text) widget.setAccessibleName(text);
}

void build(Frame& frame, Canvas& parent, WindowParts& parts) {
    auto* box = new FrameBox(frame, parts, &parent);
    // First the frame: a control in a frame just shown can take the focus at once.
    parts.syncs.emplace_back([box, &frame, &parts, &parent] {
        if (box->isEnabledTo(box->parentWidget()) != frame.Enabled) box->setEnabled(frame.Enabled);
        sync_place(*box, frame, parent);
        sync_name(*box, frame.Caption);
        for (const Control& control : frame.controls) {
            if (auto* const* text_box = std::get_if<TextBox*>(&control))
                sync_name(*parts.text_boxes.at(*text_box), words_of(frame));
        }
        box->sync();
    });
    build_controls(frame, *box, parts);
}

void build(TextBox& box, Canvas& parent, WindowParts& parts) {
    auto* edit = new NameEdit(box, parts, &parent);
    parts.text_boxes[&box] = edit;
    parts.syncs.emplace_back([edit, &box, &parent] {
        // Not before it is shown: the font takes long to find, and most boxes never are.
        if (parent.isVisible()) sync_font(*edit, to_font(box.Font, parent.scale()));
        const QString text = QString::fromStdString(box.Text);
        if (edit->text() != text) edit->setText(text);
        sync_place(*edit, box, parent);
    });
}

void build(PictureBox& box, Canvas& parent, WindowParts& parts) {
    auto* view = new PictureView(box, parts, &parent);
    parts.syncs.emplace_back([view, &box, &parent] {
        sync_place(*view, box, parent);
        view->update();
    });
}

/// The wheel with Control is the window's, not the text's.
class RichTextEdit final : public QTextEdit {
  public:
    using QTextEdit::QTextEdit;

  protected:
    void wheelEvent(QWheelEvent* event) override {
        if (event->modifiers().testFlag(Qt::ControlModifier)) return event->ignore();
        QTextEdit::wheelEvent(event);
    }
};

void show_rtf(QTextEdit& view, const RichTextBox& box, const Scale& scale) {
    QTextDocument& document = *view.document();
    document.clear();
    document.setDefaultFont(to_font(box.Font, scale));
    if (const auto text = read_rtf(box.TextRTF)) {
        show_rich_text(*text, document, scale);
    }
    view.moveCursor(QTextCursor::Start);
}

void build(RichTextBox& box, Canvas& parent, WindowParts& parts) {
    auto* view = new RichTextEdit(&parent);
    view->setReadOnly(true);
    view->setUndoRedoEnabled(false);
    // By keyboard it shows a caret, with which alone a screen reader goes from line to line.
    view->setTextInteractionFlags(QAccessible::isActive()
                                      ? Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard
                                      : Qt::TextSelectableByMouse);
    view->setFrameShape(QFrame::NoFrame);
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    parts.syncs.emplace_back([view, &box, &parent, shown = std::string(), at = Scale()]() mutable {
        QScrollBar& bar = *view->verticalScrollBar();
        const double read = bar.maximum() > 0 ? double(bar.value()) / bar.maximum() : 0;
        sync_place(*view, box, parent);
        const bool is_new = shown != box.TextRTF;
        if (!is_new && at == parent.scale()) return;
        shown = box.TextRTF;
        at = parent.scale();
        show_rtf(*view, box, at);
        if (!is_new) bar.setValue(qRound(read * bar.maximum()));
    });
}

}  // namespace

void build_controls(Container& container, Canvas& parent, WindowParts& parts) {
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
