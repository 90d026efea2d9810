#include "front_ends/qt/pictures.h"

#include <QFile>
#include <QTemporaryDir>

#include "stage.h"

namespace solvanta::qt {
namespace {

/// A directory of pictures of one colour.
class PictureFiles {
  public:
    std::string path(const QString& name) const { return directory_.filePath(name).toStdString(); }

    void write(const QString& name, QSize size, const QColor& color,
               const char* format = nullptr) const {
        QImage image(size, color.alpha() < 255 ? QImage::Format_ARGB32 : QImage::Format_RGB888);
        image.fill(color);
        ASSERT_TRUE(image.save(directory_.filePath(name), format));
    }

    /// A picture whose right half is black.
    void write_halves(const QString& name, QSize size, const QColor& left) const {
        QImage image(size, QImage::Format_RGB888);
        image.fill(Qt::black);
        QPainter(&image).fillRect(0, 0, size.width() / 2, size.height(), left);
        ASSERT_TRUE(image.save(directory_.filePath(name)));
    }

    void write_bytes(const QString& name, const QByteArray& bytes) const {
        QFile file(directory_.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QByteArray bytes(const QString& name) const {
        QFile file(directory_.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

  private:
    QTemporaryDir directory_;
};

QColor color_at(QWidget& window, int x, int y) {
    const QImage image = window.grab().toImage();
    return image.pixelColor(QPoint(x, y) * image.devicePixelRatio());
}

int lines_of(const std::string& text) {
    return static_cast<int>(std::count(text.begin(), text.end(), '\n'));
}

TEST(Pictures, ThatCannotBeReadGiveAPlaceholderAndOneLine) {
    const PictureFiles files;
    files.write("whole.bmp", {72, 96}, Qt::blue);
    const QByteArray whole = files.bytes("whole.bmp");
    files.write("png_inside.bmp", {72, 96}, Qt::blue, "png");
    files.write("huge.bmp", {5000, 2}, Qt::blue);
    files.write_bytes("empty.bmp", {});
    files.write_bytes("noise.bmp", QByteArray(5000, 'x'));
    files.write_bytes("cut.bmp", whole.left(whole.size() / 2));
    files.write_bytes("header_only.bmp", whole.left(54));
    files.write_bytes("vast.bmp",
                      QByteArray(whole).replace(18, 8, "\xff\xff\xff\x7f\xff\xff\xff\x7f"));
    files.write_bytes("noise.jpg", QByteArray(5000, 'x'));
    files.write_bytes("noise.gif", "GIF89a" + QByteArray(50, '\xff'));
    files.write("whole.jpg", {72, 96}, Qt::blue);
    const QByteArray whole_jpeg = files.bytes("whole.jpg");
    files.write_bytes("cut.jpg", whole_jpeg.left(whole_jpeg.size() * 9 / 10));
    const QByteArray whole_gif = QByteArray::fromHex(
        "47494638396101000100800000ffffff0000002c00000000010001000002024401003b");
    files.write_bytes("cut.gif", whole_gif.chopped(1));
    files.write_bytes("no_suffix", whole);
    for (const char* name : {"missing.bmp", "png_inside.bmp", "huge.bmp", "empty.bmp", "noise.bmp",
                             "cut.bmp", "header_only.bmp", "vast.bmp", "noise.jpg", "cut.jpg",
                             "noise.gif", "cut.gif", "no_suffix", ""}) {
        QtHost host;
        TestForm form;
        PictureElement& element = form.add_picture(10, 10, 72, 96);
        element.Picture = Picture::load(files.path(name));
        testing::internal::CaptureStderr();
        QWidget& window = shown(host, form);
        element.Picture = Picture::load(files.path(name));
        EXPECT_GT(color_at(window, 20, 90).lightness(), 200) << name;
        EXPECT_LT(color_at(window, 10, 50).lightness(), 100) << name;
        EXPECT_EQ(color_at(window, 83, 50), QColor(Qt::red)) << name;
        const std::string said = testing::internal::GetCapturedStderr();
        EXPECT_EQ(lines_of(said), 1) << said;
        EXPECT_NE(said.find(name), std::string::npos) << said;
    }
}

TEST(Pictures, EmptyShowNothing) {
    QtHost host;
    TestForm form;
    form.add_picture(0, 0, 100, 100);
    testing::internal::CaptureStderr();
    EXPECT_EQ(color_at(shown(host, form), 50, 50), QColor(Qt::red));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(Pictures, AreReadOnceForEachLoad) {
    const PictureFiles files;
    files.write("card.bmp", {20, 20}, Qt::blue);
    QtHost host;
    TestForm form;
    PictureElement& element = form.add_picture(0, 0, 20, 20);
    PictureElement& copy = form.add_picture(40, 0, 20, 20);
    element.Picture = Picture::load(files.path("card.bmp"));
    QWidget& window = shown(host, form);
    EXPECT_EQ(color_at(window, 10, 10), QColor(Qt::blue));
    files.write("card.bmp", {20, 20}, Qt::green);
    copy.Picture = element.Picture;
    EXPECT_EQ(color_at(window, 10, 10), QColor(Qt::blue));
    EXPECT_EQ(color_at(window, 50, 10), QColor(Qt::blue));
    element.Picture = Picture::load(files.path("card.bmp"));
    EXPECT_EQ(color_at(window, 10, 10), QColor(Qt::green));
    EXPECT_EQ(color_at(window, 50, 10), QColor(Qt::blue));
}

// Seen by the file's new content when a picture let go of by all elements comes back.
TEST(Pictures, NoLongerHeldAreDropped) {
    const PictureFiles files;
    files.write("card.bmp", {20, 20}, Qt::blue);
    QtHost host;
    TestForm form;
    CommandButton button;
    TestForm::place(button, 0, 100, 80, 20);
    form.controls = {&button};
    PictureElement& kept = form.add_picture(0, 0, 20, 20);
    PictureElement& dropped = form.add_picture(40, 0, 20, 20);
    for (PictureElement* element : {&kept, &dropped}) {
        element->Picture = Picture::load(files.path("card.bmp"));
    }
    const Picture back_later = dropped.Picture;
    QWidget& window = shown(host, form);
    EXPECT_EQ(color_at(window, 50, 10), QColor(Qt::blue));
    files.write("card.bmp", {20, 20}, Qt::green);
    button.Click = [&] { dropped.Picture = {}; };
    click(window.findChild<QPushButton*>());
    button.Click = [&] { dropped.Picture = back_later; };
    click(window.findChild<QPushButton*>());
    EXPECT_EQ(color_at(window, 10, 10), QColor(Qt::blue));
    EXPECT_EQ(color_at(window, 50, 10), QColor(Qt::green));
}

TEST(Pictures, ComeFromTheFineFileWhereTheScreenIsFine) {
    const PictureFiles files;
    files.write("both.bmp", {20, 10}, Qt::blue);
    files.write("both@2x.bmp", {40, 20}, Qt::green);
    files.write("plain.bmp", {20, 10}, Qt::blue);
    files.write("broken.bmp", {20, 10}, Qt::blue);
    files.write_bytes("broken@2x.bmp", "nothing");
    files.write("fine_only@2x.bmp", {40, 20}, Qt::green);
    const struct {
        const char* name;
        double ratio;
        QColor color;
    } cases[] = {
        {"both.bmp", 1, Qt::blue},       {"both.bmp", 1.5, Qt::blue}, {"both.bmp", 2, Qt::green},
        {"both.bmp", 3, Qt::green},      {"plain.bmp", 2, Qt::blue},  {"broken.bmp", 2, Qt::blue},
        {"fine_only.bmp", 2, Qt::green},
    };
    for (const auto& test : cases) {
        const QImage image =
            read_picture(QString::fromStdString(files.path(test.name)), test.ratio);
        ASSERT_FALSE(image.isNull()) << test.name;
        EXPECT_EQ(image.pixelColor(0, 0), test.color) << test.name << ' ' << test.ratio;
        EXPECT_EQ(image.deviceIndependentSize(), QSizeF(20, 10)) << test.name;
    }
}

TEST(Pictures, LieAtTheirOwnSizeInStackingOrder) {
    const PictureFiles files;
    files.write_halves("card.bmp", {40, 60}, Qt::blue);
    files.write_halves("card@2x.bmp", {80, 120}, Qt::green);
    files.write("clear.png", {20, 20}, Qt::transparent);
    QtHost host;
    TestForm form;
    form.add_picture(0, 0, 10, 16).Picture = Picture::load(files.path("card.bmp"));
    PictureElement& strip = form.add_picture(100, 0, 40, 16);
    strip.Picture = Picture::load(files.path("card.bmp"));
    strip.CutToHeight = true;
    form.add_picture(0, 0, 20, 20).Picture = Picture::load(files.path("clear.png"));
    PictureElement& hidden = form.add_picture(200, 0, 40, 60);
    hidden.Picture = Picture::load(files.path("card.bmp"));
    hidden.Visible = false;
    Label label;
    TestForm::place(label, 20, 30, 100, 10);
    label.BackColor = Color{255, 255, 0};
    form.canvas.emplace_back(&label);
    QWidget& window = shown(host, form);
    const QColor card = window.devicePixelRatioF() >= 2 ? Qt::green : Qt::blue;
    const QColor table = Qt::red;
    const struct {
        int x;
        int y;
        QColor color;
    } cases[] = {
        {5, 5, card},     {19, 59, card},  {20, 59, Qt::black},  {39, 59, Qt::black},
        {40, 50, table},  {10, 60, table}, {119, 15, card},      {120, 15, Qt::black},
        {110, 16, table}, {220, 5, table}, {30, 35, Qt::yellow},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(color_at(window, test.x, test.y), test.color) << test.x << ' ' << test.y;
    }
}

TEST(Pictures, FitTheirBoxWithoutDistortion) {
    const PictureFiles files;
    files.write("wide.bmp", {400, 200}, Qt::blue);
    QtHost host;
    TestForm form;
    PictureBox box;
    TestForm::place(box, 10, 10, 100, 100);
    form.controls = {&box};
    QWidget& window = shown(host, form);
    EXPECT_EQ(color_at(window, 60, 60), QColor(Qt::red));
    box.Picture = Picture::load(files.path("wide.bmp"));
    const struct {
        int y;
        QColor color;
    } cases[] = {{30, Qt::red}, {40, Qt::blue}, {80, Qt::blue}, {90, Qt::red}};
    for (const auto& test : cases)
        EXPECT_EQ(color_at(window, 60, test.y), test.color) << test.y;
}

}  // namespace
}  // namespace solvanta::qt
