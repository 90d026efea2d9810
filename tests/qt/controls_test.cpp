#include <QScrollBar>
#include <QTextEdit>

#include "stage.h"

namespace solvanta::qt {
namespace {

/// A button opens a name entry in a frame, Enter closes it.
struct EntryForm : TestForm {
    explicit EntryForm(Host& host) {
        place(button, 0, 180, 80, 17);
        place(frame, 20, 20, 260, 100);
        frame.Visible = frame.Enabled = false;
        place(box, 20, 30, 200, 28);
        frame.controls = {&box};
        controls = {&button, &frame};
        button.Click = [this, &host] {
            frame.Enabled = frame.Visible = true;
            host.set_focus(box);
        };
        box.KeyDown = [this](int code) {
            if (code != key_enter) return;
            entered.push_back(box.Text);
            frame.Enabled = frame.Visible = false;
        };
    }

    CommandButton button;
    Frame frame;
    TextBox box;
    std::vector<std::string> entered;
};

TEST(Buttons, ArePressedByEnterAndLeaveTheFocusToTheName) {
    QtHost host;
    EntryForm form(host);
    CommandButton other;
    int pressed = 0;
    TestForm::place(other, 100, 180, 80, 17);
    other.Click = [&pressed] { ++pressed; };
    form.controls.emplace_back(&other);
    QWidget& window = shown(host, form);
    QWindow* keys = window.windowHandle();
    auto* edit = window.findChild<QLineEdit*>();
    QTest::keyClick(keys, Qt::Key_Return);  // the first button has the focus
    ASSERT_TRUE(edit->hasFocus());
    click(window.findChildren<QPushButton*>().back());
    EXPECT_EQ(pressed, 1);
    EXPECT_TRUE(edit->hasFocus());

    window.findChildren<QPushButton*>().back()->setFocus();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        QTest::keyClick(keys, key);
    }
    EXPECT_EQ(pressed, 4);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, {}, QString(), true);
    QApplication::sendEvent(window.focusWidget(), &held);
    EXPECT_EQ(pressed, 4);
}

TEST(TextBoxes, TakeFocusInAFrameJustShownAndHearEnter) {
    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        bool enters;
    } cases[] = {
        {Qt::Key_Return, {}, true},
        {Qt::Key_Enter, Qt::KeypadModifier, true},
        {Qt::Key_Return, Qt::ShiftModifier, true},
        {Qt::Key_Enter, Qt::ShiftModifier | Qt::KeypadModifier, true},
        {Qt::Key_Return, Qt::ControlModifier, true},
        {Qt::Key_Return, Qt::AltModifier, true},
        {Qt::Key_Escape, {}, false},
        {Qt::Key_M, Qt::ControlModifier, false},
        {Qt::Key_Left, {}, false},
    };
    for (const auto& test : cases) {
        QtHost host;
        EntryForm form(host);
        form.box.Text = "Karl";
        QWidget& window = shown(host, form);
        auto* edit = window.findChild<QLineEdit*>();
        EXPECT_FALSE(edit->isVisible());
        click(window.findChild<QPushButton*>());
        ASSERT_TRUE(edit->hasFocus());
        QWindow* keys = window.windowHandle();
        QTest::keyClick(keys, Qt::Key_Backspace);
        QTest::keyClick(keys, Qt::Key_A);
        EXPECT_EQ(form.box.Text, "Kara");
        QTest::keyClick(keys, test.key, test.modifiers);
        const std::vector<std::string> expected(test.enters ? 1 : 0, "Kara");
        EXPECT_EQ(form.entered, expected) << test.key << ' ' << test.modifiers;
        EXPECT_EQ(edit->isVisible(), !test.enters);
        EXPECT_EQ(edit->text(), "Kara");
    }
}

TEST(TextBoxes, InADisabledFrameTakeNoKeys) {
    QtHost host;
    EntryForm form(host);
    form.frame.Visible = true;
    QWidget& window = shown(host, form);
    auto* edit = window.findChild<QLineEdit*>();
    click(edit);
    QTest::keyClick(window.windowHandle(), Qt::Key_A);
    EXPECT_FALSE(edit->hasFocus());
    EXPECT_EQ(form.box.Text, "");
}

