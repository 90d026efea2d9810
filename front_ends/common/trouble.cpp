#include "front_ends/common/trouble.h"

#include <set>

#include "front_ends/common/picture_files.h"
#include "platform/trouble.h"

namespace solvanta {

void report_once(const std::string& path, const std::string& trouble) {
    static std::set<std::string> reported;
    const std::string name = file_name(path);
    if (reported.insert(name).second) report_trouble(name + ": " + trouble);
}

}  // namespace solvanta
