#include "app/form_highscore.h"

#include "app/form_main.h"

namespace solvanta {

Form_Highscore::Form_Highscore(Form_Main& table, Host& host) {
    Command_Ok.Click = [this, &host] { host.hide(*this); };
    Comm_clear_highscore.Click = [&table, &host] { Comm_clear_highscore_Click(table, host); };
}

void Form_Highscore::Comm_clear_highscore_Click(Form_Main& table, Host& host) {
    const Answer answer =
        host.message("Soll die Highscore-Liste wirklich gelöscht werden?", Buttons::OkCancel);
    if (answer != Answer::Ok) return;
    table.complete_name_entry();
    table.clear_Highscore();
    table.write_Highscore();
    table.check_record();
}

}  // namespace solvanta
