#include "front_ends/web/list_links.h"

#include <utility>

#include "scores/best_times_file.h"
#include "scores/best_times_format.h"

namespace solvanta::web {

ListLinks::ListLinks(WebHost& host, std::function<std::string()> list,
                     std::function<bool(const std::string&)> take)
    : host_(host), list_(std::move(list)), take_(std::move(take)) {
    save_.listen("click", [this](const PageEvent&) { save(); });
    load_.listen("click", [this](const PageEvent&) {
        choose_file([this](const PageEvent& event) { load(event.bytes.value_or("")); });
    });
}

void ListLinks::save() const {
    const std::string bytes = list_();
    page_save_file(best_times_file_name, bytes.data(), bytes.size());
    note_.text("");
}

void ListLinks::load(const std::string& bytes) const {
    if (bytes.size() > longest_best_times_file || !is_best_times_file(bytes))
        return note_.text("Diese Datei ist keine Bestzeitenliste.");
    host_.deliver([&] {
        note_.text(take_(bytes) ? "Die Bestzeiten sind geladen."
                                : "Der Browser kann die Liste nicht speichern.");
    });
}

}  // namespace solvanta::web
