#include "front_ends/win32/frame_box.h"

#include <commctrl.h>
#include <uxtheme.h>
#include <vssym32.h>

#include "front_ends/win32/scale.h"
#include "text/windows_text.h"

namespace solvanta::win32 {
namespace {

constexpr int border_margin = 4;
constexpr int caption_height = 15;
constexpr int caption_indent = 9;
constexpr int caption_margin = 3;

}  // namespace

// A group box is what tells a screen reader that the elements inside belong together.
FrameBox::FrameBox(Frame& frame, WindowParts& parts, HWND parent)
    : CanvasWindow(frame, parts), frame_(frame) {
    create(WC_BUTTONW, WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN | BS_GROUPBOX,
           WS_EX_CONTROLPARENT, parent);
}

void FrameBox::sync() {
    const bool enabled = IsWindowEnabled(handle()) != FALSE;
    if (enabled != frame_.Enabled) EnableWindow(handle(), enabled ? FALSE : TRUE);
    sync_text(handle(), frame_.Caption, parts().fonts.of({}, parts().dpi));
    sync_place(handle(), frame_, parts().dpi);
    InvalidateRect(handle(), nullptr, FALSE);
}

std::optional<LRESULT> FrameBox::answer(const Message& message) {
    switch (message.id) {
        case WM_NCHITTEST:  // the class would let the mouse through
            return HTCLIENT;
        case WM_SETTEXT:  // the class would paint at once, in its own way
        case WM_ENABLE:
            return DefWindowProcW(message.window, message.id, message.w, message.l);
        default:
            return CanvasWindow::answer(message);
    }
}

void FrameBox::paint(HDC dc) {
    const int dpi = parts().dpi;
    RECT area{};
    GetClientRect(handle(), &area);
    fill(dc, area, GetSysColor(COLOR_BTNFACE));
    paint_border(dc, area);
    const int before = SaveDC(dc);
    IntersectClipRect(dc, scaled(border_margin, dpi), scaled(caption_height, dpi),
                      area.right - scaled(border_margin, dpi),
                      area.bottom - scaled(border_margin, dpi));
    paint_elements(dc);
    RestoreDC(dc, before);
}

void FrameBox::paint_border(HDC dc, const RECT& area) const {
    const int dpi = parts().dpi;
    RECT line = area;
    line.top += scaled(caption_height, dpi) / 2;
    HFONT font = parts().fonts.of({}, dpi);
    const int indent = scaled(caption_indent, dpi);
    const int margin = scaled(caption_margin, dpi);
    const RECT caption{indent, 0, indent + text_size(dc, frame_.Caption, font).cx + 2 * margin,
                       scaled(caption_height, dpi)};
    HTHEME theme = OpenThemeData(handle(), L"BUTTON");
    if (theme) {
        DrawThemeBackground(theme, dc, BP_GROUPBOX, GBS_NORMAL, &line, nullptr);
        CloseThemeData(theme);
    } else {
        DrawEdge(dc, &line, EDGE_ETCHED, BF_RECT);
    }
    fill(dc, caption, GetSysColor(COLOR_BTNFACE));
    draw_text(dc, frame_.Caption, caption, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOCLIP, font,
              GetSysColor(frame_.Enabled ? COLOR_BTNTEXT : COLOR_GRAYTEXT));
}

}  // namespace solvanta::win32
