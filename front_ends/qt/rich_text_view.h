#pragma once

#include <QTextDocument>

#include "front_ends/common/scale.h"
#include "rich_text/document.h"

namespace solvanta::qt {

/// Replaces the content of `shown` by `document`; what it leaves to the view is in the default font
/// of `shown`. Lengths become pixels by `scale`. What would reach beyond about 4 million
/// pixels of height is left out: the text layout never ends for a document twice as high.
void show_rich_text(const RichDocument& document, QTextDocument& shown, const Scale& scale);

}  // namespace solvanta::qt
