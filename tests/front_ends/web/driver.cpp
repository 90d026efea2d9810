#include "tests/front_ends/driver.h"

#include <cstdlib>
#include <map>
#include <sstream>
#include <utility>

#include "front_ends/web/border.h"
#include "front_ends/web/host.h"

extern "C" {
void hand_press(const char* caption, double x, double y, int right, int down);
void hand_key(const char* key, const char* modifier);
void hand_repeat_key(const char* key);
void hand_type(const char* text);
void hand_rest();
void hand_close(const char* caption);
void hand_close_box();
void hand_later(int milliseconds, int number);
void hand_settle();
void hand_wait(int milliseconds);
int hand_pixel(const char* caption, double x, double y);
int hand_window(const char* caption, int what);
int hand_control(const char* caption, double x, double y, int what);
char* hand_text(const char* caption, double x, double y);
char* hand_box();
void hand_put_file(const char* path, const char* bytes, std::size_t length);
void hand_leave_page();
}

namespace solvanta::test {
namespace {

std::map<int, std::function<void()>>& later_calls() {
    static std::map<int, std::function<void()>> all;
    return all;
}

const char* name_of(Key key) {
    switch (key) {
        case Key::Enter:
            return "Enter";
        case Key::KeypadEnter:
            return "NumpadEnter";
        case Key::Space:
            return "Space";
        case Key::Escape:
            return "Escape";
        case Key::Tab:
            return "Tab";
        case Key::Backspace:
            return "Backspace";
        case Key::ArrowLeft:
            return "ArrowLeft";
        case Key::End:
            return "End";
        case Key::A:
            return "a";
        case Key::M:
            return "m";
        case Key::N:
            break;
    }
    return "n";
}

const char* name_of(Modifier modifier) {
    switch (modifier) {
        case Modifier::Shift:
            return "Shift";
        case Modifier::Control:
            return "Control";
        case Modifier::Alt:
            return "Alt";
        case Modifier::None:
            break;
    }
    return "";
}

/// Drives a page with real input of the browser, given from outside; it takes effect during
/// `settle`.
class WebDriver final : public Driver {
  public:
    ~WebDriver() override { later_calls().clear(); }

    Host& host() override { return host_; }
    double ratio() const override { return page_ratio(); }

    void settle() override {
        do {
            hand_settle();
        } while (host_.is_busy());
    }

    void wait(int milliseconds) override { hand_wait(milliseconds); }

    bool run() override {
        constexpr int turns = 500;
        for (int turn = 0; turn < turns && (!host_.is_quitting() || host_.is_busy()); ++turn)
            hand_wait(20);
        settle();
        return host_.is_quitting();
    }

    void later(int milliseconds, std::function<void()> act) override {
        static int last = 0;
        later_calls()[++last] = std::move(act);
        hand_later(milliseconds, last);
    }

    void press(const Form& form, Point at, MouseButton button) override {
        hand_press(form.Caption.c_str(), at.x, at.y, button == MouseButton::Right ? 1 : 0, 1);
    }

    void release(const Form& form, Point at, MouseButton button) override {
        hand_press(form.Caption.c_str(), at.x, at.y, button == MouseButton::Right ? 1 : 0, 0);
    }

    void rest() override { hand_rest(); }
    void key(Key key, Modifier modifier) override { hand_key(name_of(key), name_of(modifier)); }
    void repeat_key(Key key) override { hand_repeat_key(name_of(key)); }
    void type(const std::string& text) override { hand_type(text.c_str()); }
    void close(const std::string& caption) override { hand_close(caption.c_str()); }
    void minimise(const std::string& /*caption*/) override {}
    void save_desktop() override { hand_leave_page(); }

    std::optional<WindowLook> window(const std::string& caption) override {
        const auto ask = [&](int what) { return hand_window(caption.c_str(), what); };
        if (ask(0) == 0) return std::nullopt;
        WindowLook look;
        look.width = ask(1);
        look.height = ask(2);
        look.active = ask(3) != 0;
        look.is_within_page = true;
        return look;
    }

    Color pixel(const Form& form, Point at) override {
        settle_pictures();
        const auto color = static_cast<unsigned>(hand_pixel(form.Caption.c_str(), at.x, at.y));
        return {static_cast<std::uint8_t>(color >> 16U), static_cast<std::uint8_t>(color >> 8U),
                static_cast<std::uint8_t>(color)};
    }

    bool is_shown(const Form& form, const Element& control) override {
        return ask(form, control, 0) != 0;
    }
    bool has_focus(const Form& form, const Element& control) override {
        return ask(form, control, 1) != 0;
    }
    bool can_scroll(const Form& form, const RichTextBox& box) override {
        return ask(form, box, 2) != 0;
    }
    int scrolled(const Form& form, const RichTextBox& box) override { return ask(form, box, 3); }
    void scroll_down(const Form& form, const RichTextBox& box) override { ask(form, box, 4); }

    std::string text(const Form& form, const Element& control) override {
        const Point corner = place_of(form, control).corner;
        return web::taken(hand_text(form.Caption.c_str(), corner.x, corner.y));
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

    void close_box() override { hand_close_box(); }

    /// The browser's own copy of a replaced file is given up with it.
    std::string put_file(const std::string& name, const std::string& bytes) override {
        std::string path = "./put/" + name;
        hand_put_file(path.c_str(), bytes.data(), bytes.size());
        host_.pictures().forget(path);
        return path;
    }

  private:
    static int ask(const Form& form, const Element& control, int what) {
        const Point corner = place_of(form, control).corner;
        return hand_control(form.Caption.c_str(), corner.x, corner.y, what);
    }

    /// What a form has been given but not shown yet is shown, and has arrived.
    void settle_pictures() {
        if (!host_.is_busy()) host_.deliver(nullptr);
        hand_settle();
    }

    web::WebHost host_{1};
};

}  // namespace

std::unique_ptr<Driver> make_driver() {
    return std::make_unique<WebDriver>();
}

}  // namespace solvanta::test

extern "C" {

/// The moment of something to be done later has come.
__attribute__((used, visibility("default"))) void hand_call(int number) {
    const auto entry = solvanta::test::later_calls().extract(number);
    if (!entry.empty()) entry.mapped()();
}
}
