#include "front_ends/qt/form_window.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>

#include "front_ends/common/ticks.h"
#include "front_ends/qt/canvas.h"
#include "front_ends/qt/controls.h"
#include "front_ends/qt/look.h"
#include "front_ends/qt/scale.h"

namespace solvanta::qt {
namespace {

/// The system's steady clock stands still while the machine sleeps.
Ticks::Time time_awake() {
    const auto time = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<Ticks::Time>(time);
}

/// Behind all controls in the order of the Tab key, the first of which begins with the focus.
void put_last(QWidget& canvas) {
    if (canvas.focusPolicy() == Qt::NoFocus) return;
    canvas.nextInFocusChain()->setFocus();
    QWidget* last = &canvas;
    for (QWidget* next = canvas.nextInFocusChain(); canvas.isAncestorOf(next);
         next = next->nextInFocusChain())
        last = next;
    QWidget::setTabOrder(last, &canvas);
}

}  // namespace

FormWindow::FormWindow(Form& form, WindowParts parts, std::function<void(FormWindow&)> close_box)
    : form_(form), parts_(std::move(parts)), close_box_(std::move(close_box)) {
    setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                   Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                   Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint);
    setAttribute(Qt::WA_OpaquePaintEvent);
    parts_.background =
        form.BackColor ? to_color(*form.BackColor) : palette().color(QPalette::Window);
    canvas_ = new Canvas(form, nullptr, parts_.background, parts_, this);
    parts_.syncs.emplace_back([canvas = canvas_] { canvas->sync(); });
    build_controls(form, *canvas_, parts_);
    put_last(*canvas_);
    setMinimumSize(size_at(smallest_part));
    resize(size_at(qMin(1.0, largest_part())));
    lay_out();
    watch_screen();
    if (form.Place == OpeningPlace::Centered) centre();
    for (const Timer* timer : form.timers)
        start(*timer);
}

void FormWindow::start(const Timer& timer) {
    if (timer.Interval <= 0) return;
    auto* const alarm = new QTimer(this);
    alarm->setTimerType(Qt::PreciseTimer);
    alarm->setSingleShot(true);
    const auto tick = [this, alarm, &timer,
                       ticks = Ticks(Ticks::Time(timer.Interval), time_awake())]() mutable {
        const bool is_due = ticks.take(time_awake());
        alarm->start(ticks.until_next(time_awake()));
        if (is_due) parts_.deliver(timer.Tick);
    };
    connect(alarm, &QTimer::timeout, this, tick);
    alarm->start(timer.Interval);
    timers_.push_back(alarm);
}

/// What comes of another resolution, a turned screen or a larger task bar.
void FormWindow::watch_screen() {
    rest_.setSingleShot(true);
    rest_.setInterval(rest_milliseconds);
    connect(&rest_, &QTimer::timeout, this, [this] { come_to_rest(); });
    connect(qApp, &QGuiApplication::screenRemoved, this, [this] { stay_on_screen(); });
    for (const QScreen* screen : QGuiApplication::screens())
        connect(screen, &QScreen::availableGeometryChanged, this, [this] { stay_on_screen(); });
}

QSize FormWindow::size_at(double part) const {
    const PixelRect place = Scale(part).place_of({0, 0, form_.ClientWidth, form_.ClientHeight});
    return {place.width(), place.height()};
}

/// The part of its designed size at which the window, with its frame, just fits its screen.
double FormWindow::largest_part() const {
    constexpr QSize usual_frame(8, 36);
    const QSize frame = isVisible() ? frameGeometry().size() - size() : usual_frame;
    const QSize room = screen()->availableSize() - frame;
    const QSize designed = size_at(1);
    return qMax(smallest_part,
                fitting_scale(designed.width(), designed.height(), room.width(), room.height()));
}

void FormWindow::lay_out() {
    const Scale fitted = Scale::fitted(form_.ClientWidth, form_.ClientHeight, {width(), height()});
    parts_.scale = Scale(fitted.pixels());
    canvas_->setGeometry(to_qt(fitted.place_of({0, 0, form_.ClientWidth, form_.ClientHeight})));
    sync();
    update();
}

void FormWindow::resizeEvent(QResizeEvent* /*event*/) {
    if (!isVisible() || let_go_) return;
    parts_.pictures.quick(true);
    lay_out();
    rest_.start();
}

void FormWindow::come_to_rest() {
    parts_.pictures.quick(false);
    canvas_->update();
}

void FormWindow::paintEvent(QPaintEvent* event) {
    QPainter(this).fillRect(event->rect(), parts_.background);
}

/// The keys that nothing inside has a use for come here.
void FormWindow::keyPressEvent(QKeyEvent* event) {
    const double part = parts_.scale.pixels();
    const bool full = isFullScreen();
    if (event->key() == Qt::Key_F11 || (full && event->key() == Qt::Key_Escape)) {
        setWindowState(windowState() ^ Qt::WindowFullScreen);
    } else if (event->matches(QKeySequence::ZoomIn)) {
        enlarge_to(next_part(part, true));
    } else if (event->matches(QKeySequence::ZoomOut)) {
        enlarge_to(next_part(part, false));
    } else if (event->key() == Qt::Key_0 && event->modifiers().testFlag(Qt::ControlModifier)) {
        enlarge_to(1);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void FormWindow::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier)) return event->ignore();
    const int step = wheel_.turn(event->angleDelta().y());
    if (step != 0) enlarge_to(next_part(parts_.scale.pixels(), step > 0));
}

/// Gives the window a part of its designed size, as far as its screen has room.
void FormWindow::enlarge_to(double part) {
    setWindowState(windowState() & ~(Qt::WindowFullScreen | Qt::WindowMaximized));
    resize(size_at(qMin(part, largest_part())));
    stay_on_screen();
}

void FormWindow::stay_on_screen() {
    if (isMaximized() || isFullScreen()) return;
    const QRect free = screen()->availableGeometry();
    const QSize before = frameGeometry().size();
    if (before.width() > free.width() || before.height() > free.height())
        resize(size_at(qMin(parts_.scale.pixels(), largest_part())));
    const QSize size = frameGeometry().size();
    move(qMax(free.left(), qMin(x(), free.right() + 1 - size.width())),
         qMax(free.top(), qMin(y(), free.bottom() + 1 - size.height())));
}

void FormWindow::centre() {
    const QRect free = screen()->availableGeometry();
    const QPoint corner = free.center() - rect().center();
    move(qMax(free.left(), corner.x()), qMax(free.top(), corner.y()));
}

void FormWindow::sync() {
    const QString caption = QString::fromStdString(form_.Caption);
    if (windowTitle() != caption) setWindowTitle(caption);
    for (auto& bring_in_line : parts_.syncs)
        bring_in_line();
    if (!before_box_ || box_->isVisible()) return;
    before_box_->setFocus(Qt::OtherFocusReason);
    before_box_ = nullptr;
}

void FormWindow::bring_forward() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

bool FormWindow::focus(const TextBox& box) {
    const auto found = parts_.text_boxes.find(&box);
    if (found == parts_.text_boxes.end()) return false;
    if (!isActiveWindow()) activateWindow();
    if (focusWidget() != found->second) before_box_ = focusWidget();
    box_ = found->second;
    box_->setFocus();
    return true;
}

void FormWindow::let_go() {
    let_go_ = true;
    rest_.stop();
    for (QTimer* timer : timers_)
        timer->stop();
    hide();
}

void FormWindow::closeEvent(QCloseEvent* event) {
    event->accept();
    if (!let_go_) close_box_(*this);
}

}  // namespace solvanta::qt
