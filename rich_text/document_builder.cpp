#include "rich_text/document_builder.h"

#include <algorithm>
#include <utility>

namespace solvanta {
namespace {

constexpr std::size_t most_fonts = 1024;
constexpr std::size_t most_colors = 4096;
constexpr int most_characters = 1 << 20;
constexpr std::size_t most_paragraphs = 100'000;
constexpr int longest_paragraph = 4096;
constexpr int default_half_points = 24;
constexpr char32_t replacement = 0xFFFD;

constexpr bool is_high_surrogate(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

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

char byte_of(char32_t value) {
    return static_cast<char>(static_cast<unsigned char>(value));
}

void append_utf8(std::string& text, char32_t character) {
    if (character < 0x80) {
        text += byte_of(character);
        return;
    }
    const int rest = character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
    constexpr char32_t lead_marks[] = {0xC0, 0xE0, 0xF0};
    text += byte_of(lead_marks[rest - 1] | (character >> (6U * static_cast<unsigned>(rest))));
    for (int i = rest - 1; i >= 0; --i)
        text += byte_of(0x80U | ((character >> (6U * static_cast<unsigned>(i))) & 0x3FU));
}

/// A hanging paragraph has a stop of its own where the lines after the first one start. Rich text
/// measures stops from the left margin.
std::vector<TabStop> tab_stops(const ParagraphLayout& layout) {
    const Twips line_start = layout.left + layout.first_line;
    std::vector<TabStop> tabs = layout.tabs;
    if (layout.first_line < 0) tabs.push_back({layout.left, Alignment::Left});
    for (TabStop& tab : tabs)
        tab.position -= line_start;
    std::erase_if(tabs, [](const TabStop& tab) { return tab.position <= 0; });
    std::stable_sort(tabs.begin(), tabs.end(), [](const TabStop& one, const TabStop& other) {
        return one.position < other.position;
    });
    return tabs;
}

/// A first line may hang out, but never so far that its text would be cut off.
ParagraphLayout finished(ParagraphLayout layout) {
    layout.first_line = std::max(layout.first_line, -layout.left);
    layout.tabs = tab_stops(layout);
    return layout;
}

}  // namespace

std::string storable_text(std::u16string_view units) {
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

void RtfTables::add_font(int number, RichFont font, bool symbol_encoding) {
    if (fonts_.size() >= most_fonts) return;
    if (const FontKind known = font_kind(font.family); known != FontKind::Unknown) {
        font.kind = known;
    }
    entries_[number] = {fonts_.size(), symbol_encoding};
    fonts_.push_back(std::move(font));
}

void RtfTables::add_color(std::optional<Color> color) {
    if (colors_.size() < most_colors) colors_.push_back(color);
}

bool RtfTables::has_symbol_encoding(std::optional<int> number) const {
    const Entry* const found = font(number);
    return found != nullptr && found->symbol_encoding;
}

const RtfTables::Entry* RtfTables::font(std::optional<int> number) const {
    const auto found = entries_.find(number.value_or(default_font_));
    return found == entries_.end() ? nullptr : &found->second;
}

std::optional<Color> RtfTables::color(std::optional<int> number) const {
    if (!number || *number < 0 || static_cast<std::size_t>(*number) >= colors_.size()) return {};
    return colors_[static_cast<std::size_t>(*number)];
}

CharacterLook RtfTables::look(const RtfCharacters& characters) const {
    CharacterLook look{.half_points = characters.half_points,
                       .ink = color(characters.ink),
                       .paper = color(characters.paper),
                       .bold = characters.bold,
                       .italic = characters.italic,
                       .underline = characters.underline,
                       .strike = characters.strike,
                       .script = characters.script};
    if (const Entry* const used = font(characters.font)) look.font = used->index;
    // A text that brings fonts of its own brings their size as well.
    if (!look.half_points && !fonts_.empty()) look.half_points = default_half_points;
    return look;
}

void DocumentBuilder::add(char16_t unit, const RtfCharacters& characters,
                          const ParagraphLayout& layout) {
    if (is_full_ || characters.hidden || (unit < u' ' && unit != u'\t')) return;
    if (runs_.empty() || runs_.back().characters != characters) runs_.push_back({{}, characters});
    runs_.back().text += unit;
    ++length_;
    if (++paragraph_length_ >= longest_paragraph && !is_high_surrogate(unit)) {
        end_paragraph(layout, characters);
    }
}

void DocumentBuilder::end_paragraph(const ParagraphLayout& layout, const RtfCharacters& mark) {
    if (is_full_) return;
    RichParagraph& paragraph = paragraphs_.emplace_back();
    paragraph.layout = finished(layout);
    paragraph.mark = tables_.look(mark);
    paragraph.runs.reserve(runs_.size());
    for (const Run& run : runs_)
        paragraph.runs.push_back({storable_text(run.text), tables_.look(run.characters)});
    runs_.clear();
    paragraph_length_ = 0;
    is_full_ = length_ >= most_characters || paragraphs_.size() >= most_paragraphs;
}

void DocumentBuilder::finish(const ParagraphLayout& layout, const RtfCharacters& mark) {
    if (paragraph_length_ > 0) end_paragraph(layout, mark);
}

}  // namespace solvanta
