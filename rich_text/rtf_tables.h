#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "rich_text/rtf_group.h"

// The tables of one document. They take a bounded number of entries and ignore the rest.

namespace solvanta {

class RtfFonts : public RtfSink {
  public:
    struct Font {
        std::size_t index = 0;     // among the document's fonts
        bool has_symbols = false;  // rather than letters, where the text has bytes
    };

    /// What is read goes to `fonts`, which must outlive the table.
    explicit RtfFonts(std::vector<RichFont>& fonts) : fonts_(fonts) {}

    void word(std::string_view name, RtfNumber number, RtfGroup& group) override;
    void character(char16_t unit, const RtfGroup& group) override;
    void end_group() override { end_font(); }

    /// The font that text without a font number has.
    void set_default(int number) { default_ = number; }

    bool is_empty() const { return fonts_.empty(); }

    /// Font `number`, or null if there is none of that number.
    const Font* find(RtfNumber number) const;

  private:
    /// A font that has not ended yet.
    struct Unfinished {
        std::u16string name;
        FontKind kind = FontKind::Unknown;
        bool has_symbols = false;
    };

    void end_font();

    std::vector<RichFont>& fonts_;
    std::map<int, Font> by_number_;
    int default_ = 0;
    int number_ = 0;  // of the fonts that end from here on
    Unfinished font_;
};

class RtfColors : public RtfSink {
  public:
    void word(std::string_view name, RtfNumber number, RtfGroup& group) override;
    void character(char16_t unit, const RtfGroup& group) override;

    /// The colour `number`; nothing, which is the plain look, if the table leaves it open.
    std::optional<Color> color(RtfNumber number) const;

  private:
    std::vector<std::optional<Color>> colors_;
    std::optional<Color> color_;  // that has not ended yet
};

}  // namespace solvanta
