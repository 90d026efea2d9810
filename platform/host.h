#pragma once

#include <array>
#include <string>

#include "platform/elements.h"

namespace solvanta {

enum class Buttons { Ok, OkCancel, YesNo };
enum class Answer { Ok, Cancel, Yes, No };

/// The answer of a box closed without a button.
constexpr Answer answer_of_closing(Buttons buttons) {
    if (buttons == Buttons::YesNo) return Answer::No;
    return buttons == Buttons::OkCancel ? Answer::Cancel : Answer::Ok;
}

struct LocalTime {
    int year = 0;
    int month = 1;  ///< 1 to 12
    int day = 1;    ///< 1 to 31
    int hour = 0;   ///< 0 to 23
    int minute = 0;
};

struct LocaleTexts {
    std::array<std::string, 12> month_abbreviations;
    std::string time_separator;
    std::string decimal_separator;
};

/// What the program asks of a window system. A Host delivers one event at a time on one thread:
/// it calls the element's function and then brings the windows in line with their forms.
class Host {
  public:
    Host() = default;
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
    virtual ~Host() = default;

    /// Shows `form` as a modeless window, creating it when needed and bringing it to the front.
    /// The form must stay alive until it is closed or the program ends.
    virtual void show(Form& form) = 0;

    /// Hides the window of `form`; nothing happens when it has none.
    virtual void hide(Form& form) = 0;

    /// Shows a modal box with the title "Solvanta" and no icon, and waits for the answer. What
    /// handlers have changed is visible behind it. A box closed without a button answers No,
    /// Cancel or, where there is only that, Ok; the default button is the first. Timers go on.
    virtual Answer message(const std::string& text, Buttons buttons) = 0;

    /// Gives `box` the keyboard focus, after bringing its window in line with its form.
    virtual void set_focus(TextBox& box) = 0;

    /// Ends the program: every window closes once the current event is over.
    virtual void quit() = 0;

    /// The directory of the executable, without a separator at its end.
    virtual std::string program_directory() const = 0;

    virtual LocalTime local_time() const = 0;

    virtual LocaleTexts locale_texts() const = 0;
};

}  // namespace solvanta
