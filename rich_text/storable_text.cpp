#include "rich_text/storable_text.h"

#include <cstddef>

namespace solvanta {
namespace {

constexpr bool is_low_surrogate(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// Window systems separate the parts of a text by some of the code points that no text contains.
bool can_be_stored(char32_t character) {
    constexpr char32_t paragraph_separator = 0x2029;
    constexpr char32_t object_replacement = 0xFFFC;
    const bool is_no_character =
        (character >= 0xFDD0 && character <= 0xFDEF) || (character & 0xFFFEU) == 0xFFFEU;
    return character != paragraph_separator && character != object_replacement &&
           !is_no_character && !is_high_surrogate(character) && !is_low_surrogate(character);
}

void append_utf8(std::string& text, char32_t character) {
    constexpr char32_t lead_marks[] = {0, 0xC0, 0xE0, 0xF0};
    unsigned rest = character < 0x80 ? 0 : character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
    text += static_cast<char>(lead_marks[rest] | (character >> (6 * rest)));
    while (rest-- > 0)
        text += static_cast<char>(0x80U | ((character >> (6 * rest)) & 0x3FU));
}

}  // namespace

std::string storable_text(std::u16string_view units) {
    constexpr char32_t replacement = 0xFFFD;
    std::string text;
    for (std::size_t i = 0; i < units.size(); ++i) {
        char32_t character = units[i];
        const bool is_pair =
            is_high_surrogate(character) && i + 1 < units.size() && is_low_surrogate(units[i + 1]);
        if (is_pair) {
            constexpr char32_t beyond = 0x10000;
            character = beyond + ((character & 0x3FFU) << 10U) + (units[++i] & 0x3FFU);
        }
        append_utf8(text, can_be_stored(character) ? character : replacement);
    }
    return text;
}

}  // namespace solvanta
