#include "front_ends/qt/form_window.h"

#include <QCloseEvent>
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
                   Qt::WindowCloseButtonHint);
    setFixedSize(logical_scale.edge(form.ClientWidth), logical_scale.edge(form.ClientHeight));
    parts_.background =
        form.BackColor ? to_color(*form.BackColor) : palette().color(QPalette::Window);
    auto* canvas = new Canvas(form, parts_.background, parts_, this);
    canvas->setGeometry(rect());
    parts_.syncs.emplace_back([canvas] { canvas->sync(); });
    build_controls(form, *canvas, parts_);
    put_last(*canvas);
    sync();
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
    isMinimized() ? showNormal() : show();
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
    for (QTimer* timer : timers_)
        timer->stop();
    hide();
}

void FormWindow::closeEvent(QCloseEvent* event) {
    event->accept();
    if (!let_go_) close_box_(*this);
}

}  // namespace solvanta::qt
