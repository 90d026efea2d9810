#include <cstdio>
#include <string>

#include "platform/trouble.h"

namespace solvanta {

void report_trouble(std::string_view text) {
    // One piece, so that the lines of two programs don't mix.
    const std::string line = "Solvanta: " + std::string(text) + '\n';
    std::fputs(line.c_str(), stderr);
}

}  // namespace solvanta
