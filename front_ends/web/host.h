#pragma once

#include <memory>
#include <vector>

#include "front_ends/web/form_window.h"
#include "front_ends/web/message_box.h"
#include "front_ends/web/pictures.h"
#include "platform/host.h"

namespace solvanta::web {

/// The Host on a page: its windows are elements of the page's element `windows`. The window shown
/// first is the card table, which stands still and fills the page; nothing is scaled beyond
/// `largest_scale`. There is one at a time.
class WebHost final : public Host {
  public:
    explicit WebHost(double largest_scale = 2);
    ~WebHost() override;

    void show(Form& form) override;
    void hide(Form& form) override;
    Answer message(const std::string& text, Buttons buttons) override;
    void set_focus(TextBox& box) override;
    void quit() override;
    std::string program_directory() const override;
    LocalTime local_time() const override;
    LocaleTexts locale_texts() const override;

    /// Runs an event that comes from outside the windows.
    void deliver(const Event& event);

    /// The page is being left: every form hears that it should bring to its end what must not be
    /// lost.
    void save();

    bool is_quitting() const { return quitting_; }
    bool is_busy() const { return running_events_ > 0; }
    Pictures& pictures() { return pictures_; }

    /// Called when the program has ended.
    Event ended;

  private:
    using Window = std::unique_ptr<FormWindow>;

    FormWindow* window_of(const Form& form) const;
    FormWindow& create_window(Form& form);
    void bring_forward(FormWindow& window);
    void sync();
    void lay_out();
    void close(FormWindow& window);
    void forget(FormWindow& window);
    void settle();

    double largest_scale_;
    Node page_;
    Node announcer_;
    Pictures pictures_;
    std::vector<Window> windows_;    // in the order in which they were first shown
    std::vector<Window> forgotten_;  // kept while their own events may still run
    std::vector<const MessageBox*> boxes_;
    int running_events_ = 0;
    bool quitting_ = false;
};

}  // namespace solvanta::web
