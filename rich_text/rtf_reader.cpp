#include "rich_text/rtf_reader.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "rich_text/rtf_lexer.h"
#include "rich_text/rtf_tables.h"
#include "rich_text/rtf_text.h"
#include "rich_text/rtf_words.h"
#include "text/windows_1252.h"

namespace solvanta {
namespace {

constexpr std::size_t longest_source = std::size_t{4} << 20;
constexpr std::size_t deepest_group = 256;
constexpr char16_t replacement = 0xFFFD;

/// The five bytes that stand for no character show as such.
char16_t to_character(unsigned char byte) {
    constexpr char16_t first_control = 0x80;
    constexpr char16_t last_control = 0x9F;
    const char16_t unit = from_windows_1252(byte);
    return unit >= first_control && unit <= last_control ? replacement : unit;
}

/// Reads what stands between the braces of a document, up to the closing one or the end.
class Reader {
  public:
    Reader(std::string_view inside, RichDocument& document)
        : lexer_(inside), fonts_(document.fonts), text_(document.paragraphs, fonts_, colors_) {}

    void run();

  private:
    void read(const RtfToken& token);
    bool is_fallback(RtfToken& token);
    void begin_group();
    void end_group();
    void word(std::string_view name, RtfNumber number);
    RtfSink* sink_named(std::string_view name);
    void symbol(unsigned char byte);
    void unicode(RtfNumber number);
    void byte(unsigned char value);
    void character(char16_t unit) { group().sink->character(unit, group()); }

    RtfGroup& group() { return groups_.back(); }

    RtfLexer lexer_;
    RtfFonts fonts_;
    RtfColors colors_;
    RtfText text_;
    RtfSink skipped_;
    std::vector<RtfGroup> groups_{{.sink = &text_}};
    std::size_t groups_beyond_ = 0;  // open groups that share the deepest one
    bool ended_ = false;
    int fallback_left_ = 0;
};

void Reader::run() {
    while (!ended_ && !text_.is_full()) {
        RtfToken token = lexer_.next();
        if (token.kind == RtfTokenKind::End) break;
        if (!is_fallback(token)) read(token);
    }
    text_.finish(group());
}

void Reader::read(const RtfToken& token) {
    switch (token.kind) {
        case RtfTokenKind::GroupBegin:
            return begin_group();
        case RtfTokenKind::GroupEnd:
            return end_group();
        case RtfTokenKind::Word:
            return word(token.text, token.number);
        case RtfTokenKind::Symbol:
            return symbol(token.byte);
        case RtfTokenKind::Byte:
            return byte(token.byte);
        case RtfTokenKind::Text:
            for (const char c : token.text)
                byte(static_cast<unsigned char>(c));
            return;
        case RtfTokenKind::End:
            return;
    }
}

/// Whether `token` only stands in for a Unicode number just read; text is shortened by its part
/// that does. A group's end also ends what stands in.
bool Reader::is_fallback(RtfToken& token) {
    if (fallback_left_ == 0) return false;
    const bool is_group =
        token.kind == RtfTokenKind::GroupBegin || token.kind == RtfTokenKind::GroupEnd;
    if (is_group || (token.kind == RtfTokenKind::Word && token.text == "u")) {
        fallback_left_ = 0;
        return false;
    }
    if (token.kind != RtfTokenKind::Text) {
        --fallback_left_;
        return true;
    }
    const auto length = std::min<std::size_t>(token.text.size(), std::size_t(fallback_left_));
    fallback_left_ -= int(length);
    token.text.remove_prefix(length);
    return token.text.empty();
}

void Reader::begin_group() {
    if (groups_.size() < deepest_group) {
        groups_.push_back(groups_.back());
    } else {
        ++groups_beyond_;
    }
}

void Reader::end_group() {
    if (groups_beyond_ > 0) {
        --groups_beyond_;
        return;
    }
    group().sink->end_group();
    if (groups_.size() > 1) {
        groups_.pop_back();
    } else {
        ended_ = true;  // with the look that the last paragraph has
    }
}

void Reader::word(std::string_view name, RtfNumber number) {
    if (RtfSink* const sink = sink_named(name)) {
        if (group().sink == &text_) group().sink = sink;
    } else if (name == "u") {
        unicode(number);
    } else {
        group().sink->word(name, number, group());
    }
}

/// Where a word sends the rest of its group, if it does.
RtfSink* Reader::sink_named(std::string_view name) {
    if (name == "fonttbl") return &fonts_;
    if (name == "colortbl") return &colors_;
    return is_skipped(name) ? &skipped_ : nullptr;
}

void Reader::symbol(unsigned char byte) {
    switch (byte) {
        case '\\':
        case '{':
        case '}':
        case '\t':
            return character(byte);
        case '~':
            return character(u'\u00A0');
        case '_':
            return character(u'\u2011');
        case '-':
            return character(u'\u00AD');
        case '\r':
        case '\n':
            return word("par", {});
        case '*':
            // No destination that a reader may pass over is of use here.
            group().sink = &skipped_;
            return;
        default:
            return;
    }
}

/// `number` is a UTF-16 unit, by the book as a signed 16-bit value, or a whole code point.
void Reader::unicode(RtfNumber number) {
    constexpr int beyond_units = 0x10000;
    constexpr int last_code_point = 0x10FFFF;
    fallback_left_ = group().fallback_length;
    int code = number.value_or(0);
    if (code < 0 && code >= std::numeric_limits<std::int16_t>::min()) code += beyond_units;
    if (code < 0 || code > last_code_point) code = replacement;
    if (code < beyond_units) return character(static_cast<char16_t>(code));
    const auto above = static_cast<unsigned>(code - beyond_units);
    character(static_cast<char16_t>(0xD800U + (above >> 10U)));
    character(static_cast<char16_t>(0xDC00U + (above & 0x3FFU)));
}

void Reader::byte(unsigned char value) {
    constexpr unsigned char symbol_bullet = 0xB7;
    const auto* const font =
        value == symbol_bullet ? fonts_.find(group().characters.font) : nullptr;
    character(font != nullptr && font->has_symbols ? u'\u2022' : to_character(value));
}

}  // namespace

std::optional<RichDocument> read_rtf(std::string_view rtf) {
    if (!rtf.starts_with('{')) return std::nullopt;
    RichDocument document;
    Reader(rtf.substr(1, longest_source), document).run();
    return document;
}

}  // namespace solvanta
