#include "front_ends/win32/trouble.h"

#include <set>

#include "platform/trouble.h"

namespace solvanta::win32 {

void report_once(const std::string& name, const std::string& trouble) {
    static std::set<std::string> reported;
    if (reported.insert(name).second) report_trouble(name + ": " + trouble);
}

std::string file_name(const std::string& path) {
    return path.substr(path.find_last_of(R"(/\)") + 1);
}

}  // namespace solvanta::win32
