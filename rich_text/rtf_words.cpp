#include "rich_text/rtf_words.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace solvanta {
namespace {

/// Without a number a word switches on.
bool is_on(RtfNumber number) {
    return number != 0;
}

Twips indent(RtfNumber number) {
    return within(number, 0, 0, 3600);
}

Twips spacing(RtfNumber number) {
    return within(number, 0, 0, 2880);
}

/// Number 0 is the ground that is there anyway, whatever colour the table gives it.
RtfNumber paper(RtfNumber number) {
    return number == 0 ? std::nullopt : number;
}

void add_tab(RtfGroup& group, RtfNumber number) {
    constexpr std::size_t most_tabs = 32;
    std::vector<TabStop>& tabs = group.paragraph.tabs;
    if (tabs.size() >= most_tabs) return;
    tabs.push_back({within(number, 0, 0, 31680), std::exchange(group.next_tab, Alignment::Left)});
}

template <typename Meaning>
using Word = std::pair<std::string_view, Meaning>;

/// A control word that changes how the text after it looks.
using LookWord = void (*)(RtfGroup&, RtfNumber);

constexpr Word<LookWord> look_words[]{
    {"plain", [](RtfGroup& group, RtfNumber) { group.characters = {}; }},
    {"f", [](RtfGroup& group, RtfNumber n) { group.characters.font = n; }},
    {"fs", [](RtfGroup& group,
              RtfNumber n) { group.characters.look.half_points = within(n, 24, 2, 400); }},
    {"cf", [](RtfGroup& group, RtfNumber n) { group.characters.ink = n; }},
    {"cb", [](RtfGroup& group, RtfNumber n) { group.characters.paper = paper(n); }},
    {"chcbpat", [](RtfGroup& group, RtfNumber n) { group.characters.paper = paper(n); }},
    {"highlight", [](RtfGroup& group, RtfNumber n) { group.characters.paper = paper(n); }},
    {"b", [](RtfGroup& group, RtfNumber n) { group.characters.look.bold = is_on(n); }},
    {"i", [](RtfGroup& group, RtfNumber n) { group.characters.look.italic = is_on(n); }},
    {"ul", [](RtfGroup& group, RtfNumber n) { group.characters.look.underline = is_on(n); }},
    {"uld", [](RtfGroup& group, RtfNumber n) { group.characters.look.underline = is_on(n); }},
    {"uldb", [](RtfGroup& group, RtfNumber n) { group.characters.look.underline = is_on(n); }},
    {"ulw", [](RtfGroup& group, RtfNumber n) { group.characters.look.underline = is_on(n); }},
    {"ulnone", [](RtfGroup& group, RtfNumber) { group.characters.look.underline = false; }},
    {"strike", [](RtfGroup& group, RtfNumber n) { group.characters.look.strike = is_on(n); }},
    {"v", [](RtfGroup& group, RtfNumber n) { group.characters.hidden = is_on(n); }},
    {"super", [](RtfGroup& group, RtfNumber) { group.characters.look.script = Script::Super; }},
    {"sub", [](RtfGroup& group, RtfNumber) { group.characters.look.script = Script::Sub; }},
    {"nosupersub",
     [](RtfGroup& group, RtfNumber) { group.characters.look.script = Script::Normal; }},
    {"uc", [](RtfGroup& group, RtfNumber n) { group.fallback_length = within(n, 1, 0, 255); }},
    {"pard",
     [](RtfGroup& group, RtfNumber) {
         group.paragraph = {};
         group.next_tab = Alignment::Left;
     }},
    {"ql",
     [](RtfGroup& group, RtfNumber) { group.paragraph.alignment = ParagraphAlignment::Left; }},
    {"qr",
     [](RtfGroup& group, RtfNumber) { group.paragraph.alignment = ParagraphAlignment::Right; }},
    {"qc",
     [](RtfGroup& group, RtfNumber) { group.paragraph.alignment = ParagraphAlignment::Centered; }},
    {"qj",
     [](RtfGroup& group, RtfNumber) { group.paragraph.alignment = ParagraphAlignment::Justified; }},
    {"li", [](RtfGroup& group, RtfNumber n) { group.paragraph.left = indent(n); }},
    {"ri", [](RtfGroup& group, RtfNumber n) { group.paragraph.right = indent(n); }},
    {"fi",
     [](RtfGroup& group, RtfNumber n) { group.paragraph.first_line = within(n, 0, -3600, 3600); }},
    {"sb", [](RtfGroup& group, RtfNumber n) { group.paragraph.before = spacing(n); }},
    {"sa", [](RtfGroup& group, RtfNumber n) { group.paragraph.after = spacing(n); }},
    {"sl", [](RtfGroup& group,
              RtfNumber n) { group.paragraph.line_spacing = within(n, 0, -4800, 4800); }},
    {"slmult",
     [](RtfGroup& group, RtfNumber n) { group.paragraph.line_spacing_factor = is_on(n); }},
    {"tqr", [](RtfGroup& group, RtfNumber) { group.next_tab = Alignment::Right; }},
    {"tqc", [](RtfGroup& group, RtfNumber) { group.next_tab = Alignment::Centered; }},
    {"tx", [](RtfGroup& group, RtfNumber n) { add_tab(group, n); }},
};

constexpr Word<char16_t> characters_by_word[]{
    {"tab", u'\t'},           {"cell", u'\t'},        {"line", u'\u2028'},
    {"emdash", u'\u2014'},    {"endash", u'\u2013'},  {"bullet", u'\u2022'},
    {"lquote", u'\u2018'},    {"rquote", u'\u2019'},  {"ldblquote", u'\u201C'},
    {"rdblquote", u'\u201D'}, {"enspace", u'\u2002'}, {"emspace", u'\u2003'},
};

/// Their groups hold what is no text, or none that has a place here.
constexpr std::string_view skipped[]{
    "annotation", "filetbl",           "fldinst",   "footer",     "footerf", "footerl",
    "footerr",    "footnote",          "header",    "headerf",    "headerl", "headerr",
    "info",       "listoverridetable", "listtable", "nonshppict", "object",  "pict",
    "revtbl",     "stylesheet",        "tc",        "xe"};

constexpr Word<FontKind> font_kinds[]{
    {"fnil", FontKind::Unknown},       {"froman", FontKind::Serif},  {"fswiss", FontKind::Sans},
    {"fmodern", FontKind::FixedPitch}, {"ftech", FontKind::Symbols},
};

/// What a word stands for, or nothing.
template <typename Meaning, std::size_t count>
std::optional<Meaning> find(const Word<Meaning> (&words)[count], std::string_view name) {
    const auto* const found = std::find_if(std::begin(words), std::end(words),
                                           [&](const auto& word) { return word.first == name; });
    return found == std::end(words) ? std::nullopt : std::optional(found->second);
}

}  // namespace

int within(RtfNumber number, int fallback, int least, int most) {
    return std::clamp(number.value_or(fallback), least, most);
}

bool apply_look(std::string_view name, RtfNumber number, RtfGroup& group) {
    const auto apply = find(look_words, name);
    if (apply) (*apply)(group, number);
    return apply.has_value();
}

std::optional<char16_t> character_named(std::string_view name) {
    return find(characters_by_word, name);
}

bool is_skipped(std::string_view name) {
    return std::find(std::begin(skipped), std::end(skipped), name) != std::end(skipped);
}

std::optional<FontKind> font_kind_named(std::string_view name) {
    return find(font_kinds, name);
}

}  // namespace solvanta
