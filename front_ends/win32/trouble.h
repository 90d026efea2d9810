#pragma once

#include <string>

namespace solvanta::win32 {

/// Writes one line about the file `name` to standard error, once for each name in a run.
void report_once(const std::string& name, const std::string& trouble);

/// The last part of a path.
std::string file_name(const std::string& path);

}  // namespace solvanta::win32
