#include "tests/front_ends/driver.h"

#include <array>
#include <cmath>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QBackingStore>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <QWindow>
#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include "front_ends/qt/host.h"
#include "tests/support/real_files.h"

namespace solvanta::test {
namespace {

QWidget* find_window(const std::string& caption) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->windowTitle().toStdString() == caption) return window;
    }
    return nullptr;
}

QWidget& window_of(const Form& form) {
    QWidget* window = find_window(form.Caption);
    if (!window) throw std::runtime_error("no window " + form.Caption);
    return *window;
}

/// Pixels of the window to one of its design.
double scale_of(const Form& form) {
    return double(window_of(form).width()) * twips_per_pixel / form.ClientWidth;
}

/// The toolkit's control that shows `element`, found by its place.
QWidget& control_of(const Form& form, const Element& element) {
    QWidget& window = window_of(form);
    const QPointF corner =
        QPointF(place_of(form, element).corner.x, place_of(form, element).corner.y) *
        scale_of(form);
    for (auto* widget : window.findChildren<QWidget*>()) {
        const bool may_be = widget->inherits("QLineEdit") || widget->inherits("QTextEdit") ||
                            widget->inherits("QAbstractButton");
        const QPoint place = widget->mapTo(&window, QPoint());
        if (may_be && place == corner.toPoint()) return *widget;
    }
    throw std::runtime_error("no such control");
}

QMessageBox* open_box() {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    return box && box->isVisible() ? box : nullptr;
}

Qt::Key to_qt(Key key) {
    using enum Qt::Key;
    constexpr std::array keys{Key_Return, Key_Enter,     Key_Space, Key_Escape,
                              Key_Tab,    Key_Backspace, Key_Left,  Key_End};
    return std::size_t(key) < keys.size() ? keys.at(std::size_t(key)) : Qt::Key(key);
}

/// The pictures within `widget` that a screen reader finds as buttons, in its order.
std::vector<QAccessibleInterface*> buttons_in(QWidget& widget) {
    std::vector<QAccessibleInterface*> buttons;
    const std::function<void(QAccessibleInterface&)> look = [&](QAccessibleInterface& one) {
        if (one.state().invisible) return;
        if (one.role() == QAccessible::PushButton && !one.object()) buttons.push_back(&one);
        for (int i = 0; i < one.childCount(); ++i)
            look(*one.child(i));
    };
    look(*QAccessible::queryAccessibleInterface(&widget));
    return buttons;
}

std::vector<std::string> announcements;

void note_announcement(QAccessibleEvent* event) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    if (auto* said = dynamic_cast<QAccessibleAnnouncementEvent*>(event))
        announcements.push_back(said->message().toStdString());
#else
    auto* label = qobject_cast<QLabel*>(event->object());
    if (label && event->type() == QAccessible::NameChanged)
        announcements.push_back(label->accessibleName().toStdString());
#endif
}

/// Drives Qt on its platform without a screen; input takes effect at once.
class QtDriver final : public Driver {
  public:
    Host& host() override { return host_; }
    double ratio() const override { return qApp->devicePixelRatio(); }

    void settle() override { QApplication::processEvents(); }
    void wait(int milliseconds) override { QTest::qWait(milliseconds); }

    bool run() override {
        later(10'000, [] { QApplication::exit(1); });
        return QApplication::exec() == 0;
    }

    void later(int milliseconds, std::function<void()> act) override {
        auto* const timer = new QTimer(&context_);
        timer->setSingleShot(true);
        QObject::connect(timer, &QTimer::timeout, &context_, std::move(act));
        timer->start(milliseconds);
    }

    /// As the window system does: with the time, from which Qt itself makes double clicks.
    void mouse(const Form& form, Point at, MouseButton button, bool down) override {
        const auto used = button == MouseButton::Left ? Qt::LeftButton : Qt::RightButton;
        held_.setFlag(used, down);
        now_ += 40;
        QWindow* window = window_of(form).windowHandle();
        const QPointF local = QPointF(at.x, at.y) * scale_of(form);
        qt_handleMouseEvent(window, local, window->mapToGlobal(local), held_, used,
                            down ? QEvent::MouseButtonPress : QEvent::MouseButtonRelease, {}, now_);
        QApplication::processEvents();
    }

    void rest() override { now_ += 5000; }

    void key(Key key, Modifier modifier) override {
        const auto held =
            std::array{Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier}.at(
                std::size_t(modifier));
        const auto keypad = key == Key::KeypadEnter ? Qt::KeypadModifier : Qt::NoModifier;
        QWidget* window = open_box() ? open_box() : QApplication::activeWindow();
        QTest::keyClick(window->windowHandle(), to_qt(key), held | keypad);
    }

    void repeat_key(Key key) override {
        QKeyEvent held(QEvent::KeyPress, to_qt(key), {}, QString(), true);
        QApplication::sendEvent(QApplication::focusWidget(), &held);
    }

    void paste(const std::string& line, const std::string& next) override {
        QApplication::clipboard()->setText(QString::fromStdString(line + '\n' + next));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::ControlModifier);
    }

