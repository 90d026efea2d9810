#include "front_ends/win32/name_edit.h"

#include <algorithm>
#include <iterator>

#include <commctrl.h>

#include "front_ends/win32/scale.h"

namespace solvanta::win32 {
namespace {

/// The characters of control keys that the box itself acts on: select all, copy, erase, paste, cut
/// and undo.
constexpr wchar_t acting_characters[] = {0x01, 0x03, 0x08, 0x16, 0x18, 0x1A};

bool is_control_character(wchar_t character) {
    return character < L' ' || character == 0x7F;
}

bool acts(wchar_t character) {
    return std::find(std::begin(acting_characters), std::end(acting_characters), character) !=
           std::end(acting_characters);
}

LONG line_height(HWND edit) {
    HDC dc = GetDC(edit);
    TEXTMETRICW metrics{};
    {
        const Selection font(dc, reinterpret_cast<HFONT>(SendMessageW(edit, WM_GETFONT, 0, 0)));
        GetTextMetricsW(dc, &metrics);
    }
    ReleaseDC(edit, dc);
    return metrics.tmHeight;
}

/// The text on the clipboard; empty where there is none.
std::wstring clipboard_text(HWND owner) {
    if (!OpenClipboard(owner)) return {};
    std::wstring text;
    HGLOBAL memory = GetClipboardData(CF_UNICODETEXT);
    if (const auto* characters =
            static_cast<const wchar_t*>(memory ? GlobalLock(memory) : nullptr)) {
        text.assign(characters, std::find(characters, characters + GlobalSize(memory) / 2, L'\0'));
        GlobalUnlock(memory);
    }
    CloseClipboard();
    return text;
}

/// A text in one line: line breaks and other control characters become blanks.
std::wstring in_one_line(std::wstring text) {
    for (std::size_t end = 0; (end = text.find(L"\r\n", end)) != std::wstring::npos;)
        text.erase(end, 1);
    std::replace_if(text.begin(), text.end(), is_control_character, L' ');
    return text;
}

}  // namespace

NameEdit::NameEdit(TextBox& box, WindowParts& parts, HWND parent) : box_(box), parts_(parts) {
    create(WC_EDITW, WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE,
           parent);
    parts.text_boxes[&box] = handle();
}

void NameEdit::sync() {
    sync_text(handle(), box_.Text, parts_.fonts.of(box_.Font, parts_.dpi));
    sync_place(handle(), box_, parts_.dpi);
}

std::optional<LRESULT> NameEdit::answer(const Message& message) {
    switch (message.id) {
        case WM_GETDLGCODE:
            // Every key is heard here, but for those that lead to another control.
            if (message.w == VK_TAB) return std::nullopt;
            return answer_of_class(message) | DLGC_WANTALLKEYS;
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN:  // with Alt
            parts_.deliver([this, key = static_cast<int>(message.w)] {
                if (box_.KeyDown) box_.KeyDown(key);
            });
            return std::nullopt;
        case WM_NCCALCSIZE:
        case WM_NCPAINT:
        case WM_NCHITTEST:
            return answer_border(message);
        default:
            return answer_text(message);
    }
}

/// The class writes at the upper edge of its client area. That is made as high as the text and put
/// in the middle; what is left above and below belongs to the border, but looks and acts like the
/// rest.
LRESULT NameEdit::answer_border(const Message& message) {
    if (message.id == WM_NCHITTEST) return HTCLIENT;
    const LRESULT result = answer_of_class(message);
    if (message.id == WM_NCCALCSIZE) {
        RECT& area = *reinterpret_cast<RECT*>(message.l);  // the first of either structure
        const LONG gap = size_of(area).cy - line_height(handle());
        if (gap > 0) {
            area.top += gap / 2;
            area.bottom -= gap - gap / 2;
        }
    } else {
        paint_gaps();
    }
    return result;
}

void NameEdit::paint_gaps() const {
    RECT gaps{};
    RECT text{};
    GetWindowRect(handle(), &gaps);
    OffsetRect(&gaps, -gaps.left, -gaps.top);
    InflateRect(&gaps, -GetSystemMetrics(SM_CXEDGE), -GetSystemMetrics(SM_CYEDGE));
    GetClientRect(handle(), &text);
    OffsetRect(&text, gaps.left, (size_of(gaps).cy - text.bottom) / 2 + gaps.top);
    HDC dc = GetWindowDC(handle());
    ExcludeClipRect(dc, text.left, text.top, text.right, text.bottom);
    fill(dc, gaps, GetSysColor(IsWindowEnabled(handle()) ? COLOR_WINDOW : COLOR_BTNFACE));
    ReleaseDC(handle(), dc);
}

std::optional<LRESULT> NameEdit::answer_text(const Message& message) {
    const auto character = static_cast<wchar_t>(message.w);
    switch (message.id) {
        case WM_CHAR:
        case WM_SYSCHAR:
            // The box answers Enter with a sound, and takes some of the others for text.
            if (is_control_character(character) && !acts(character)) return 0;
            return std::nullopt;
        case WM_PASTE:
            paste();
            return 0;
        case handed_on + WM_COMMAND:
            if (HIWORD(message.w) == EN_CHANGE) box_.Text = text_of(handle());
            return 0;
        default:
            return std::nullopt;
    }
}

void NameEdit::paste() {
    const std::wstring text = in_one_line(clipboard_text(handle()));
    if (!text.empty()) {
        SendMessageW(handle(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
    }
}

}  // namespace solvanta::win32
