#include "scores/list_text.h"

#include <algorithm>
#include <cstdlib>

#include "scores/clock_text.h"
#include "text/windows_1252.h"

namespace solvanta {
namespace {

constexpr std::size_t place_columns = 2;
constexpr std::size_t minutes_and_seconds_columns = 6;
constexpr std::size_t name_columns = 25;

std::string right_aligned(const std::string& text, std::size_t width) {
    return text.size() < width ? std::string(width - text.size(), ' ') + text : text;
}

/// A control character or a soft hyphen: it fills a column but takes no room when it is shown.
bool takes_no_room(char character) {
    constexpr char soft_hyphen = '\xAD';
    const char16_t shown = from_windows_1252(static_cast<unsigned char>(character));
    return shown < 0x20 || (shown >= 0x7F && shown < 0xA0) || character == soft_hyphen;
}

std::string in_columns(std::string text) {
    std::replace_if(text.begin(), text.end(), takes_no_room, ' ');
    return text;
}

std::string place_line(const GameState& state, int place) {
    std::string name = in_columns(state.BestName(place));
    name.resize(name_columns, ' ');
    return right_aligned(std::to_string(place), place_columns) + ": " +
           right_aligned(clock_text(state.BestTime(place)), minutes_and_seconds_columns) + "  " +
           name + "  " + in_columns(state.BestDate(place));
}

std::string statistics(std::int32_t played, std::int32_t won, std::string_view decimal_separator) {
    return std::to_string(played) + " Gewonnen: " + std::to_string(won) + " [" +
           percentage(won, played, to_list_text(decimal_separator, ",")) + "]";
}

void append_escaped(std::string& document, char character) {
    constexpr std::string_view hex = "0123456789abcdef";
    const auto byte = static_cast<unsigned char>(character);
    if (character == '\\' || character == '{' || character == '}') {
        document += '\\';
        document += character;
    } else if (byte < 0x20 || byte > 0x7E) {
        document += "\\'";
        document += hex[byte >> 4U];
        document += hex[byte & 0xFU];
    } else {
        document += character;
    }
}

}  // namespace

std::string percentage(std::int32_t won, std::int32_t played, std::string_view decimal_separator) {
    // In whole hundredths of a per cent: exact, where a floating-point ratio may miss a half.
    const std::int64_t divisor = played > 0 ? played : 1;
    const std::int64_t dividend = played > 0 ? std::abs(std::int64_t{won}) * 10000 : 0;
    const std::int64_t hundredths = (2 * dividend + divisor) / (2 * divisor);
    const std::string decimals = std::to_string(hundredths % 100);
    std::string text = won < 0 && hundredths > 0 ? "-" : "";
    text += std::to_string(hundredths / 100);
    text += decimal_separator;
    return text + (decimals.size() < 2 ? "0" : "") + decimals + '%';
}

std::vector<std::string> list_lines(const GameState& state, std::string_view decimal_separator) {
    std::vector<std::string> lines;
    for (int p = 1; p <= best_places; ++p) {
        if (state.BestTime(p) > 0) lines.push_back(place_line(state, p));
    }
    lines.emplace_back();
    lines.push_back("Spiele " + statistics(state.GamesPlayed, state.GamesWon, decimal_separator) +
                    "  Seit Spielstart " +
                    statistics(state.PlayedSinceStart, state.WonSinceStart, decimal_separator));
    return lines;
}

std::string list_document(const std::vector<std::string>& lines) {
    std::string document = R"({\rtf1\ansi\ansicpg1252 )";
    for (std::size_t i = 0; i < lines.size(); ++i) {
        document += '{';
        for (const char character : lines[i])
            append_escaped(document, character);
        const bool last = i + 1 == lines.size();
        document += last ? "}}" : "}{\r\n\\par }";
    }
    return document;
}

}  // namespace solvanta
