#include <map>
#include <sstream>

#include "tests/front_ends/stage.h"
#include "text/windows_1252.h"

namespace solvanta::test {
namespace {

/// A button opens the name entry; Enter, or a desktop that saves its state, closes it.
class NameEntry : public FrontEnd {
  protected:
    NameEntry() {
        form.button.Click = [&] {
            form.frame.Enabled = form.frame.Visible = true;
            host().set_focus(form.box);
        };
        form.Saving = [&] {
            entered = to_list_text(form.box.Text);
            form.frame.Enabled = form.frame.Visible = false;
        };
        form.box.KeyDown = [&](int code) {
            if (code == key_enter) form.Saving();
        };
    }

    EntryForm form;
    std::string entered;
};

TEST_F(NameEntry, KeepsTheFocusWhileButtonsArePressed) {
    CommandButton other;
    int pressed = 0;
    TestForm::place(other, 100, 180, 80, 17);
    other.Click = [&pressed] { ++pressed; };
    form.controls.emplace_back(&other);
    show(form);
    press_key(Key::Enter);  // the first button has the focus
    click(form, other);
    EXPECT_EQ(pressed, 1);
    EXPECT_TRUE(driver().control(form, form.box).focused);
    for (const Key key : {Key::Tab, Key::Enter, Key::KeypadEnter, Key::Space})
        press_key(key);
    driver().repeat_key(Key::Enter);
    driver().settle();
    EXPECT_EQ(pressed, 4);
}

TEST_F(NameEntry, TakesFocusInAFrameJustShownAndEndsWithWhatIsTyped) {
    const std::tuple<std::optional<Key>, Modifier, bool> cases[] = {
        {Key::Enter, Modifier::None, true},
        {Key::KeypadEnter, Modifier::Shift, true},
        {Key::Enter, Modifier::Alt, true},
        {Key::Escape, Modifier::None, false},
        {Key{'M'}, Modifier::Control, false},
        {{}, Modifier::None, true},  // the desktop saves its state
    };
    show(form);
    for (const auto& [key, modifier, ends] : cases) {
        entered.clear();
        form.box.Text = "Jörg";
        EXPECT_FALSE(driver().control(form, form.box).shown);
        click(form, form.button);
        ASSERT_TRUE(driver().control(form, form.box).focused);
        for (const Key typed : {Key::End, Key::Backspace, Key{'A'}})
            press_key(typed);
        driver().paste("Süß", "er");
        driver().settle();
        key ? driver().key(*key, modifier) : driver().save_desktop();
        driver().settle();
        const std::string typed = "J\xF6raS\xFC\xDF er";  // in one line
        EXPECT_EQ(to_list_text(form.box.Text), typed);
        EXPECT_EQ(entered, ends ? typed : "") << int(key.value_or(Key{'A'})) << int(modifier);
        const ControlLook box = driver().control(form, form.box);
        EXPECT_EQ(std::tuple(box.shown, box.focused, to_list_text(box.text)),
                  std::tuple(!ends, !ends, typed));
        if (!ends) press_key(Key::Enter);
    }
}

std::string list(int lines) {
    std::string rtf = "{\\rtf1\\ansi ";
    for (int i = 1; i <= lines; ++i)
        rtf += "{Zeile \\'fc\\{ " + std::to_string(i) + "}{\r\n\\par }";
    return rtf + "{Ende}}";
}

/// A rich-text box reaching beyond its form, and a button that changes its text.
class RichText : public FrontEnd {
  protected:
    RichText() {
        TestForm::place(view, 0, 0, 301, 170);
        view.Font = {"Courier New", 11.25, false};
        form.controls = {&form.button, &view};
    }

    ControlLook look() { return driver().control(form, view); }

    ControlLook look_after(const std::string& text) {
        form.button.Click = [&] { view.TextRTF = text; };
        click(form, form.button);
        return look();
    }

