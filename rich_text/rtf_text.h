#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "rich_text/rtf_tables.h"

namespace solvanta {

/// Builds a document's text paragraph by paragraph, within the limits that the reader promises.
class RtfText : public RtfSink {
  public:
    /// What is built goes to `paragraphs`; it and the tables must outlive this.
    RtfText(std::vector<RichParagraph>& paragraphs, RtfFonts& fonts, const RtfColors& colors)
        : paragraphs_(paragraphs), fonts_(fonts), colors_(colors) {}

    void word(std::string_view name, RtfNumber number, RtfGroup& group) override;

    /// Adds one UTF-16 unit to the paragraph. One that grows too long ends and goes on in another.
    void character(char16_t unit, const RtfGroup& group) override;

    /// Whether the document has taken all it can; what comes after is ignored.
    bool is_full() const { return is_full_; }

    /// Ends the last paragraph if it has no mark of its own.
    void finish(const RtfGroup& group);

  private:
    struct Run {
        std::u16string text;
        RtfCharacters characters;
    };

    void end_paragraph(const RtfGroup& group);
    CharacterLook look(const RtfCharacters& characters) const;

    std::vector<RichParagraph>& paragraphs_;
    RtfFonts& fonts_;
    const RtfColors& colors_;
    std::vector<Run> runs_;  // of the paragraph that has not ended yet
    int paragraph_length_ = 0;
    int length_ = 0;
    bool is_full_ = false;
};

}  // namespace solvanta
