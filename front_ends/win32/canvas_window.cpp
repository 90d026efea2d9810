#include "front_ends/win32/canvas_window.h"

#include <limits>

#include <windowsx.h>

#include "front_ends/win32/scale.h"

namespace solvanta::win32 {
namespace {

UINT text_format(Alignment alignment) {
    constexpr UINT format = DT_TOP | DT_WORDBREAK;
    switch (alignment) {
        case Alignment::Right:
            return format | DT_RIGHT;
        case Alignment::Centered:
            return format | DT_CENTER;
        case Alignment::Left:
            break;
    }
    return format | DT_LEFT;
}

POINT place_of_mouse(const Message& message) {
    return {GET_X_LPARAM(message.l), GET_Y_LPARAM(message.l)};
}

/// Whether a control lies there. A disabled one gets no mouse messages: they come to its parent.
bool is_on_control(const Message& message) {
    HWND there = ChildWindowFromPointEx(message.window, place_of_mouse(message), CWP_SKIPINVISIBLE);
    return there != nullptr && there != message.window;
}

}  // namespace

std::optional<LRESULT> CanvasWindow::answer(const Message& message) {
    switch (message.id) {
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            paint_buffered(handle(), [this](HDC dc) { paint(dc); });
            return 0;
        case WM_PRINTCLIENT:  // by a button with round corners, for what is behind them
            paint(reinterpret_cast<HDC>(message.w));
            return 0;
        case WM_COMMAND:
        case WM_NOTIFY:
            return hand_on(message);
        default:
            return answer_mouse(message);
    }
}

void CanvasWindow::paint_elements(HDC dc) const {
    for (const Painted& item : container_.canvas) {
        std::visit(
            [&](const auto* element) {
                const RECT place = place_of(*element, parts_.dpi);
                if (element->Visible && RectVisible(dc, &place)) paint_element(dc, *element);
            },
            item);
    }
}

void CanvasWindow::paint_element(HDC dc, const PictureElement& element) const {
    if (element.Picture.load_number() == 0) return;
    const RECT place = place_of(element, parts_.dpi);
    Image& image = parts_.pictures.image(element.Picture, parts_.dpi);
    if (!image.readable()) {
        return paint_placeholder(dc, place, element.Picture, parts_.fonts, parts_.dpi);
    }
    const SIZE size = image.size();
    image.paint(dc, {place.left, place.top}, size,
                element.CutToHeight ? size_of(place).cy : size.cy);
}

void CanvasWindow::paint_element(HDC dc, const Label& label) const {
    const RECT place = place_of(label, parts_.dpi);
    fill(dc, place, label.BackColor ? to_color(*label.BackColor) : GetSysColor(COLOR_BTNFACE));
    draw_text(dc, label.Caption, place, text_format(label.Alignment),
              parts_.fonts.of(label.Font, parts_.dpi), to_color(label.ForeColor));
}

std::optional<LRESULT> CanvasWindow::answer_mouse(const Message& message) {
    switch (message.id) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            press(message);
            return 0;
        case WM_LBUTTONUP:
            release(message);
            return 0;
        case WM_CAPTURECHANGED:
            lose_press();
            return 0;
        case WM_NCLBUTTONDOWN:  // may be taken for the first press of a double click
        case WM_NCLBUTTONDBLCLK:
            mouse_.forget_press();
            return std::nullopt;
        default:
            return std::nullopt;
    }
}

void CanvasWindow::press(const Message& message) {
    if (is_on_control(message)) return mouse_.forget_press();
    const Twips x = to_twips(place_of_mouse(message).x, parts_.dpi);
    const Twips y = to_twips(place_of_mouse(message).y, parts_.dpi);
    SetCapture(handle());
    captured_ = true;
    if (message.id == WM_LBUTTONDOWN) return mouse_.press(x, y);
    parts_.deliver([this, x, y] { mouse_.double_press(x, y); });
}

void CanvasWindow::release(const Message& message) {
    captured_ = false;
    ReleaseCapture();
    const Twips x = to_twips(place_of_mouse(message).x, parts_.dpi);
    const Twips y = to_twips(place_of_mouse(message).y, parts_.dpi);
    parts_.deliver([this, x, y] { mouse_.release(x, y); });
}

/// What was pressed is let go of somewhere else, where it makes no click.
void CanvasWindow::lose_press() {
    if (!captured_) return;
    captured_ = false;
    constexpr Twips nowhere = std::numeric_limits<Twips>::min();
    mouse_.release(nowhere, nowhere);
}

}  // namespace solvanta::win32
