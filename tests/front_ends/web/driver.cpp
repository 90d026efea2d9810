#include "tests/front_ends/driver.h"

#include <chrono>
#include <map>
#include <sstream>
#include <utility>

#include <gtest/gtest.h>

#include "front_ends/web/border.h"
#include "front_ends/web/host.h"

extern "C" {
void hand_act(const char* act, const char* argument);
void hand_mouse(const char* caption, double x, double y, int button, int down);
void hand_close(const char* caption);
void hand_settle();
void hand_wait(int milliseconds);
int hand_pixel(const char* caption, double x, double y);
char* hand_window(const char* caption);
char* hand_control(const char* caption, double x, double y, int scroll);
char* hand_box();
void hand_put_file(const char* path, const char* bytes, std::size_t length);
void hand_leave_page();
char* hand_accessible(const char* caption);
void hand_press(const char* caption, const char* name);
char* hand_announced();
void hand_done(int failures);
}

namespace solvanta::test {
namespace {

const char* name_of(Key key) {
    constexpr const char* names[] = {"Enter", "NumpadEnter", "Space",     "Escape",
                                     "Tab",   "Backspace",   "ArrowLeft", "End",
                                     "a",     "m",           "n"};
    return names[static_cast<std::size_t>(key)];
}

/// Drives a page with real input of the browser, given from outside; it takes effect during
/// `settle`. What is to be done later is done at the end of a `wait`.
class WebDriver final : public Driver {
  public:
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
        hand_mouse(form.Caption.c_str(), at.x, at.y, static_cast<int>(button), down ? 1 : 0);
    }

    void rest() override { hand_act("rest", ""); }

    void key(Key key, Modifier modifier) override {
        constexpr const char* modifiers[] = {"", "Shift+", "Control+", "Alt+"};
        const std::string held = modifiers[static_cast<std::size_t>(modifier)];
        hand_act("key", (held + name_of(key)).c_str());
    }

    void repeat_key(Key key) override { hand_act("repeat", name_of(key)); }
    void type(char character, bool shift) override {
        const bool is_digit = character <= '9';
        const std::string key = (is_digit ? "Digit" : "Key") + std::string(1, character);
        hand_act("key", ((shift ? "Shift+" : "") + key).c_str());
    }

    void paste(const std::string& line, const std::string& next) override {
        hand_act("paste", (line + '\n' + next).c_str());
    }

    void close(const std::string& caption) override { hand_close(caption.c_str()); }
    void minimise(const std::string& /*caption*/) override {}
    void save_desktop() override { hand_leave_page(); }

    std::optional<WindowLook> window(const std::string& caption) override {
        std::istringstream answer(web::taken(hand_window(caption.c_str())));
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
        const Point corner = place_of(form, element).corner;
        std::istringstream answer(
            web::taken(hand_control(form.Caption.c_str(), corner.x, corner.y, 0)));
        ControlLook look;
        answer >> look.shown >> look.focused >> look.scrollable >> look.scrolled;
        std::getline(answer.ignore(), look.text, '\0');
        return look;
    }

    void scroll_down(const Form& form, const RichTextBox& box) override {
        const Point corner = place_of(form, box).corner;
        web::taken(hand_control(form.Caption.c_str(), corner.x, corner.y, 100));
    }

    std::optional<BoxLook> box() override {
        std::istringstream lines(web::taken(hand_box()));
        BoxLook look;
        if (!std::getline(lines, look.title)) return std::nullopt;
        std::getline(lines, look.text);
        for (std::string button; std::getline(lines, button);)
            look.buttons.push_back(button);
        return look;
    }

    void close_box() override { hand_close(""); }

    std::vector<AccessibleLook> accessible(const Form& form) override {
        std::vector<AccessibleLook> looks;
        std::istringstream lines(web::taken(hand_accessible(form.Caption.c_str())));
        AccessibleLook look;
        while (lines >> look.key >> look.focused >> look.selected >> look.place.corner.x >>
               look.place.corner.y >> look.place.width >> look.place.height) {
            if (look.key == '-') look.key = 0;
            std::getline(lines.ignore(), look.name);
            looks.push_back(look);
        }
        return looks;
    }

    void press_accessible(const Form& form, const std::string& name) override {
        hand_press(form.Caption.c_str(), name.c_str());
    }

    std::vector<std::string> announced() override {
        std::vector<std::string> texts;
        std::istringstream lines(web::taken(hand_announced()));
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

    web::WebHost host_{1};
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
    hand_done(result);
    return result;
}
