#include "front_ends/win32/button.h"

#include <commctrl.h>
#include <windowsx.h>

namespace solvanta::win32 {
namespace {

constexpr int font_pixels = 11;  // legible in a button 17 pixels high

bool is_under_mouse(const Message& message) {
    RECT area{};
    GetClientRect(message.window, &area);
    return PtInRect(&area, {GET_X_LPARAM(message.l), GET_Y_LPARAM(message.l)}) != 0;
}

/// Whether the key has been down since an earlier message.
bool is_repeated(const Message& message) {
    return (HIWORD(message.l) & KF_REPEAT) != 0;
}

}  // namespace

Button::Button(CommandButton& element, WindowParts& parts, HWND parent)
    : element_(element), parts_(parts) {
    create(WC_BUTTONW, WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | BS_PUSHBUTTON, 0, parent);
}

void Button::sync() {
    sync_text(handle(), element_.Caption, parts_.fonts.standard(font_pixels, parts_.dpi));
    sync_place(handle(), element_, parts_.dpi);
}

std::optional<LRESULT> Button::answer(const Message& message) {
    switch (message.id) {
        case handed_on + WM_COMMAND:
            if (HIWORD(message.w) == BN_CLICKED) click();
            return 0;
        case handed_on + WM_NOTIFY:
            return paint_caption(*reinterpret_cast<const NMHDR*>(message.l));
        case WM_GETDLGCODE:
        case WM_KEYDOWN:
            return answer_keys(message);
        case WM_CAPTURECHANGED:
            if (held_) SendMessageW(handle(), BM_SETSTATE, FALSE, 0);
            held_ = false;
            return std::nullopt;
        default:
            return answer_mouse(message);
    }
}

std::optional<LRESULT> Button::answer_keys(const Message& message) {
    if (message.w != VK_RETURN) return std::nullopt;
    if (message.id == WM_GETDLGCODE) return answer_of_class(message) | DLGC_WANTMESSAGE;
    // An Enter held down since it ended the name entry is not meant for the button.
    if (!is_repeated(message)) click();
    return 0;
}

/// The button's own handling of the mouse would take the keyboard focus.
std::optional<LRESULT> Button::answer_mouse(const Message& message) {
    switch (message.id) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            held_ = true;
            SetCapture(handle());
            press_or_drag(message);
            return 0;
        case WM_MOUSEMOVE:
            if (held_) press_or_drag(message);
            return std::nullopt;
        case WM_LBUTTONUP:
            if (held_) release(message);
            return 0;
        default:
            return std::nullopt;
    }
}

void Button::press_or_drag(const Message& message) {
    SendMessageW(handle(), BM_SETSTATE, is_under_mouse(message) ? TRUE : FALSE, 0);
}

void Button::release(const Message& message) {
    ReleaseCapture();
    if (is_under_mouse(message)) click();
}

void Button::click() const {
    parts_.deliver(element_.Click);
}

/// The caption in the whole height of the button: inside its border a low button would cut it off.
LRESULT Button::paint_caption(const NMHDR& notice) {
    if (notice.code != NM_CUSTOMDRAW) return CDRF_DODEFAULT;
    const auto& draw = reinterpret_cast<const NMCUSTOMDRAW&>(notice);
    if (draw.dwDrawStage != CDDS_PREPAINT) return CDRF_DODEFAULT;
    const bool disabled = (draw.uItemState & CDIS_DISABLED) != 0;
    RECT area{};
    GetClientRect(handle(), &area);
    draw_text(draw.hdc, element_.Caption, area, DT_CENTER | DT_VCENTER | DT_SINGLELINE,
              parts_.fonts.standard(font_pixels, parts_.dpi),
              GetSysColor(disabled ? COLOR_GRAYTEXT : COLOR_BTNTEXT));
    const bool cues_hidden = (SendMessageW(handle(), WM_QUERYUISTATE, 0, 0) & UISF_HIDEFOCUS) != 0;
    if ((draw.uItemState & CDIS_FOCUS) != 0 && !cues_hidden) {
        InflateRect(&area, -2, -2);
        DrawFocusRect(draw.hdc, &area);
    }
    return CDRF_SKIPDEFAULT;
}

}  // namespace solvanta::win32
