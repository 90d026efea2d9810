#include <algorithm>
#include <cmath>
#include <vector>

#include "tests/front_ends/stage.h"

namespace solvanta::test {
namespace {

using namespace std::string_literals;

/// The smallest there is: a grey pixel.
const std::string gif = "GIF89a\1\0\1\0\x80\0\0\x80\x80\x80\0\0\0,\0\0\0\0\1\0\1\0\0\2\2D\1\0;"s;

/// The bytes of a bitmap, which may have a colour of its own on the right, or be clear throughout:
/// like the cards with three bytes to the pixel, or with headers that name four channels.
std::string bitmap(std::uint32_t width, std::uint32_t height, Color color,
                   std::optional<Color> right = {}, bool is_clear = false) {
    const std::uint32_t line = is_clear ? 4 * width : (3 * width + 3) / 4 * 4;
    const std::uint32_t start = is_clear ? 122 : 54;
    std::vector<std::uint32_t> numbers{start + line * height, 0, start, start - 14, width, height};
    numbers.push_back(is_clear ? 0x200001 : 0x180001);
    if (is_clear)
        numbers.insert(numbers.end(),
                       {3, 0, 0, 0, 0, 0, 0xFF0000, 0xFF00, 0xFF, 0xFF000000, 0x73524742});
    numbers.resize(start / 4);
    std::string pixels;
    for (std::uint32_t x = 0; x < width; ++x) {
        const Color shown = x < width / 2 ? color : right.value_or(color);
        pixels += {char(shown.blue), char(shown.green), char(shown.red)};
        if (is_clear) pixels += '\0';
    }
    pixels.resize(line);
    std::string bytes =
        "BM" + std::string(reinterpret_cast<const char*>(numbers.data()), 4 * numbers.size());
    while (height-- > 0)
        bytes += pixels;
    return bytes;
}

/// Neighbours whose edges lie between pixels at most scales, named from the left; small letters
/// are clicks, capitals double clicks.
struct Neighbours : EntryForm {
    explicit Neighbours(const Picture& picture) {
        for (char name = 'a'; name < 'd'; ++name) {
            PictureElement& element = add_picture(0, 7, 31, 23);
            element.Left = 11 * twips_per_pixel + (name - 'a') * element.Width;
            element.Picture = picture;
            element.Click = [this, name] { log += name; };
            element.DblClick = [this, name] { log += char(name - 'a' + 'A'); };
        }
        place(frame, 20, 45, 260, 100);
        frame.Visible = frame.Enabled = true;
    }

