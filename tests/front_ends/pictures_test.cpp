#include <algorithm>
#include <vector>

#include "tests/front_ends/stage.h"

namespace solvanta::test {
namespace {

using namespace std::string_literals;

/// The smallest of their kinds: a grey pixel each.
const std::string gif = "GIF89a\1\0\1\0\x80\0\0\x80\x80\x80\0\0\0,\0\0\0\0\1\0\1\0\0\2\2D\1\0;"s;

/// The bytes of a bitmap, 32 bits to the pixel, of an opacity up to 255; the right half may have a
/// colour of its own.
std::string bitmap(int width, int height, Color color, std::optional<Color> right = {},
                   std::uint32_t opacity = 0xFF) {
    const auto w = static_cast<std::uint32_t>(width);
    const auto h = static_cast<std::uint32_t>(height);
    // Headers that name four channels.
    std::vector<std::uint32_t> numbers{
        122 + 4 * w * h, 0,      122,  108,        w,         h, 0x200001, 3, 4 * w * h, 0, 0, 0, 0,
        0xFF0000,        0xFF00, 0xFF, 0xFF000000, 0x73524742};
    numbers.resize(30);
    for (int i = 0; i < width * height; ++i) {
        const Color shown = i % width < width / 2 ? color : right.value_or(color);
        numbers.push_back(shown.blue | std::uint32_t{shown.green} << 8U |
                          std::uint32_t{shown.red} << 16U | opacity << 24U);
    }
    std::string bytes = "BM";
    for (const std::uint32_t number : numbers) {
        for (const unsigned shift : {0U, 8U, 16U, 24U})
            bytes += static_cast<char>(static_cast<unsigned char>(number >> shift));
    }
    return bytes;
}

class Pictures : public FrontEnd {
  protected:
    Picture put(const std::string& name, const std::string& bytes) {
        return Picture::load(driver().put_file(name, bytes));
    }
};

bool is_light(Color color) {
    return color.red > 200 && color.green > 200;
}

TEST_F(Pictures, ThatCannotBeReadGiveAPlaceholderAndOneLine) {
    const std::string whole = bitmap(72, 96, blue);
    const std::string absurd = "\xff\xff\xff\x7f";
    const std::pair<const char*, std::string> files[] = {
        {"gif_inside.bmp", gif},
        {"huge.bmp", bitmap(5000, 2, blue)},
        {"empty.bmp", ""},
        {"noise.bmp", std::string(5000, 'x')},
        {"cut.bmp", whole.substr(0, whole.size() - 1)},
        {"header_only.bmp", whole.substr(0, 122)},
        {"vast.bmp", std::string(whole).replace(18, 4, absurd).replace(22, 4, absurd)},
        {"noise.jpg", std::string(5000, 'x')},
        {"cut.gif", gif.substr(0, gif.size() - 2)},
        {"no_suffix", whole},
        {"missing", ""},
    };
    for (const auto& [name, bytes] : files) {
        start_anew();
        TestForm form;
        PictureElement& element = form.add_picture(10, 10, 72, 96);
        form.add_picture(110, 10, 72, 96);
        std::string path = driver().put_file(name, bytes);
        if (name == "missing"s) path += ".bmp";
        element.Picture = Picture::load(path);
        testing::internal::CaptureStderr();
        show(form);
        element.Picture = Picture::load(path);
        EXPECT_TRUE(is_light(driver().pixel(form, {20, 90}))) << name;
        EXPECT_FALSE(is_light(driver().pixel(form, {10, 50}))) << name;
        expect_color(form, 83, 50, red);
        expect_color(form, 120, 50, red);  // no picture at all shows nothing
        element.Picture = Picture();
        show(form);
        expect_color(form, 20, 90, red);
        const std::string said = testing::internal::GetCapturedStderr();
        EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
        EXPECT_NE(said.find(name), std::string::npos) << said;
    }
}

TEST_F(Pictures, AreReadOnceForEachLoadAndDroppedWithTheLastElement) {
    const std::string path = driver().put_file("card.bmp", bitmap(20, 20, blue));
    TestForm form;
    PictureElement& kept = form.add_picture(0, 0, 20, 20);
    PictureElement& other = form.add_picture(40, 0, 20, 20);
    const Picture first = Picture::load(path);
    const Picture second = Picture::load(path);
    const auto show_in_other = [&](const Picture& picture) {
        form.button.Click = [&] { other.Picture = picture; };
        click(form, form.button);
    };
    kept.Picture = first;
    other.Picture = second;
    show(form);
    expect_color(form, 10, 10, blue);
    expect_color(form, 50, 10, blue);
    driver().put_file("card.bmp", bitmap(20, 20, green));
    show_in_other(first);
    expect_color(form, 50, 10, blue);
    show_in_other(second);  // let go of meanwhile, so read anew, but fetched once in a browser
    expect_color(form, 10, 10, blue);
    expect_color(form, 50, 10, driver().window(form.Caption)->is_within_page ? blue : green);
}

TEST_F(Pictures, ComeFromTheFineFileWhereTheScreenIsFine) {
    TestForm form;
    const bool fine = driver().ratio() > 1;
    driver().put_file("both@2x.bmp", bitmap(40, 20, green));
    driver().put_file("broken@2x.bmp", "nothing");
    form.add_picture(0, 0, 20, 10).Picture = put("both.bmp", bitmap(20, 10, blue));
    form.add_picture(40, 0, 20, 10).Picture = put("plain.bmp", bitmap(20, 10, blue));
    form.add_picture(80, 0, 20, 10).Picture = put("broken.bmp", bitmap(20, 10, blue));
    show(form);
    for (const double x : {1.0, 18.0}) {
        expect_color(form, x, 8, fine ? green : blue);
        expect_color(form, x + 40, 8, blue);
        expect_color(form, x + 80, 8, blue);
    }
    for (const double x : {22.0, 62.0, 102.0})
        expect_color(form, x, 8, red);
}

TEST_F(Pictures, LieAtTheirOwnSizeInStackingOrder) {
    TestForm form;
    const Picture card = put("card.bmp", bitmap(40, 60, blue, black) + "more");
    form.add_picture(290, 0, 1, 1).Picture = put("long.gif", gif + "more");
    form.add_picture(0, 0, 10, 16).Picture = card;
    PictureElement& strip = form.add_picture(100, 0, 40, 16);
    strip.Picture = card;
    strip.CutToHeight = true;
    form.add_picture(0, 0, 20, 20).Picture = put("clear.bmp", bitmap(20, 20, green, {}, 0));
    PictureElement& hidden = form.add_picture(200, 0, 40, 60);
    hidden.Picture = card;
    hidden.Visible = false;
    Label label;
    TestForm::place(label, 20, 30, 100, 10);
    label.BackColor = green;
    form.canvas.emplace_back(&label);
    testing::internal::CaptureStderr();
    show(form);
    const std::tuple<int, int, Color> cases[] = {
        {5, 5, blue},   {18, 58, blue}, {21, 58, black}, {38, 58, black},
        {41, 50, red},  {10, 61, red},  {118, 14, blue}, {121, 14, black},
        {110, 17, red}, {220, 5, red},  {30, 35, green}, {290, 0, {0x80, 0x80, 0x80}},
    };
    for (const auto& [x, y, color] : cases)
        expect_color(form, x, y, color);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");  // of bytes behind a picture's end
}

TEST_F(Pictures, FitTheirBoxWithoutDistortion) {
    TestForm form;
    PictureBox box;
    TestForm::place(box, 10, 10, 100, 100);
    form.controls.emplace_back(&box);
    const Picture wide = put("wide.bmp", bitmap(400, 200, blue));
    form.button.Click = [&] { box.Picture = wide; };
    show(form);
    expect_color(form, 60, 60, red);
    click(form, form.button);
    const std::pair<int, Color> cases[] = {{30, red}, {40, blue}, {80, blue}, {90, red}};
    for (const auto& [y, color] : cases)
        expect_color(form, 60, y, color);
}

}  // namespace
}  // namespace solvanta::test
