#include "front_ends/common/mouse.h"

#include <sstream>
#include <string>

#include <gtest/gtest.h>

namespace solvanta::test {
namespace {

/// Pictures 100 twips wide beside one another, from the left: `a` with both handlers, `b` without a
/// double click, `c` that goes at a click and bares `d` below it; `a` is overlapped on its right by
/// `z`, which takes no mouse. Clicks are noted in small letters, double clicks in capitals.
struct Row : Form {
    Row() {
        for (const char name : {'a', 'b', 'd', 'c', 'z'}) {
            PictureElement& element = elements[std::size_t(canvas.size())];
            element.Left = name == 'z' ? 50 : 100 * (std::min(name, 'c') - 'a');
            element.Width = element.Height = 100;
            if (name != 'z') element.Click = [this, name] { log += name; };
            if (name != 'b') element.DblClick = [this, name] { log += char(name - 'a' + 'A'); };
            canvas.emplace_back(&element);
        }
        elements[3].Click = [this] { log += 'c', elements[3].Visible = false; };
    }

    std::array<PictureElement, 5> elements;
    std::string log;
};

// +x presses at x, -x releases there, ~ stands for 100 ms, f for a press elsewhere, ! for what
// takes the mouse away.
TEST(Mouse, MakesClicksAndDoubleClicksOfPresses) {
    const std::pair<const char*, const char*> cases[] = {
        {"+10 -90", "a"},
        {"+10 -110", ""},
        {"-10", ""},
        {"+10 -10 -10", "a"},
        {"+350 -10", ""},
        {"+10 -10 ~~~~ +10 -10", "aA"},
        {"+10 -10 ~~~~~ +10 -10", "aa"},
        {"+10 -10 ~ +10 -10 ~ +10 -10 ~ +10 -10", "aAaA"},
        {"+10 -10 ~ +18 -18", "aA"},
        {"+10 -10 ~ +19 -19", "aa"},
        {"+19 -19 ~ +10 -10", "aa"},
        {"+150 -150 ~ +150 -150 ~ +150 -150", "bb"},
        {"+95 -95 ~ +103 -103", "a"},
        {"+250 -250 ~ +250 -250", "cD"},
        {"+10 -10 f ~ +10 -10", "aa"},
        {"+10 f -10 ~ +10 -10", "aa"},
        {"+10 ! -10 ~ +10 -10", "a"},
    };
    for (const auto& [steps, log] : cases) {
        Row row;
        Mouse mouse(row);
        std::uint32_t now = 0xFFFFFF80;  // the clock begins anew during a game
        std::istringstream words(steps);
        for (std::string word; words >> word;) {
            const auto at = [&] { return std::stoi(word.substr(1)); };
            Event event;
            if (word[0] == '+') event = mouse.press({at(), 99, now}, {500, 8, 8});
            if (word[0] == '-') event = mouse.release(at(), 99);
            if (word[0] == '~') now += 100 * std::uint32_t(word.size());
            if (word[0] == 'f') mouse.forget_press();
            if (word[0] == '!') mouse.cancel();
            if (event) event();
        }
        EXPECT_EQ(row.log, log) << steps;
    }
    Row row;
    EXPECT_FALSE(Mouse(row).element_at(10, 100));
}

}  // namespace
}  // namespace solvanta::test
