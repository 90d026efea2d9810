#pragma once

#include <memory>
#include <vector>

#include "front_ends/web/form_window.h"
#include "front_ends/web/message_box.h"
#include "front_ends/web/pictures.h"
#include "front_ends/common/window_host.h"

namespace solvanta::web {

/// The Host on a page: its windows are elements of the page's element `windows`. The window shown
/// first is the card table, which stands still and fills the page; nothing is scaled beyond
/// `largest_scale`. There is one at a time.
class WebHost final : public WindowHost<FormWindow> {
  public:
    explicit WebHost(double largest_scale = 2);
    ~WebHost() override;

    void hide(Form& form) override;
    Answer message(const std::string& text, Buttons buttons) override;
    std::string program_directory() const override;
    LocalTime local_time() const override;
    LocaleTexts locale_texts() const override;

    Pictures& pictures() { return pictures_; }

    /// Called when the program has ended.
    Event ended;

  private:
    FormWindow& create_window(Form& form) override;
    void bring_forward(FormWindow& window) override;
    void close(FormWindow& window) override;
    void close_boxes() override;
    void end() override;
    void lay_out();

    double largest_scale_;
    Node page_;
    Node announcer_;
    Pictures pictures_;
    std::vector<const MessageBox*> boxes_;
};

}  // namespace solvanta::web
