#pragma once

#include <optional>
#include <string_view>

#include "rich_text/document.h"

namespace solvanta {

/// The document that the rich text in `rtf` describes. It may come without header and tables, as
/// one group of text; its characters then have the plain look. Characters are Windows-1252 or
/// written as Unicode numbers. Pictures, objects, links and everything unknown are left out.
///
/// Bytes that don't begin like rich text give nothing. Whatever else is wrong in the text, what can
/// be read is there: numbers are brought into range, groups deeper than 256 share the look of the
/// 256th, and what lies beyond 4 MiB of source, 1 Mi characters or 100,000 paragraphs is left out;
/// paragraphs of more than 4096 characters are parted, because text layouts may take quadratic time
/// for a long word. The time is linear in the length.
std::optional<RichDocument> read_rtf(std::string_view rtf);

}  // namespace solvanta
