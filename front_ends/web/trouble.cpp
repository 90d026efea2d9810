#include "front_ends/web/trouble.h"

#include <set>

#include "platform/trouble.h"

namespace solvanta::web {

void report_once(const std::string& name, const std::string& trouble) {
    static std::set<std::string> reported;
    if (!reported.insert(name).second) return;
    report_trouble(name + ": " + trouble);
}

}  // namespace solvanta::web
