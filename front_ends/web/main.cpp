#include "app/form_main.h"
#include "front_ends/web/files.h"
#include "front_ends/web/host.h"
#include "front_ends/web/list_links.h"
#include "front_ends/web/node.h"
#include "view/pictures.h"

namespace {

using namespace solvanta;

/// The program, from the moment its help is there until the page is left.
struct Program {
    explicit Program(web::WebFiles& files)
        : table(host, random_from_clock, files), links(table, host, files) {
        table.Form_Load();
        host.show(table);
        host.ended = [this] {
            links.hide();
            web::Node::find("ended").remove_attribute("hidden");
            web::Node::find("start-again").focus();
        };
    }

    web::WebHost host;
    Form_Main table;
    web::ListLinks links;
};

}  // namespace

int main() {
    static web::WebFiles files;
    // Fetched ahead, the help can be shown at the moment of the click.
    files.fetch_copy(program_file(".", "Help.rtf"), nullptr);
    static Program program(files);
    return 0;
}
