#pragma once

#include <string>

#include "app/form_main.h"

namespace solvanta::test {

/// Holds every element of a dealt table against the record: pictures, places, visibility, the
/// pointer, the status line. `directory` is the program directory.
void expect_table_shows(const Form_Main& table, const std::string& directory);

}  // namespace solvanta::test
