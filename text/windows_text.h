#pragma once

#include <string>
#include <string_view>

// Text and paths as the calls of Windows take them; built there alone.

namespace solvanta {

/// What is no UTF-8 becomes U+FFFD.
std::wstring to_utf16(std::string_view utf8);

/// Half a surrogate pair becomes U+FFFD.
std::string to_utf8(std::wstring_view utf16);

/// The file at `path` (UTF-8) as the system's calls take it, however long its whole path is.
std::wstring system_path(std::string_view path);

}  // namespace solvanta
