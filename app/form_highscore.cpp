#include "app/form_highscore.h"

#include "app/form_main.h"

namespace solvanta {

Form_Highscore::Form_Highscore(Form_Main& table, Host& host) {
    Command_Ok.Click = [this, &host] { host.hide(*this); };
    // The window may be closed, and the form gone, while the box is open.
    Comm_clear_highscore.Click = [&table] {
        table.confirm("Soll die Highscore-Liste wirklich gelöscht werden?", Buttons::OkCancel,
                      &Form_Main::clear_list);
    };
}

}  // namespace solvanta
