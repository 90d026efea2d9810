#include "front_ends/win32/button.h"

#include <utility>

#include <commctrl.h>
#include <windowsx.h>

#include "front_ends/common/look.h"

namespace solvanta::win32 {
namespace {

bool is_under_mouse(const Message& message) {
    const RECT area = client_area(message.window);
    return PtInRect(&area, {GET_X_LPARAM(message.l), GET_Y_LPARAM(message.l)}) != 0;
}

}  // namespace

Button::Button(CommandButton& element, WindowParts& parts, const Canvas& parent)
    : element_(element), parts_(parts), parent_(parent) {
    create(WC_BUTTONW, WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | BS_PUSHBUTTON, 0, parent.handle());
}

void Button::sync() {
    sync_text(handle(), element_.Caption, standard_font(button_font_pixels, parts_.scale));
    sync_place(handle(), element_, parent_.scale());
}

std::optional<LRESULT> Button::answer(const Message& message) {
    switch (message.id) {
        case WM_GETDLGCODE:
            return answer_of_class(message) | (message.w == VK_RETURN ? DLGC_WANTMESSAGE : 0);
        case WM_KEYDOWN:
            return press_by_enter(message);
        case WM_NCPAINT:  // there is no frame, but the class would look for one
            return 0;
        case handed_on + WM_COMMAND:
            if (HIWORD(message.w) == BN_CLICKED) click();
            return 0;
        case handed_on + WM_NOTIFY:
            return paint_caption(*reinterpret_cast<const NMHDR*>(message.l));
        default:
            return answer_mouse(message);
    }
}

std::optional<LRESULT> Button::press_by_enter(const Message& message) const {
    if (message.w != VK_RETURN) return std::nullopt;
    // An Enter held down since it ended the name entry is not meant for the button.
    if ((HIWORD(message.l) & KF_REPEAT) == 0) click();
    return 0;
}

/// The button's own handling of the mouse would take the keyboard focus.
std::optional<LRESULT> Button::answer_mouse(const Message& message) {
    switch (message.id) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            SetCapture(handle());
            held_ = true;
            push(true);
            return 0;
        case WM_MOUSEMOVE:
            if (held_) push(is_under_mouse(message));
            return std::nullopt;
        case WM_LBUTTONUP:
            return release(message);
        case WM_CAPTURECHANGED:
            if (std::exchange(held_, false)) push(false);
            return std::nullopt;
        default:
            return std::nullopt;
    }
}

LRESULT Button::release(const Message& message) const {
    if (!held_) return 0;
    ReleaseCapture();
    if (is_under_mouse(message)) click();
    return 0;
}

void Button::push(bool pushed) const {
    SendMessageW(handle(), BM_SETSTATE, pushed ? TRUE : FALSE, 0);
}

void Button::click() const {
    parts_.deliver(element_.Click);
}

/// The caption in the whole height of the button: inside its border a low button would cut it off.
LRESULT Button::paint_caption(const NMHDR& notice) const {
    if (notice.code != NM_CUSTOMDRAW) return CDRF_DODEFAULT;
    const auto& draw = reinterpret_cast<const NMCUSTOMDRAW&>(notice);
    if (draw.dwDrawStage != CDDS_PREPAINT) return CDRF_DODEFAULT;
    const bool disabled = (draw.uItemState & CDIS_DISABLED) != 0;
    RECT area = client_area(handle());
    draw_text(draw.hdc, element_.Caption, area, DT_CENTER | DT_VCENTER | DT_SINGLELINE,
              standard_font(button_font_pixels, parts_.scale),
              GetSysColor(disabled ? COLOR_GRAYTEXT : COLOR_BTNTEXT));
    const bool cues_hidden = (SendMessageW(handle(), WM_QUERYUISTATE, 0, 0) & UISF_HIDEFOCUS) != 0;
    if ((draw.uItemState & CDIS_FOCUS) != 0 && !cues_hidden) {
        InflateRect(&area, -2, -2);
        DrawFocusRect(draw.hdc, &area);
    }
    return CDRF_SKIPDEFAULT;
}

}  // namespace solvanta::win32
