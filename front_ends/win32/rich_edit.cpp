#include "front_ends/win32/rich_edit.h"

#include <algorithm>
#include <string_view>

#include <richedit.h>

#include "front_ends/win32/scale.h"
#include "front_ends/win32/system_library.h"
#include "front_ends/win32/trouble.h"
#include "text/windows_text.h"

namespace solvanta::win32 {
namespace {

constexpr LPARAM text_limit = LPARAM{64} << 20;
constexpr int text_margin = 4;

void load_control() {
    static const HMODULE library = system_library(L"msftedit.dll");
    if (!library) report_once("msftedit.dll", "formatierter Text kann nicht gezeigt werden");
}

/// Hands the next bytes of a text to the control.
DWORD CALLBACK read_some(DWORD_PTR rest, BYTE* place, LONG wanted, LONG* got) {
    auto& bytes = *reinterpret_cast<std::string_view*>(rest);
    const std::size_t count = std::min(bytes.size(), static_cast<std::size_t>(wanted));
    std::copy_n(bytes.begin(), count, place);
    bytes.remove_prefix(count);
    *got = static_cast<LONG>(count);
    return 0;
}

/// The document with the header without which the control takes no text for rich text.
std::string with_header(const std::string& rtf) {
    if (rtf.starts_with("{\\rtf") || !rtf.starts_with('{')) return rtf;
    return R"({\rtf1\ansi\ansicpg1252 )" + rtf.substr(1);
}

/// The document with the groups that lie too deep joined with those around them: not every version
/// of the control survives them.
std::string without_deep_groups(const std::string& rtf) {
    constexpr int deepest = 16;
    std::string flat;
    int depth = 0;
    for (std::size_t i = 0; i < rtf.size(); ++i) {
        const char character = rtf[i];
        const bool brace = character == '{' || character == '}';
        if (character == '{') ++depth;
        if (!brace || depth <= deepest) flat += character;
        if (character == '}') --depth;
        if (character == '\\' && i + 1 < rtf.size()) flat += rtf[++i];
    }
    return flat;
}

}  // namespace

RichEdit::RichEdit(const RichTextBox& box, WindowParts& parts, HWND parent)
    : box_(box), parts_(parts) {
    load_control();
    create(MSFTEDIT_CLASS,
           WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_AUTOVSCROLL |
               ES_READONLY | ES_NOHIDESEL,
           0, parent);
    SendMessageW(handle(), EM_EXLIMITTEXT, 0, text_limit);
}

void RichEdit::sync() {
    sync_place(handle(), box_, parts_.dpi);
    if (shown_ == box_.TextRTF) return;
    shown_ = box_.TextRTF;
    show_text();
}

std::optional<LRESULT> RichEdit::answer(const Message& message) {
    // Tab leads on; the arrows scroll.
    if (message.id == WM_GETDLGCODE) return DLGC_WANTARROWS;
    if (message.id != WM_SIZE && message.id != WM_SETFOCUS) return std::nullopt;
    const LRESULT result = answer_of_class(message);
    if (message.id == WM_SIZE) leave_margin();
    if (message.id == WM_SETFOCUS) HideCaret(handle());  // nothing can be written here
    return result;
}

void RichEdit::leave_margin() {
    RECT area{};
    GetClientRect(handle(), &area);
    InflateRect(&area, -scaled(text_margin, parts_.dpi), -scaled(text_margin, parts_.dpi));
    SendMessageW(handle(), EM_SETRECT, 0, reinterpret_cast<LPARAM>(&area));
}

void RichEdit::show_text() {
    SetWindowTextW(handle(), L"");
    if (shown_.empty()) return;
    const std::string document = without_deep_groups(with_header(shown_));
    std::string_view rest = document;
    EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&rest), 0, read_some};
    if (document.starts_with('{')) {
        SendMessageW(handle(), EM_STREAMIN, SF_RTF, reinterpret_cast<LPARAM>(&stream));
    }
    if (!document.starts_with('{') || stream.dwError != 0) {
        report_once("RTF", "formatierter Text nicht lesbar");
        SetWindowTextW(handle(), L"");
    }
    // A document without fonts of its own shows in that of the box.
    if (document.find("\\fonttbl") == std::string::npos) use_font_of_box();
    SendMessageW(handle(), EM_SETSEL, 0, 0);
    SendMessageW(handle(), EM_SCROLLCARET, 0, 0);
}

void RichEdit::use_font_of_box() {
    if (box_.Font.family.empty()) return;
    constexpr int twips_per_point = 20;
    CHARFORMATW format{};
    format.cbSize = sizeof format;
    format.dwMask = CFM_FACE | CFM_SIZE | CFM_BOLD | CFM_CHARSET;
    format.dwEffects = box_.Font.bold ? CFE_BOLD : 0;
    format.yHeight = static_cast<LONG>(box_.Font.points * twips_per_point);
    format.bCharSet = DEFAULT_CHARSET;
    format.bPitchAndFamily = FIXED_PITCH | FF_MODERN;
    to_utf16(box_.Font.family).copy(format.szFaceName, LF_FACESIZE - 1);
    SendMessageW(handle(), EM_SETCHARFORMAT, SCF_ALL, reinterpret_cast<LPARAM>(&format));
}

}  // namespace solvanta::win32