    TestForm form;
    RichTextBox view;
};

TEST_F(RichText, IsShownAndSetOnlyWhenChanged) {
    view.TextRTF = list(50);
    show(form);
    click(form, view);
    press_key(Key{'A'});  // nothing can be written there
    EXPECT_TRUE(look().text.starts_with("Zeile ü{ 1\nZeile ü{ 2\n")) << look().text;
    EXPECT_TRUE(look().scrollable);
    for (const Modifier held : {Modifier::None, Modifier::Control})
        press_key(Key::End, held);  // which leads a caret, if there is one, to the line's end
    EXPECT_TRUE(wait_until([&] { return look().scrolled > 0; }));
    const int scrolled = look().scrolled;
    EXPECT_GE(look_after(list(50)).scrolled, scrolled);
    EXPECT_EQ(look_after(list(40)).scrolled, 0);
    EXPECT_TRUE(look().text.ends_with("Zeile ü{ 40\nEnde")) << look().text;
    EXPECT_FALSE(look_after("").scrollable);

    view.TextRTF = list(1);
    driver().close(form.Caption);
    driver().settle();
    show(form);
    EXPECT_EQ(look().text, "Zeile ü{ 1\nEnde");
    EXPECT_EQ(look_after("Hilfe ohne Form").text, "");
    const std::string deep(40, '{');
    EXPECT_EQ(look_after("{\\rtf1 " + deep + "\\{a\\}" + std::string(40, '}') + "b}").text, "{a}b");
}

class Frames : public FrontEnd {};

// The labels are told apart by their grounds: text may look different everywhere.
TEST_F(Frames, ShowTheirLabelsInsideTheBorderAndTakeNoKeysDisabled) {
    EntryForm form;
    form.frame.Visible = true;
    Label below;
    Label above;
    TestForm::place(below, 0, 0, 260, 130);
    below.BackColor = green;
    TestForm::place(above, 100, 70, 60, 20);
    above.BackColor = blue;
    form.frame.canvas = {&below, &above};
    show(form);
    expect_colors(form, {{40, 100, green}, {150, 100, blue}, {150, 121, red}});
    for (const double border : {22.0, 118.0})
        EXPECT_FALSE(driver().pixel(form, {150, border}) == green);
    click(form, form.box);  // disabled with its frame
    press_key(Key{'A'});
    EXPECT_FALSE(driver().control(form, form.box).focused);
    EXPECT_EQ(form.box.Text, "");
}

/// Pictures 40 pixels square in a row: `a` lies free, `l` and `r` are its outermost pixels; `b`
/// lies under a picture box, `c` under a disabled frame.
/// Clicks are noted in small letters, double clicks in capitals.
struct MouseForm : TestForm {
    MouseForm() {
        for (int left = 40; const char name : {'a', 'b', 'c', 'e'}) {
            PictureElement& element = add_picture(left, 0, 40, 40);
            element.Click = [this, name] { log += name; };
            element.DblClick = [this, name] { log += static_cast<char>(name - 'a' + 'A'); };
            places[name] = place_of(*this, element).centre();
            left += 40;
        }
        place(box, 80, 0, 40, 40);
        place(frame, 120, 0, 40, 40);
        frame.Enabled = false;
        controls = {&box, &frame};
    }

    std::map<char, Point> places{{'l', {40, 0}}, {'r', {79, 39}}};
    PictureBox box;
    Frame frame;
    std::string log;
};

class MouseOnWindow : public FrontEnd {};

// +x presses on x, -x releases there, a 2 behind it means the right button. The double click of
// `e` opens a box.
TEST_F(MouseOnWindow, GivesClicksAndDoubleClicks) {
    const std::pair<const char*, const char*> cases[] = {
        {"+l -r", "a"},
        {"+a -e", ""},
        {"+a -a +a -a +a -a", "aAa"},
        {"+a -a rest +a -a", "aa"},
        {"+a2 -a2 +a +a2 -a2 -a", "a"},
        {"+b -b +b -b +c -c +c -c", ""},
        {"+e -e +e -e answered +e -e", "eE!e"},
    };
    for (const auto& [steps, log] : cases) {
        start_anew();
        MouseForm form;
        form.pictures.back().DblClick = [&] {
            form.log += 'E';
            when_box_opens([&] { driver().key(Key::Enter); });
            host().ask("Gratulation!", Buttons::Ok, [&](Answer) { form.log += '!'; });
        };
        show(form);
        driver().rest();
        std::istringstream words(steps);
        for (std::string word; words >> word;) {
            if (word == "rest") {
                driver().rest();
            } else if (word == "answered") {
                EXPECT_TRUE(wait_until([&] { return form.log.back() == '!'; }));
            } else {
                const auto button = word.back() == '2' ? MouseButton::Right : MouseButton::Left;
                driver().mouse(form, form.places.at(word[1]), button, word[0] == '+');
            }
        }
        driver().settle();
        EXPECT_EQ(form.log, log) << steps;
    }
}

}  // namespace
}  // namespace solvanta::test
