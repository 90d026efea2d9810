#include "text/windows_text.h"

#include <windows.h>

namespace solvanta {
namespace {

/// The whole path without relative parts and with backslashes; `path` itself when it is none.
std::wstring whole_path(const std::wstring& path) {
    std::wstring whole(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    const DWORD length =
        GetFullPathNameW(path.c_str(), static_cast<DWORD>(whole.size()), whole.data(), nullptr);
    if (length == 0 || length >= whole.size()) return path;
    whole.resize(length);
    return whole;
}

}  // namespace

std::wstring to_utf16(std::string_view utf8) {
    const int size = static_cast<int>(utf8.size());
    const int length = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0);
    std::wstring utf16(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, utf16.data(), length);
    return utf16;
}

std::string to_utf8(std::wstring_view utf16) {
    const int size = static_cast<int>(utf16.size());
    const int length =
        WideCharToMultiByte(CP_UTF8, 0, utf16.data(), size, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(CP_UTF8, 0, utf16.data(), size, utf8.data(), length, nullptr, nullptr);
    return utf8;
}

std::wstring system_path(std::string_view path) {
    constexpr std::size_t longest_plain = 247;  // a directory must leave room for a short name
    std::wstring whole = whole_path(to_utf16(path));
    if (whole.size() <= longest_plain || whole.starts_with(LR"(\\?\)")) return whole;
    if (whole.starts_with(LR"(\\)")) return LR"(\\?\UNC)" + whole.substr(1);
    return LR"(\\?\)" + whole;
}

}  // namespace solvanta
