#include "front_ends/win32/canvas.h"

#include <utility>

#include <commctrl.h>
#include <uxtheme.h>
#include <vssym32.h>
#include <windowsx.h>

#include "front_ends/common/look.h"
#include "front_ends/common/walk.h"

namespace solvanta::win32 {
namespace {

UINT text_format(Alignment alignment) {
    constexpr UINT sideways[] = {DT_LEFT, DT_RIGHT, DT_CENTER};
    return sideways[static_cast<std::size_t>(alignment)] | DT_TOP | DT_WORDBREAK;
}

/// The colour of a label's text: on the system's ground, which may be as dark as the text or as
/// light, the system's own where it must be.
COLORREF ink_of(const Label& label) {
    const COLORREF ink = to_color(label.ForeColor);
    const bool lost = !label.BackColor && is_dark(ink) == is_dark(to_ground({}));
    return lost ? GetSysColor(COLOR_BTNTEXT) : ink;
}

/// Whether a control lies there. A disabled one gets no mouse messages: they come to its parent.
bool is_on_control(const Message& message) {
    const POINT place{GET_X_LPARAM(message.l), GET_Y_LPARAM(message.l)};
    HWND there = ChildWindowFromPointEx(message.window, place, CWP_SKIPINVISIBLE);
    return there != nullptr && there != message.window;
}

}  // namespace

void Canvas::sync() {
    const PixelRect changed = looks_.changes(
        container_, scale(),
        [this](const Picture& picture) { return parts_.pictures.content(picture); },
        has_key_stops(container_) ? parts_.ringed : nullptr);
    const RECT area = to_rect(changed);
    if (!changed.empty()) InvalidateRect(handle(), &area, FALSE);
}

std::optional<LRESULT> Canvas::answer(const Message& message) {
    switch (message.id) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:  // of a class that hears of them
            return press(message);
        case WM_LBUTTONUP:
            return release(message);
        case WM_CAPTURECHANGED:
            if (std::exchange(captured_, false)) mouse_.cancel();
            return 0;
        case WM_RBUTTONDOWN:
        case WM_MBUTTONDOWN:
        case WM_XBUTTONDOWN:
        case WM_PARENTNOTIFY:  // of a control that is pressed
            mouse_.forget_press();
            return std::nullopt;
        default:
            return PaintedWindow::answer(message);
    }
}

POINT Canvas::place_in_twips(const Message& message) const {
    return {scale().twips_across(GET_X_LPARAM(message.l)),
            scale().twips_down(GET_Y_LPARAM(message.l))};
}

LRESULT Canvas::press(const Message& message) {
    if (parts_.hide_ring) parts_.hide_ring();
    if (is_on_control(message)) {
        mouse_.forget_press();
        return 0;
    }
    SetCapture(handle());
    captured_ = true;
    const POINT at = place_in_twips(message);
    const DoubleClickLimits limits{GetDoubleClickTime(),
                                   scale().twips(GetSystemMetrics(SM_CXDOUBLECLK) / 2.0),
                                   scale().twips(GetSystemMetrics(SM_CYDOUBLECLK) / 2.0)};
    parts_.deliver(mouse_.press({at.x, at.y, static_cast<DWORD>(GetMessageTime())}, limits));
    return 0;
}

LRESULT Canvas::release(const Message& message) {
    captured_ = false;
    ReleaseCapture();
    const POINT at = place_in_twips(message);
    parts_.deliver(mouse_.release(at.x, at.y));
    return 0;
}

void Canvas::paint(HDC dc) {
    fill(dc, client_area(handle()), to_ground(parts_.background));
    paint_elements(dc);
    paint_ring(dc);
}

