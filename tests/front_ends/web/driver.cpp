#include "tests/front_ends/driver.h"

#include <chrono>
#include <cmath>
#include <map>
#include <sstream>
#include <utility>

#include <gtest/gtest.h>

#include "front_ends/web/border.h"
#include "front_ends/web/host.h"

extern "C" {
char* hand_ask(const char* what, const char* text, double x, double y, int number);
void hand_settle();
void hand_wait(int milliseconds);
int hand_pixel(const char* caption, double x, double y);
void hand_put_file(const char* path, const char* bytes, std::size_t length);
}

namespace solvanta::test {
namespace {

std::string name_of(Key key) {
    constexpr const char* names[] = {"Enter", "NumpadEnter", "Space",     "Escape",
                                     "Tab",   "Backspace",   "ArrowLeft", "End"};
    const auto number = static_cast<std::size_t>(key);
    if (number < std::size(names)) return names[number];
    return (number <= '9' ? "Digit" : "Key") + std::string(1, static_cast<char>(key));
}

/// What the page's hand answers to one of its questions, after it has done what it is told.
std::istringstream ask(const char* what, const std::string& text = "", Point at = {},
                       int number = 0) {
    return std::istringstream(web::taken(hand_ask(what, text.c_str(), at.x, at.y, number)));
}

/// Drives a page with real input of the browser, given from outside; it takes effect during
/// `settle`. What is to be done later is done at the end of a `wait`.
class WebDriver final : public Driver {
  public:
    WebDriver() {
        host_.largest_scale = 1;
        ask("resize", "1000 760");
    }

    Host& host() override { return host_; }
    double ratio() const override { return page_ratio(); }
    void settle() override { hand_settle(); }

    void wait(int milliseconds) override {
        hand_wait(milliseconds);
        const auto now = Clock::now();
        while (!later_.empty() && later_.begin()->first <= now)
            later_.extract(later_.begin()).mapped()();
    }

    bool run() override {
        constexpr int turns = 500;
        for (int turn = 0; turn < turns && !host_.is_quitting(); ++turn)
            wait(20);
        settle();
        return host_.is_quitting();
    }

    void later(int milliseconds, std::function<void()> act) override {
        later_.emplace(Clock::now() + std::chrono::milliseconds(milliseconds), std::move(act));
    }

    void mouse(const Form& form, Point at, MouseButton button, bool down) override {
        ask("mouse", form.Caption, at, 2 * static_cast<int>(button) + (down ? 1 : 0));
    }

    void rest() override { ask("rest"); }

    void key(Key key, Modifier modifier) override {
        constexpr const char* modifiers[] = {"", "Shift+", "Control+", "Alt+"};
        ask("key", modifiers[static_cast<std::size_t>(modifier)] + name_of(key));
    }

    void repeat_key(Key key) override { ask("repeat", name_of(key)); }
    void paste(const std::string& line, const std::string& next) override {
        ask("paste", line + '\n' + next);
    }

    void close(const std::string& caption) override { ask("close", caption); }
    void minimise(const std::string& /*caption*/) override {}

    /// With the page's bars around the window. One too small to read has its buttons elsewhere.
    bool resize(const Form& form, double scale) override {
        if (scale < 1) return false;
        host_.largest_scale = scale;
        const auto side = [&](Twips length, int bars) {
            return std::to_string(std::lround(length * scale / twips_per_pixel) + bars);
        };
        ask("resize", side(form.ClientWidth, 40) + ' ' + side(form.ClientHeight, 80));
        hand_settle();
        return true;
    }

    void save_desktop() override { ask("leavePage"); }

    std::optional<WindowLook> window(const std::string& caption) override {
        auto answer = ask("window", caption);
        WindowLook look;
        look.is_within_page = true;
        if (!(answer >> look.width >> look.height >> look.active)) return std::nullopt;
        return look;
    }

    /// What the form has been given but not shown yet is shown first, and has arrived.
    Color pixel(const Form& form, Point at) override {
        host_.deliver(nullptr);
        hand_settle();
        const auto color = static_cast<unsigned>(hand_pixel(form.Caption.c_str(), at.x, at.y));
        return {static_cast<std::uint8_t>(color >> 16U), static_cast<std::uint8_t>(color >> 8U),
                static_cast<std::uint8_t>(color)};
    }

    ControlLook control(const Form& form, const Element& element) override {
        auto answer = ask("control", form.Caption, place_of(form, element).corner);
        ControlLook look;
        answer >> look.shown >> look.focused >> look.scrollable >> look.scrolled;
        std::getline(answer.ignore(), look.text, '\0');
        return look;
    }

    std::optional<BoxLook> box() override {
        auto lines = ask("box");
        BoxLook look;
        if (!std::getline(lines, look.title)) return std::nullopt;
        std::getline(lines, look.text);
        for (std::string button; std::getline(lines, button);)
            look.buttons.push_back(button);
        return look;
    }

    std::vector<AccessibleLook> accessible(const Form& form) override {
        std::vector<AccessibleLook> looks;
        auto lines = ask("accessible", form.Caption);
        AccessibleLook look;
        while (lines >> look.key >> look.focused >> look.selected >> look.place.corner.x >>
               look.place.corner.y >> look.place.width >> look.place.height) {
            if (look.key == '-') look.key = 0;
            std::getline(lines.ignore(), look.name);
            looks.push_back(look);
        }
        return looks;
    }

    void press_accessible(const Form& form, std::size_t index) override {
        ask("press", form.Caption, {}, static_cast<int>(index));
    }

    std::vector<std::string> announced() override {
        std::vector<std::string> texts;
        auto lines = ask("announced");
        for (std::string text; std::getline(lines, text);)
            texts.push_back(text);
        return texts;
    }

    std::string put_file(const std::string& name, const std::string& bytes) override {
        std::string path = "./put/" + name;
        hand_put_file(path.c_str(), bytes.data(), bytes.size());
        return path;
    }

  private:
    using Clock = std::chrono::steady_clock;

    web::WebHost host_;
    std::multimap<Clock::time_point, std::function<void()>> later_;
};

}  // namespace

std::unique_ptr<Driver> make_driver() {
    return std::make_unique<WebDriver>();
}

}  // namespace solvanta::test

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const int result = RUN_ALL_TESTS();
    hand_ask("done", std::to_string(result).c_str(), 0, 0, 0);
    return result;
}
