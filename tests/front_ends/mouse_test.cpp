#include <map>
#include <sstream>

#include "tests/front_ends/stage.h"

namespace solvanta::test {
namespace {

/// Elements 40 pixels square, named by letters: `a` has both handlers, `b` no double click; `c`
/// goes at a click and bares `d` below it; `e` lies under a picture box, `f` under a frame, `g`
/// under a disabled button in a disabled frame, `h` under a label. `l` and `r` are the outermost
/// pixels of `a`; the double click of `k` opens a box.
struct MouseForm : TestForm {
    MouseForm() {
        add('a', 40, 0);
        centres['l'] = {40, 20};
        centres['r'] = {79, 20};
        add('b', 80, 0).DblClick = nullptr;
        add('d', 0, 0);
        PictureElement& c = add('c', 0, 0);
        c.Click = [this, &c] {
            log += 'c';
            c.Visible = false;
        };
        add('e', 120, 0);
        add('f', 160, 0);
        add('g', 200, 0);
        add('h', 0, 40);
        place(box, 120, 0, 40, 40);
        place(frame, 160, 0, 40, 40);
        place(dead_frame, 200, 0, 40, 40);
        place(dead_button, 0, 0, 40, 40);
        place(label, 0, 40, 40, 40);
        dead_frame.Enabled = false;
        dead_frame.controls = {&dead_button};
        canvas.emplace_back(&label);
        controls = {&box, &frame, &dead_frame};
    }

    PictureElement& add(char name, int left, int top) {
        centres[name] = {left + 20.0, top + 20.0};
        PictureElement& element = add_picture(left, top, 40, 40);
        element.Click = [this, name] { log += name; };
        element.DblClick = [this, name] { log += static_cast<char>(name - 'a' + 'A'); };
        return element;
    }

    std::map<char, Point> centres;
    PictureBox box;
    Frame frame;
    Frame dead_frame;
    CommandButton dead_button;
    Label label;
    std::string log;
};

class MouseOnWindow : public FrontEnd {
  protected:
    void perform(const MouseForm& form, const std::string& steps) {
        driver().rest();
        std::istringstream words(steps);
        for (std::string word; words >> word;) {
            const auto button = word.back() == '2' ? MouseButton::Right : MouseButton::Left;
            if (word == "rest") {
                driver().rest();
            } else if (word == "answered") {
                EXPECT_TRUE(wait_until([&] { return form.log.back() == '!'; }));
            } else {
                driver().mouse(form, form.centres.at(word.at(1)), button, word.front() == '+');
            }
        }
        driver().settle();
    }
};

// +x presses on element x, -x releases there, a 2 behind it means the right button. The log has
// small letters for clicks and capitals for double clicks.
TEST_F(MouseOnWindow, GivesClicksAndDoubleClicks) {
    const struct {
        const char* steps;
        const char* log;
    } cases[] = {
        {"+l -r", "a"},
        {"+a -b", ""},
        {"+a", ""},
        {"-a", ""},
        {"+a -a +a", "aA"},
        {"+a -a +a -a +a -a +a -a", "aAaA"},
        {"+a -a rest +a -a", "aa"},
        {"+a -a +b -b", "ab"},
        {"+b -b +b -b +b -b", "bb"},
        {"+c -c +c -c +c -c", "cDd"},
        {"+c -c rest +d -d", "cd"},
        {"+a2 -a2 +a2 -a2", ""},
        {"+a +a2 -a2 -a", "a"},
        {"+e -e +e -e +f -f +f -f +g -g +g -g", ""},
        {"+h -h +h -h", "hH"},
        {"+k -k +k -k answered +k -k", "kK!k"},
    };
    for (const auto& test : cases) {
        start_anew();
        MouseForm form;
        PictureElement& opens_box = form.add('k', 40, 40);
        opens_box.DblClick = [&, log = opens_box.DblClick] {
            log();
            when_box_opens([&] { driver().key(Key::Enter); });
            host().ask("Gratulation! Spiel gewonnen!", Buttons::Ok,
                       [&](Answer) { form.log += '!'; });
        };
        show(form);
        perform(form, test.steps);
        EXPECT_EQ(form.log, test.log) << test.steps;
    }
}

}  // namespace
}  // namespace solvanta::test