void Canvas::paint_ring(HDC dc) const {
    if (looks_.ring().empty()) return;
    RECT line = to_rect(looks_.ring());
    for (const Color& color : {ring_outside, ring_inside}) {
        SetDCBrushColor(dc, to_color(color));
        for (int width = scale().scaled(ring_line); width > 0; --width) {
            FrameRect(dc, &line, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
            InflateRect(&line, -1, -1);
        }
    }
}

void Canvas::paint_elements(HDC dc) const {
    for (std::size_t i = 0; i < container_.canvas.size(); ++i) {
        const RECT area = to_rect(looks_.area(i));
        if (IsRectEmpty(&area) || !RectVisible(dc, &area)) continue;
        std::visit([&](const auto* element) { paint(dc, area, *element); }, container_.canvas[i]);
    }
}

void Canvas::paint(HDC dc, const RECT& area, const PictureElement& element) const {
    const PictureContent* const content = parts_.pictures.content(element.Picture);
    if (!content) return paint_placeholder(dc, area, element.Picture, scale());
    const PixelSize whole = painted_area(element, &content->size, scale()).whole;
    parts_.pictures.image(element.Picture, whole).paint(dc, area, whole.height);
}

void Canvas::paint(HDC dc, const RECT& area, const Label& label) const {
    fill(dc, area, to_ground(label.BackColor));
    draw_text(dc, label.Caption, area, text_format(label.Alignment), to_font(label.Font, scale()),
              ink_of(label));
}

// A group box is what tells a screen reader that the elements inside belong together.
void FrameBox::make() {
    create(WC_BUTTONW, WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN | BS_GROUPBOX,
           WS_EX_CONTROLPARENT, parent_.handle());
    words_ = CreateWindowExW(0, WC_STATICW, L"", WS_CHILD, 0, 0, 0, 0, handle(), nullptr,
                             GetModuleHandleW(nullptr), nullptr);
}

void FrameBox::sync() {
    if (!handle() && !frame_.Visible) return;
    if (!handle()) make();
    EnableWindow(handle(), frame_.Enabled ? TRUE : FALSE);
    sync_text(handle(), frame_.Caption, to_font({}, scale()));
    sync_text(words_, words_of(frame_), nullptr);
    sync_place(handle(), frame_, parent_.scale());
    Canvas::sync();
}

std::optional<LRESULT> FrameBox::answer(const Message& message) {
    switch (message.id) {
        case WM_NCHITTEST:  // the class would let the mouse through
            return HTCLIENT;
        case WM_SETTEXT:  // the class would paint at once, in its own way
        case WM_ENABLE:
            InvalidateRect(handle(), nullptr, FALSE);
            return DefWindowProcW(message.window, message.id, message.w, message.l);
        default:
            return Canvas::answer(message);
    }
}

void FrameBox::paint(HDC dc) {
    const RECT area = client_area(handle());
    const int margin = scale().scaled(frame_margin);
    fill(dc, area, to_ground({}));
    paint_border(dc);
    const int before = SaveDC(dc);
    IntersectClipRect(dc, margin, scale().scaled(frame_caption_height), area.right - margin,
                      area.bottom - margin);
    paint_elements(dc);
    RestoreDC(dc, before);
}

void FrameBox::paint_border(HDC dc) const {
    constexpr int caption_margin = 3;
    const int height = scale().scaled(frame_caption_height);
    HFONT font = to_font({}, scale());
    RECT line = client_area(handle());
    line.top += height / 2;
    RECT caption{scale().scaled(frame_caption_indent), 0, 0, height};
    caption.right =
        caption.left + text_size(dc, frame_.Caption, font).cx + 2 * scale().scaled(caption_margin);
    if (HTHEME theme = OpenThemeData(handle(), L"BUTTON")) {
        DrawThemeBackground(theme, dc, BP_GROUPBOX, GBS_NORMAL, &line, nullptr);
        CloseThemeData(theme);
    } else {
        DrawEdge(dc, &line, EDGE_ETCHED, BF_RECT);
    }
    fill(dc, caption, to_ground({}));
    draw_text(dc, frame_.Caption, caption, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOCLIP, font,
              GetSysColor(frame_.Enabled ? COLOR_BTNTEXT : COLOR_GRAYTEXT));
}

}  // namespace solvanta::win32
