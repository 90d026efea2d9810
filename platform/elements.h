#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

// Windows as data. A form is a struct of element values; handlers change the values and a Host
// shows them. Positions and sizes are in twips (1/1440 inch, 15 to a pixel at 96 dots per inch),
// counted from the top-left corner of the form's client area or of the enclosing frame. Texts are
// UTF-8 unless an element says otherwise.

namespace solvanta {

using Twips = int;

inline constexpr Twips twips_per_pixel = 15;  // at 96 dots per inch

using Event = std::function<void()>;

struct Color {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    friend bool operator==(const Color&, const Color&) = default;
};

/// A font; with an empty `family` it is the window system's standard font and the rest is unused.
struct Font {
    std::string family;
    double points = 0;
    bool bold = false;

    friend bool operator==(const Font&, const Font&) = default;
};

enum class Alignment { Left, Right, Centered };

/// A picture as loaded from one file at one moment. Two loads of the same file are different
/// pictures: the second one shows what the file holds by then. Hosts read the file when the
/// picture is first shown, and may share what they read among the copies of one load.
class Picture {
  public:
    Picture() = default;

    /// Loads the file at `path`; an empty path gives the empty picture, which shows as nothing.
    static Picture load(std::string path);

    const std::string& path() const { return path_; }

    /// Tells one load from every other; 0 for the empty picture.
    std::uint64_t load_number() const { return load_number_; }

  private:
    std::string path_;
    std::uint64_t load_number_ = 0;
};

struct Element {
    Twips Left = 0;
    Twips Top = 0;
    Twips Width = 0;
    Twips Height = 0;
    bool Visible = true;

    friend bool operator==(const Element&, const Element&) = default;
};

/// A light-weight picture, painted at its own size from the top-left corner, never stretched.
/// `Width` and `Height` are the area that takes the mouse and the size of the placeholder shown
/// for a picture that can't be read.
struct PictureElement : Element {
    solvanta::Picture Picture;
    bool CutToHeight = false;  ///< only the top `Height` twips of the picture are shown
    bool KeyStop = false;      ///< a place to which the arrow keys lead
    char Key = 0;              ///< clicks it from anywhere on the canvas: a digit or a capital
    Event Click;
    Event DblClick;

    /// Tells what a screen reader says for it; without it, or with an empty text, that is nothing.
    std::function<std::string()> SpokenName;
    std::function<bool()> IsSelected;  ///< tells it whether that is what the player has selected

    std::string spoken_name() const { return SpokenName ? SpokenName() : std::string(); }
};

/// A light-weight opaque label of one or more lines.
struct Label : Element {
    std::string Caption;
    solvanta::Font Font;
    Color ForeColor;
    std::optional<Color> BackColor;  ///< empty: the window system's standard
    solvanta::Alignment Alignment = solvanta::Alignment::Left;

    friend bool operator==(const Label&, const Label&) = default;
};

/// A picture in a box of fixed size; the picture is drawn to fit it.
struct PictureBox : Element {
    solvanta::Picture Picture;
};

struct CommandButton : Element {
    std::string Caption;
    Event Click;
};

/// A text box of one line. The Host keeps `Text` equal to what the player has typed.
struct TextBox : Element {
    std::string Text;
    solvanta::Font Font;
    /// Called for each key before the box handles it; Enter has the code `key_enter` whatever
    /// modifier keys are held. Other keys have codes of the window system's own.
    std::function<void(int key_code)> KeyDown;
};

inline constexpr int key_enter = 13;

/// A read-only, selectable rich-text view with a vertical scroll bar when needed.
struct RichTextBox : Element {
    std::string TextRTF;  ///< the whole content, Rich Text Format bytes; empty shows nothing
    solvanta::Font Font;

    /// Tells those who listen that the lines before the first empty one are a table: what each of
    /// its columns is called, and the character of a line at which it begins.
    std::vector<std::pair<std::string, std::size_t>> Columns;
};

/// Ticks are due every `Interval` milliseconds of a steady clock for the life of the form. Those
/// missed while the machine is awake are made up for, those that it sleeps through are not.
struct Timer {
    int Interval = 0;
    Event Tick;
};

struct Frame;

using Painted = std::variant<PictureElement*, Label*>;
using Control = std::variant<CommandButton*, Frame*, TextBox*, PictureBox*, RichTextBox*>;

/// What a form and a frame have in common: the elements inside, by kind of painting.
struct Container {
    std::vector<Painted> canvas;    ///< from the lowest to the topmost
    std::vector<Control> controls;  ///< above the canvas, in tab order

    /// Tells a screen reader what has changed on the canvas since the last call.
    std::function<std::string()> SpokenChanges;

    /// Tells what a screen reader says at a key, a capital; empty at a key of no use.
    std::function<std::string(char key)> SpokenAnswer;
};

/// Load numbers of pictures.
using Loads = std::vector<std::uint64_t>;

/// A captioned group of elements; disabling it disables them all.
struct Frame : Element, Container {
    std::string Caption;
    bool Enabled = true;
};

/// Adds the numbers of the picture loads that the elements of `container` hold to `loads`, those of
/// its frames included, in no order and with repeats.
void collect_loads(const Container& container, Loads& loads);

enum class OpeningPlace { Centered, SystemChoice };

/// A window of fixed size; `Left` and `Top` are unused, the opening place decides.
struct Form : Container {
    Form() = default;
    Form(const Form&) = delete;  // canvas and controls point into the form
    Form& operator=(const Form&) = delete;

    std::string Caption;
    Twips ClientWidth = 0;
    Twips ClientHeight = 0;
    std::optional<Color> BackColor;  ///< empty: the window system's standard
    bool HasIcon = false;            ///< shows the program's own icon
    OpeningPlace Place = OpeningPlace::SystemChoice;
    std::vector<Timer*> timers;

    /// The player closed the window by its close box, or the desktop asked it to close. The Host
    /// has let go of the form by then, so the handler may destroy it.
    Event Closed;

    /// The desktop saves its state and may be about to end: what must not be lost is to be brought
    /// to its end at once. The form stays, and the program may go on for as long as it likes.
    Event Saving;

  protected:
    ~Form() = default;
};

}  // namespace solvanta
