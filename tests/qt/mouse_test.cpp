#include <map>
#include <sstream>

#include "stage.h"

namespace solvanta::qt {
namespace {

/// Moves the mouse as the window system does: presses and releases with their times, from which
/// Qt itself makes double clicks.
class Hand {
  public:
    explicit Hand(const QWidget& window) : window_(window.windowHandle()) {}

    void press(QPointF at, Qt::MouseButton button) {
        send(at, held_ | button, QEvent::MouseButtonPress, button);
    }
    void release(QPointF at, Qt::MouseButton button) {
        send(at, held_ & ~button, QEvent::MouseButtonRelease, button);
    }
    void rest() { now_ += 5000; }

  private:
    void send(QPointF at, Qt::MouseButtons held, QEvent::Type type, Qt::MouseButton button) {
        now_ += 40;
        held_ = held;
        qt_handleMouseEvent(window_, at, window_->mapToGlobal(at), held, button, type, {}, now_);
        QApplication::processEvents();
    }

    Qt::MouseButtons held_;
    QWindow* window_;
    static inline int now_ = 0;
};

/// Elements 40 pixels square, named by letters: `a` has both handlers, `b` no double click; `c`
/// goes at a click and bares `d` below it; `e` lies under a picture box, `f` under a frame, `g`
/// under a disabled button in a disabled frame, `h` under a label.
struct MouseForm : TestForm {
    MouseForm() {
        add('a', 40, 0);
        add('b', 80, 0).DblClick = nullptr;
        add('d', 0, 0);
        PictureElement& c = add('c', 0, 0);
        c.Click = [this, &c] {
            log += 'c';
            c.Visible = false;
        };
        add('e', 120, 0);
        add('f', 160, 0);
        add('g', 200, 0);
        add('h', 0, 40);
        place(box, 120, 0, 40, 40);
        place(frame, 160, 0, 40, 40);
        place(dead_frame, 200, 0, 40, 40);
        place(dead_button, 0, 0, 40, 40);
        place(label, 0, 40, 40, 40);
        dead_frame.Enabled = false;
        dead_frame.controls = {&dead_button};
        canvas.emplace_back(&label);
        controls = {&box, &frame, &dead_frame};
    }

    PictureElement& add(char name, int left, int top) {
        centres[name] = QPointF(left + 20, top + 20);
        PictureElement& element = add_picture(left, top, 40, 40);
        element.Click = [this, name] { log += name; };
        element.DblClick = [this, name] { log += static_cast<char>(name - 'a' + 'A'); };
        return element;
    }

    std::map<char, QPointF> centres;
    PictureBox box;
    Frame frame;
    Frame dead_frame;
    CommandButton dead_button;
    Label label;
    std::string log;
};

void perform(Hand& hand, const MouseForm& form, const std::string& steps) {
    std::istringstream words(steps);
    for (std::string word; words >> word;) {
        const auto button = word.back() == '2' ? Qt::RightButton : Qt::LeftButton;
        if (word == "rest") {
            hand.rest();
        } else if (word.front() == '+') {
            hand.press(form.centres.at(word.at(1)), button);
        } else {
            hand.release(form.centres.at(word.at(1)), button);
        }
    }
}

// +x presses on element x, -x releases there, a 2 behind it means the right button. The log has
// small letters for clicks and capitals for double clicks.
TEST(MouseOnWindow, GivesClicksAndDoubleClicks) {
    const struct {
        const char* steps;
        const char* log;
    } cases[] = {
        {"+a -a", "a"},
        {"+a -b", ""},
        {"+a", ""},
        {"-a", ""},
        {"+a -a +a -a", "aA"},
        {"+a -a +a", "aA"},
        {"+a -a +a -a +a -a", "aAa"},
        {"+a -a +a -a +a -a +a -a", "aAaA"},
        {"+a -a rest +a -a", "aa"},
        {"+a -a +b -b", "ab"},
        {"+b -b +b -b", "b"},
        {"+b -b +b -b +b -b", "bb"},
        {"+c -c +c -c", "cD"},
        {"+c -c +c -c +c -c", "cDd"},
        {"+c -c rest +d -d", "cd"},
        {"+a2 -a2 +a2 -a2", ""},
        {"+a +a2 -a2 -a", "a"},
        {"+e -e +e -e", ""},
        {"+f -f +f -f", ""},
        {"+g -g +g -g", ""},
        {"+h -h +h -h", "hH"},
    };
    for (const auto& test : cases) {
        QtHost host;
        MouseForm form;
        Hand hand(shown(host, form));
        hand.rest();
        perform(hand, form, test.steps);
        EXPECT_EQ(form.log, test.log) << test.steps;
    }
}

TEST(MouseOnWindow, CountsPartsOfPixels) {
    const struct {
        double x;
        const char* log;
    } cases[] = {{9.9, ""}, {10.0, "x"}, {29.9, "x"}, {30.0, ""}, {29.95, "x"}};
    for (const auto& test : cases) {
        QtHost host;
        TestForm form;
        std::string log;
        form.add_picture(10, 10, 20, 20).Click = [&] { log += 'x'; };
        Hand hand(shown(host, form));
        hand.rest();
        hand.press({test.x, 15}, Qt::LeftButton);
        hand.release({test.x, 15}, Qt::LeftButton);
        EXPECT_EQ(log, test.log) << test.x;
    }
}

TEST(MouseOnWindow, DoubleClickMayOpenABox) {
    QtHost host;
    TestForm form;
    std::string log;
    PictureElement& element = form.add_picture(0, 0, 40, 40);
    element.Click = [&] { log += 'x'; };
    element.DblClick = [&] {
        log += 'X';
        host.message("Gratulation! Spiel gewonnen!", Buttons::Ok);
        log += '!';
    };
    Hand hand(shown(host, form));
    hand.rest();
    when_box_opens([](QMessageBox& box) { QTest::keyClick(box.windowHandle(), Qt::Key_Return); });
    const QPointF at(20, 20);
    for (int count = 0; count < 3; ++count) {
        hand.press(at, Qt::LeftButton);
        hand.release(at, Qt::LeftButton);
    }
    EXPECT_EQ(log, "xX!x");
}

}  // namespace
}  // namespace solvanta::qt
