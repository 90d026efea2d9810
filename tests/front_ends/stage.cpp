#include "tests/front_ends/stage.h"

#include <array>
#include <stdexcept>

namespace solvanta::test {
namespace {

constexpr double pixels(Twips twips) {
    return static_cast<double>(twips) / twips_per_pixel;
}

void append_number(std::string& bytes, std::uint32_t number, int count = 4) {
    for (int i = 0; i < count; ++i)
        bytes += static_cast<char>(static_cast<unsigned char>(number >> (8U * unsigned(i))));
}

/// The headers of a bitmap of 32 bits to the pixel whose fourth byte is the opacity.
std::string bitmap_headers(int width, int height) {
    constexpr std::uint32_t header_size = 108;
    constexpr std::uint32_t bit_fields = 3;
    const auto pixel_bytes = static_cast<std::uint32_t>(width * height * 4);
    std::string bytes = "BM";
    for (const std::uint32_t number :
         {14 + header_size + pixel_bytes, 0U, 14 + header_size, header_size, std::uint32_t(width),
          std::uint32_t(height), 1U | 32U << 16U, bit_fields, pixel_bytes, 0U, 0U, 0U, 0U,
          0x00FF0000U, 0x0000FF00U, 0x000000FFU, 0xFF000000U, 0x73524742U}) {
        append_number(bytes, number);
    }
    return bytes + std::string(48, '\0');
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
    element.Left = left * twips_per_pixel;
    element.Top = top * twips_per_pixel;
    element.Width = width * twips_per_pixel;
    element.Height = height * twips_per_pixel;
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
    driver().press(form, at, MouseButton::Left);
    driver().release(form, at, MouseButton::Left);
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

void FrontEnd::expect_color(const Form& form, double x, double y, Color color) {
    const Color seen = driver().pixel(form, {x, y});
    EXPECT_EQ(seen, color) << "at " << x << ", " << y << ": " << int{seen.red} << ' '
                           << int{seen.green} << ' ' << int{seen.blue};
}

std::string bitmap(int width, int height, Color left, Color right, std::uint32_t opacity) {
    std::string bytes = bitmap_headers(width, height);
    for (int i = 0; i < width * height; ++i) {
        const Color color = i % width < width / 2 ? left : right;
        append_number(bytes, color.blue | std::uint32_t{color.green} << 8U |
                                 std::uint32_t{color.red} << 16U | opacity << 24U);
    }
    return bytes;
}

std::string bitmap(int width, int height, Color color) {
    return bitmap(width, height, color, color);
}

}  // namespace solvanta::test
