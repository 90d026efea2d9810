#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/host.h"

namespace solvanta::test {

/// A place in the client area of a window, in pixels at 96 dots per inch.
struct Point {
    double x = 0;
    double y = 0;
};

/// In pixels at 96 dots per inch.
struct Rectangle {
    Point corner;
    double width = 0;
    double height = 0;

    Point centre() const { return {corner.x + width / 2, corner.y + height / 2}; }
};

enum class MouseButton { Left, Right };
/// A digit or a capital letter is its own key.
enum class Key : char { Enter, KeypadEnter, Space, Escape, Tab, Backspace, ArrowLeft, End };
enum class Modifier { None, Shift, Control, Alt };

struct WindowLook {
    int width = 0;  ///< of the client area, in pixels at 96 dots per inch
    int height = 0;
    bool active = false;
    bool can_be_minimised = false;
    bool can_be_resized = false;  ///< or enlarged to the screen
    bool is_within_page = false;  ///< of a browser; no such window is minimised
};

struct BoxLook {
    std::string title;
    std::string text;
    std::vector<std::string> buttons;  ///< without marks for keys, the default one first
};

/// What the player sees of a button, a text box or a rich-text box.
struct ControlLook {
    bool shown = false;
    bool focused = false;
    bool scrollable = false;  ///< has a scroll bar to be seen
    int scrolled = 0;         ///< down from the top, in units of the window system's own
    std::string text;         ///< of a box, lines parted by '\n'
};

/// What a screen reader finds of something that can be pressed.
struct AccessibleLook {
    std::string name;
    char key = 0;  ///< presses it; 0 where there is none
    bool focused = false;
    bool selected = false;
    Rectangle place;  ///< in the client area of its window
};

/// A hand on mouse and keyboard, and eyes: what the checks need of a window system besides its
/// Host. Every check makes a new one. Windows are named by their forms or, where the form may be
/// gone, by their captions. Input takes effect at the latest during `settle`. `settle`, `wait` and
/// `run` are not for what the checks have called by `later`: that may run inside a message box.
class Driver {
  public:
    Driver() = default;
    Driver(const Driver&) = delete;
    Driver& operator=(const Driver&) = delete;
    virtual ~Driver() = default;

    virtual Host& host() = 0;

    /// Device pixels to a pixel.
    virtual double ratio() const = 0;

    /// Lets the window system bring to its end what has been begun.
    virtual void settle() = 0;
    /// Lets events come for so many milliseconds.
    virtual void wait(int milliseconds) = 0;
    /// Runs the program as its main function does, ten seconds at most; whether it has quit.
    virtual bool run() = 0;
    /// Calls `act` from the event loop in so many milliseconds.
    virtual void later(int milliseconds, std::function<void()> act) = 0;

    virtual void mouse(const Form& form, Point at, MouseButton button, bool down) = 0;
    /// Lets pass the time in which one more press would be the second of a double click.
    virtual void rest() = 0;

    /// Presses and releases a key; it goes to what has the keyboard focus, in a box as well.
    virtual void key(Key key, Modifier modifier = Modifier::None) = 0;
    /// One more press of a key that is held down.
    virtual void repeat_key(Key key) = 0;
    /// Pastes two lines from another program.
    virtual void paste(const std::string& line, const std::string& next) = 0;

    /// A window or a box.
    virtual void close(const std::string& caption) = 0;
    virtual void minimise(const std::string& caption) = 0;
    /// Makes the window of a form so many times as large as it was designed; places in it are still
    /// those of the design. Answers whether that is possible.
    virtual bool resize(const Form& form, double scale) = 0;
    /// What the desktop does when it saves its state and goes on.
    virtual void save_desktop() = 0;

    /// Nothing when it is not to be seen.
    virtual std::optional<WindowLook> window(const std::string& caption) = 0;
    /// The colour there once the window is painted as its form is at this moment.
    virtual Color pixel(const Form& form, Point at) = 0;

    virtual ControlLook control(const Form& form, const Element& element) = 0;

    /// Nothing when none is open.
    virtual std::optional<BoxLook> box() = 0;

    /// What a screen reader finds on the canvas of a window, in its order.
    virtual std::vector<AccessibleLook> accessible(const Form& form) = 0;
    virtual void press_accessible(const Form& form, std::size_t index) = 0;
    /// What a screen reader has been told to say since the last call; the first begins to listen.
    virtual std::vector<std::string> announced() = 0;

    /// Puts a picture file, in place of one of that name, where the program may load it; its path.
    virtual std::string put_file(const std::string& name, const std::string& bytes) = 0;
};

std::unique_ptr<Driver> make_driver();

/// Where an element of `form`, or of a frame in it, lies in the window.
inline Rectangle place_of(const Form& form, const Element& element) {
    Twips left = element.Left;
    Twips top = element.Top;
    for (const Control& control : form.controls) {
        const auto* const* frame = std::get_if<Frame*>(&control);
        if (!frame) continue;
        for (const Control& held : (*frame)->controls) {
            if (std::visit([](const Element* one) { return one; }, held) != &element) continue;
            left += (*frame)->Left;
            top += (*frame)->Top;
        }
    }
    constexpr double unit = twips_per_pixel;
    return {{left / unit, top / unit}, element.Width / unit, element.Height / unit};
}

}  // namespace solvanta::test
