#pragma once

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "platform/host.h"

namespace solvanta {

/// What the Hosts have in common: the windows, one for each form shown, and the events that run in
/// them. `Window` is a window system's window of a form, with `form`, `sync`, `bring_forward`,
/// `hide`, `focus` and `let_go`.
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

    void quit() override {
        quitting_ = true;
        close_boxes();
        settle();
    }

    /// Runs an event, nothing after `quit`, and then brings the windows in line.
    void deliver(const Event& event) {
        if (quitting_) return;
        {
            const Running running(running_events_);
            if (event) event();
        }
        if (!quitting_) sync();
        settle();
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
    bool is_busy() const { return running_events_ > 0; }

  protected:
    using Owner = std::unique_ptr<Window>;

    /// Makes the window of `form` and hands it over to `add`.
    virtual Window& create_window(Form& form) = 0;

    /// Ends the message boxes that are open, after `quit`.
    virtual void close_boxes() = 0;

    /// Called after `quit` and after the event during which it came, when no window is left.
    virtual void end() {}

    virtual void bring_forward(Window& window) { window.bring_forward(); }

    virtual void sync() {
        for (const Owner& window : windows_)
            window->sync();
    }

    /// Destroys the windows let go of; called when no event is running.
    virtual void destroy(std::vector<Owner>& forgotten) { forgotten.clear(); }

    void destroy_forgotten() {
        if (!is_busy()) forgotten_.clear();
    }

    /// The player has closed the window.
    virtual void close(Window& window) {
        const Event closed = window.form().Closed;  // the handler may destroy the form
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
    /// Counts an event while it runs, also when it ends by an exception.
    class Running {
      public:
        explicit Running(int& count) : count_(count) { ++count_; }
        Running(const Running&) = delete;
        Running& operator=(const Running&) = delete;
        ~Running() { --count_; }

      private:
        int& count_;
    };

    void forget(Window& window) {
        window.let_go();
        const auto found = std::find_if(windows_.begin(), windows_.end(),
                                        [&](const Owner& other) { return other.get() == &window; });
        forgotten_.push_back(std::move(*found));
        windows_.erase(found);
    }

    /// Between events: closes all windows after `quit`.
    void settle() {
        if (is_busy()) return;
        if (quitting_) {
            while (!windows_.empty())
                forget(*windows_.back());
            end();
        }
        destroy(forgotten_);
    }

    std::vector<Owner> windows_;
    std::vector<Owner> forgotten_;  // kept while code of theirs may still run
    int running_events_ = 0;
    bool quitting_ = false;
};

}  // namespace solvanta
