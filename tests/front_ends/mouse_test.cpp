#include <map>
#include <sstream>

#include "tests/front_ends/stage.h"

namespace solvanta::test {
namespace {

/// Pictures 40 pixels square in a row: `a` lies free, `l` and `r` are its outermost pixels; `b`
/// lies under a picture box, `c` under a frame, `d` under a disabled button in a disabled frame.
/// Clicks are noted in small letters, double clicks in capitals.
struct MouseForm : TestForm {
    MouseForm() {
        for (int left = 40; const char name : {'a', 'b', 'c', 'd', 'e'}) {
            PictureElement& element = add_picture(left, 0, 40, 40);
            element.Click = [this, name] { log += name; };
            element.DblClick = [this, name] { log += static_cast<char>(name - 'a' + 'A'); };
            places[name] = place_of(*this, element).centre();
            left += 40;
        }
        place(box, 80, 0, 40, 40);
        place(frame, 120, 0, 40, 40);
        place(dead_frame, 160, 0, 40, 40);
        place(dead_button, 0, 0, 40, 40);
        dead_frame.Enabled = false;
        dead_frame.controls = {&dead_button};
        controls = {&box, &frame, &dead_frame};
    }

    std::map<char, Point> places{{'l', {40, 0}}, {'r', {79, 39}}};
    PictureBox box;
    Frame frame;
    Frame dead_frame;
    CommandButton dead_button;
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
        {"+b -b +b -b +c -c +c -c +d -d +d -d", ""},
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
