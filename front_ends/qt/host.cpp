#include "front_ends/qt/host.h"

#include <utility>

#include <QApplication>
#include <QDateTime>
#include <QLocale>
#include <QSessionManager>
#include <QTimer>

#include "front_ends/qt/accessibility.h"
#include "front_ends/qt/locale_texts.h"
#include "front_ends/qt/look.h"
#include "front_ends/qt/message_box.h"

namespace solvanta::qt {

QtHost::QtHost(std::string directory) : directory_(std::move(directory)) {
    install_accessibility();
    // Nothing is closed then: the desktop may go on, and when it ends it asks the windows to close.
    QObject::connect(
        qApp, &QGuiApplication::commitDataRequest, &connections_, [this] { save(); },
        Qt::DirectConnection);
}

FormWindow& QtHost::create_window(Form& form) {
    WindowParts parts{
        [this](Event event) { deliver(std::move(event)); }, pictures_, Scale(), {}, {}, {}};
    FormWindow& window = add(std::make_unique<FormWindow>(
        form, std::move(parts), [this](FormWindow& closed) { close(closed); }));
    if (form.HasIcon) {
        // The icon's files are read while the window system brings up the window.
        auto* const soon = new QTimer(&window);
        soon->setSingleShot(true);
        QObject::connect(soon, &QTimer::timeout, &window, [this, &window] {
            window.setWindowIcon(program_icon(QString::fromStdString(directory_)));
        });
        soon->start();
    }
    return window;
}

void QtHost::open_box(const std::string& text, Buttons buttons) {
    box_ = show_box(parent_for_box(), QString::fromStdString(text), buttons,
                    [this](Answer given) { answer(given); });
}

void QtHost::close_box() {
    box_->close();
}

void QtHost::soon(Event act) {
    auto* const timer = new QTimer(&connections_);
    timer->setSingleShot(true);
    QObject::connect(timer, &QTimer::timeout, &connections_, [timer, act = std::move(act)] {
        timer->deleteLater();
        act();
    });
    timer->start();
}

void QtHost::end() {
    QCoreApplication::exit();
}

LocalTime QtHost::local_time() const {
    const QDateTime now = QDateTime::currentDateTime();
    return {now.date().year(), now.date().month(), now.date().day(), now.time().hour(),
            now.time().minute()};
}

LocaleTexts QtHost::locale_texts() const {
    return texts_of(QLocale::system());
}

void QtHost::close_first() {
    if (windows().empty()) return quit();
    windows().front()->close();
}

bool QtHost::come_forward() {
    if (is_quitting() || windows().empty()) return false;
    windows().front()->bring_forward();
    if (box_) {
        box_->raise();
        box_->activateWindow();
    }
    return true;
}

QWidget* QtHost::parent_for_box() const {
    QWidget* parent = nullptr;
    for (const Owner& window : windows()) {
        if (window->isActiveWindow()) return window.get();
        if (!parent && window->isVisible()) parent = window.get();
    }
    return parent;
}

void QtHost::sync() {
    WindowHost::sync();
    pictures_.keep_only(loads());
}

}  // namespace solvanta::qt
