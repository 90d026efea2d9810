#include "app/form_main.h"
#include "front_ends/web/files.h"
#include "front_ends/web/host.h"
#include "scores/best_times_format.h"
#include "view/pictures.h"

namespace {

using namespace solvanta;

/// The links below the table by which the best-times list goes to a file of the player's and comes
/// from one. A chosen file that is no such list changes nothing.
class ListLinks {
  public:
    ListLinks(web::WebHost& host, Form_Main& table) : host_(host), table_(table) {
        save_.listen("click", [this](const web::PageEvent&) { save(); });
        load_.listen("click", [this](const web::PageEvent&) {
            web::choose_file(
                [this](const web::PageEvent& event) { load(event.bytes.value_or("")); });
        });
    }

  private:
    void save() const {
        const std::string bytes = format_best_times(table_.state);
        page_save_file(best_times_file_name, bytes.data(), bytes.size());
        note_.say("");
    }

    void load(const std::string& bytes) const {
        if (bytes.size() > longest_best_times_file || !is_best_times_file(bytes))
            return note_.say("Diese Datei ist keine Bestzeitenliste.");
        host_.deliver([&] {
            note_.say(table_.take_Highscore(bytes) ? "Die Bestzeiten sind geladen."
                                                   : "Der Browser kann die Liste nicht speichern.");
        });
    }

    web::WebHost& host_;
    Form_Main& table_;
    web::Node save_ = web::Node::find("save-list");
    web::Node load_ = web::Node::find("load-list");
    web::Node note_ = web::Node::find("note");
};

/// The program, for as long as the page stands.
class Program {
  public:
    Program() {
        host_.ended = [] {
            web::Node::find("links").attribute_if("hidden", true);
            web::Node::find("ended").attribute_if("hidden", false);
            web::Node::find("start-again").focus();
        };
        table_.Form_Load();
        host_.show(table_);
    }

  private:
    web::WebHost host_;
    web::WebFiles files_{program_file(host_.program_directory(), "Help.rtf")};
    Form_Main table_{host_, random_from_clock, files_};
    ListLinks links_{host_, table_};
};

}  // namespace

int main() {
    static Program program;
    return 0;
}
