#pragma once

#include <optional>

#include "front_ends/common/window_host.h"
#include "front_ends/web/form_window.h"
#include "front_ends/web/message_box.h"
#include "front_ends/web/pictures.h"

namespace solvanta::web {

/// The Host on a page: its windows are elements of the page's element `windows`. The window shown
/// first is the card table, which stands still and fills the page; nothing is scaled beyond
/// `largest_scale`. There is one at a time.
class WebHost final : public WindowHost<FormWindow> {
  public:
    WebHost();
    ~WebHost() override {
        clear();
        remove_all_listeners();
    }

    void hide(Form& form) override;
    std::string program_directory() const override;
    LocalTime local_time() const override;
    LocaleTexts locale_texts() const override;

    double largest_scale = 8;

    /// Called when the program has ended.
    Event ended;

  private:
    FormWindow& create_window(Form& form) override;
    void open_box(const std::string& text, Buttons buttons) override;
    void close_box() override { box_.reset(); }
    void soon(Event act) override { web::soon(std::move(act)); }
    void end() override;
    void sync() override;
    void bring_forward(FormWindow& window) override;
    void close(FormWindow& window) override;
    void lay_out();

    Node windows_ = Node::find("windows");
    Node announcer_ = Node::find("announcer");
    Node page_ = Node::page();
    Pictures pictures_{[this] { deliver(nullptr); }};
    std::optional<MessageBox> box_;
};

}  // namespace solvanta::web
