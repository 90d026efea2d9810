#include "tests/front_ends/stage.h"

namespace solvanta::test {
namespace {

constexpr double pixels(Twips twips) {
    return static_cast<double>(twips) / twips_per_pixel;
}

}  // namespace

Rectangle place_of(const Form& form, const Element& element) {
    Rectangle place{
        {pixels(element.Left), pixels(element.Top)}, pixels(element.Width), pixels(element.Height)};
    for (const Control& control : form.controls) {
        const auto* const* frame = std::get_if<Frame*>(&control);
        if (!frame) continue;
        for (const Control& held : (*frame)->controls) {
            if (std::visit([](const Element* inside) { return inside; }, held) != &element)
                continue;
            place.corner.x += pixels((*frame)->Left);
            place.corner.y += pixels((*frame)->Top);
        }
    }
    return place;
}

TestForm::TestForm(const std::string& caption) {
    Caption = caption;
    ClientWidth = 300 * twips_per_pixel;
    ClientHeight = 200 * twips_per_pixel;
    BackColor = red;
    place(button, 0, 180, 80, 17);
    controls = {&button};
}

PictureElement& TestForm::add_picture(int left, int top, int width, int height) {
    PictureElement& element = pictures.emplace_back();
    place(element, left, top, width, height);
    canvas.emplace_back(&element);
    return element;
}

void TestForm::place(Element& element, int left, int top, int width, int height) {
    constexpr Twips unit = twips_per_pixel;
    element = {left * unit, top * unit, width * unit, height * unit};
}

EntryForm::EntryForm() {
    place(frame, 20, 20, 260, 100);
    frame.Caption = "Eintrag";
    frame.Visible = frame.Enabled = false;
    place(box, 20, 30, 200, 28);
    frame.controls = {&box};
    controls = {&button, &frame};
}

void FrontEnd::start_anew() {
    driver_.reset();
    driver_ = make_driver();
}

void FrontEnd::show(Form& form) {
    host().show(form);
    ASSERT_TRUE(wait_until([&] {
        const auto look = driver().window(form.Caption);
        return look && look->active;
    })) << form.Caption;
}

bool FrontEnd::wait_until(const std::function<bool()>& condition) {
    driver().settle();
    for (int waited = 0; waited < 5000 && !condition(); waited += 20)
        driver().wait(20);
    return condition();
}

void FrontEnd::click(const Form& form, const Element& control) {
    driver().rest();
    tap(form, place_of(form, control).centre());
    driver().settle();
}

void FrontEnd::tap(const Form& form, Point at) {
    driver().mouse(form, at, MouseButton::Left, true);
    driver().mouse(form, at, MouseButton::Left, false);
}

void FrontEnd::press_key(Key key, Modifier modifier) {
    driver().key(key, modifier);
    driver().settle();
}

void FrontEnd::when_box_opens(std::function<void()> act, int after_ms) {
    driver().later(after_ms, [this, act = std::move(act)] {
        if (!driver().box()) return when_box_opens(act);
        act();
    });
}

void FrontEnd::expect_colors(const Form& form,
                             const std::vector<std::tuple<double, double, Color>>& colors) {
    for (const auto& [x, y, color] : colors) {
        const Color seen = driver().pixel(form, {x, y});
        EXPECT_EQ(seen, color) << "at " << x << ", " << y << ": " << int{seen.red} << ' '
                               << int{seen.green} << ' ' << int{seen.blue};
    }
}

}  // namespace solvanta::test
