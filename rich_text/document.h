#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/elements.h"
#include "rich_text/font_kind.h"

// Rich text as plain data, for a Host to turn into what its window system shows. Texts are UTF-8
// and hold only characters that a text may contain; lengths are in twips.

namespace solvanta {

/// A font as the text names it. `kind` tells what may stand in for it.
struct RichFont {
    std::string family;
    FontKind kind = FontKind::Unknown;
};

enum class Script { Normal, Super, Sub };

/// How characters look. What is empty is left to the view.
struct CharacterLook {
    std::optional<std::size_t> font = {};  ///< index among the document's fonts
    std::optional<int> half_points = {};   ///< size, 2 to 400
    std::optional<Color> ink = {};
    std::optional<Color> paper = {};
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strike = false;
    Script script = Script::Normal;

    friend bool operator==(const CharacterLook&, const CharacterLook&) = default;
};

/// Characters of one look. A tab is U+0009, a line break within the paragraph U+2028.
struct TextRun {
    std::string text;
    CharacterLook look;
};

enum class ParagraphAlignment { Left, Right, Centered, Justified };

struct TabStop {
    Twips position = 0;  ///< in a paragraph: from where the first line starts, more than 0
    Alignment alignment = Alignment::Left;
};

struct ParagraphLayout {
    ParagraphAlignment alignment = ParagraphAlignment::Left;
    Twips left = 0;                    ///< 0 or more
    Twips right = 0;                   ///< 0 or more
    Twips first_line = 0;              ///< relative to `left`, never less than -`left`
    Twips before = 0;                  ///< space above; it adds to what the one before has below
    Twips after = 0;                   ///< space below
    Twips line_spacing = 0;            ///< 0 single, positive at least, negative exactly
    bool line_spacing_factor = false;  ///< `line_spacing` counts in 240ths of a line instead
    std::vector<TabStop> tabs = {};    ///< by position; beyond them every `default_tab_stop`
};

inline constexpr Twips default_tab_stop = 720;

struct RichParagraph {
    ParagraphLayout layout;
    CharacterLook mark;  ///< of the paragraph's end, which gives an empty one its height
    std::vector<TextRun> runs;
};

struct RichDocument {
    std::vector<RichFont> fonts;
    std::vector<RichParagraph> paragraphs;
};

}  // namespace solvanta
