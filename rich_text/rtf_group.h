#pragma once

#include <optional>
#include <string_view>

#include "rich_text/document.h"

namespace solvanta {

/// The number that follows a control word, if one does.
using RtfNumber = std::optional<int>;

/// How characters look.
struct RtfCharacters {
    CharacterLook look;  // without the fonts and colours, which the tables know by these numbers:
    RtfNumber font;
    RtfNumber ink;
    RtfNumber paper;
    bool hidden = false;

    friend bool operator==(const RtfCharacters&, const RtfCharacters&) = default;
};

class RtfSink;

/// What a group inherits and gives back at its end.
struct RtfGroup {
    RtfSink* sink = nullptr;
    RtfCharacters characters = {};
    ParagraphLayout paragraph = {};  // tab stops from the left margin
    Alignment next_tab = Alignment::Left;
    int fallback_length = 1;  // how many characters after a Unicode number only stand in for it
};

/// Takes what stands in a group. This one skips it; the text and each table have one of their own.
class RtfSink {
  public:
    virtual ~RtfSink() = default;

    virtual void word(std::string_view /*name*/, RtfNumber /*number*/, RtfGroup& /*group*/) {}
    virtual void character(char16_t /*unit*/, const RtfGroup& /*group*/) {}
    virtual void end_group() {}
};

}  // namespace solvanta
