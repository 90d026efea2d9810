#pragma once

#include <optional>
#include <string_view>

#include "rich_text/rtf_group.h"

// The control words of rich text that are known here, by their names.

namespace solvanta {

/// The number of a control word, or the nearest one from `least` to `most`. A word without a number
/// counts as one with `fallback`.
int within(RtfNumber number, int fallback, int least, int most);

/// Changes how the text after it looks, if `name` is a word that does; answers whether it is.
bool apply_look(std::string_view name, RtfNumber number, RtfGroup& group);

/// The character that a word stands for.
std::optional<char16_t> character_named(std::string_view name);

/// Whether a word makes its group one that is skipped.
bool is_skipped(std::string_view name);

/// The kind of font that a word of the font table tells.
std::optional<FontKind> font_kind_named(std::string_view name);

}  // namespace solvanta
