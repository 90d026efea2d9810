#include <algorithm>
#include <array>
#include <cmath>
#include <future>
#include <stdexcept>

#include <richedit.h>
#include <windows.h>

#include "tests/front_ends/stage.h"
#include "text/windows_text.h"

namespace solvanta::test {
namespace {

HWND window_of(const Form& form) {
    return FindWindowW(L"Solvanta", to_utf16(form.Caption).c_str());
}

/// A form with one of each kind that bears text.
struct TextForm : EntryForm {
    TextForm() {
        HasIcon = true;
        frame.Visible = frame.Enabled = true;
        place(view, 10, 125, 280, 50);
        place(label, 10, 2, 100, 16);
        label.Alignment = Alignment::Right;
        label.Caption = box.Text = button.Caption = "H";
        canvas = {&label};
        view.Font = {"Arial", 12, true};
        view.TextRTF = R"({\rtf1{\colortbl;\red0\green0\blue0;}\cf1\fs24 H})";
        controls = {&view, &button, &frame};
    }

    RichTextBox view;
    Label label;
};

constexpr RECT label_area{10, 2, 110, 18};
constexpr RECT view_area{11, 126, 100, 144};

/// What in an area of a window has not the colour of its first pixel, which is the ground; in
/// pixels of which each has so many of the device.
struct Ink {
    Ink(const Form& form, const RECT& area, double scale = 1) {
        const auto device = [scale](LONG pixel) { return std::lround(double(pixel) * scale); };
        RedrawWindow(window_of(form), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        HDC dc = GetDCEx(window_of(form), nullptr, DCX_CACHE);
        ground = GetPixel(dc, device(area.left), device(area.top));
        RECT seen{};
        for (LONG x = device(area.left); x < device(area.right); ++x) {
            for (LONG y = device(area.top); y < device(area.bottom); ++y) {
                const RECT pixel{x, y, x + 1, y + 1};
                if (GetPixel(dc, x, y) != ground) UnionRect(&seen, &seen, &pixel);
            }
        }
        ReleaseDC(window_of(form), dc);
        edges = {seen.left / scale, seen.top / scale, seen.right / scale, seen.bottom / scale};
    }

    std::array<double, 4> edges{};  ///< left, top, right, bottom; the same without ink
    COLORREF ground;
};

class Desktop : public FrontEnd {};

// The system ends a program at any time after this answer, whatever is still open in it.
TEST_F(Desktop, EndsAtOnceWithABoxOpenAndAKeyHeld) {
    TestForm form;
    bool closed = false;
    form.Closed = [&] { closed = true, host().quit(); };
    form.button.Click = [&] {
        host().ask("Gewonnen!", Buttons::Ok, [](Answer) { ADD_FAILURE() << "answered"; });
    };
    show(form);
    when_box_opens([&] {
        SendMessageW(window_of(form), WM_ENDSESSION, TRUE, 0);
        EXPECT_TRUE(closed && !driver().box());
    });
    keybd_event(VK_RETURN, 0, 0, 0);  // on the button, which has the focus
    EXPECT_TRUE(driver().run());
    keybd_event(VK_RETURN, 0, KEYEVENTF_KEYUP, 0);
}

// The box belongs to one window and disables all: it must come with any of them.
TEST_F(Desktop, BringsTheBoxWithEveryWindow) {
    TestForm form;
    TestForm other("Hilfe");
    form.Place = OpeningPlace::Centered;
    show(other);
    show(form);
    const auto box_is_in_front = [&] {
        return GetForegroundWindow() == FindWindowW(L"#32770", L"Solvanta");
    };
    when_box_opens([&] {
        RECT below{};
        GetWindowRect(window_of(form), &below);
        EXPECT_NEAR(below.left + below.right, GetSystemMetrics(SM_CXSCREEN), 2);
        EXPECT_NEAR(below.top + below.bottom, GetSystemMetrics(SM_CYSCREEN), 2);
        SetForegroundWindow(window_of(other));
        EXPECT_FALSE(box_is_in_front());
        when(box_is_in_front, [&] {
            ShowWindow(window_of(form), SW_MINIMIZE);
            SetForegroundWindow(window_of(other));
            when([&] { return box_is_in_front() && IsIconic(window_of(form)) == FALSE; },
                 [&] { driver().close("Solvanta"); });
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
    const auto due = [&] { return int(GetTickCount64() - start) / 50 - 5; };
    auto hand = std::async([window = window_of(form), due] {
        while (due() < 15)
            Sleep(50);
        PostMessageW(window, WM_LBUTTONUP, 0, 0);
    });
    SendMessageW(window_of(form), WM_NCLBUTTONDOWN, HTMINBUTTON, 0);
    EXPECT_LT(ticks, 10);
    EXPECT_TRUE(wait_until([&] { return ticks >= due(); }));
}

TEST_F(Desktop, ScrollsTheTextAtEachKeyAndZoomsItUntilItIsOpenedAnew) {
    TextForm form;
    for (int line = 0; line < 40; ++line)
        form.view.TextRTF.insert(form.view.TextRTF.rfind('}'), "\\par H");
    show(form);
    HWND view = FindWindowExW(window_of(form), nullptr, L"RICHEDIT50W", nullptr);
    std::vector<int> at;
    for (const int key : {VK_DOWN, VK_UP, VK_NEXT, VK_END, VK_PRIOR, VK_HOME}) {
        press_key(Key(key));
        at.push_back(GetScrollPos(view, SB_VERT));
    }
    EXPECT_TRUE(0 < at[0] && at[0] < at[2] && at[2] < at[4] && at[4] < at[3] && at[1] + at[5] == 0);
    SendMessageW(view, EM_SETZOOM, 3, 1);  // as by Ctrl and the wheel
    click(form, form.button);
    for (const DWORD zoom : {3U, 1U}) {
        DWORD times = 0;
        DWORD of = 0;
        SendMessageW(view, EM_GETZOOM, WPARAM(&times), LPARAM(&of));
        EXPECT_EQ(times, zoom * of);
        host().hide(form);
        show(form);
    }
}

TEST_F(Desktop, ChangesItsSizeByKeys) {
    const std::tuple<int, Modifier, int> cases[] = {{VK_ADD, Modifier::Control, 375},
                                                    {VK_SUBTRACT, Modifier::Control, 300},
                                                    {VK_F11, Modifier::None, 1280},
                                                    {VK_ESCAPE, Modifier::None, 300}};
    TestForm form;
    show(form);
    for (const auto& [key, modifier, width] : cases) {
        press_key(Key(key), modifier);
        EXPECT_EQ(driver().window("Probe")->width, width);
    }
}

TEST_F(Desktop, HasNoDarkTextOnDarkGround) {
    const int kinds[] = {COLOR_BTNFACE, COLOR_WINDOW, COLOR_BTNTEXT, COLOR_WINDOWTEXT};
    const std::array<COLORREF, 4> contrast{0, 0, 0xFFFFFF, 0xFFFFFF};
    std::array<COLORREF, 4> usual{};
    std::transform(std::begin(kinds), std::end(kinds), usual.begin(), GetSysColor);
    TextForm form;
    show(form);
    for (const auto& colors : {contrast, usual}) {
        SetSysColors(4, kinds, colors.data());
        driver().wait(50);
        for (const RECT& area : {label_area, view_area}) {
            const Ink ink(form, area);
            EXPECT_LT(ink.edges[0], ink.edges[2]);
            EXPECT_EQ(GetGValue(ink.ground) > 128, colors == usual);
        }
    }
}

TEST_F(Desktop, PaintsEverythingAtItsPlaceOnAnyScreen) {
    const std::pair<RECT, std::array<double, 4>> cases[] = {
        {label_area, {102, 4, 109, 13}},          {view_area, {15, 132, 23, 142}},
        {{20, 21, 280, 120}, {20, 22, 280, 120}},  // the frame
        {{32, 20, 100, 27}, {33, 22, 70, 27}},     // its caption above the border
        {{45, 56, 200, 76}, {49, 59, 56, 68}},     // the name
        {{3, 183, 77, 194}, {36, 184, 42, 192}},   // the button
    };
    TextForm form;
    show(form);
    EXPECT_TRUE(FindWindowExW(window_of(form), nullptr, L"Button", L"Eintrag"));  // read aloud
    const UINT system_dpi = GetDpiForSystem();
    for (const UINT dpi : {2 * system_dpi, system_dpi * 3 / 2, system_dpi}) {
        RECT corner{20, 20, 0, 0};
        SendMessageW(window_of(form), WM_DPICHANGED, MAKEWPARAM(dpi, dpi),
                     reinterpret_cast<LPARAM>(&corner));
        const double scale = dpi / 96.0;
        for (const auto& [area, at] : cases) {
            const auto seen = Ink(form, area, scale).edges;
            for (std::size_t edge = 0; edge < at.size(); ++edge)
                EXPECT_NEAR(seen[edge], at[edge], 2) << dpi << ": " << at[0];
        }
        ICONINFO icon{};
        BITMAP picture{};
        GetIconInfo(HICON(SendMessageW(window_of(form), WM_GETICON, ICON_BIG, 0)), &icon);
        GetObjectW(icon.hbmColor, sizeof picture, &picture);
        EXPECT_EQ(picture.bmWidth, GetSystemMetricsForDpi(SM_CXICON, dpi));
    }
    press_key(Key::Tab);  // to the button, which shows that
    EXPECT_GT(Ink(form, {3, 183, 78, 194}).edges[2], 70);
    form.button.Click = [&] { form.frame.Caption = "E"; };
    click(form, form.button);
    EXPECT_LT(Ink(form, {32, 20, 100, 27}).edges[2], 50);
}

TEST_F(Desktop, SpeaksTheUsersLanguageAndGoesOnAfterAnError) {
    const LocaleTexts texts = host().locale_texts();
    EXPECT_EQ(texts.month_abbreviations.back() + texts.decimal_separator, "Dez,");
    TestForm form;
    form.button.Click = [] { throw std::runtime_error("eine Probe"); };
    show(form);
    press_key(Key::Enter);
}

}  // namespace
}  // namespace solvanta::test
