#include <cstdlib>
#include <deque>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "front_ends/common/mouse.h"
#include "front_ends/common/picture_bytes.h"
#include "front_ends/common/resample.h"
#include "front_ends/common/scale.h"

namespace solvanta::test {
namespace {

using namespace std::string_literals;

/// Pictures 100 twips wide beside one another, from the left: `a` with both handlers, `b` without a
/// double click, `c` that goes at a click and bares `d` below it; `a` is overlapped on its right by
/// `z`, which takes no mouse. Clicks are noted in small letters, double clicks in capitals.
struct Row : Form {
    Row() {
        for (const auto& [name, left] :
             {std::pair('a', 0), {'b', 100}, {'d', 200}, {'c', 200}, {'z', 50}}) {
            PictureElement& element = elements.emplace_back();
            static_cast<Element&>(element) = {left, 0, 100, 100};
            element.Click = [this, name = name, &element] {
                log += name;
                element.Visible = name != 'c';
            };
            element.DblClick = [this, name = name] { log += char(name - 'a' + 'A'); };
            canvas.emplace_back(&element);
        }
        elements[4].Click = elements[1].DblClick = nullptr;
    }

    std::deque<PictureElement> elements;
    std::string log;
};

// +x presses at x, -x releases there, ~ stands for 100 ms, f for a press elsewhere, ! for what
// takes the mouse away.
TEST(Mouse, MakesClicksAndDoubleClicksOfPresses) {
    const std::pair<const char*, const char*> cases[] = {
        {"+10 -90 -10", "a"},
        {"+10 -10 ~~~~ +10 -10", "aA"},
        {"+10 -10 ~~~~~ +10 -10", "aa"},
        {"+19 -19 ~ +10 -10", "aa"},
        {"+150 -150 ~ +150 -150 ~ +150 -150", "bb"},
        {"+250 -250 ~ +250 -250", "cD"},
        {"+10 -10 f ~ +10 f -10", "aa"},
        {"+10 ! -10 ~ +10 -10", "a"},
    };
    for (const auto& [steps, log] : cases) {
        Row row;
        Mouse mouse(row);
        std::uint32_t now = 0xFFFFFF80;  // the clock begins anew during a game
        std::istringstream words(steps);
        for (std::string word; words >> word;) {
            const int at = std::atoi(word.c_str() + 1);
            Event event;
            if (word[0] == '+') event = mouse.press({at, 99, now}, {500, 8, 8});
            if (word[0] == '-') event = mouse.release(at, 99);
            if (word[0] == '~') now += 100 * std::uint32_t(word.size());
            if (word[0] == 'f') mouse.forget_press();
            if (word[0] == '!') mouse.cancel();
            if (event) event();
        }
        EXPECT_EQ(row.log, log) << steps;
    }
}

/// A bitmap's header for two lines of three pixels, whose own count of bytes is wrong.
std::string bitmap(char bits) {
    const std::string sides =
        "BM\x07\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\x03\0\0\0\xFE\xFF\xFF\xFF\x01\0"s;
    return sides + bits + std::string(25, '\0');
}

TEST(PictureBytes, AreWholeUpToTheEndOfThePicture) {
    const std::string gif_header = "GIF89a\1\0\1\0\x80\0\0\xFF\xFF\xFF\0\0\0"s;
    const std::pair<const char*, std::string> cases[] = {
        {"bmp", bitmap(32) + std::string(24, 'x')},
        {"bmp", bitmap(1) + std::string(8, 'x')},  // padded lines
        {"gif",                                    // extensions
         gif_header + "!\xF9\4\1\0\0\0\0!\xFE\2ab\1c\0,\0\0\0\0\1\0\1\0\0\2\2\x44\1\0"s},
        {"jpg",  // end mark in a thumbnail and in pixels
         "\xFF\xD8\xFF\xE1\1\2\xFF\xD9"s + std::string(254, 'z') +
             "\xFF\xFF\xDA\0\x03xab\xFF\0\xD9\xFF\xD0y\xFF\xD9"s},
        {"png", "\x89PNG\0\0\0\0IEND\xAE\x42\x60\x82"s},
    };
    for (const auto& [suffix, bytes] : cases) {
        EXPECT_TRUE(is_whole_picture(bytes + "\0\0 and more"s, suffix)) << bytes;
        for (std::size_t length = 0; length <= bytes.size(); ++length) {
            EXPECT_EQ(is_whole_picture(bytes.substr(0, length), suffix), length == bytes.size())
                << length << " bytes of " << bytes;
        }
    }
    EXPECT_FALSE(is_whole_picture(gif_header + ";"s, "gif"));
    EXPECT_TRUE(is_whole_picture("", "tif"));
}

TEST(Resample, MakesTheMeanOfLight) {
    using Pixels = std::vector<std::uint32_t>;
    constexpr std::uint32_t white = 0xFFFFFFFF;
    constexpr std::uint32_t ink = 0xFF000000;
    const std::tuple<Pixels, PixelSize, PixelSize, Pixels> cases[] = {
        {{ink, white}, {2, 1}, {1, 1}, {0xFFBCBCBC}},
        {{white, ink, ink}, {3, 1}, {2, 1}, {0xFFD5D5D5, ink}},
        {{0, white}, {2, 1}, {1, 1}, {0x80808080}},
        {{0, 0x80004080}, {2, 1}, {2, 1}, {0, 0x80004080}},
        {{0xFF123456, ink}, {2, 1}, {4, 1}, {0xFF123456, 0xFF123456, ink, ink}},
    };
    for (auto [from, size, to, expected] : cases) {
        Pixels pixels(expected.size());
        resample({from.data(), size.width, size.height}, {pixels.data(), to.width, to.height});
        EXPECT_EQ(pixels, expected) << from.size();
    }
}

TEST(Scale, FitsALayoutIntoTheMiddleOfAWindow) {
    const Scale scale = Scale::fitted(300, 150, {70, 31});
    EXPECT_EQ(scale.pixels(), 3.1);
    EXPECT_EQ(scale.place_of({0, 0, 300, 150}), (PixelRect{4, 0, 66, 31}));
    EXPECT_EQ(scale.twips_across(4), 2);
    EXPECT_EQ(scale.inside({10, 20, 0, 0}).place_of({10, 5, 10, 15}), (PixelRect{2, 1, 4, 4}));
    for (const auto& [part, larger, smaller] :
         {std::tuple{1.0, 1.25, 0.75}, {0.5, 0.75, 0.5}, {1.01, 1.25, 0.75}, {8.0, 8.0, 6.0}})
        EXPECT_TRUE(next_part(part, true) == larger && next_part(part, false) == smaller) << part;
}

}  // namespace
}  // namespace solvanta::test
