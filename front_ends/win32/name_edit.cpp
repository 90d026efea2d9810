#include "front_ends/win32/name_edit.h"

#include <algorithm>

#include <commctrl.h>

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
        default:
            return answer_text(message);
    }
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
