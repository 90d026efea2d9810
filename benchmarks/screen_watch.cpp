#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

// Starts a program on a screen of its own, without a window manager, and tells from the pixels of
// the screen when it did what. Times are in milliseconds.

namespace {

using Clock = std::chrono::steady_clock;

double milliseconds_since(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

template <typename Condition>
void wait_until(const Condition& condition, const char* what) {
    const auto start = Clock::now();
    while (!condition()) {
        if (Clock::now() - start > std::chrono::seconds(30))
            throw std::runtime_error(std::string("no ") + what);
        std::this_thread::sleep_for(std::chrono::microseconds(100));
    }
}

class Screen {
  public:
    Screen() : connection_(xcb_connect(nullptr, nullptr)) {
        if (xcb_connection_has_error(connection_) != 0) throw std::runtime_error("no screen");
        root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;
    ~Screen() { xcb_disconnect(connection_); }

    std::uint32_t pixel(int x, int y) const {
        const auto request =
            xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, root_,
                          static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 1, 1, ~0U);
        auto* image = xcb_get_image_reply(connection_, request, nullptr);
        if (!image) throw std::runtime_error("no pixel");
        std::uint32_t pixel = 0;
        std::memcpy(&pixel, xcb_get_image_data(image), sizeof pixel);
        std::free(image);
        return pixel & 0xFFFFFFU;
    }

    /// The windows to be seen, the lowest first.
    std::vector<xcb_get_geometry_reply_t> windows() const {
        std::vector<xcb_get_geometry_reply_t> found;
        auto* tree = xcb_query_tree_reply(connection_, xcb_query_tree(connection_, root_), nullptr);
        for (int i = 0; i < xcb_query_tree_children_length(tree); ++i) {
            const xcb_window_t window = xcb_query_tree_children(tree)[i];
            auto* about = xcb_get_window_attributes_reply(
                connection_, xcb_get_window_attributes(connection_, window), nullptr);
            auto* place =
                xcb_get_geometry_reply(connection_, xcb_get_geometry(connection_, window), nullptr);
            if (about && place && about->map_state == XCB_MAP_STATE_VIEWABLE)
                found.push_back(*place);
            std::free(about);
            std::free(place);
        }
        std::free(tree);
        return found;
    }

    void click(int x, int y) const {
        fake(XCB_MOTION_NOTIFY, 0, x, y);
        fake(XCB_BUTTON_PRESS, 1, 0, 0);
        fake(XCB_BUTTON_RELEASE, 1, 0, 0);
        xcb_flush(connection_);
    }

    void press_enter() const {
        constexpr std::uint8_t enter = 36;
        fake(XCB_KEY_PRESS, enter, 0, 0);
        fake(XCB_KEY_RELEASE, enter, 0, 0);
        xcb_flush(connection_);
    }

  private:
    void fake(std::uint8_t type, std::uint8_t detail, int x, int y) const {
        xcb_test_fake_input(connection_, type, detail, XCB_CURRENT_TIME, root_,
                            static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 0);
    }

    xcb_connection_t* connection_;
    xcb_window_t root_ = 0;
};

/// A program that runs until the end of the scope.
class Program {
  public:
    explicit Program(char** command) : process_(fork()) {
        if (process_ != 0) return;
        execvp(command[0], command);
        _exit(127);
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program() {
        kill(process_, SIGTERM);
        waitpid(process_, nullptr, 0);
    }

    /// The most memory that it has held at once, in kilobytes.
    int peak_memory() const {
        std::ifstream status("/proc/" + std::to_string(process_) + "/status");
        for (std::string word; status >> word;) {
            int kilobytes = 0;
            if (word == "VmHWM:" && status >> kilobytes) return kilobytes;
        }
        return 0;
    }

  private:
    pid_t process_;
};

/// Prints the time from the start to the first pixel, and the peak of memory in kilobytes within
/// half a second more.
void watch_start(const Screen& screen, char** command) {
    // Within every window of the card table's size, in the corner of the screen or in its middle.
    const auto painted = [&screen] { return screen.pixel(500, 400) != 0; };
    wait_until([&] { return !painted(); }, "black screen");
    const auto start = Clock::now();
    const Program program(command);
    wait_until(painted, "window");
    std::cout << milliseconds_since(start) << ' ';
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    std::cout << program.peak_memory() << '\n';
}

void wait_for_windows(const Screen& screen, std::size_t count) {
    wait_until([&] { return screen.windows().size() == count; }, "such number of windows");
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
}

void deal(const Screen& screen, const xcb_get_geometry_reply_t& table) {
    screen.click(table.x + 48, table.y + 504);
    wait_for_windows(screen, 2);
    screen.press_enter();
    wait_for_windows(screen, 1);
}

/// Clicks the place of the first column again and again, of a game dealt before where there is one.
/// Prints for each click the time until the place of the selection pointer has changed its colour.
void watch_clicks(const Screen& screen, char** command, bool dealt) {
    constexpr int clicks = 300;
    const Program program(command);
    wait_for_windows(screen, 1);
    const xcb_get_geometry_reply_t table = screen.windows().front();
    if (dealt) deal(screen, table);
    for (int click = 0; click < clicks; ++click) {
        const std::uint32_t before = screen.pixel(table.x + 44, table.y + 108);
        const auto start = Clock::now();
        // Left and right in turn: two quick clicks on one place would be a double click.
        screen.click(table.x + (click % 2 == 0 ? 23 : 65), table.y + 240);
        wait_until([&] { return screen.pixel(table.x + 44, table.y + 108) != before; }, "pointer");
        std::cout << milliseconds_since(start) << '\n';
        std::this_thread::sleep_for(std::chrono::milliseconds(5 + click % 17));
    }
}

}  // namespace

/// screen_watch start|clicks|bare_clicks COMMAND...
int main(int argc, char** argv) {
    try {
        if (argc < 3) throw std::runtime_error("what to watch, and a command, are needed");
        const Screen screen;
        const std::string_view what = argv[1];
        if (what == "start") {
            watch_start(screen, argv + 2);
        } else {
            watch_clicks(screen, argv + 2, what == "clicks");
        }
    } catch (const std::exception& error) {
        std::cerr << "screen_watch: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
