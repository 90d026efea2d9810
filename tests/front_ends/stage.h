#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "tests/front_ends/driver.h"

namespace solvanta::test {

inline constexpr Color red{255, 0, 0};
inline constexpr Color green{0, 255, 0};
inline constexpr Color blue{0, 0, 255};
inline constexpr Color black{0, 0, 0};

/// A small form: 300 x 200 pixels in red, with a button at its lower edge.
struct TestForm : Form {
    explicit TestForm(const std::string& caption = "Probe");

    PictureElement& add_picture(int left, int top, int width, int height);

    /// Puts an element somewhere; everything in pixels.
    static void place(Element& element, int left, int top, int width, int height);

    CommandButton button;
    std::deque<PictureElement> pictures;
};

/// A small form with a hidden frame that asks for a name.
struct EntryForm : TestForm {
    EntryForm();

    Frame frame;
    TextBox box;
};

/// A check of a Host with windows: the Host, and what the player does to them.
class FrontEnd : public testing::Test {
  protected:
    Host& host() { return driver_->host(); }
    Driver& driver() { return *driver_; }

    /// Ends this Host and takes a new one; for the next case of a table.
    void start_anew();

    /// Shows the form and waits until it is to be seen in front.
    void show(Form& form);

    /// Waits up to five seconds for `condition`; answers whether it came true.
    bool wait_until(const std::function<bool()>& condition);

    /// Clicks a control in its middle.
    void click(const Form& form, const Element& control);

    /// Presses and releases the left button at once.
    void tap(const Form& form, Point at);

    /// Presses and releases a key and lets that take effect.
    void press_key(Key key, Modifier modifier = Modifier::None);

    /// Has `act` called once a message box is open, at least `after_ms` later.
    void when_box_opens(std::function<void()> act, int after_ms = 30);

    /// Holds the pixels at some places, x and y, against their colours.
    void expect_colors(const Form& form,
                       const std::vector<std::tuple<double, double, Color>>& colors);

  private:
    std::unique_ptr<Driver> driver_ = make_driver();
};

}  // namespace solvanta::test
