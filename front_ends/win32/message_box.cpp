#include "front_ends/win32/message_box.h"

#include <algorithm>
#include <deque>
#include <span>
#include <vector>

#include <commctrl.h>

#include "front_ends/common/boxes.h"
#include "front_ends/win32/scale.h"
#include "front_ends/win32/window.h"
#include "text/windows_text.h"

namespace solvanta::win32 {
namespace {

/// What is known of a box from before it opens until it is closed.
struct OpenBox {
    HWND owner;
    HWND& box;
    SHORT enter;  // of the key's state when it opened, of which each press turns a bit over
};

/// Moves a box to the lower half of its owner, so that a picture shown with it stays in view, and
/// wholly on the screen.
void place_low(HWND box, HWND owner) {
    RECT over = client_area(owner);
    MapWindowPoints(owner, nullptr, reinterpret_cast<POINT*>(&over), 2);
    RECT place{};
    GetWindowRect(box, &place);
    const SIZE size = size_of(place);
    const RECT free = work_area(owner);
    const LONG left = (over.left + over.right - size.cx) / 2;
    const LONG top = over.top + size_of(over).cy * 5 / 8;
    SetWindowPos(box, nullptr,
                 std::clamp(left, free.left, std::max(free.left, free.right - size.cx)),
                 std::clamp(top, free.top, std::max(free.top, free.bottom - size.cy)), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

/// Buttons numbered up to the last one, so that it has the number of Esc and the close box.
std::vector<TASKDIALOG_BUTTON> numbered(std::span<const BoxButton> choices,
                                        std::deque<std::wstring>& captions) {
    std::vector<TASKDIALOG_BUTTON> buttons;
    int number = IDCANCEL + static_cast<int>(choices.size());
    for (const BoxButton& choice : choices)
        buttons.push_back({--number, captions.emplace_back(to_utf16(choice.caption)).c_str()});
    return buttons;
}

HRESULT CALLBACK on_notice(HWND box, UINT notice, WPARAM /*button*/, LPARAM /*more*/,
                           LONG_PTR data) {
    const OpenBox& open = *reinterpret_cast<const OpenBox*>(data);
    if (notice == TDN_CREATED) {
        open.box = box;
        if (IsWindowVisible(open.owner) && !IsIconic(open.owner)) place_low(box, open.owner);
    }
    // An Enter held down since it opened the box is not meant for its button, but the program's own
    // press of one is.
    const bool held = open.box != nullptr && open.enter < 0 && open.enter == GetKeyState(VK_RETURN);
    return notice == TDN_BUTTON_CLICKED && held ? S_FALSE : S_OK;
}

TASKDIALOGCONFIG plain_box(HWND owner, const std::wstring& text) {
    TASKDIALOGCONFIG config{};
    config.cbSize = sizeof config;
    config.hwndParent = owner;
    config.dwFlags = TDF_ALLOW_DIALOG_CANCELLATION | TDF_POSITION_RELATIVE_TO_WINDOW;
    config.pszWindowTitle = L"Solvanta";
    config.pszContent = text.c_str();
    config.pfCallback = on_notice;
    return config;
}

}  // namespace

Answer show_box(HWND owner, const std::string& text, Buttons buttons, HWND& box) {
    const std::span<const BoxButton> choices = buttons_of(buttons);
    const std::wstring content = to_utf16(text);
    std::deque<std::wstring> captions;
    const std::vector<TASKDIALOG_BUTTON> shown = numbered(choices, captions);
    OpenBox open{owner, box, GetKeyState(VK_RETURN)};
    TASKDIALOGCONFIG config = plain_box(owner, content);
    config.cButtons = static_cast<UINT>(shown.size());
    config.pButtons = shown.data();
    config.nDefaultButton = shown.front().nButtonID;
    config.lpCallbackData = reinterpret_cast<LONG_PTR>(&open);
    int pressed = 0;
    TaskDialogIndirect(&config, &pressed, nullptr, nullptr);
    box = nullptr;
    return (pressed == config.nDefaultButton ? choices.front() : choices.back()).answer;
}

}  // namespace solvanta::win32
