#pragma once

#include <string>
#include <string_view>

namespace solvanta {

constexpr bool is_high_surrogate(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

/// `units` as UTF-8. A half of a surrogate pair without the other and characters that no text
/// contains become U+FFFD.
std::string storable_text(std::u16string_view units);

}  // namespace solvanta
