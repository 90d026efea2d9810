#include "front_ends/web/list_links.h"

#include <utility>

#include "front_ends/web/border.h"
#include "front_ends/web/fetching.h"
#include "scores/best_times_file.h"
#include "scores/best_times_format.h"

namespace solvanta::web {

ListLinks::ListLinks(WebHost& host, std::function<std::string()> list,
                     std::function<bool(const std::string&)> take)
    : host_(host),
      list_(std::move(list)),
      take_(std::move(take)),
      links_(Node::find("links")),
      save_(Node::find("save-list")),
      load_(Node::find("load-list")),
      note_(Node::find("note")) {
    save_.listen(EventKind::Click, [this](const PageEvent&) { save(); });
    load_.listen(EventKind::Click, [this](const PageEvent&) {
        choose_file([this](const std::string* bytes) {
            if (bytes) load(*bytes);
        });
    });
}

void ListLinks::hide() const {
    links_.attribute("hidden", "");
}

void ListLinks::save() const {
    const std::string bytes = list_();
    page_save_file(best_times_file_name, bytes.data(), bytes.size());
    note_.text("");
}

void ListLinks::load(const std::string& bytes) const {
    if (!is_best_times_file(bytes)) return note_.text("Diese Datei ist keine Bestzeitenliste.");
    host_.deliver([&] {
        note_.text(take_(bytes) ? "Die Bestzeiten sind geladen."
                                : "Der Browser kann die Liste nicht speichern.");
    });
}

}  // namespace solvanta::web
