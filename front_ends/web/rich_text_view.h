#pragma once

#include "front_ends/web/node.h"
#include "platform/elements.h"
#include "rich_text/document.h"

namespace solvanta::web {

/// Fills the empty element `view` with the text of `document`; what the document leaves to the view
/// is the element's own. `box` tells what in it is a table.
void show_rich_text(const RichDocument& document, const RichTextBox& box, const Node& view);

}  // namespace solvanta::web
