#include "rich_text/rtf_lexer.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <limits>

namespace solvanta {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view ignored = "\r\n\0"sv;
constexpr std::string_view ends_of_text = "\\{}\r\n\0"sv;

constexpr bool is_letter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

constexpr bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

/// How many of the first characters of `text` are of the kind that `belongs` accepts.
std::size_t run_length(std::string_view text, bool (*belongs)(char)) {
    return static_cast<std::size_t>(
        std::distance(text.begin(), std::find_if_not(text.begin(), text.end(), belongs)));
}

}  // namespace

RtfToken RtfLexer::next() {
    rest_.remove_prefix(std::min(rest_.find_first_not_of(ignored), rest_.size()));
    if (rest_.empty()) return {};
    switch (rest_.front()) {
        case '{':
            take(1);
            return {.kind = RtfTokenKind::GroupBegin};
        case '}':
            take(1);
            return {.kind = RtfTokenKind::GroupEnd};
        case '\\':
            take(1);
            return control();
        default:
            return {.kind = RtfTokenKind::Text, .text = take(rest_.find_first_of(ends_of_text))};
    }
}

std::string_view RtfLexer::take(std::size_t count) {
    const std::string_view taken = rest_.substr(0, count);
    rest_.remove_prefix(taken.size());
    return taken;
}

RtfToken RtfLexer::control() {
    if (rest_.empty()) return {};
    if (is_letter(rest_.front())) return control_word();
    const auto symbol = static_cast<unsigned char>(take(1).front());
    if (symbol == '\'') return hex_byte();
    return {.kind = RtfTokenKind::Symbol, .byte = symbol};
}

RtfToken RtfLexer::control_word() {
    RtfToken token{.kind = RtfTokenKind::Word, .text = take(run_length(rest_, is_letter))};
    token.number = number();
    if (rest_.starts_with(' ')) take(1);
    if (token.text == "bin") take(static_cast<std::size_t>(std::max(token.number.value_or(0), 0)));
    return token;
}

RtfToken RtfLexer::hex_byte() {
    constexpr int digits = 2;
    const std::string_view hex = rest_.substr(0, digits);
    RtfToken token{.kind = RtfTokenKind::Byte};
    const auto read = std::from_chars(hex.data(), hex.data() + hex.size(), token.byte, 16);
    if (std::distance(hex.data(), read.ptr) != digits)
        return {.kind = RtfTokenKind::Symbol, .byte = '\''};
    take(digits);
    return token;
}

std::optional<int> RtfLexer::number() {
    const std::size_t sign = rest_.starts_with('-') ? 1 : 0;
    const std::size_t digits = run_length(rest_.substr(sign), is_digit);
    if (digits == 0) return std::nullopt;
    const std::string_view written = take(sign + digits);
    constexpr int most = std::numeric_limits<int>::max();
    int value = sign == 0 ? most : -most;  // stays so if the number is beyond it
    std::from_chars(written.data(), written.data() + written.size(), value);
    return value;
}

}  // namespace solvanta
