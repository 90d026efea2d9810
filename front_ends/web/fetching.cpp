#include "front_ends/web/fetching.h"

#include <cstddef>
#include <map>
#include <utility>

#include "front_ends/web/border.h"

namespace solvanta::web {
namespace {

std::map<int, Fetched>& jobs() {
    static std::map<int, Fetched> all;
    return all;
}

int new_job(Fetched fetched) {
    static int last = 0;
    jobs()[++last] = std::move(fetched);
    return last;
}

}  // namespace

void fetch(const std::string& path, Fetched fetched) {
    page_fetch(path.c_str(), new_job(std::move(fetched)));
}

void choose_file(Fetched fetched) {
    page_load_file(new_job(std::move(fetched)));
}

}  // namespace solvanta::web

extern "C" {

/// The bytes that a job was to read; null when it could not.
__attribute__((used, visibility("default"))) void web_fetched(int job, const char* bytes,
                                                              std::size_t length) {
    using namespace solvanta::web;
    const auto entry = jobs().extract(job);
    if (entry.empty()) return;
    const std::string content(bytes ? bytes : "", bytes ? length : 0);
    entry.mapped()(bytes ? &content : nullptr);
}
}
