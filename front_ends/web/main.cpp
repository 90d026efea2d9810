#include <exception>
#include <vector>

#include "app/form_main.h"
#include "front_ends/web/files.h"
#include "front_ends/web/host.h"
#include "platform/trouble.h"
#include "scores/best_times_format.h"
#include "view/pictures.h"

namespace {

using namespace solvanta;

/// The links below the table by which the best-times list goes to a file of the player's and comes
/// from one, once they have confirmed that. A chosen file that is no such list changes nothing.
class ListLinks {
  public:
    ListLinks(web::WebHost& host, Form_Main& table) : host_(host), table_(table) {
        for (const char* link : {"save-list", "save-before"})
            listen(link, [this] { save(); });
        listen("load-list", [this] { choose(); });
        listen("replace-list", [this] { load(); });
        listen("keep-list", [this] { page_call(question_.handle(), "close"); });
    }

  private:
    void listen(const char* id, const Event& act) {
        buttons_.push_back(web::Node::find(id));
        buttons_.back().listen("click", [act](const web::PageEvent&) { act(); });
    }

    void save() const {
        const std::string bytes = format_best_times(table_.state);
        page_save_file(best_times_file_name, bytes.data(), bytes.size());
        note_.say("");
    }

    void choose() {
        web::choose_file(longest_best_times_file, [this](const web::PageEvent& event) {
            if (!event.bytes) return;
            bytes_ = *event.bytes;
            if (bytes_.size() > longest_best_times_file || !is_best_times_file(bytes_))
                return note_.say("Diese Datei ist keine Bestzeitenliste.");
            page_call(question_.handle(), "showModal");
        });
    }

    void load() const {
        page_call(question_.handle(), "close");
        host_.deliver([this] {
            note_.say(table_.take_Highscore(bytes_)
                          ? "Die Bestzeiten sind geladen."
                          : "Der Browser kann die Liste nicht speichern.");
        });
    }

    web::WebHost& host_;
    Form_Main& table_;
    std::string bytes_;  // of the file chosen last
    std::vector<web::Node> buttons_;
    web::Node question_ = web::Node::find("replace");
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
    try {
        static Program program;
    } catch (const std::exception& error) {
        report_trouble(error.what());
    }
    return 0;
}
