#include "rich_text/rtf_reader.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>

#include "rich_text/document_builder.h"
#include "rich_text/rtf_lexer.h"
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
        : lexer_(inside), tables_(document.fonts), builder_(document.paragraphs, tables_) {}

    void run();

  private:
    void read(const RtfToken& token);
    bool is_fallback(RtfToken& token);
    void begin_group();
    void end_group();
    void word(std::string_view name, RtfNumber number);
    void text_word(std::string_view name, RtfNumber number);
    void font_word(std::string_view name, RtfNumber number);
    void color_word(std::string_view name, RtfNumber number);
    void symbol(unsigned char byte);
    void unicode(RtfNumber number);
    void byte(unsigned char value);
    void character(char16_t unit);
    void end_paragraph();
    void end_font();

    RtfGroup& group() { return groups_.back(); }

    RtfLexer lexer_;
    RtfTables tables_;
    DocumentBuilder builder_;
    std::vector<RtfGroup> groups_ = std::vector<RtfGroup>(1);
    std::size_t groups_beyond_ = 0;  // open groups that share the deepest one
    bool ended_ = false;
    int fallback_left_ = 0;

    std::u16string font_name_;
    int font_number_ = 0;
    FontKind font_kind_ = FontKind::Unknown;
    bool font_has_symbols_ = false;
    std::optional<Color> color_;
};

void Reader::run() {
    while (!ended_ && !builder_.is_full()) {
        RtfToken token = lexer_.next();
        if (token.kind == RtfTokenKind::End) break;
        if (!is_fallback(token)) read(token);
    }
    builder_.finish(group().paragraph, group().characters);
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
    if (group().destination == RtfDestination::FontTable) end_font();
    if (groups_.size() > 1) {
        groups_.pop_back();
    } else {
        ended_ = true;  // with the look that the last paragraph has
    }
}

void Reader::word(std::string_view name, RtfNumber number) {
    if (const auto destination = destination_named(name)) {
        if (group().destination == RtfDestination::Text) group().destination = *destination;
        return;
    }
    if (name == "u") return unicode(number);
    switch (group().destination) {
        case RtfDestination::Text:
            return text_word(name, number);
        case RtfDestination::FontTable:
            return font_word(name, number);
        case RtfDestination::ColorTable:
            return color_word(name, number);
        case RtfDestination::Nowhere:
            return;
    }
}

void Reader::text_word(std::string_view name, RtfNumber number) {
    if (apply_look(name, number, group())) return;
    if (const auto unit = character_named(name)) return character(*unit);
    if (name == "par" || name == "page" || name == "sect" || name == "row") return end_paragraph();
    if (name == "deff") tables_.set_default_font(number.value_or(0));
}

void Reader::font_word(std::string_view name, RtfNumber number) {
    constexpr int symbol_charset = 2;
    if (name == "f") {
        end_font();
        font_number_ = number.value_or(0);
    } else if (name == "fcharset") {
        font_has_symbols_ = number == symbol_charset;
    } else if (const auto kind = font_kind_named(name)) {
        font_kind_ = *kind;
    }
}

void Reader::end_font() {
    if (!font_name_.empty()) {
        tables_.add_font(font_number_, {storable_text(font_name_), font_kind_}, font_has_symbols_);
    }
    font_name_.clear();
    font_kind_ = FontKind::Unknown;
    font_has_symbols_ = false;
}

void Reader::color_word(std::string_view name, RtfNumber number) {
    if (name != "red" && name != "green" && name != "blue") return;
    constexpr int most = 255;
    const auto value = static_cast<std::uint8_t>(within(number, 0, 0, most));
    if (!color_) color_.emplace();
    if (name == "red") color_->red = value;
    if (name == "green") color_->green = value;
    if (name == "blue") color_->blue = value;
}

void Reader::symbol(unsigned char byte) {
    switch (byte) {
        case '\\':
        case '{':
        case '}':
            return character(byte);
        case '~':
            return character(u'\u00A0');
        case '_':
            return character(u'\u2011');
        case '-':
            return character(u'\u00AD');
        case '\t':
            return character(u'\t');
        case '\r':
        case '\n':
            return end_paragraph();
        case '*':
            // No destination that a reader may pass over is of use here.
            group().destination = RtfDestination::Nowhere;
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
    if (value == symbol_bullet && tables_.has_symbol_encoding(group().characters.font)) {
        return character(u'\u2022');
    }
    character(to_character(value));
}

void Reader::character(char16_t unit) {
    constexpr std::size_t longest_font_name = 64;
    switch (group().destination) {
        case RtfDestination::Text:
            return builder_.add(unit, group().characters, group().paragraph);
        case RtfDestination::FontTable:
            if (unit == u';') return end_font();
            if (font_name_.size() < longest_font_name) font_name_ += unit;
            return;
        case RtfDestination::ColorTable:
            if (unit == u';') tables_.add_color(std::exchange(color_, std::nullopt));
            return;
        case RtfDestination::Nowhere:
            return;
    }
}

void Reader::end_paragraph() {
    if (group().destination != RtfDestination::Text) return;
    builder_.end_paragraph(group().paragraph, group().characters);
}

}  // namespace

std::optional<RichDocument> read_rtf(std::string_view rtf) {
    if (!rtf.starts_with('{')) return std::nullopt;
    RichDocument document;
    Reader(rtf.substr(1, longest_source), document).run();
    return document;
}

}  // namespace solvanta
