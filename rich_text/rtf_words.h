#pragma once

#include <optional>
#include <string_view>

#include "rich_text/document_builder.h"

// The control words of rich text that are known here, by their names.

namespace solvanta {

/// Where the text of a group goes.
enum class RtfDestination { Text, FontTable, ColorTable, Nowhere };

/// What a group inherits and gives back at its end.
struct RtfGroup {
    RtfCharacters characters;
    ParagraphLayout paragraph;  // tab stops from the left margin
    Alignment next_tab = Alignment::Left;
    RtfDestination destination = RtfDestination::Text;
    int fallback_length = 1;  // characters that stand in for a Unicode number
};

using RtfNumber = std::optional<int>;

/// `number`, or `fallback` without one, brought into range.
int within(RtfNumber number, int fallback, int least, int most);

/// Changes how the text after it looks, if `name` is a word that does; answers whether it is.
bool apply_look(std::string_view name, RtfNumber number, RtfGroup& group);

/// The character that a word stands for.
std::optional<char16_t> character_named(std::string_view name);

/// Where a word sends the rest of its group.
std::optional<RtfDestination> destination_named(std::string_view name);

/// The kind of font that a word of the font table tells.
std::optional<FontKind> font_kind_named(std::string_view name);

}  // namespace solvanta
