#include "front_ends/win32/message_box.h"

#include <algorithm>

#include "front_ends/win32/scale.h"
#include "front_ends/win32/window.h"
#include "text/windows_text.h"

namespace solvanta::win32 {
namespace {

/// Keeps the other windows of the program from taking input. The system does so for the owner of a
/// box alone.
class OthersDisabled {
  public:
    explicit OthersDisabled(HWND owner) {
        HWND window = nullptr;
        while ((window = FindWindowExW(nullptr, window, plain_class(), nullptr)) != nullptr) {
            const bool ours = GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId();
            if (ours && window != owner && IsWindowEnabled(window)) windows_.push_back(window);
        }
        for (HWND other : windows_)
            EnableWindow(other, FALSE);
    }
    OthersDisabled(const OthersDisabled&) = delete;
    OthersDisabled& operator=(const OthersDisabled&) = delete;
    ~OthersDisabled() {
        for (HWND window : windows_)
            EnableWindow(window, TRUE);
    }

  private:
    std::vector<HWND> windows_;
};

/// A box with two buttons is always the system's for OK and Cancel, which Esc and the close box
/// answer as well; its buttons then get the captions they should have.
void set_captions(HWND box, Buttons buttons) {
    const bool yes_no = buttons == Buttons::YesNo;
    SetDlgItemTextW(box, IDOK, yes_no ? L"&Ja" : L"OK");
    // The only button of a box may have the number of Cancel, so that Esc presses it.
    const wchar_t* otherwise = buttons == Buttons::OkCancel ? L"Abbrechen" : L"OK";
    SetDlgItemTextW(box, IDCANCEL, yes_no ? L"&Nein" : otherwise);
}

/// Moves a box to the lower half of its owner, so that a picture shown with it stays in view, and
/// wholly on the screen.
void place_low(HWND box, HWND owner) {
    RECT over{};
    RECT place{};
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(owner, MONITOR_DEFAULTTONEAREST), &monitor);
    GetClientRect(owner, &over);
    MapWindowPoints(owner, nullptr, reinterpret_cast<POINT*>(&over), 2);
    GetWindowRect(box, &place);
    const SIZE size = size_of(place);
    const RECT& free = monitor.rcWork;
    const LONG left = (over.left + over.right - size.cx) / 2;
    const LONG top = over.top + size_of(over).cy * 5 / 8;
    SetWindowPos(box, nullptr,
                 std::clamp(left, free.left, std::max(free.left, free.right - size.cx)),
                 std::clamp(top, free.top, std::max(free.top, free.bottom - size.cy)), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

bool is_dialog(HWND window) {
    return GetClassLongPtrW(window, GCW_ATOM) == reinterpret_cast<ULONG_PTR>(WC_DIALOG);
}

}  // namespace

/// What is known of a box from before it opens until it is closed.
class OpenBox {
  public:
    OpenBox(std::vector<HWND>& open, HWND owner, Buttons buttons)
        : open_(open), owner_(owner), buttons_(buttons), others_(owner), below_(current_) {
        open_.reserve(open_.size() + 1);  // nothing must be thrown through the system's calls
        current_ = this;
        opening_ = SetWindowsHookExW(WH_CBT, on_opening, nullptr, GetCurrentThreadId());
        messages_ = SetWindowsHookExW(WH_MSGFILTER, on_message, nullptr, GetCurrentThreadId());
    }
    OpenBox(const OpenBox&) = delete;
    OpenBox& operator=(const OpenBox&) = delete;
    ~OpenBox() {
        UnhookWindowsHookEx(opening_);
        UnhookWindowsHookEx(messages_);
        std::erase(open_, box_);
        current_ = below_;
    }

  private:
    static LRESULT CALLBACK on_opening(int code, WPARAM window, LPARAM more) {
        HWND box = reinterpret_cast<HWND>(window);
        if (code == HCBT_ACTIVATE && !current_->box_ && is_dialog(box)) current_->prepare(box);
        return CallNextHookEx(nullptr, code, window, more);
    }

    /// An Enter held down since it opened the box is not meant for its button.
    static LRESULT CALLBACK on_message(int code, WPARAM more, LPARAM l) {
        const MSG& message = *reinterpret_cast<const MSG*>(l);
        const bool held_enter = code == MSGF_DIALOGBOX && message.message == WM_KEYDOWN &&
                                message.wParam == VK_RETURN &&
                                (HIWORD(message.lParam) & KF_REPEAT) != 0;
        return held_enter ? 1 : CallNextHookEx(nullptr, code, more, l);
    }

    void prepare(HWND box) {
        box_ = box;
        open_.push_back(box);
        set_captions(box, buttons_);
        if (owner_ && IsWindowVisible(owner_) && !IsIconic(owner_)) place_low(box, owner_);
    }

    static inline OpenBox* current_ = nullptr;

    std::vector<HWND>& open_;
    HWND owner_;
    Buttons buttons_;
    OthersDisabled others_;
    OpenBox* below_;
    HWND box_ = nullptr;
    HHOOK opening_ = nullptr;
    HHOOK messages_ = nullptr;
};

Answer MessageBoxes::ask(HWND owner, const std::string& text, Buttons buttons) {
    const OpenBox box(open_, owner, buttons);
    const UINT type = buttons == Buttons::Ok ? MB_OK : MB_OKCANCEL;
    const int button = MessageBoxW(owner, to_utf16(text).c_str(), L"Solvanta", type);
    if (button != IDOK) return answer_of_closing(buttons);
    return buttons == Buttons::YesNo ? Answer::Yes : Answer::Ok;
}

void MessageBoxes::close_all() {
    for (HWND box : open_)
        EndDialog(box, IDCANCEL);
}

}  // namespace solvanta::win32