    void close(const std::string& caption) override { find_window(caption)->close(); }
    void minimise(const std::string& caption) override { find_window(caption)->showMinimized(); }
    bool resize(const Form& form, double scale) override {
        window_of(form).resize(qRound(form.ClientWidth * scale / twips_per_pixel),
                               qRound(form.ClientHeight * scale / twips_per_pixel));
        QTest::qWait(200);
        return true;
    }
    void save_desktop() override { host_.save(); }

    std::optional<WindowLook> window(const std::string& caption) override {
        const QWidget* window = find_window(caption);
        if (!window) return std::nullopt;
        const Qt::WindowFlags flags = window->windowFlags();
        return WindowLook{window->width(), window->height(), window->isActiveWindow(),
                          flags.testFlag(Qt::WindowMinimizeButtonHint),
                          flags.testFlag(Qt::WindowMaximizeButtonHint) ||
                              window->minimumSize() != window->maximumSize()};
    }

    Color pixel(const Form& form, Point at) override {
        // What has been painted, not what the window would paint if it were asked to.
        QApplication::processEvents();
        const QPaintDevice* painted = window_of(form).backingStore()->paintDevice();
        const auto& image = dynamic_cast<const QImage&>(*painted);
        const QPointF place = QPointF(at.x, at.y) * image.devicePixelRatio() * scale_of(form);
        const QRgb color = image.pixel(int(std::floor(place.x())), int(std::floor(place.y())));
        return {std::uint8_t(qRed(color)), std::uint8_t(qGreen(color)), std::uint8_t(qBlue(color))};
    }

    ControlLook control(const Form& form, const Element& element) override {
        QWidget& widget = control_of(form, element);
        ControlLook look{widget.isVisible(), widget.hasFocus(), false, 0, {}};
        look.text = widget.property("text").toString().toStdString();
        if (auto* view = qobject_cast<QTextEdit*>(&widget)) {
            look.scrollable = view->verticalScrollBar()->isVisible();
            look.scrolled = view->verticalScrollBar()->value();
            look.text = view->toPlainText().toStdString();
        }
        return look;
    }

    std::optional<BoxLook> box() override {
        const QMessageBox* box = open_box();
        if (!box) return std::nullopt;
        BoxLook look{box->windowTitle().toStdString(), box->text().toStdString(), {}};
        for (const QAbstractButton* button : box->buttons()) {
            const bool first = button == box->defaultButton();
            look.buttons.insert(first ? look.buttons.begin() : look.buttons.end(),
                                button->text().remove('&').toStdString());
        }
        return look;
    }

    std::vector<AccessibleLook> accessible(const Form& form) override {
        std::vector<AccessibleLook> looks;
        for (QAccessibleInterface* one : buttons_in(window_of(form))) {
            const QRectF place = one->rect().translated(-window_of(form).mapToGlobal(QPoint()));
            const std::string key = one->text(QAccessible::Accelerator).toStdString();
            const Rectangle at{{place.x(), place.y()}, place.width(), place.height()};
            looks.push_back({one->text(QAccessible::Name).toStdString(), key[0],
                             bool(one->state().focused), bool(one->state().selected), at});
        }
        return looks;
    }

    void press_accessible(const Form& form, std::size_t index) override {
        auto* const action = buttons_in(window_of(form)).at(index)->actionInterface();
        action->doAction(QAccessibleActionInterface::pressAction());
    }

    std::vector<std::string> announced() override {
        QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
        QAccessible::installUpdateHandler(note_announcement);
        return std::exchange(announcements, {});
    }

    std::string put_file(const std::string& name, const std::string& bytes) override {
        return files_.put(name, bytes);
    }

  private:
    RealFolder files_;
    qt::QtHost host_{QCoreApplication::applicationDirPath().toStdString()};
    QObject context_;
    Qt::MouseButtons held_;
    static inline int now_ = 0;
};

}  // namespace

std::unique_ptr<Driver> make_driver() {
    return std::make_unique<QtDriver>();
}

}  // namespace solvanta::test
