#include "front_ends/web/trouble.h"

#include <cstdio>
#include <set>

namespace solvanta::web {

void report_once(const std::string& name, const std::string& trouble) {
    static std::set<std::string> reported;
    if (!reported.insert(name).second) return;
    std::fprintf(stderr, "Solvanta: %s: %s\n", name.c_str(), trouble.c_str());
}

}  // namespace solvanta::web
