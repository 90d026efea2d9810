#include "front_ends/win32/gdi.h"

#include <string>

#include <uxtheme.h>

#include "text/windows_text.h"

namespace solvanta::win32 {

void fill(HDC dc, const RECT& rect, COLORREF color) {
    SetDCBrushColor(dc, color);
    FillRect(dc, &rect, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void draw_text(HDC dc, std::string_view text, RECT place, UINT format, HFONT font, COLORREF color) {
    const std::wstring characters = to_utf16(text);
    const Selection selected(dc, font);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, color);
    DrawTextW(dc, characters.c_str(), static_cast<int>(characters.size()), &place,
              format | DT_NOPREFIX);
}

void paint_buffered(HWND window, const std::function<void(HDC)>& paint) {
    PAINTSTRUCT area{};
    HDC screen = BeginPaint(window, &area);
    HDC memory = nullptr;
    HPAINTBUFFER buffer =
        BeginBufferedPaint(screen, &area.rcPaint, BPBF_COMPATIBLEBITMAP, nullptr, &memory);
    paint(buffer ? memory : screen);
    if (buffer) EndBufferedPaint(buffer, TRUE);
    EndPaint(window, &area);
}

SIZE text_size(HDC dc, std::string_view text, HFONT font) {
    const std::wstring characters = to_utf16(text);
    const Selection selected(dc, font);
    SIZE size{};
    GetTextExtentPoint32W(dc, characters.c_str(), static_cast<int>(characters.size()), &size);
    return size;
}

}  // namespace solvanta::win32
