#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include <windows.h>

#include "front_ends/win32/scale.h"
#include "platform/elements.h"

namespace solvanta::win32 {

struct GdiDeleter {
    void operator()(HGDIOBJ object) const { DeleteObject(object); }
};

/// A font or bitmap that is ours to delete.
using GdiObject = std::unique_ptr<void, GdiDeleter>;

COLORREF to_color(const Color& color);

/// The colour of a ground; without one it is that of the system's dialogs.
COLORREF to_ground(const std::optional<Color>& color);

/// Whether light text is the one that can be read on it.
bool is_dark(COLORREF color);

/// The font of an element; without a family the system's own for messages, in a size that the
/// layout holds. Each is made once for a resolution and kept.
HFONT to_font(const Font& font, const Scale& scale);

/// The system's own font for messages, `pixels` high where 96 make an inch.
HFONT standard_font(int pixels, const Scale& scale);

/// Fills a rectangle with one colour.
void fill(HDC dc, const RECT& rect, COLORREF color);

/// Draws UTF-8 text without a background of its own. `format` is that of DrawText; an ampersand
/// means itself. Answers `place` as DrawText leaves it.
RECT draw_text(HDC dc, std::string_view text, RECT place, UINT format, HFONT font, COLORREF color);

/// The size of one line of UTF-8 text.
SIZE text_size(HDC dc, std::string_view text, HFONT font);

}  // namespace solvanta::win32
