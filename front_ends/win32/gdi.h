#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include <windows.h>

#include "platform/elements.h"

namespace solvanta::win32 {

struct GdiDeleter {
    void operator()(HGDIOBJ object) const { DeleteObject(object); }
};

/// A font, brush, pen or bitmap that is ours to delete.
using GdiObject = std::unique_ptr<void, GdiDeleter>;

struct DcDeleter {
    void operator()(HDC dc) const { DeleteDC(dc); }
};

/// A device context in memory.
using MemoryDc = std::unique_ptr<HDC__, DcDeleter>;

/// Selects an object into a device context for a while.
class Selection {
  public:
    Selection(HDC dc, HGDIOBJ object) : dc_(dc), before_(SelectObject(dc, object)) {}
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;
    ~Selection() { SelectObject(dc_, before_); }

  private:
    HDC dc_;
    HGDIOBJ before_;
};

inline COLORREF to_color(const Color& color) {
    return RGB(color.red, color.green, color.blue);
}

/// Fills a rectangle with one colour.
void fill(HDC dc, const RECT& rect, COLORREF color);

/// Draws UTF-8 text without a background of its own. `format` is that of DrawText; an ampersand
/// means itself.
void draw_text(HDC dc, std::string_view text, RECT place, UINT format, HFONT font, COLORREF color);

/// Answers WM_PAINT: has `paint` fill the area to be painted in memory first, so that nothing
/// flickers.
void paint_buffered(HWND window, const std::function<void(HDC)>& paint);

/// The size of one line of UTF-8 text.
SIZE text_size(HDC dc, std::string_view text, HFONT font);

}  // namespace solvanta::win32
