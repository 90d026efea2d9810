#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <set>

#include <QApplication>
#include <QEventLoop>
#include <QFile>
#include <QMouseEvent>
#include <QTimer>
#include <QWidget>
#include <QWindow>
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include "app/form_main.h"
#include "front_ends/common/walk.h"
#include "front_ends/qt/host.h"
#include "front_ends/qt/look.h"
#include "front_ends/qt/scale.h"
#include "view/table_display.h"

namespace solvanta::benchmarks {
namespace {

/// The card table in a window of the platform without a screen, showing `pictures` files.
class Table {
  public:
    explicit Table(int pictures) {
        deal(form_.state, random_from_seed(1));
        form_.Form_Load();
        deal_out(pictures);
        RefreshTable(form_.state, form_, host_.program_directory());
        host_.show(form_);
        QApplication::processEvents();
        window_ = QApplication::topLevelWindows().front();
    }

    /// A click on the waste, which is empty, ends in a refresh of everything.
    void click() { click_at(form_.Source); }

    /// Clicks on one column select it or give it up: a picture comes or goes.
    void select() {
        const auto places = places_of(form_);
        click_at(**std::find_if(places.begin(), places.end(),
                                [](const PictureElement* place) { return place->Key == '5'; }));
    }

    /// Makes the window so large, in pixels, and waits until its pictures are as fine as can be.
    void enlarge(const QSize& size) {
        resize(size);
        QEventLoop rest;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &rest, &QEventLoop::quit);
        timer.start(500);
        rest.exec();
    }

    /// One picture of a window being dragged larger.
    void resize(const QSize& size) {
        window_->resize(size);
        QApplication::processEvents();
    }

    /// The files on show, as often as each is shown.
    std::vector<std::string> files() const {
        std::vector<std::string> paths;
        for (const Painted& item : form_.canvas) {
            auto* const* element = std::get_if<PictureElement*>(&item);
            const bool fresh = element != nullptr && (*element)->Visible &&
                               !(*element)->Picture.path().ends_with(std::string(back_strip_file_));
            if (fresh && (*element)->Picture.load_number() != 0)
                paths.push_back((*element)->Picture.path());
        }
        return paths;
    }

  private:
    void click_at(const Element& element) {
        const Scale scale = Scale::fitted(form_.ClientWidth, form_.ClientHeight,
                                          {window_->width(), window_->height()});
        const QPointF at = qt::to_qt(scale.place_of(element)).center();
        send(QEvent::MouseButtonPress, at, Qt::LeftButton);
        send(QEvent::MouseButtonRelease, at, Qt::NoButton);
        QApplication::processEvents();
    }

    static constexpr std::string_view back_strip_file_ = "Back_verdeckt.bmp";

    /// Piles face-up cards onto the columns until the table shows so many pictures.
    void deal_out(int pictures) {
        GameState& state = form_.state;
        constexpr int at_least = 20;  // ten columns, eight foundations, waste and stock
        for (int more = pictures - at_least, c = 1; more > 0; --more, c = c % columns + 1) {
            const int row = ++state.FaceUpCount(c);
            state.FaceUp(c)(row) = (7 * row + c) % cards_per_deck + 1;
        }
    }

    void send(QEvent::Type type, const QPointF& at, Qt::MouseButtons held) {
        QMouseEvent event(type, at, at, at, Qt::LeftButton, held, Qt::NoModifier);
        QApplication::sendEvent(window_, &event);
    }

    qt::QtHost host_{QCoreApplication::applicationDirPath().toStdString()};
    Form_Main form_{host_};
    QWindow* window_ = nullptr;
};

/// Reads and decodes a bitmap of 24 bits as simply as can be: checks nothing.
void read_bare(const std::string& path, std::vector<std::uint32_t>& pixels) {
    static std::array<unsigned char, 1 << 16> bytes;
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    [[maybe_unused]] const auto size = read(file, bytes.data(), bytes.size());
    close(file);
    std::array<std::int32_t, 4> header{};  // start of the pixels, -, width, height
    std::memcpy(header.data(), bytes.data() + 10, sizeof header);
    const auto width = static_cast<std::size_t>(header[2]);
    const auto height = static_cast<std::size_t>(header[3]);
    pixels.resize(width * height);
    for (std::size_t y = 0; y < height; ++y) {
        const unsigned char* from =
            bytes.data() + header[0] + (height - 1 - y) * ((width * 3 + 3) & ~std::size_t{3});
        for (std::size_t x = 0; x < width; ++x, from += 3)
            pixels[y * width + x] =
                0xFF000000U | unsigned{from[2]} << 16U | unsigned{from[1]} << 8U | from[0];
    }
}

void BareRead(benchmark::State& measured) {
    const std::vector<std::string> files = Table(static_cast<int>(measured.range(0))).files();
    std::vector<std::uint32_t> pixels;
    for ([[maybe_unused]] auto round : measured) {
        for (const std::string& file : files)
            read_bare(file, pixels);
        benchmark::DoNotOptimize(pixels.data());
    }
    measured.counters["pictures"] = static_cast<double>(files.size());
}

void Refresh(benchmark::State& measured) {
    Table table(static_cast<int>(measured.range(0)));
    for ([[maybe_unused]] auto round : measured)
        table.click();
    measured.counters["pictures"] = static_cast<double>(table.files().size());
}

void Select(benchmark::State& measured) {
    Table table(static_cast<int>(measured.range(0)));
    table.enlarge({static_cast<int>(measured.range(1)), static_cast<int>(measured.range(2))});
    for ([[maybe_unused]] auto round : measured)
        table.select();
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    measured.counters["megabytes"] = static_cast<double>(used.ru_maxrss) / 1024;
}

void Drag(benchmark::State& measured) {
    Table table(static_cast<int>(measured.range(0)));
    table.enlarge({1900, 1080});
    int more = 0;
    for ([[maybe_unused]] auto round : measured) {
        more = (more + 1) % 20;
        table.resize({1900 + more, 1060 + more});
    }
}

BENCHMARK(BareRead)->DenseRange(20, 60, 20);
BENCHMARK(Refresh)->DenseRange(20, 60, 20);
BENCHMARK(Drag)->Arg(60);
BENCHMARK(Select)->Args({60, 822, 520})->Args({60, 3840, 2160});

}  // namespace
}  // namespace solvanta::benchmarks

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    solvanta::qt::prepare_application(application);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
