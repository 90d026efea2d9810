#pragma once

#include <deque>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/host.h"

namespace solvanta::test {

/// A Host without windows: it notes what is asked of it and answers from what the test prepared.
class NullHost : public Host {
  public:
    void show(Form& form) override { visible.insert(&form); }

    void hide(Form& form) override { visible.erase(&form); }

    void ask(const std::string& text, Buttons buttons, Answered then) override {
        messages.push_back({text, buttons});
        if (boxes_stay) {
            open_box = std::move(then);
            return;
        }
        if (during_message) during_message();
        if (answers.empty()) answers = {buttons == Buttons::YesNo ? Answer::Yes : Answer::Ok};
        const Answer answer = answers.front();
        answers.pop_front();
        if (!has_quit) then(answer);
    }

    void set_focus(TextBox& box) override { focused = &box; }

    void quit() override { has_quit = true; }

    std::string program_directory() const override { return directory; }

    LocalTime local_time() const override { return now; }

    LocaleTexts locale_texts() const override { return texts; }

    /// Closes a form's window as its close box does.
    void close(Form& form) {
        visible.erase(&form);
        const Event closed = form.Closed;
        closed();  // every window of the program wants to know
    }

    std::deque<Answer> answers;  ///< given in turn; without one the default button is pressed
    using Message = std::pair<std::string, Buttons>;
    std::vector<Message> messages;
    bool boxes_stay = false;  ///< open, in `open_box`, until the test answers
    Answered open_box;
    Event during_message;
    std::set<Form*> visible;
    TextBox* focused = nullptr;
    bool has_quit = false;
    std::string directory = "/nowhere";
    LocalTime now{2026, 1, 3, 9, 5};
    LocaleTexts texts{
        {"Jan", "Feb", "Mär", "Apr", "Mai", "Jun", "Jul", "Aug", "Sep", "Okt", "Nov", "Dez"},
        ":",
        ","};
};

}  // namespace solvanta::test
