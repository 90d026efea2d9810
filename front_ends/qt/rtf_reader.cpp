#include "front_ends/qt/rtf_reader.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include <QChar>
#include <QColor>
#include <QString>

#include "front_ends/qt/fonts.h"
#include "front_ends/qt/rtf_document.h"
#include "front_ends/qt/rtf_lexer.h"
#include "platform/elements.h"
#include "scores/windows_1252.h"

namespace solvanta::qt {
namespace {

constexpr std::size_t longest_source = std::size_t{4} << 20;
constexpr std::size_t deepest_group = 256;

enum class Destination { Text, FontTable, ColorTable, Nowhere };

/// What a group inherits and gives back at its end.
struct Group {
    RtfCharacters characters;
    RtfParagraph paragraph;
    Destination destination = Destination::Text;
    int fallback_length = 1;  // characters that stand in for a Unicode number
};

using Number = std::optional<int>;

int within(Number number, int fallback, int least, int most) {
    return std::clamp(number.value_or(fallback), least, most);
}

bool is_on(Number number) {
    return number.value_or(1) != 0;
}

Twips indent(Number number) {
    return within(number, 0, 0, 3600);
}

Twips spacing(Number number) {
    return within(number, 0, 0, 2880);
}

/// Number 0 is the ground that is there anyway, whatever colour the table gives it.
Number paper(Number number) {
    return number == 0 ? std::nullopt : number;
}

void add_tab(RtfParagraph& paragraph, Number number) {
    constexpr int most_tabs = 32;
    if (paragraph.tabs.size() >= most_tabs) return;
    const double position = within(number, 0, 0, 31680);
    paragraph.tabs.append({position, std::exchange(paragraph.next_tab, QTextOption::LeftTab)});
}

/// A control word that changes how the text after it looks.
using LookWord = void (*)(Group&, Number);

const std::unordered_map<std::string_view, LookWord> character_words{
    {"plain", [](Group& group, Number) { group.characters = {}; }},
    {"f", [](Group& group, Number n) { group.characters.font = n; }},
    {"fs", [](Group& group, Number n) { group.characters.half_points = within(n, 24, 2, 400); }},
    {"cf", [](Group& group, Number n) { group.characters.foreground = n; }},
    {"cb", [](Group& group, Number n) { group.characters.background = paper(n); }},
    {"chcbpat", [](Group& group, Number n) { group.characters.background = paper(n); }},
    {"highlight", [](Group& group, Number n) { group.characters.background = paper(n); }},
    {"b", [](Group& group, Number n) { group.characters.bold = is_on(n); }},
    {"i", [](Group& group, Number n) { group.characters.italic = is_on(n); }},
    {"ul", [](Group& group, Number n) { group.characters.underline = is_on(n); }},
    {"uld", [](Group& group, Number n) { group.characters.underline = is_on(n); }},
    {"uldb", [](Group& group, Number n) { group.characters.underline = is_on(n); }},
    {"ulw", [](Group& group, Number n) { group.characters.underline = is_on(n); }},
    {"ulnone", [](Group& group, Number) { group.characters.underline = false; }},
    {"strike", [](Group& group, Number n) { group.characters.strike = is_on(n); }},
    {"v", [](Group& group, Number n) { group.characters.hidden = is_on(n); }},
    {"super",
     [](Group& group, Number) { group.characters.vertical = QTextCharFormat::AlignSuperScript; }},
    {"sub",
     [](Group& group, Number) { group.characters.vertical = QTextCharFormat::AlignSubScript; }},
    {"nosupersub",
     [](Group& group, Number) { group.characters.vertical = QTextCharFormat::AlignNormal; }},
    {"uc", [](Group& group, Number n) { group.fallback_length = within(n, 1, 0, 255); }},
};

const std::unordered_map<std::string_view, LookWord> paragraph_words{
    {"pard", [](Group& group, Number) { group.paragraph = {}; }},
    {"ql", [](Group& group, Number) { group.paragraph.alignment = Qt::AlignLeft; }},
    {"qr", [](Group& group, Number) { group.paragraph.alignment = Qt::AlignRight; }},
    {"qc", [](Group& group, Number) { group.paragraph.alignment = Qt::AlignHCenter; }},
    {"qj", [](Group& group, Number) { group.paragraph.alignment = Qt::AlignJustify; }},
    {"li", [](Group& group, Number n) { group.paragraph.left = indent(n); }},
    {"ri", [](Group& group, Number n) { group.paragraph.right = indent(n); }},
    {"fi", [](Group& group, Number n) { group.paragraph.first_line = within(n, 0, -3600, 3600); }},
    {"sb", [](Group& group, Number n) { group.paragraph.before = spacing(n); }},
    {"sa", [](Group& group, Number n) { group.paragraph.after = spacing(n); }},
    {"sl",
     [](Group& group, Number n) { group.paragraph.line_spacing = within(n, 0, -4800, 4800); }},
    {"slmult", [](Group& group, Number n) { group.paragraph.line_spacing_factor = is_on(n); }},
    {"tqr", [](Group& group, Number) { group.paragraph.next_tab = QTextOption::RightTab; }},
    {"tqc", [](Group& group, Number) { group.paragraph.next_tab = QTextOption::CenterTab; }},
    {"tx", [](Group& group, Number n) { add_tab(group.paragraph, n); }},
};

const std::unordered_map<std::string_view, char16_t> characters_by_word{
    {"tab", u'\t'},           {"cell", u'\t'},        {"line", u'\u2028'},
    {"emdash", u'\u2014'},    {"endash", u'\u2013'},  {"bullet", u'\u2022'},
    {"lquote", u'\u2018'},    {"rquote", u'\u2019'},  {"ldblquote", u'\u201C'},
    {"rdblquote", u'\u201D'}, {"enspace", u'\u2002'}, {"emspace", u'\u2003'},
};

/// Words that send the rest of their group somewhere else than into the text.
const std::unordered_map<std::string_view, Destination> destinations{
    {"fonttbl", Destination::FontTable},  {"colortbl", Destination::ColorTable},
    {"annotation", Destination::Nowhere}, {"filetbl", Destination::Nowhere},
    {"fldinst", Destination::Nowhere},    {"footer", Destination::Nowhere},
    {"footerf", Destination::Nowhere},    {"footerl", Destination::Nowhere},
    {"footerr", Destination::Nowhere},    {"footnote", Destination::Nowhere},
    {"header", Destination::Nowhere},     {"headerf", Destination::Nowhere},
    {"headerl", Destination::Nowhere},    {"headerr", Destination::Nowhere},
    {"info", Destination::Nowhere},       {"listoverridetable", Destination::Nowhere},
    {"listtable", Destination::Nowhere},  {"nonshppict", Destination::Nowhere},
    {"object", Destination::Nowhere},     {"pict", Destination::Nowhere},
    {"revtbl", Destination::Nowhere},     {"stylesheet", Destination::Nowhere},
    {"tc", Destination::Nowhere},         {"xe", Destination::Nowhere},
};

const std::unordered_map<std::string_view, FontKind> font_kinds{
    {"fnil", FontKind::Unknown},       {"froman", FontKind::Serif},  {"fswiss", FontKind::Sans},
    {"fmodern", FontKind::FixedPitch}, {"ftech", FontKind::Symbols},
};

/// The value of `key`, or nothing.
template <typename Value>
std::optional<Value> find(const std::unordered_map<std::string_view, Value>& map,
                          std::string_view key) {
    const auto found = map.find(key);
    return found == map.end() ? std::nullopt : std::optional(found->second);
}

/// The five bytes that stand for no character show as such.
char16_t to_character(unsigned char byte) {
    constexpr char16_t first_control = 0x80;
    constexpr char16_t last_control = 0x9F;
    const char16_t unit = from_windows_1252(byte);
    return unit >= first_control && unit <= last_control ? char16_t(QChar::ReplacementCharacter)
                                                         : unit;
}

/// Reads what stands between the braces of a document, up to the closing one or the end.
class Reader {
  public:
    Reader(std::string_view inside, QTextDocument& document)
        : lexer_(inside), document_(document, tables_) {}

