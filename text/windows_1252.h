#pragma once

#include <string>
#include <string_view>

namespace solvanta {

/// The closing typographic double quote in Windows-1252.
inline constexpr char closing_quote = '\x94';

/// Turns UTF-8 text into Windows-1252 as the best-times list keeps it: one byte a character. A
/// character the code page lacks, and every byte that is no UTF-8, becomes '?', a control
/// character a blank. The straight double quote, which the list's file can't hold, becomes the
/// closing typographic one.
std::string to_list_text(std::string_view utf8);

/// The same; where the code page lacks a character it is `otherwise`.
std::string to_list_text(std::string_view utf8, std::string_view otherwise);

/// The Unicode character of a Windows-1252 byte; the five bytes without one stand for the control
/// characters of the same number.
char16_t from_windows_1252(unsigned char byte);

}  // namespace solvanta
