#include "front_ends/win32/fonts.h"

#include <cmath>
#include <cwchar>

#include "front_ends/win32/scale.h"
#include "text/windows_text.h"

namespace solvanta::win32 {
namespace {

constexpr int standard_pixels = 12;

std::wstring message_family() {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (!SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0)) {
        return L"MS Shell Dlg 2";
    }
    return metrics.lfMessageFont.lfFaceName;
}

/// The old screen font comes in sizes for 96 dots per inch only; above them its twin with outlines
/// takes its place.
std::wstring family_for(const std::string& family, int dpi) {
    const bool screen_font = family == "MS Sans Serif";
    if (screen_font && dpi != USER_DEFAULT_SCREEN_DPI) return L"Microsoft Sans Serif";
    return to_utf16(family);
}

}  // namespace

HFONT Fonts::of(const Font& font, int dpi) {
    if (font.family.empty()) return standard(standard_pixels, dpi);
    constexpr int points_per_inch = 72;
    const int pixels = static_cast<int>(std::lround(font.points * dpi / points_per_inch));
    return make(family_for(font.family, dpi), pixels, font.bold);
}

HFONT Fonts::standard(int pixels, int dpi) {
    static const std::wstring family = message_family();
    return make(family, scaled(pixels, dpi), false);
}

HFONT Fonts::make(const std::wstring& family, int pixels, bool bold) {
    GdiObject& font = fonts_[{family, pixels, bold}];
    if (!font) {
        LOGFONTW description{};
        description.lfHeight = -pixels;  // of the characters, without the space between lines
        description.lfWeight = bold ? FW_BOLD : FW_NORMAL;
        description.lfCharSet = DEFAULT_CHARSET;
        // Leads to a like font where the named one is missing.
        const bool fixed_pitch = family.starts_with(L"Courier");
        description.lfPitchAndFamily =
            fixed_pitch ? BYTE{FIXED_PITCH | FF_MODERN} : BYTE{VARIABLE_PITCH | FF_SWISS};
        family.copy(description.lfFaceName, LF_FACESIZE - 1);
        font.reset(CreateFontIndirectW(&description));
    }
    return static_cast<HFONT>(font.get());
}

}  // namespace solvanta::win32
