#include "front_ends/win32/rich_text_view.h"

#include <algorithm>
#include <string_view>

#include <richedit.h>

#include "text/windows_text.h"

namespace solvanta::win32 {
namespace {

constexpr LPARAM text_limit = LPARAM{64} << 20;
constexpr int text_margin = 4;

/// Hands the next bytes of a text to the control.
DWORD CALLBACK read_some(DWORD_PTR rest, BYTE* place, LONG wanted, LONG* got) {
    auto& bytes = *reinterpret_cast<std::string_view*>(rest);
    const std::size_t count = std::min(bytes.size(), static_cast<std::size_t>(wanted));
    std::copy_n(bytes.begin(), count, place);
    bytes.remove_prefix(count);
    *got = static_cast<LONG>(count);
    return 0;
}

/// The document with the groups that lie too deep joined with those around them: not every version
/// of the control survives them. A line end stands for nothing.
std::string without_deep_groups(std::string rtf) {
    constexpr int deepest = 16;
    int depth = 0;
    for (std::size_t i = 0; i < rtf.size(); ++i) {
        const bool opens = rtf[i] == '{' && ++depth > deepest;
        const bool closes = rtf[i] == '}' && depth-- > deepest;
        if (rtf[i] == '\\') ++i;
        if (opens || closes) rtf[i] = '\n';
    }
    return rtf;
}

/// What a key scrolls; with Shift it selects.
std::optional<WPARAM> scroll_of(WPARAM key) {
    constexpr WPARAM scrolls[][2] = {{VK_UP, SB_LINEUP},    {VK_DOWN, SB_LINEDOWN},
                                     {VK_PRIOR, SB_PAGEUP}, {VK_NEXT, SB_PAGEDOWN},
                                     {VK_HOME, SB_TOP},     {VK_END, SB_BOTTOM}};
    if (GetKeyState(VK_SHIFT) < 0) return std::nullopt;
    for (const auto& [known, scroll] : scrolls) {
        if (known == key) return scroll;
    }
    return std::nullopt;
}

/// A font, and the system's own colour of text; which of these apply is for the mask to say.
CHARFORMATW format_of(const Font& font) {
    constexpr int twips_per_point = 20;
    CHARFORMATW format{};
    format.cbSize = sizeof format;
    if (!font.family.empty()) format.dwMask = CFM_FACE | CFM_SIZE | CFM_BOLD | CFM_CHARSET;
    format.dwEffects = CFE_AUTOCOLOR | (font.bold ? CFE_BOLD : 0);
    format.yHeight = static_cast<LONG>(font.points * twips_per_point);
    format.bCharSet = DEFAULT_CHARSET;
    format.bPitchAndFamily = FIXED_PITCH | FF_MODERN;
    to_utf16(font.family).copy(format.szFaceName, LF_FACESIZE - 1);
    return format;
}

}  // namespace

RichTextView::RichTextView(const RichTextBox& box, WindowParts& parts, const Canvas& parent)
    : box_(box), parts_(parts), parent_(parent) {
    LoadLibraryExW(L"msftedit.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    create(MSFTEDIT_CLASS,
           WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_AUTOVSCROLL |
               ES_READONLY | ES_NOHIDESEL,
           0, parent.handle());
    SendMessageW(handle(), EM_EXLIMITTEXT, 0, text_limit);
}

void RichTextView::sync() {
    sync_place(handle(), box_, parent_.scale());
    const bool changed = shown_ != box_.TextRTF;
    if (changed) {
        shown_ = box_.TextRTF;
        show_text();
    }
    // What the player has made of it by the wheel lasts until the window is opened anew.
    const bool opens = IsWindowVisible(GetAncestor(handle(), GA_ROOT)) == FALSE;
    if (changed || opens || zoomed_for_ != parts_.scale) zoom();
}

std::optional<LRESULT> RichTextView::answer(const Message& message) {
    if (message.id == WM_GETDLGCODE) return DLGC_WANTARROWS;  // Tab leads on; the arrows scroll
    if (message.id == WM_KEYDOWN) return scroll(message);
    const LRESULT result = answer_of_class(message);
    if (message.id == WM_SETFOCUS) HideCaret(handle());  // nothing can be written here
    if (message.id == WM_SIZE) leave_margin();
    if (message.id == WM_SYSCOLORCHANGE) show_text();
    return result;
}

/// The class would move a caret that is not to be seen, and scroll only for its sake.
std::optional<LRESULT> RichTextView::scroll(const Message& message) {
    const std::optional<WPARAM> scroll = scroll_of(message.w);
    if (!scroll) return std::nullopt;
    return SendMessageW(handle(), WM_VSCROLL, *scroll, 0);
}

/// The class makes pixels of points by the system's resolution, whatever that of its screen is.
void RichTextView::zoom() {
    zoomed_for_ = parts_.scale;
    const auto dpi = static_cast<WPARAM>(parts_.scale.scaled(USER_DEFAULT_SCREEN_DPI));
    SendMessageW(handle(), EM_SETZOOM, dpi, GetDpiForSystem());
}

void RichTextView::leave_margin() {
    const int margin = parts_.scale.scaled(text_margin);
    RECT area = client_area(handle());
    InflateRect(&area, -margin, -margin);
    SendMessageW(handle(), EM_SETRECT, 0, reinterpret_cast<LPARAM>(&area));
}

void RichTextView::show_text() {
    SetWindowTextW(handle(), L"");
    const std::string document = without_deep_groups(shown_);
    std::string_view rest = document;
    EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&rest), 0, read_some};
    SendMessageW(handle(), EM_STREAMIN, SF_RTF, reinterpret_cast<LPARAM>(&stream));
    CHARFORMATW format = format_of(box_.Font);
    // A document without fonts of its own shows in that of the box.
    if (document.find("\\fonttbl") != std::string::npos) format.dwMask = 0;
    // A document's colours are meant for a light ground.
    if (is_dark(GetSysColor(COLOR_WINDOW))) format.dwMask |= CFM_COLOR;
    SendMessageW(handle(), EM_SETCHARFORMAT, SCF_ALL, reinterpret_cast<LPARAM>(&format));
    SendMessageW(handle(), EM_SETSEL, 0, 0);
    SendMessageW(handle(), EM_SCROLLCARET, 0, 0);
}

}  // namespace solvanta::win32