/// A form with a rich-text box reaching beyond it, and a button for its changes.
struct ListForm : TestForm {
    explicit ListForm(int lines) {
        place(view, 0, 0, 301, 180);
        place(button, 0, 180, 80, 20);
        view.Font = {"Courier New", 11.25, false};
        view.TextRTF = list(lines);
        controls = {&button, &view};
    }
    static std::string list(int lines) {
        std::string rtf = "{";
        for (int i = 1; i <= lines; ++i)
            rtf += "{Zeile " + std::to_string(i) + "}{\r\n\\par }";
        return rtf + "{Ende}}";
    }
    RichTextBox view;
    CommandButton button;
};

TEST(RichText, IsShownAndSetOnlyWhenChanged) {
    QtHost host;
    ListForm form(50);
    QWidget* window = &shown(host, form);
    auto* view = window->findChild<QTextEdit*>();
    EXPECT_TRUE(view->toPlainText().startsWith("Zeile 1\nZeile 2\n"));
    EXPECT_TRUE(view->toPlainText().endsWith("Zeile 50\nEnde"));
    EXPECT_EQ(view->document()->defaultFont().pixelSize(), 15);
    EXPECT_TRUE(view->isReadOnly());
    EXPECT_EQ(view->frameShape(), QFrame::NoFrame);
    EXPECT_EQ(view->size(), QSize(300, 180));
    QScrollBar& bar = *view->verticalScrollBar();
    EXPECT_TRUE(bar.isVisible());
    bar.setValue(100);
    click(window->findChild<QPushButton*>());
    EXPECT_EQ(bar.value(), 100);
    form.button.Click = [&] { form.view.TextRTF = ListForm::list(40); };
    click(window->findChild<QPushButton*>());
    EXPECT_EQ(bar.value(), 0);
    EXPECT_TRUE(view->toPlainText().endsWith("Zeile 40\nEnde"));
    form.button.Click = [&] { form.view.TextRTF.clear(); };
    click(window->findChild<QPushButton*>());
    EXPECT_EQ(view->toPlainText(), "");
    EXPECT_FALSE(bar.isVisible());
    form.view.TextRTF = ListForm::list(2);
    window->close();
    window = &shown(host, form);
    EXPECT_EQ(window->findChild<QTextEdit*>()->toPlainText(), "Zeile 1\nZeile 2\nEnde");
}

TEST(RichText, ThatIsNoneShowsNothing) {
    QtHost host;
    ListForm form(0);
    form.view.TextRTF = "Hilfe ohne Form";
    testing::internal::CaptureStderr();
    const QWidget& window = shown(host, form);
    EXPECT_EQ(window.findChild<QTextEdit*>()->toPlainText(), "");
    EXPECT_NE(testing::internal::GetCapturedStderr(), "");
}

// The labels are told apart by their grounds: text may look different everywhere.
TEST(Frames, ShowTheirLabelsInsideTheBorderOnly) {
    QtHost host;
    EntryForm form(host);
    form.frame.Visible = true;
    Label below;
    Label above;
    TestForm::place(below, 0, 0, 260, 130);
    below.BackColor = Color{0, 255, 0};
    TestForm::place(above, 100, 70, 60, 20);
    above.BackColor = Color{0, 0, 255};
    form.frame.canvas = {&below, &above};
    QWidget& window = shown(host, form);
    const QImage image = window.grab().toImage();
    const auto color = [&](int x, int y) {
        return image.pixelColor(QPoint(x, y) * image.devicePixelRatio());
    };
    EXPECT_EQ(color(40, 100), QColor(0, 255, 0));
    EXPECT_EQ(color(150, 100), QColor(0, 0, 255));
    EXPECT_NE(color(150, 118), QColor(0, 255, 0));
    EXPECT_NE(color(150, 22), QColor(0, 255, 0));
    EXPECT_EQ(color(150, 121), QColor(255, 0, 0));
}

}  // namespace
}  // namespace solvanta::qt
