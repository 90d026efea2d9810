#include "front_ends/win32/locale_texts.h"

#include <windows.h>

#include "text/windows_text.h"

namespace solvanta::win32 {
namespace {

std::string user_text(LCTYPE type) {
    constexpr int longest = 80;  // of what the system keeps of such texts
    wchar_t text[longest];
    const int size = GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, type, text, longest);
    return size > 0 ? to_utf8({text, static_cast<std::size_t>(size) - 1}) : "";
}

std::string text_or(LCTYPE type, const char* otherwise) {
    const std::string text = user_text(type);
    return text.empty() ? otherwise : text;
}

}  // namespace

LocaleTexts user_texts() {
    LocaleTexts texts;
    LCTYPE month = LOCALE_SABBREVMONTHNAME1;
    for (std::string& name : texts.month_abbreviations) {
        name = user_text(month++);
        if (name.ends_with('.')) name.pop_back();
    }
    texts.time_separator = text_or(LOCALE_STIME, ":");
    texts.decimal_separator = text_or(LOCALE_SDECIMAL, ",");
    return texts;
}

}  // namespace solvanta::win32
