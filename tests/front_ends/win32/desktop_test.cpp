#include <richedit.h>
#include <windows.h>

#include "tests/front_ends/stage.h"
#include "text/windows_text.h"

namespace solvanta::test {
namespace {

HWND window_of(const Form& form) {
    return FindWindowW(L"Solvanta", to_utf16(form.Caption).c_str());
}

/// A form with a label and a text that does not fit, in which the keys scroll.
struct TextForm : TestForm {
    TextForm() : TestForm("Text") {
        place(view, 10, 30, 280, 140);
        place(label, 10, 4, 100, 20);
        label.BackColor = blue;
        canvas = {&label};
        view.TextRTF = "{\\rtf1{\\fonttbl{\\f0 Arial;}}\\fs24 ";
        for (int line = 0; line < 60; ++line)
            view.TextRTF += "Zeile\\par ";
        view.TextRTF += '}';
        controls = {&view, &button};
    }

    RichTextBox view;
    Label label;
};

HWND view_of(const Form& form) {
    return FindWindowExW(window_of(form), nullptr, L"RICHEDIT50W", nullptr);
}

/// The height in pixels of the first line of the text.
LONG line_height(const TextForm& form) {
    HWND view = view_of(form);
    POINTL places[2]{};
    for (const int line : {0, 1}) {
        const LRESULT start = SendMessageW(view, EM_LINEINDEX, WPARAM(line), 0);
        SendMessageW(view, EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&places[line]), start);
    }
    return places[1].y - places[0].y;
}

class Desktop : public FrontEnd {};

// The system ends a program at any time after this answer, whatever is still open in it.
TEST_F(Desktop, EndsWithABoxOpenAndAKeyHeld) {
    TestForm form;
    std::string log;
    form.Saving = [&] { log += "saving "; };
    form.Closed = [&] { log += "closed ", host().quit(); };
    form.button.Click = [&] {
        host().ask("Gewonnen!", Buttons::Ok, [&](Answer) { log += "answered "; });
    };
    show(form);
    when_box_opens([&] {
        SendMessageW(window_of(form), WM_QUERYENDSESSION, 0, 0);
        EXPECT_EQ(log, "saving ");
        SendMessageW(window_of(form), WM_ENDSESSION, TRUE, 0);
        EXPECT_EQ(log, "saving closed ");
        EXPECT_FALSE(driver().box());
    });
    keybd_event(VK_RETURN, 0, 0, 0);  // on the button, which has the focus
    EXPECT_TRUE(driver().run());
    keybd_event(VK_RETURN, 0, KEYEVENTF_KEYUP, 0);
    EXPECT_EQ(log, "saving closed ");
}

// The box belongs to one window and disables all: it must come with any of them.
TEST_F(Desktop, BringsTheBoxWithEveryWindow) {
    TestForm form;
    TestForm other("Hilfe");
    show(other);
    show(form);
    const auto box_is_in_front = [&] {
        return driver().box() && GetForegroundWindow() == FindWindowW(L"#32770", L"Solvanta");
    };
    when_box_opens([&] {
        SetForegroundWindow(window_of(other));
        EXPECT_FALSE(box_is_in_front());
        driver().later(200, [&] {
            EXPECT_TRUE(box_is_in_front());
            ShowWindow(window_of(form), SW_MINIMIZE);
            SetForegroundWindow(window_of(other));
            driver().later(200, [&] {
                EXPECT_TRUE(box_is_in_front() && !IsIconic(window_of(form)));
                driver().close_box();
            });
        });
    });
    bool answered = false;
    host().ask("Neues Spiel?", Buttons::YesNo, [&](Answer) { answered = true; });
    EXPECT_TRUE(wait_until([&] { return answered; }));
}

TEST_F(Desktop, ScrollsTheTextAtEachKey) {
    TextForm form;
    show(form);
    const auto scrolled = [&](int key) {
        keybd_event(BYTE(key), 0, KEYEVENTF_EXTENDEDKEY, 0);
        keybd_event(BYTE(key), 0, KEYEVENTF_EXTENDEDKEY | KEYEVENTF_KEYUP, 0);
        driver().settle();
        return GetScrollPos(view_of(form), SB_VERT);
    };
    const int line = scrolled(VK_DOWN);
    EXPECT_GT(line, 0);
    EXPECT_EQ(scrolled(VK_UP), 0);
    const int page = scrolled(VK_NEXT);
    EXPECT_GT(page, line);
    EXPECT_GT(scrolled(VK_END), 2 * page);
    EXPECT_GT(scrolled(VK_PRIOR), page);
    EXPECT_EQ(scrolled(VK_HOME), 0);
}

TEST_F(Desktop, LaysEverythingOutAnewOnAScreenOfAnotherResolution) {
    TextForm form;
    show(form);
    const LONG usual = line_height(form);
    const int dpi = int(GetDpiForSystem());
    for (const int now : {2 * dpi, dpi, dpi * 3 / 2, dpi}) {
        RECT place{20, 20, 0, 0};
        SendMessageW(window_of(form), WM_DPICHANGED, MAKEWPARAM(now, now),
                     reinterpret_cast<LPARAM>(&place));
        const auto scaled = [&](int length) { return length * driver().ratio() * now / dpi; };
        RECT client{};
        GetClientRect(window_of(form), &client);
        EXPECT_EQ(client.right, scaled(300));
        HWND button = FindWindowExW(window_of(form), nullptr, L"Button", nullptr);
        RECT at{};
        GetWindowRect(button, &at);
        MapWindowPoints(nullptr, window_of(form), reinterpret_cast<POINT*>(&at), 2);
        EXPECT_NEAR(at.top, scaled(180), 1);
        EXPECT_NEAR(at.bottom, scaled(197), 1);
        EXPECT_NEAR(line_height(form), usual * now / dpi, 2) << now;
        expect_colors(form, {{10.0 * now / dpi + 1, 5.0 * now / dpi, blue}});
    }
    SendMessageW(view_of(form), EM_SETZOOM, 3, 1);  // as by Ctrl and the wheel
    click(form, form.button);
    EXPECT_GT(line_height(form), 2 * usual);
    host().hide(form);
    show(form);
    EXPECT_EQ(line_height(form), usual);
}

}  // namespace
}  // namespace solvanta::test
