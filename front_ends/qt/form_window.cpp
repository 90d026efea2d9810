#include "front_ends/qt/form_window.h"

#include <QCloseEvent>
#include <QScreen>

#include "front_ends/qt/canvas.h"
#include "front_ends/qt/controls.h"
#include "front_ends/qt/look.h"
#include "front_ends/qt/scale.h"

namespace solvanta::qt {

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
    sync();
    if (form.Place == OpeningPlace::Centered) centre();
    for (Timer* timer : form.timers)
        start(*timer);
}

void FormWindow::start(Timer& timer) {
    if (timer.Interval <= 0) return;
    auto* ticks = new QTimer(this);
    // A precise timer counts from when a tick was due, not from when it came, and skips what a
    // sleeping machine has missed.
    ticks->setTimerType(Qt::PreciseTimer);
    connect(ticks, &QTimer::timeout, this, [this, &timer] { parts_.deliver(timer.Tick); });
    ticks->start(timer.Interval);
    timers_.push_back(ticks);
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
    found->second->setFocus();
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
