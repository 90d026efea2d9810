#include "app/form_highscore.h"

#include "app/form_main.h"

namespace solvanta {

Form_Highscore::Form_Highscore(Form_Main& table, Host& host) : table_(table), host_(host) {
    Command_Ok.Click = [this] { host_.hide(*this); };
    Comm_clear_highscore.Click = [this] { Comm_clear_highscore_Click(); };
}

void Form_Highscore::Comm_clear_highscore_Click() {
    const Answer answer =
        host_.message("Soll die Highscore-Liste wirklich gelöscht werden?", Buttons::OkCancel);
    if (answer != Answer::Ok) return;
    table_.complete_name_entry();
    table_.clear_Highscore();
    table_.write_Highscore();
    table_.check_record();
}

}  // namespace solvanta
