#include <csignal>

#include "front_ends/qt/stop_signals.h"
#include "stage.h"

namespace solvanta::qt {
namespace {

TEST(Boxes, AskInGermanAndAnswer) {
    const struct {
        Buttons buttons;
        QStringList texts;  // the default button first
        int key;
        Answer answer;
    } cases[] = {
        {Buttons::YesNo, {"Ja", "Nein"}, Qt::Key_Return, Answer::Yes},
        {Buttons::YesNo, {"Ja", "Nein"}, Qt::Key_Escape, Answer::No},
        {Buttons::YesNo, {"Ja", "Nein"}, Qt::Key_N, Answer::No},
        {Buttons::YesNo, {"Ja", "Nein"}, 0, Answer::No},
        {Buttons::OkCancel, {"OK", "Abbrechen"}, Qt::Key_Return, Answer::Ok},
        {Buttons::OkCancel, {"OK", "Abbrechen"}, Qt::Key_Escape, Answer::Cancel},
        {Buttons::OkCancel, {"OK", "Abbrechen"}, 0, Answer::Cancel},
        {Buttons::Ok, {"OK"}, Qt::Key_Return, Answer::Ok},
        {Buttons::Ok, {"OK"}, Qt::Key_Escape, Answer::Ok},
    };
    for (const auto& test : cases) {
        QtHost host;
        TestForm form;
        QWidget& window = shown(host, form);
        when_box_opens([&](QMessageBox& box) {
            EXPECT_EQ(box.windowTitle(), "Solvanta");
            EXPECT_EQ(box.icon(), QMessageBox::NoIcon);
            EXPECT_EQ(box.text(), "<b>Größe?</b>");
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.parentWidget(), &window);
            EXPECT_EQ(box.windowModality(), Qt::ApplicationModal);
            EXPECT_EQ(box.defaultButton()->text().remove('&'), test.texts.front());
            QStringList texts;
            for (const auto* button : box.buttons())
                texts << button->text().remove('&');
            texts.sort();
            EXPECT_EQ(texts, test.texts.size() == 2 && test.texts[0] == "OK"
                                 ? QStringList({"Abbrechen", "OK"})
                                 : test.texts);
            const auto modifier = test.key == Qt::Key_N ? Qt::AltModifier : Qt::NoModifier;
            if (test.key == 0)
                box.close();
            else
                QTest::keyClick(box.windowHandle(), static_cast<Qt::Key>(test.key), modifier);
        });
        EXPECT_EQ(host.message("<b>Größe?</b>", test.buttons), test.answer) << test.key;
    }
}

struct FrameForm : TestForm {
    FrameForm() {
        place(button, 0, 180, 80, 17);
        button.Caption = "neues Spiel";
        place(frame, 20, 20, 260, 100);
        frame.Caption = "Eintrag";
        frame.Visible = frame.Enabled = false;
        place(box, 20, 30, 200, 28);
        frame.controls = {&box};
        controls = {&button, &frame};
    }

