#include "rich_text/rtf_text.h"

#include <algorithm>
#include <cstddef>

#include "rich_text/rtf_words.h"
#include "rich_text/storable_text.h"

namespace solvanta {
namespace {

/// A first line may hang out, but never so far that its text would be cut off. A hanging paragraph
/// has a tab stop where the lines after the first one start. Rich text measures stops from the left
/// margin.
ParagraphLayout finished(ParagraphLayout layout) {
    layout.first_line = std::max(layout.first_line, -layout.left);
    std::vector<TabStop>& tabs = layout.tabs;
    if (layout.first_line < 0) tabs.push_back({layout.left, Alignment::Left});
    for (TabStop& tab : tabs)
        tab.position -= layout.left + layout.first_line;
    std::erase_if(tabs, [](const TabStop& tab) { return tab.position <= 0; });
    const auto is_before = [](const TabStop& one, const TabStop& other) {
        return one.position < other.position;
    };
    for (auto tab = tabs.begin(); tab != tabs.end(); ++tab)  // stable, and they are few
        std::rotate(std::upper_bound(tabs.begin(), tab, *tab, is_before), tab, tab + 1);
    return layout;
}

}  // namespace

void RtfText::word(std::string_view name, RtfNumber number, RtfGroup& group) {
    if (apply_look(name, number, group)) return;
    if (const auto unit = character_named(name)) return character(*unit, group);
    if (name == "deff") return fonts_.set_default(number.value_or(0));
    if (name == "par" || name == "page" || name == "sect" || name == "row") end_paragraph(group);
}

void RtfText::character(char16_t unit, const RtfGroup& group) {
    constexpr int longest_paragraph = 4096;
    if (is_full_ || group.characters.hidden || (unit < u' ' && unit != u'\t')) return;
    if (runs_.empty() || runs_.back().characters != group.characters) {
        runs_.push_back({{}, group.characters});
    }
    runs_.back().text += unit;
    ++length_;
    const int pair_begun = is_high_surrogate(unit) ? 1 : 0;
    if (++paragraph_length_ >= longest_paragraph + pair_begun) end_paragraph(group);
}

void RtfText::finish(const RtfGroup& group) {
    if (!runs_.empty()) end_paragraph(group);
}

void RtfText::end_paragraph(const RtfGroup& group) {
    constexpr int most_characters = 1 << 20;
    constexpr std::size_t most_paragraphs = 100'000;
    RichParagraph& paragraph = paragraphs_.emplace_back();
    paragraph.layout = finished(group.paragraph);
    paragraph.mark = look(group.characters);
    for (const Run& run : runs_)
        paragraph.runs.push_back({storable_text(run.text), look(run.characters)});
    runs_.clear();
    paragraph_length_ = 0;
    is_full_ = length_ >= most_characters || paragraphs_.size() >= most_paragraphs;
}

CharacterLook RtfText::look(const RtfCharacters& characters) const {
    constexpr int default_half_points = 24;
    CharacterLook look = characters.look;
    if (const auto* const font = fonts_.find(characters.font)) look.font = font->index;
    look.ink = colors_.color(characters.ink);
    look.paper = colors_.color(characters.paper);
    // A text that brings fonts of its own brings their size as well.
    if (!look.half_points && !fonts_.is_empty()) look.half_points = default_half_points;
    return look;
}

}  // namespace solvanta
