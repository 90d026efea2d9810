#include "front_ends/win32/look.h"

#include <map>
#include <string>
#include <tuple>

#include "front_ends/common/look.h"
#include "text/windows_text.h"

namespace solvanta::win32 {
namespace {

/// The system's own font for messages; its default where that can't be told.
std::wstring message_family() {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
    return metrics.lfMessageFont.lfFaceName;
}

/// The old screen font comes in sizes for 96 dots per inch only; above them its twin with outlines
/// takes its place.
std::wstring family_for(const std::string& family, const Scale& scale) {
    const bool screen_font = family == "MS Sans Serif";
    return screen_font && scale.pixels() != 1 ? L"Microsoft Sans Serif" : to_utf16(family);
}

HFONT make_font(const std::wstring& family, int pixels, bool bold) {
    static std::map<std::tuple<std::wstring, int, bool>, GdiObject> fonts;
    GdiObject& font = fonts[{family, pixels, bold}];
    // The pitch leads to a like font where the named one is missing; a negative height is that of
    // the characters, without the space between lines.
    const DWORD pitch =
        family.starts_with(L"Courier") ? FIXED_PITCH | FF_MODERN : VARIABLE_PITCH | FF_SWISS;
    if (!font) {
        font.reset(CreateFontW(-pixels, 0, 0, 0, bold ? FW_BOLD : FW_NORMAL, 0, 0, 0,
                               DEFAULT_CHARSET, 0, 0, 0, pitch, family.c_str()));
    }
    return static_cast<HFONT>(font.get());
}

}  // namespace

COLORREF to_color(const Color& color) {
    return RGB(color.red, color.green, color.blue);
}

COLORREF to_ground(const std::optional<Color>& color) {
    return color ? to_color(*color) : GetSysColor(COLOR_BTNFACE);
}

bool is_dark(COLORREF color) {
    return 299 * GetRValue(color) + 587 * GetGValue(color) + 114 * GetBValue(color) < 128'000;
}

HFONT to_font(const Font& font, const Scale& scale) {
    if (font.family.empty()) return standard_font(standard_font_pixels, scale);
    const double pixels = font.points * USER_DEFAULT_SCREEN_DPI / 72;
    return make_font(family_for(font.family, scale), scale.scaled(pixels), font.bold);
}

HFONT standard_font(int pixels, const Scale& scale) {
    static const std::wstring family = message_family();
    return make_font(family, scale.scaled(pixels), false);
}

void fill(HDC dc, const RECT& rect, COLORREF color) {
    SetDCBrushColor(dc, color);
    FillRect(dc, &rect, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

RECT draw_text(HDC dc, std::string_view text, RECT place, UINT format, HFONT font, COLORREF color) {
    const std::wstring characters = to_utf16(text);
    HGDIOBJ before = SelectObject(dc, font);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, color);
    DrawTextW(dc, characters.c_str(), static_cast<int>(characters.size()), &place,
              format | DT_NOPREFIX);
    SelectObject(dc, before);
    return place;
}

SIZE text_size(HDC dc, std::string_view text, HFONT font) {
    return size_of(draw_text(dc, text, {}, DT_CALCRECT | DT_SINGLELINE, font, 0));
}

}  // namespace solvanta::win32
