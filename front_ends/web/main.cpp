#include "app/form_main.h"
#include "front_ends/web/files.h"
#include "front_ends/web/host.h"
#include "front_ends/web/list_links.h"
#include "scores/best_times_format.h"
#include "view/pictures.h"

namespace {

using namespace solvanta;

/// The program, for as long as the page stands.
class Program {
  public:
    Program() {
        host_.ended = [this] { end(); };
        table_.Form_Load();
        host_.show(table_);
    }

  private:
    void end() const {
        links_.hide();
        web::Node::find("ended").attribute_if("hidden", false);
        web::Node::find("start-again").focus();
    }

    web::WebHost host_;
    web::WebFiles files_{program_file(host_.program_directory(), "Help.rtf")};
    Form_Main table_{host_, random_from_clock, files_};
    web::ListLinks links_{host_, [this] { return format_best_times(table_.state); },
                          [this](const std::string& list) { return table_.take_Highscore(list); }};
};

}  // namespace

int main() {
    static Program program;
    return 0;
}
