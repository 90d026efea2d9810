#pragma once

#include <string_view>

#include <QTextDocument>

namespace solvanta::qt {

/// Replaces the content of `document` by the rich text in `rtf` and returns true. A document may
/// come without header and tables, as one group of text; it then shows in the document's default
/// font. Characters are Windows-1252 or written as Unicode numbers. Lengths become pixels at 96
/// dots per inch. Pictures, objects, links and everything unknown are left out.
///
/// Bytes that don't begin like rich text leave an empty document and return false. Whatever else is
/// wrong in the text, what can be read is shown: numbers are brought into range, groups deeper than
/// 256 share the look of the 256th, and what lies beyond 4 MiB of source, 1 Mi characters, 100,000
/// paragraphs or about 4 million pixels of height is left out; paragraphs of more than 4096
/// characters are parted. The time is linear in the length.
bool read_rtf(std::string_view rtf, QTextDocument& document);

}  // namespace solvanta::qt