    std::string log;
};

class Pictures : public FrontEnd {
  protected:
    Picture put(const std::string& name, const std::string& bytes) {
        return Picture::load(driver().put_file(name, bytes));
    }
};

TEST_F(Pictures, ThatCannotBeReadGiveAPlaceholderAndOneLine) {
    const std::string whole = bitmap(72, 96, blue);
    const std::pair<std::string, std::string> files[] = {
        {"gif_inside.bmp", gif},
        {"huge.bmp", bitmap(5000, 2, blue)},
        {"empty.bmp", ""},
        {"noise.jpg", std::string(5000, 'x')},
        {"cut.bmp", whole.substr(0, whole.size() - 1)},
        {"missing", ""},
    };
    for (const auto& [name, bytes] : files) {
        start_anew();
        TestForm form;
        PictureElement& element = form.add_picture(10, 10, 72, 96);
        form.add_picture(110, 10, 72, 96);
        const std::string path = driver().put_file(name, bytes) + (bytes.empty() ? ".bmp" : "");
        element.Picture = put("whole.bmp", whole);
        testing::internal::CaptureStderr();
        show(form);
        element.Picture = Picture::load(path);
        show(form);
        element.Picture = Picture::load(path);
        const Color inside = driver().pixel(form, {20, 90});
        EXPECT_TRUE(inside.red > 200 && inside.green > 200) << name;
        EXPECT_LT(driver().pixel(form, {10, 50}).green, 200) << name;
        expect_colors(form, {{83, 50, red}, {120, 50, red}});  // no picture at all shows nothing
        element.Picture = Picture();
        show(form);
        expect_colors(form, {{20, 90, red}});
        const std::string said = testing::internal::GetCapturedStderr();
        EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
        EXPECT_NE(said.find(name), std::string::npos) << said;
    }
}

TEST_F(Pictures, AreReadOnceForEachLoad) {
    const std::string path = driver().put_file("card.bmp", "not there yet");
    TestForm form;
    PictureElement& one = form.add_picture(0, 0, 20, 20);
    PictureElement& other = form.add_picture(40, 0, 20, 20);
    one.Picture = Picture::load(path);
    show(form);
    driver().put_file("card.bmp", bitmap(20, 20, blue));
    one.Picture = other.Picture = Picture::load(path);
    show(form);
    expect_colors(form, {{10, 10, blue}, {50, 10, blue}});
    driver().put_file("card.bmp", bitmap(20, 20, green));
    form.button.Click = [&] { other.Picture = Picture::load(path); };
    click(form, form.button);  // read anew, but fetched once in a browser
    const bool is_within_page = driver().window(form.Caption)->is_within_page;
    expect_colors(form, {{10, 10, blue}, {50, 10, is_within_page ? blue : green}});
}

TEST_F(Pictures, ComeFromTheFilePreparedForTheScaleThatShowsTheSame) {
    const std::string nearly_blue =  // 40 x 20
        "\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\0("
        "\0\0\0\x14\1\3\0\0\0\xC5\x88\xED\xF8\0\0\0\3PLTE\0\0\xFA\xFA"
        "\x12&\xD8\0\0\0\fIDATx\xDA\x63`\x18\x18\0\0\0x\0\1\x35\x33n\xA4\0\0\0\0IEND\xAE\x42`\x82"s;
    const std::string all_green =  // 60 x 30
        "\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\0<\0\0\0\x1E\1\3\0\0\0JV\xEF\f\0\0\0\3PLTE\0\xFF\0\x34^"
        "\xC0\xA8"
        "\0\0\0\rIDATx\xDA\x63`\x18\5\b\0\0\1\x0E\0\1\xA5h\x12\x44\0\0\0\0IEND\xAE\x42`\x82"s;
    const Picture both = put("both.bmp", bitmap(20, 10, blue));
    driver().put_file("both@2x.png", nearly_blue);
    driver().put_file("broken@2x.png", "nothing");
    for (const double scale : {1.0, 2.0, 3.0}) {
        TestForm form;
        form.add_picture(0, 0, 20, 10).Picture = both;
        form.add_picture(40, 0, 20, 10).Picture = put("plain.bmp", bitmap(20, 10, blue));
        form.add_picture(80, 0, 20, 10).Picture = put("broken.bmp", bitmap(20, 10, blue));
        show(form);
        // What a page shows is never the player's own.
        if (!driver().window(form.Caption)->is_within_page)
            driver().put_file("both@3x.png", all_green);
        const bool is_possible = driver().resize(form, scale);
        const Color seen = driver().ratio() * scale > 1 ? Color{0, 0, 0xFA} : blue;
        const Colors colors{
            {1, 8, seen}, {18, 8, seen}, {22, 8, red},  {41, 8, blue}, {58, 8, blue},
            {62, 8, red}, {81, 8, blue}, {98, 8, blue}, {102, 8, red},
        };
        if (is_possible) expect_colors(form, colors);
        driver().close(form.Caption);
        driver().settle();
    }
}

TEST_F(Pictures, AreShownAndPressedAtTheirPlacesAtEveryScale) {
    for (const double scale : {0.5, 1.0, 1.25, 1.5, 2.0, 3.0, 4.1}) {
        start_anew();
        Neighbours form(put("blue.bmp", bitmap(31, 23, blue)));
        show(form);
        if (!driver().resize(form, scale)) continue;
        const double pixels = scale * driver().ratio();
        // The middle of the pixel so far behind an edge, in pixels of the design.
        const auto beside = [&](double edge, double by) {
            return (std::round(edge * pixels) + by + 0.5) / pixels;
        };
        // A page may begin between pixels of the screen.
        const double near = driver().window(form.Caption)->is_within_page ? 1 : 0;
        for (std::size_t i = 0; i < form.pictures.size(); ++i) {
            const Rectangle area = place_of(form, form.pictures[i]);
            const Point first{beside(area.corner.x, near), beside(area.corner.y, near)};
            const Point last{beside(area.corner.x + area.width, -1 - near),
                             beside(area.corner.y + area.height, -1 - near)};
            expect_colors(form, {{first.x, first.y, blue},
                                 {last.x, last.y, blue},
                                 {first.x, beside(area.corner.y, -1 - near), red},
                                 {last.x, beside(area.corner.y + area.height, near), red}});
            for (const Point at : {first, last}) {
                driver().rest();
                form.log.clear();
                tap(form, at);
                tap(form, at);
                driver().settle();
                const std::string expected{char('a' + i), char('A' + i)};
                EXPECT_EQ(form.log, expected) << scale;
            }
        }
        click(form, form.box);
        press_key(Key{'M'});
        EXPECT_EQ(form.box.Text, "m") << scale;
    }
}

TEST_F(Pictures, LieAtTheirOwnSizeInStackingOrder) {
    TestForm form;
    const Picture card = put("card.bmp", bitmap(40, 60, blue, black) + "more");
    form.add_picture(290, 0, 1, 1).Picture = put("long.gif", gif + "more");
    form.add_picture(0, 0, 10, 16).Picture = card;
    form.add_picture(100, 0, 40, 16).Picture = card;
    form.pictures.back().CutToHeight = true;
    form.add_picture(0, 0, 20, 20).Picture = put("clear.bmp", bitmap(20, 20, green, {}, true));
    form.add_picture(200, 0, 40, 60).Picture = card;
    form.pictures.back().Visible = false;
    Label label;
    TestForm::place(label, 20, 30, 100, 10);
    label.BackColor = green;
    form.canvas.emplace_back(&label);
    testing::internal::CaptureStderr();
    show(form);
    const Colors colors{
        {5, 5, blue},   {18, 58, blue}, {21, 58, black}, {38, 58, black},
        {41, 50, red},  {10, 61, red},  {118, 14, blue}, {121, 14, black},
        {110, 17, red}, {220, 5, red},  {30, 35, green}, {290, 0, {0x80, 0x80, 0x80}},
    };
    expect_colors(form, colors);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");  // of bytes behind a picture's end
}

TEST_F(Pictures, FitTheirBoxWithoutDistortion) {
    TestForm form;
    PictureBox box;
    TestForm::place(box, 10, 10, 100, 100);
    form.controls.emplace_back(&box);
    box.Picture = put("wide.bmp", bitmap(400, 200, blue));
    show(form);
    expect_colors(form, {{60, 30, red}, {60, 40, blue}, {60, 80, blue}, {60, 90, red}});
}

}  // namespace
}  // namespace solvanta::test
