#include <algorithm>
#include <array>
#include <thread>
#include <utility>

#include <richedit.h>
#include <windows.h>

#include "platform/trouble.h"
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
        HasIcon = true;
        place(view, 10, 30, 280, 140);
        place(label, 10, 4, 100, 20);
        label.BackColor = blue;
        canvas = {&label};
        view.TextRTF = R"({\rtf1{\fonttbl{\f0 Arial;}}\fs24 )";
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

/// The height in pixels of the first line of the text, which has six characters.
LONG line_height(const TextForm& form) {
    POINTL places[2]{};
    for (const int line : {0, 1})
        SendMessageW(view_of(form), EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&places[line]),
                     6 * line);
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

// While it is held, the system's own loop lets nothing but the mouse through.
TEST_F(Desktop, MakesUpForTheTicksMissedWhileACaptionButtonIsHeld) {
    TestForm form;
    int ticks = 0;
    Timer timer{50, [&] { ++ticks; }};
    form.timers = {&timer};
    show(form);
    const ULONGLONG start = GetTickCount64();
    std::thread hand([window = window_of(form)] {
        Sleep(1000);
        PostMessageW(window, WM_LBUTTONUP, 0, 0);
    });
    SendMessageW(window_of(form), WM_NCLBUTTONDOWN, HTMINBUTTON, 0);
    EXPECT_LT(ticks, 10);
    EXPECT_TRUE(wait_until([&] { return ticks >= int(GetTickCount64() - start) / 50 - 5; }));
    hand.join();
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

/// How many pixels of a window are light, from a corner on.
int light_pixels(HWND window, POINT corner) {
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    HDC dc = GetDC(window);
    int light = 0;
    for (int i = 0; i < 60 * 18; ++i)
        light += GetGValue(GetPixel(dc, corner.x + i % 60, corner.y + i / 60)) > 128 ? 1 : 0;
    ReleaseDC(window, dc);
    return light;
}

TEST_F(Desktop, HasNoDarkTextOnDarkGround) {
    const int kinds[] = {COLOR_BTNFACE, COLOR_WINDOW, COLOR_BTNTEXT, COLOR_WINDOWTEXT};
    const std::array<COLORREF, 4> contrast{0, 0, 0xFFFFFF, 0xFFFFFF};
    std::array<COLORREF, 4> usual{};
    std::transform(std::begin(kinds), std::end(kinds), usual.begin(), GetSysColor);
    TextForm form;
    form.label.BackColor.reset();
    form.label.Caption = "Platz: 1";
    form.view.TextRTF.replace(6, 0, R"({\colortbl;\red0\green0\blue0;}\cf1 )");
    show(form);
    for (const auto& colors : {contrast, usual}) {
        SetSysColors(4, kinds, colors.data());
        driver().wait(50);
        for (const auto& [window, corner] :
             {std::pair{window_of(form), POINT{11, 5}}, {view_of(form), POINT{5, 5}}}) {
            const int light = light_pixels(window, corner);
            EXPECT_TRUE(light > 10 && light < 1070) << light;
            EXPECT_EQ(light > 540, colors == usual);
        }
    }
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
        EXPECT_NEAR(line_height(form), 1.0 * usual * now / dpi, 2) << now;
        ICONINFO icon{};
        BITMAP picture{};
        GetIconInfo(HICON(SendMessageW(window_of(form), WM_GETICON, ICON_BIG, 0)), &icon);
        GetObjectW(icon.hbmColor, sizeof picture, &picture);
        EXPECT_EQ(picture.bmWidth, GetSystemMetricsForDpi(SM_CXICON, UINT(now)));
        expect_colors(form, {{10.0 * now / dpi + 1, 5.0 * now / dpi, blue}});
    }
    SendMessageW(view_of(form), EM_SETZOOM, 3, 1);  // as by Ctrl and the wheel
    click(form, form.button);
    EXPECT_GT(line_height(form), 2 * usual);
    host().hide(form);
    show(form);
    EXPECT_EQ(line_height(form), usual);
}

TEST_F(Desktop, IsToldOfTroubleByTheDebuggersStream) {
    static int heard;
    const auto hear = [](EXCEPTION_POINTERS* about) -> LONG {
        const DWORD code = about->ExceptionRecord->ExceptionCode;
        heard += code == DBG_PRINTEXCEPTION_C || code == DBG_PRINTEXCEPTION_WIDE_C ? 1 : 0;
        return EXCEPTION_CONTINUE_SEARCH;
    };
    void* const handler = AddVectoredExceptionHandler(1, hear);
    report_trouble("eine Probe");
    RemoveVectoredExceptionHandler(handler);
    EXPECT_GT(heard, 0);
}

}  // namespace
}  // namespace solvanta::test
