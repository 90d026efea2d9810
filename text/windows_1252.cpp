#include "text/windows_1252.h"

#include <array>
#include <bit>
#include <cstddef>
#include <optional>

namespace solvanta {
namespace {

constexpr unsigned char first_special = 0x80;

/// The characters of the 32 bytes from `first_special` on.
constexpr std::array<char16_t, 32> specials{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char to_byte(char32_t character) {
    if (character == U'"') return closing_quote;
    if (character < U' ' || character == 0x7F) return ' ';
    if (character < first_special || (character >= 0xA0 && character <= 0xFF)) {
        return static_cast<char>(static_cast<unsigned char>(character));
    }
    for (std::size_t i = 0; i < specials.size(); ++i) {
        if (specials.at(i) == character) return static_cast<char>(first_special + i);
    }
    return '?';
}

unsigned char byte_at(std::string_view text, std::size_t position) {
    return static_cast<unsigned char>(text[position]);
}

/// Whether UTF-8 writes `character` in `length` bytes, 2 to 4. It takes as few as it can, and has
/// neither halves of surrogate pairs nor anything beyond the last character.
bool is_written_in(char32_t character, std::size_t length) {
    constexpr std::array<char32_t, 6> first_of_length{0, 0, 0x80, 0x800, 0x10000, 0x110000};
    const bool is_surrogate = character >= 0xD800 && character <= 0xDFFF;
    return !is_surrogate && character >= first_of_length.at(length) &&
           character < first_of_length.at(length + 1);
}

/// Decodes the character at `position` and moves past it; past one byte when it is malformed.
std::optional<char32_t> next_character(std::string_view utf8, std::size_t& position) {
    const unsigned char lead = byte_at(utf8, position++);
    if (lead < first_special) return lead;
    const auto length = static_cast<std::size_t>(std::countl_one(lead));
    const std::size_t end = position + length - 1;
    if (length < 2 || length > 4 || end > utf8.size()) return std::nullopt;
    char32_t character = lead & (0x7FU >> length);
    for (std::size_t i = position; i < end; ++i) {
        const unsigned char byte = byte_at(utf8, i);
        if ((byte & 0xC0U) != 0x80U) return std::nullopt;
        character = (character << 6U) | (byte & 0x3FU);
    }
    if (!is_written_in(character, length)) return std::nullopt;
    position = end;
    return character;
}

}  // namespace

char16_t from_windows_1252(unsigned char byte) {
    const bool special = byte >= first_special && byte < first_special + specials.size();
    return special ? specials.at(byte - std::size_t{first_special}) : byte;
}

std::string to_list_text(std::string_view utf8) {
    std::string text;
    for (std::size_t position = 0; position < utf8.size();) {
        const auto character = next_character(utf8, position);
        text += character ? to_byte(*character) : '?';
    }
    return text;
}

std::string to_list_text(std::string_view utf8, std::string_view otherwise) {
    std::string text = to_list_text(utf8);
    return text.find('?') == std::string::npos ? text : std::string(otherwise);
}

}  // namespace solvanta
