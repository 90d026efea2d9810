#include "tests/front_ends/stage.h"

namespace solvanta::test {
namespace {

/// A button opens the name entry, Enter closes it.
class NameEntry : public FrontEnd {
  protected:
    void connect(EntryForm& form) {
        form.button.Click = [&] {
            form.frame.Enabled = form.frame.Visible = true;
            host().set_focus(form.box);
        };
        form.box.KeyDown = [&](int code) {
            if (code != key_enter) return;
            entered.push_back(form.box.Text);
            form.frame.Enabled = form.frame.Visible = false;
        };
    }

    std::vector<std::string> entered;
};

TEST_F(NameEntry, KeepsTheFocusWhileButtonsArePressed) {
    EntryForm form;
    connect(form);
    CommandButton other;
    int pressed = 0;
    TestForm::place(other, 100, 180, 80, 17);
    other.Click = [&pressed] { ++pressed; };
    form.controls.emplace_back(&other);
    show(form);
    press_key(Key::Enter);  // the first button has the focus
    ASSERT_TRUE(driver().has_focus(form, form.box));
    click(form, other);
    EXPECT_EQ(pressed, 1);
    EXPECT_TRUE(driver().has_focus(form, form.box));

    press_key(Key::Tab);
    ASSERT_TRUE(driver().has_focus(form, other));
    for (const Key key : {Key::Enter, Key::KeypadEnter, Key::Space})
        press_key(key);
    EXPECT_EQ(pressed, 4);
    driver().repeat_key(Key::Enter);
    driver().settle();
    EXPECT_EQ(pressed, 4);
}

TEST_F(NameEntry, TakesFocusInAFrameJustShownAndHearsEnter) {
    const std::tuple<Key, Modifier, bool> cases[] = {
        {Key::Enter, Modifier::None, true},      {Key::KeypadEnter, Modifier::None, true},
        {Key::Enter, Modifier::Shift, true},     {Key::KeypadEnter, Modifier::Shift, true},
        {Key::Enter, Modifier::Control, true},   {Key::Enter, Modifier::Alt, true},
        {Key::Escape, Modifier::None, false},    {Key::M, Modifier::Control, false},
        {Key::ArrowLeft, Modifier::None, false},
    };
    for (const auto& [key, modifier, enters] : cases) {
        start_anew();
        entered.clear();
        EntryForm form;
        connect(form);
        form.box.Text = "Jörg";
        show(form);
        EXPECT_FALSE(driver().is_shown(form, form.box));
        click(form, form.button);
        ASSERT_TRUE(driver().has_focus(form, form.box));
        press_key(Key::End);
        press_key(Key::Backspace);
        press_key(Key::A);
        EXPECT_EQ(form.box.Text, "Jöra");
        press_key(key, modifier);
        EXPECT_EQ(entered, std::vector<std::string>(enters ? 1 : 0, "Jöra"))
            << static_cast<int>(key) << ' ' << static_cast<int>(modifier);
        EXPECT_EQ(driver().is_shown(form, form.box), !enters);
        EXPECT_EQ(driver().has_focus(form, form.box), !enters);
        EXPECT_EQ(driver().text(form, form.box), "Jöra");
    }
}

TEST_F(NameEntry, InADisabledFrameTakesNoKeys) {
    EntryForm form;
    form.frame.Visible = true;
    show(form);
    click(form, form.box);
    press_key(Key::A);
    EXPECT_FALSE(driver().has_focus(form, form.box));
    EXPECT_EQ(form.box.Text, "");
}

/// A form with a rich-text box reaching beyond it, and a button for its changes.
struct ListForm : TestForm {
    explicit ListForm(int lines) {
        place(view, 0, 0, 301, 170);
        view.Font = {"Courier New", 11.25, false};
        view.TextRTF = list(lines);
        controls = {&button, &view};
    }

    static std::string list(int lines) {
        std::string rtf = "{\\rtf1\\ansi ";
        for (int i = 1; i <= lines; ++i)
            rtf += "{Zeile \\'fc\\{ " + std::to_string(i) + "}{\r\n\\par }";
        return rtf + "{Ende}}";
    }

    RichTextBox view;
};

class RichText : public FrontEnd {};

TEST_F(RichText, IsShownAndSetOnlyWhenChanged) {
    ListForm form(50);
    show(form);
    const std::string text = driver().text(form, form.view);
    EXPECT_TRUE(text.starts_with("Zeile ü{ 1\nZeile ü{ 2\n")) << text;
    EXPECT_TRUE(text.ends_with("Zeile ü{ 50\nEnde")) << text;
    EXPECT_TRUE(driver().can_scroll(form, form.view));
    driver().scroll_down(form, form.view);
    driver().settle();
    const int scrolled = driver().scrolled(form, form.view);
    EXPECT_GT(scrolled, 0);
    click(form, form.button);
    EXPECT_EQ(driver().scrolled(form, form.view), scrolled);

    form.button.Click = [&] { form.view.TextRTF = ListForm::list(40); };
    click(form, form.button);
    EXPECT_EQ(driver().scrolled(form, form.view), 0);
    EXPECT_TRUE(driver().text(form, form.view).ends_with("Zeile ü{ 40\nEnde"));
    form.button.Click = [&] { form.view.TextRTF.clear(); };
    click(form, form.button);
    EXPECT_EQ(driver().text(form, form.view), "");
    EXPECT_FALSE(driver().can_scroll(form, form.view));

    form.view.TextRTF = ListForm::list(2);
    driver().close(form.Caption);
    driver().settle();
    show(form);
    EXPECT_EQ(driver().text(form, form.view), "Zeile ü{ 1\nZeile ü{ 2\nEnde");
}

TEST_F(RichText, CanBeReadButNotWritten) {
    ListForm form(1);
    show(form);
    click(form, form.view);
    press_key(Key::A);
    press_key(Key::Backspace);
    EXPECT_EQ(driver().text(form, form.view), "Zeile ü{ 1\nEnde");

    form.button.Click = [&] { form.view.TextRTF = "Hilfe ohne Form"; };
    testing::internal::CaptureStderr();
    click(form, form.button);
    EXPECT_EQ(driver().text(form, form.view), "");
    EXPECT_NE(testing::internal::GetCapturedStderr(), "");
}

class Frames : public FrontEnd {};

// The labels are told apart by their grounds: text may look different everywhere.
TEST_F(Frames, ShowTheirLabelsInsideTheBorderOnly) {
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
    expect_color(form, 40, 100, green);
    expect_color(form, 150, 100, blue);
    EXPECT_FALSE(driver().pixel(form, {150, 118}) == green);
    EXPECT_FALSE(driver().pixel(form, {150, 22}) == green);
    expect_color(form, 150, 121, red);
}

}  // namespace
}  // namespace solvanta::test
