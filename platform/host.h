#pragma once

#include <functional>
#include <string>

#include "platform/elements.h"
#include "platform/locale.h"

namespace solvanta {

enum class Buttons { Ok, OkCancel, YesNo };
enum class Answer { Ok, Cancel, Yes, No };

/// Called with the answer of a message box, as an event.
using Answered = std::function<void(Answer)>;

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

    /// Shows a modal box with the title "Solvanta" and no icon; its answer is an event that calls
    /// `then`. What handlers have changed is visible behind it. While it is open the windows take
    /// no clicks and keys, and timers go on. A box closed without a button answers No, Cancel or,
    /// where there is only that, Ok; the default button is the first. One box is open at a time.
    virtual void ask(const std::string& text, Buttons buttons, Answered then) = 0;

    /// Gives `box` the keyboard focus, after bringing its window in line with its form.
    virtual void set_focus(TextBox& box) = 0;

    /// Ends the program: every window closes once the current event is over, a box that is open
    /// with them. Nothing is called afterwards, the answer of that box included.
    virtual void quit() = 0;

    /// The directory of the executable, without a separator at its end.
    virtual std::string program_directory() const = 0;

    virtual LocalTime local_time() const = 0;

    virtual LocaleTexts locale_texts() const = 0;
};

}  // namespace solvanta
