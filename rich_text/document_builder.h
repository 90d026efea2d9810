#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "rich_text/document.h"

namespace solvanta {

/// How characters look, in the numbers of the rich text's own tables.
struct RtfCharacters {
    std::optional<int> font;         // number in the font table
    std::optional<int> half_points;  // size, 2 to 400
    std::optional<int> ink;          // number in the colour table
    std::optional<int> paper;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strike = false;
    bool hidden = false;
    Script script = Script::Normal;

    friend bool operator==(const RtfCharacters&, const RtfCharacters&) = default;
};

/// `units` as UTF-8. A half of a surrogate pair without the other and characters that no text
/// contains become U+FFFD.
std::string storable_text(std::u16string_view units);

/// The font and colour tables of one document. They take a bounded number of entries and ignore
/// the rest; numbers that they don't hold mean the plain look.
class RtfTables {
  public:
    explicit RtfTables(std::vector<RichFont>& fonts) : fonts_(fonts) {}

    void set_default_font(int number) { default_font_ = number; }
    void add_font(int number, RichFont font, bool symbol_encoding);
    void add_color(std::optional<Color> color);  // nothing stands for the plain look

    /// Whether bytes in the font `number` are symbols rather than letters.
    bool has_symbol_encoding(std::optional<int> number) const;

    CharacterLook look(const RtfCharacters& characters) const;

  private:
    struct Entry {
        std::size_t index = 0;
        bool symbol_encoding = false;
    };

    const Entry* font(std::optional<int> number) const;
    std::optional<Color> color(std::optional<int> number) const;

    std::vector<RichFont>& fonts_;
    std::unordered_map<int, Entry> entries_;
    std::vector<std::optional<Color>> colors_;
    int default_font_ = 0;
};

/// Builds a document paragraph by paragraph, within the limits that the reader promises.
class DocumentBuilder {
  public:
    /// What is built goes to `paragraphs`; it and `tables` must outlive the builder.
    DocumentBuilder(std::vector<RichParagraph>& paragraphs, const RtfTables& tables)
        : paragraphs_(paragraphs), tables_(tables) {}

    /// Whether the document has taken all it can; what comes after is ignored.
    bool is_full() const { return is_full_; }

    /// Adds one UTF-16 unit to the paragraph. `layout` is for paragraphs that grow too long: they
    /// end and go on in a new one.
    void add(char16_t unit, const RtfCharacters& characters, const ParagraphLayout& layout);

    /// Ends the paragraph. A mark at the very end of a document opens no paragraph after it.
    void end_paragraph(const ParagraphLayout& layout, const RtfCharacters& mark);

    /// Ends the last paragraph if it has no mark of its own.
    void finish(const ParagraphLayout& layout, const RtfCharacters& mark);

  private:
    struct Run {
        std::u16string text;
        RtfCharacters characters;
    };

    std::vector<RichParagraph>& paragraphs_;
    const RtfTables& tables_;
    std::vector<Run> runs_;  // of the paragraph that has not ended yet
    int paragraph_length_ = 0;
    int length_ = 0;
    bool is_full_ = false;
};

}  // namespace solvanta
