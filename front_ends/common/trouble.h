#pragma once

#include <string>

namespace solvanta {

/// Writes one German line about the file at `path`, by its name, to standard error: once for each
/// name in a run.
void report_once(const std::string& path, const std::string& trouble);

}  // namespace solvanta
