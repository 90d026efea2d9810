#include "app/form_main.h"
#include "front_ends/web/files.h"
#include "front_ends/web/host.h"
#include "front_ends/web/list_links.h"
#include "front_ends/web/node.h"
#include "scores/best_times_format.h"
#include "view/pictures.h"

namespace {

using namespace solvanta;

/// The program, for as long as the page stands.
class Program {
  public:
    Program()
        : table_(host_, random_from_clock, files_),
          links_(
              host_, [this] { return format_best_times(table_.state); },
              [this](const std::string& list) { return take(list); }) {
        // Fetched ahead, the help can be shown at the moment of the click.
        files_.fetch_copy(in_directory("Help.rtf"));
        host_.ended = [this] { end(); };
        table_.Form_Load();
        host_.show(table_);
    }

  private:
    std::string in_directory(std::string_view name) const {
        return program_file(host_.program_directory(), name);
    }

    /// A name still being entered goes into the list before another one takes its place.
    bool take(const std::string& list) {
        table_.complete_name_entry();
        if (replace_file(files_, in_directory(best_times_file_name), list)) return false;
        table_.read_Highscore();
        return true;
    }

    void end() {
        links_.hide();
        web::Node::find("ended").remove_attribute("hidden");
        web::Node::find("start-again").focus();
    }

    web::WebFiles files_;
    web::WebHost host_;
    Form_Main table_;
    web::ListLinks links_;
};

}  // namespace

int main() {
    static Program program;
    return 0;
}