    CommandButton button;
    Frame frame;
    TextBox box;
};

TEST(Boxes, HaveWhatTheHandlerShowedBehindThem) {
    QtHost host;
    FrameForm form;
    QWidget& window = shown(host, form);
    const QWidget* edit = window.findChild<QLineEdit*>();
    form.button.Click = [&] {
        form.frame.Visible = true;
        host.message("Neues Spiel?", Buttons::YesNo);
        form.frame.Visible = false;
    };
    when_box_opens([&](QMessageBox& box) {
        EXPECT_TRUE(edit->isVisible());
        EXPECT_NE(window.grab().toImage().pixelColor(40, 110), QColor(Qt::red));
        box.close();
    });
    click(window.findChild<QPushButton*>());
    EXPECT_FALSE(edit->isVisible());
}

TEST(Boxes, LetTimersGoOn) {
    QtHost host;
    TestForm form;
    Timer timer;
    int ticks = 0;
    timer.Interval = 10;
    timer.Tick = [&] { form.Caption = std::to_string(++ticks); };
    form.timers = {&timer};
    QWidget& window = shown(host, form);
    int ticks_before = 0;
    when_box_opens([&](QMessageBox&) { ticks_before = ticks; });
    when_box_opens(
        [&](QMessageBox& box) {
            EXPECT_GT(ticks, ticks_before + 3);
            EXPECT_EQ(window.windowTitle(), QString::number(ticks));
            box.close();
        },
        150);
    host.message("Neues Spiel?", Buttons::YesNo);
}

/// A form that its own Closed handler destroys, and what it needs for that.
struct Guest : TestForm {
    explicit Guest(std::unique_ptr<Guest>& place_to_live, int& ticks) {
        Caption = "Gast";
        timer.Interval = 5;
        timer.Tick = [&ticks] { ++ticks; };
        timers = {&timer};
        Closed = [&place_to_live] { place_to_live.reset(); };
    }
    Timer timer;
};

TEST(Windows, AreHiddenClosedAndShownAgain) {
    QtHost host;
    TestForm form;
    shown(host, form);
    int ticks = 0;
    std::unique_ptr<Guest> guest;
    for (int round = 0; round < 3; ++round) {
        guest = std::make_unique<Guest>(guest, ticks);
        QPointer<QWidget> window = &shown(host, *guest);
        window->move(50, 60);
        host.hide(*guest);
        EXPECT_FALSE(find_window("Gast"));
        guest->BackColor = Color{0, 0, 255};
        EXPECT_EQ(&shown(host, *guest), window);
        EXPECT_EQ(window->pos(), QPoint(50, 60));
        EXPECT_GT((QTest::qWait(30), ticks), 0);
        window->close();
        EXPECT_FALSE(guest);
        EXPECT_FALSE(find_window("Gast"));
        ticks = 0;
        QTest::qWait(30);
        EXPECT_EQ(ticks, 0);
        EXPECT_FALSE(window);
        EXPECT_TRUE(find_window());
    }
    host.hide(form);
    host.hide(form);
    EXPECT_FALSE(find_window());
}

TEST(Windows, ComeToTheFrontOnceEach) {
    QtHost host;
    TestForm table;
    TestForm help;
    help.Caption = "Hilfe";
    QWidget& table_window = shown(host, table);
    QWidget& help_window = shown(host, help);
    EXPECT_TRUE(help_window.isActiveWindow());
    help_window.showMinimized();
    EXPECT_EQ(&shown(host, help), &help_window);
    EXPECT_FALSE(help_window.isMinimized());
    EXPECT_EQ(&shown(host, table), &table_window);
    for (QWidget* window : {&table_window, &help_window}) {
        EXPECT_EQ(window->size(), QSize(300, 200));
        EXPECT_EQ(window->minimumSize(), window->maximumSize());
        EXPECT_FALSE(window->windowFlags() & Qt::WindowMaximizeButtonHint);
        EXPECT_TRUE(window->windowFlags() & Qt::WindowMinimizeButtonHint);
        EXPECT_TRUE(window->windowFlags() & Qt::WindowCloseButtonHint);
    }
}

// Whatever ends the program while a box is open ends the box too; the handler below it runs to
// its end.
TEST(Windows, EndTheProgramEvenBelowABox) {
    const struct {
        const char* name;
        std::function<void(QtHost&, TestForm&)> end;
    } cases[] = {
        {"closed window", [](QtHost&, TestForm&) { find_window()->close(); }},
        {"logout", [](QtHost& host, TestForm&) { host.close_first(); }},
        {"quit", [](QtHost& host, TestForm& form) { form.Closed(), host.quit(); }},
    };
    for (const auto& test : cases) {
        QtHost host;
        TestForm form;
        TestForm other;
        other.Caption = "Hilfe";
        std::string log;
        CommandButton button;
        TestForm::place(button, 0, 0, 80, 20);
        form.controls = {&button};
        form.Closed = [&] { log += "closed ", host.quit(); };
        button.Click = [&] {
            log += host.message("Neues Spiel?", Buttons::YesNo) == Answer::No ? "no " : "yes ";
            log += host.message("Noch etwas?", Buttons::Ok) == Answer::Ok ? "ok " : "? ";
            host.show(other);  // too late
        };
        shown(host, form);
        shown(host, other);
        when_box_opens([&](QMessageBox&) { test.end(host, form); }, 60);
        QTimer::singleShot(0, [&] { click(find_window()->findChild<QPushButton*>()); });
        QTimer too_late;
        QObject::connect(&too_late, &QTimer::timeout, [] { QApplication::exit(1); });
        too_late.start(5000);
        EXPECT_EQ(QApplication::exec(), 0) << test.name;
        EXPECT_EQ(log, "closed no ok ") << test.name;
        EXPECT_FALSE(find_window()) << test.name;
        EXPECT_FALSE(find_window("Hilfe")) << test.name;
    }
}

TEST(Windows, EndAtASignal) {
    int stops = 0;
    QObject owner;
    on_stop_signals(owner, [&] { ++stops; });
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        EXPECT_EQ(raise(signal), 0);
        const int before = stops;
        EXPECT_TRUE(QTest::qWaitFor([&] { return stops == before + 1; }, 2000)) << signal;
    }
}

TEST(Windows, TickWithoutMakingUpForLostTime) {
    QtHost host;
    TestForm form;
    int ticks = 0;
    Timer timer;
    timer.Interval = 50;
    timer.Tick = [&] {
        if (++ticks == 1) QTest::qSleep(400);
    };
    form.timers = {&timer};
    shown(host, form);
    ASSERT_TRUE(QTest::qWaitFor([&] { return ticks >= 1; }, 2000));
    QTest::qWait(120);
    EXPECT_GE(ticks, 2);
    EXPECT_LE(ticks, 5);
}

}  // namespace
}  // namespace solvanta::qt
