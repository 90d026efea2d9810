#include <windows.h>

#include "tests/front_ends/stage.h"
#include "text/windows_text.h"

namespace solvanta::test {
namespace {

HWND window_of(const Form& form) {
    return FindWindowW(L"Solvanta", to_utf16(form.Caption).c_str());
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

}  // namespace
}  // namespace solvanta::test
