#include "front_ends/common/window_host.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace solvanta::test {
namespace {

std::string log;  // of what the windows are asked to do

/// A window that does nothing but tell of it.
class LoggedWindow {
  public:
    explicit LoggedWindow(Form& form) : form_(form) {}
    ~LoggedWindow() { log += "gone "; }

    Form& form() const { return form_; }
    void sync() {}
    void bring_forward() { log += "front "; }
    void hide() { log += "hidden "; }
    bool focus(const TextBox&) { return true; }
    void let_go() { log += "let go "; }

  private:
    Form& form_;
};

class LoggedHost final : public WindowHost<LoggedWindow> {
  public:
    LoggedWindow& create_window(Form& form) override {
        return add(std::make_unique<LoggedWindow>(form));
    }
    void open_box(const std::string& text, Buttons) override { log += text; }
    void close_box() override { log += "box closed "; }
    void soon(Event act) override { acts.push_back(std::move(act)); }
    void end() override { log += "end "; }
    std::string program_directory() const override { return {}; }
    LocalTime local_time() const override { return {}; }
    LocaleTexts locale_texts() const override { return {}; }
    void close_window(Form& form) { close(*window_of(form)); }
    void answer_box(Answer given) { answer(given); }

    /// Lets come what is due soon, and tells what has been logged since.
    std::string told() {
        for (std::size_t i = 0; i < acts.size(); ++i)
            acts[i]();
        acts.clear();
        return std::exchange(log, "");
    }

    std::vector<Event> acts;
};

TEST(WindowHost, KeepsItsWindowsAndItsBoxUntilTheEnd) {
    log.clear();
    LoggedHost host;
    struct : Form {
    } form;
    host.show(form);
    host.show(form);
    host.hide(form);
    EXPECT_EQ(host.told(), "front front hidden ");
    form.Saving = [] { log += "saved "; };
    form.Closed = [&] { log += "closed ", form.Closed = nullptr; };
    host.save();
    host.close_window(form);
    EXPECT_EQ(log, "saved let go closed ");
    EXPECT_EQ(host.told(), "saved let go closed gone ");

    host.ask("first? ", Buttons::YesNo, [&](Answer) {
        log += "answered ";
        host.ask("second? ", Buttons::Ok, [](Answer) { log += "never "; });
    });
    host.answer_box(Answer::Yes);
    EXPECT_EQ(host.told(), "first? answered second? ");
    host.show(form);
    host.quit();
    host.quit();
    host.answer_box(Answer::Ok);
    host.ask("late? ", Buttons::Ok, [](Answer) {});
    host.deliver([] { log += "late "; });
    host.show(form);
    EXPECT_EQ(host.told(), "front box closed let go end gone ");
}

}  // namespace
}  // namespace solvanta::test
