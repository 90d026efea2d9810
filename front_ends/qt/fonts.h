#pragma once

#include <QString>
#include <QStringList>

#include "rich_text/font_kind.h"

namespace solvanta::qt {

/// The families to ask for when a text wants `name`: the name itself, then free families of the
/// same kind and, where there are any, of the same widths. `otherwise` is the kind to assume for a
/// name that is not known by itself; without one it counts as sans serif. The list is never empty,
/// and an empty `name` is left out of it.
QStringList font_families(const QString& name, FontKind otherwise = FontKind::Unknown);

}  // namespace solvanta::qt
