#pragma once

#include <QString>

namespace solvanta::qt {

/// Writes one line about the file `name` to standard error, once for each name in a run.
void report_once(const QString& name, const QString& trouble);

}  // namespace solvanta::qt
