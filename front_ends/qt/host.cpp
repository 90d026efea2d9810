#include "front_ends/qt/host.h"

#include <algorithm>
#include <utility>

#include <QApplication>
#include <QDateTime>
#include <QLocale>
#include <QSessionManager>
#include <QTimer>

#include "front_ends/qt/locale_texts.h"
#include "front_ends/qt/look.h"
#include "front_ends/qt/message_box.h"

namespace solvanta::qt {

QtHost::QtHost() {
    QObject::connect(
        qApp, &QGuiApplication::commitDataRequest, &connections_, [this] { save(); },
        Qt::DirectConnection);
}

QtHost::~QtHost() = default;

void QtHost::show(Form& form) {
    if (quitting_) return;
    FormWindow* window = window_of(form);
    if (!window) window = &create_window(form);
    window->sync();
    window->bring_forward();
}

FormWindow& QtHost::create_window(Form& form) {
    WindowParts parts{[this](const Event& event) { deliver(event); }, pictures_, {}, {}, {}};
    windows_.push_back(std::make_unique<FormWindow>(form, std::move(parts),
                                                    [this](FormWindow& window) { close(window); }));
    FormWindow* window = windows_.back().get();
    // The icon's files are read while the window system brings up the window.
    if (form.HasIcon)
        QTimer::singleShot(0, window, [window] {
            window->setWindowIcon(program_icon(QCoreApplication::applicationDirPath()));
        });
    return *window;
}

void QtHost::hide(Form& form) {
    if (FormWindow* window = window_of(form)) window->hide();
}

Answer QtHost::message(const std::string& text, Buttons buttons) {
    if (quitting_) return answer_of_closing(buttons);
    sync();
    return ask(parent_for_box(), QString::fromStdString(text), buttons);
}

void QtHost::set_focus(TextBox& box) {
    sync();
    for (const Window& window : windows_) {
        if (window->focus(box)) return;
    }
}

void QtHost::quit() {
    quitting_ = true;
    QCoreApplication::exit();  // ends an open box too
    settle();
}

std::string QtHost::program_directory() const {
    return QCoreApplication::applicationDirPath().toStdString();
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
    if (windows_.empty()) return quit();
    windows_.front()->close();
}

void QtHost::save() {
    std::vector<Form*> forms;
    for (const Window& window : windows_)
        forms.push_back(&window->form());
    for (Form* form : forms)
        deliver(form->Saving);
}

FormWindow* QtHost::window_of(const Form& form) const {
    for (const Window& window : windows_) {
        if (&window->form() == &form) return window.get();
    }
    return nullptr;
}

QWidget* QtHost::parent_for_box() const {
    QWidget* parent = nullptr;
    for (const Window& window : windows_) {
        if (window->isActiveWindow()) return window.get();
        if (!parent && window->isVisible()) parent = window.get();
    }
    return parent;
}

void QtHost::deliver(const Event& event) {
    if (quitting_) return;
    ++running_events_;
    if (event) event();
    --running_events_;
    if (!quitting_) sync();
    settle();
}

void QtHost::sync() {
    Loads loads;
    for (const Window& window : windows_) {
        window->sync();
        collect_loads(window->form(), loads);
    }
    pictures_.keep_only(std::move(loads));
}

void QtHost::close(FormWindow& window) {
    const Event closed = window.form().Closed;  // the handler may destroy the form
    forget(window);
    deliver(closed);
}

void QtHost::forget(FormWindow& window) {
    window.let_go();
    const auto found = std::find_if(windows_.begin(), windows_.end(),
                                    [&](const Window& other) { return other.get() == &window; });
    forgotten_.push_back(std::move(*found));
    windows_.erase(found);
}

/// Between events: closes all windows after `quit`, and destroys the windows let go of, which may
/// not be done while code of theirs is running.
void QtHost::settle() {
    if (running_events_ > 0) return;
    if (quitting_) {
        while (!windows_.empty())
            forget(*windows_.back());
    }
    for (Window& window : forgotten_)
        window.release()->deleteLater();
    forgotten_.clear();
}

}  // namespace solvanta::qt
