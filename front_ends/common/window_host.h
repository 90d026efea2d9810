#pragma once

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "platform/host.h"

namespace solvanta {

/// What the Hosts have in common: the windows, one for each form shown, the events that run in
/// them, and the message box. `Window` is a window system's window of a form, with `form`, `sync`,
/// `bring_forward`, `hide`, `focus` and `let_go`.
///
/// Events run one at a time and in copies, so that they may destroy what they belong to. A window
/// let go of is destroyed `soon`, when no code of its own can be running.
template <typename Window>
class WindowHost : public Host {
  public:
    void show(Form& form) override {
        if (quitting_) return;
        Window* window = window_of(form);
        if (!window) window = &create_window(form);
        window->sync();
        bring_forward(*window);
    }

    void hide(Form& form) override {
        if (Window* window = window_of(form)) window->hide();
    }

    void set_focus(TextBox& box) override {
        sync();
        for (const Owner& window : windows_) {
            if (window->focus(box)) return;
        }
    }

    void ask(const std::string& text, Buttons buttons, Answered then) override {
        if (quitting_) return;
        sync();
        answered_ = std::move(then);
        open_box(text, buttons);
    }

    void quit() override {
        if (std::exchange(quitting_, true)) return;
        if (std::exchange(answered_, nullptr)) close_box();
        soon([this] { close_all(); });
    }

    /// Runs an event, if there is one, and then brings the windows in line; nothing after `quit`.
    void deliver(Event event) {
        if (quitting_) return;
        if (event) std::exchange(event, nullptr)();
        if (!quitting_) sync();
    }

    /// Tells every form that the desktop saves its state.
    void save() {
        std::vector<Event> events;
        for (const Owner& window : windows_)
            events.push_back(window->form().Saving);
        for (const Event& event : events)
            deliver(event);
    }

    bool is_quitting() const { return quitting_; }

  protected:
    using Owner = std::unique_ptr<Window>;

    /// Makes the window of `form` and hands it over to `add`.
    virtual Window& create_window(Form& form) = 0;

    /// Opens the message box, to end in `answer` when the player has closed it.
    virtual void open_box(const std::string& text, Buttons buttons) = 0;
    virtual void close_box() = 0;

    /// The player has closed the box.
    void answer(Answer answer) {
        if (const Answered then = std::exchange(answered_, nullptr)) {
            deliver([&] { then(answer); });
        }
    }

    bool box_is_open() const { return static_cast<bool>(answered_); }

    /// Calls `act` from the event loop, when no code of a window is running.
    virtual void soon(Event act) = 0;

    /// Called when the last window has gone after `quit`.
    virtual void end() = 0;

    virtual void bring_forward(Window& window) { window.bring_forward(); }

    virtual void sync() {
        for (const Owner& window : windows_)
            window->sync();
    }

    /// The player has closed the window.
    virtual void close(Window& window) {
        const Event closed = window.form().Closed;
        forget(window);
        deliver(closed);
    }

    Window& add(Owner window) {
        windows_.push_back(std::move(window));
        return *windows_.back();
    }

    Window* window_of(const Form& form) const {
        for (const Owner& window : windows_) {
            if (&window->form() == &form) return window.get();
        }
        return nullptr;
    }

    /// The windows in the order in which they were first shown.
    const std::vector<Owner>& windows() const { return windows_; }

    /// The pictures that they hold.
    Loads loads() const {
        Loads loads;
        for (const Owner& window : windows_)
            collect_loads(window->form(), loads);
        return loads;
    }

    /// Destroys all windows; for the destructors of Hosts, whose windows use what is theirs.
    void clear() {
        windows_.clear();
        forgotten_.clear();
    }

  private:
    void forget(Window& window) {
        window.let_go();
        const auto found = std::find_if(windows_.begin(), windows_.end(),
                                        [&](const Owner& other) { return other.get() == &window; });
        forgotten_.push_back(std::move(*found));
        windows_.erase(found);
        soon([this] { forgotten_.clear(); });
    }

    void close_all() {
        while (!windows_.empty())
            forget(*windows_.back());
        end();
    }

    std::vector<Owner> windows_;
    std::vector<Owner> forgotten_;  // kept while code of theirs may still run
    Answered answered_;             // while a message box is open
    bool quitting_ = false;
};

}  // namespace solvanta
