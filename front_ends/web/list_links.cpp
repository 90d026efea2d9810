#include "front_ends/web/list_links.h"

#include <algorithm>

#include "front_ends/web/border.h"
#include "front_ends/web/fetching.h"
#include "scores/best_times_format.h"
#include "view/pictures.h"

namespace solvanta::web {
namespace {

/// Whether a program of ours may have written these bytes; line ends may have been changed on
/// their way.
bool is_list(const std::string& bytes) {
    constexpr std::size_t size_limit = std::size_t{1} << 20;
    if (bytes.size() > size_limit) return false;
    GameState state;
    parse_best_times(bytes, state);
    std::string written = format_best_times(state);
    std::string read = bytes;
    std::erase(written, '\r');
    std::erase(read, '\r');
    return written == read;
}

}  // namespace

ListLinks::ListLinks(Form_Main& table, WebHost& host, WebFiles& files)
    : table_(table),
      host_(host),
      files_(files),
      path_(program_file(host.program_directory(), best_times_file_name)),
      links_(Node::find("links")),
      save_(Node::find("save-list")),
      load_(Node::find("load-list")),
      note_(Node::find("note")) {
    save_.listen(EventKind::Click, [this](const PageEvent&) { save(); });
    load_.listen(EventKind::Click, [this](const PageEvent&) {
        choose_file([this](const std::string* bytes) {
            if (bytes) host_.deliver([&] { load(*bytes); });
        });
    });
}

void ListLinks::hide() const {
    links_.attribute("hidden", "");
}

void ListLinks::save() const {
    const std::string bytes = format_best_times(table_.state);
    page_save_file(best_times_file_name, bytes.data(), bytes.size());
    note_.text("");
}

void ListLinks::load(const std::string& bytes) {
    if (!is_list(bytes)) return note_.text("Diese Datei ist keine Bestzeitenliste.");
    table_.complete_name_entry();
    if (replace_file(files_, path_, bytes)) {
        return note_.text("Der Browser kann die Liste nicht speichern.");
    }
    table_.read_Highscore();
    note_.text("Die Bestzeiten sind geladen.");
}

}  // namespace solvanta::web
