#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace solvanta {

enum class RtfTokenKind {
    End,
    GroupBegin,
    GroupEnd,
    Word,    // a control word: `text` holds its letters, `number` its parameter if it has one
    Symbol,  // a backslash with one other character: `byte`; an apostrophe if no byte follows it
    Byte,    // one character written as two hexadecimal digits: `byte`
    Text     // plain characters, one or more: `text`, without the source's line ends
};

struct RtfToken {
    RtfTokenKind kind = RtfTokenKind::End;
    std::string_view text = {};
    std::optional<int> number = {};
    unsigned char byte = 0;
};

/// Cuts rich text into tokens. Any bytes can be read: what is cut off or malformed is passed over,
/// numbers beyond 32 bits become the nearest one within, raw data is skipped as far as there is
/// any, and every call moves forward until the end.
class RtfLexer {
  public:
    /// `source` must outlive the lexer and the tokens, which point into it.
    explicit RtfLexer(std::string_view source) : rest_(source) {}

    RtfToken next();

  private:
    std::string_view take(std::size_t count);
    RtfToken control();
    RtfToken control_word();
    RtfToken hex_byte();
    std::optional<int> number();

    std::string_view rest_;
};

}  // namespace solvanta