    void run();

  private:
    void read(const RtfToken& token);
    bool is_fallback(RtfToken& token);
    void begin_group();
    void end_group();
    void word(std::string_view name, Number number);
    void text_word(std::string_view name, Number number);
    void font_word(std::string_view name, Number number);
    void color_word(std::string_view name, Number number);
    void symbol(unsigned char byte);
    void unicode(Number number);
    void byte(unsigned char value);
    void character(char16_t unit);
    void end_paragraph();
    void end_font();

    Group& group() { return groups_.back(); }

    RtfLexer lexer_;
    RtfTables tables_;
    RtfDocumentBuilder document_;
    std::vector<Group> groups_ = std::vector<Group>(1);
    std::size_t groups_beyond_ = 0;  // open groups that share the deepest one
    bool ended_ = false;
    int fallback_left_ = 0;

    QString font_name_;
    int font_number_ = 0;
    FontKind font_kind_ = FontKind::Unknown;
    bool font_has_symbols_ = false;
    QColor color_;
};

void Reader::run() {
    while (!ended_ && !document_.is_full()) {
        RtfToken token = lexer_.next();
        if (token.kind == RtfTokenKind::End) break;
        if (!is_fallback(token)) read(token);
    }
    document_.finish(group().paragraph, group().characters);
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
    if (group().destination == Destination::FontTable) end_font();
    if (groups_.size() > 1) {
        groups_.pop_back();
    } else {
        ended_ = true;  // with the look that the last paragraph has
    }
}

void Reader::word(std::string_view name, Number number) {
    if (const auto destination = find(destinations, name)) {
        if (group().destination == Destination::Text) group().destination = *destination;
        return;
    }
    if (name == "u") return unicode(number);
    switch (group().destination) {
        case Destination::Text:
            return text_word(name, number);
        case Destination::FontTable:
            return font_word(name, number);
        case Destination::ColorTable:
            return color_word(name, number);
        case Destination::Nowhere:
            return;
    }
}

void Reader::text_word(std::string_view name, Number number) {
    if (const auto apply = find(character_words, name)) return (*apply)(group(), number);
    if (const auto apply = find(paragraph_words, name)) return (*apply)(group(), number);
    if (const auto unit = find(characters_by_word, name)) return character(*unit);
    if (name == "par" || name == "page" || name == "sect" || name == "row") return end_paragraph();
    if (name == "deff") tables_.set_default_font(number.value_or(0));
}

void Reader::font_word(std::string_view name, Number number) {
    constexpr int symbol_charset = 2;
    if (name == "f") {
        end_font();
        font_number_ = number.value_or(0);
    } else if (name == "fcharset") {
        font_has_symbols_ = number == symbol_charset;
    } else if (const auto kind = find(font_kinds, name)) {
        font_kind_ = *kind;
    }
}

void Reader::end_font() {
    if (!font_name_.isEmpty()) {
        tables_.add_font(font_number_, font_name_, font_kind_, font_has_symbols_);
    }
    font_name_.clear();
    font_kind_ = FontKind::Unknown;
    font_has_symbols_ = false;
}

void Reader::color_word(std::string_view name, Number number) {
    constexpr int most = 255;
    const int value = within(number, 0, 0, most);
    if (name != "red" && name != "green" && name != "blue") return;
    if (name == "red") color_.setRed(value);
    if (name == "green") color_.setGreen(value);
    if (name == "blue") color_.setBlue(value);
}

void Reader::symbol(unsigned char byte) {
    switch (byte) {
        case '\\':
        case '{':
        case '}':
            return character(byte);
        case '~':
            return character(QChar::Nbsp);
        case '_':
            return character(u'\u2011');
        case '-':
            return character(QChar::SoftHyphen);
        case '\t':
            return character(u'\t');
        case '\r':
        case '\n':
            return end_paragraph();
        case '*':
            // No destination that a reader may pass over is of use here.
            group().destination = Destination::Nowhere;
            return;
        default:
            return;
    }
}

/// `number` is a UTF-16 unit, by the book as a signed 16-bit value, or a whole code point.
void Reader::unicode(Number number) {
    fallback_left_ = group().fallback_length;
    int code = number.value_or(0);
    if (code < 0 && code >= std::numeric_limits<std::int16_t>::min()) code += 0x10000;
    if (code < 0 || code > int(QChar::LastValidCodePoint)) code = QChar::ReplacementCharacter;
    for (const char16_t unit : QChar::fromUcs4(char32_t(code)))
        character(unit);
}

void Reader::byte(unsigned char value) {
    constexpr unsigned char symbol_bullet = 0xB7;
    if (value == symbol_bullet && tables_.has_symbol_encoding(group().characters.font)) {
        return character(u'\u2022');
    }
    character(to_character(value));
}

void Reader::character(char16_t unit) {
    constexpr int longest_font_name = 64;
    switch (group().destination) {
        case Destination::Text:
            return document_.add(unit, group().characters, group().paragraph);
        case Destination::FontTable:
            if (unit == u';') return end_font();
            if (font_name_.size() < longest_font_name) font_name_.append(QChar(unit));
            return;
        case Destination::ColorTable:
            if (unit == u';') tables_.add_color(std::exchange(color_, QColor()));
            return;
        case Destination::Nowhere:
            return;
    }
}

void Reader::end_paragraph() {
    if (group().destination != Destination::Text) return;
    document_.end_paragraph(group().paragraph, group().characters);
}

}  // namespace

bool read_rtf(std::string_view rtf, QTextDocument& document) {
    const bool is_rich_text = rtf.starts_with('{');
    Reader(is_rich_text ? rtf.substr(1, longest_source) : std::string_view(), document).run();
    return is_rich_text;
}

}  // namespace solvanta::qt
