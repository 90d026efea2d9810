#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "tests/front_ends/driver.h"

namespace solvanta::test {

inline constexpr Color red{255, 0, 0};
inline constexpr Color green{0, 255, 0};
inline constexpr Color blue{0, 0, 255};
inline constexpr Color black{0, 0, 0};

/// What is to be seen at x and y, in pixels.
using Colors = std::vector<std::tuple<double, double, Color>>;

/// A small form: 300 x 200 pixels in red, with a button at its lower edge.
struct TestForm : Form {
    explicit TestForm(const std::string& caption = "Probe") {
        Caption = caption;
        ClientWidth = 300 * twips_per_pixel;
        ClientHeight = 200 * twips_per_pixel;
        BackColor = red;
        place(button, 0, 180, 80, 17);
        controls = {&button};
    }

    PictureElement& add_picture(int left, int top, int width, int height) {
        PictureElement& element = pictures.emplace_back();
        place(element, left, top, width, height);
        canvas.emplace_back(&element);
        return element;
    }

    /// Puts an element somewhere; everything in pixels.
    static void place(Element& element, int left, int top, int width, int height) {
        constexpr Twips unit = twips_per_pixel;
        element = {left * unit, top * unit, width * unit, height * unit};
    }

    CommandButton button;
    std::deque<PictureElement> pictures;
};

/// A small form with a hidden frame that asks for a name.
struct EntryForm : TestForm {
    EntryForm() {
        place(frame, 20, 20, 260, 100);
        frame.Caption = "Eintrag";
        frame.Visible = frame.Enabled = false;
        place(box, 20, 30, 200, 28);
        frame.controls = {&box};
        controls = {&button, &frame};
    }

    Frame frame;
    TextBox box;
};

/// A check of a Host with windows: the Host, and what the player does to them.
class FrontEnd : public testing::Test {
  protected:
    Host& host() { return driver_->host(); }
    Driver& driver() { return *driver_; }

    /// Takes a new Host, for the next case of a table.
    void start_anew() {
        driver_.reset();
        driver_ = make_driver();
    }

    /// Waits until the form is to be seen in front.
    void show(Form& form) {
        host().show(form);
        ASSERT_TRUE(wait_until([&] {
            const auto look = driver().window(form.Caption);
            return look && look->active;
        })) << form.Caption;
    }

    /// Waits up to five seconds for `condition`; answers whether it came true.
    bool wait_until(const std::function<bool()>& condition) {
        driver().settle();
        for (int waited = 0; waited < 5000 && !condition(); waited += 20)
            driver().wait(20);
        return condition();
    }

    void click(const Form& form, const Element& control) {
        driver().rest();
        tap(form, place_of(form, control).centre());
        driver().settle();
    }

    void tap(const Form& form, Point at) {
        driver().mouse(form, at, MouseButton::Left, true);
        driver().mouse(form, at, MouseButton::Left, false);
    }

    void press_key(Key key, Modifier modifier = Modifier::None) {
        driver().key(key, modifier);
        driver().settle();
    }

    /// Has `act` called once `condition` holds, be it inside a message box.
    void when(const std::function<bool()>& condition, const std::function<void()>& act) {
        driver().later(10, [=, this] { condition() ? act() : when(condition, act); });
    }

    void when_box_opens(const std::function<void()>& act) {
        when([this] { return driver().box().has_value(); }, act);
    }

    void expect_colors(const Form& form, const Colors& colors) {
        for (const auto& [x, y, color] : colors) {
            const Color seen = driver().pixel(form, {x, y});
            EXPECT_EQ(seen, color) << "at " << x << ", " << y << ": " << int{seen.red} << ' '
                                   << int{seen.green} << ' ' << int{seen.blue};
        }
    }

  private:
    std::unique_ptr<Driver> driver_ = make_driver();
};

}  // namespace solvanta::test
