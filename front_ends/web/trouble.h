#pragma once

#include <string>

namespace solvanta::web {

/// Writes one line about the file `name` to the console, once for each name in a visit.
void report_once(const std::string& name, const std::string& trouble);

}  // namespace solvanta::web
