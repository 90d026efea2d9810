#include "app/form_main.h"

#include <cassert>
#include <utility>
#include <vector>

#include "core/foundations.h"
#include "core/stock.h"
#include "platform/trouble.h"
#include "scores/best_times.h"
#include "scores/clock_text.h"
#include "scores/list_text.h"
#include "text/windows_1252.h"
#include "view/pictures.h"
#include "view/spoken.h"
#include "view/table_display.h"

namespace solvanta {

Form_Main::Form_Main(Host& host, std::function<RandomSource()> seed_random, Files& files)
    : host_(host),
      seed_random_(std::move(seed_random)),
      files_(files),
      directory_(host.program_directory()),
      best_times_file_(program_file(directory_, best_times_file_name), files) {
    clear_places(state);
    let_speak(state, *this);
    connect_events();
    connect_rows();
}

Event Form_Main::checked(std::function<void()> handler) {
    return [this, handler = std::move(handler)] {
        handler();
        check_record();
    };
}

void Form_Main::check_record() const {
    assert(is_consistent(state));
}

void Form_Main::connect_events() {
    Command1.Click = checked([this] { Command1_Click(); });
    Comm_highscore.Click = checked([this] { Comm_highscore_Click(); });
    Command3.Click = checked([this] { Command3_Click(); });
    Command_Beenden.Click = checked([this] { Command_Beenden_Click(); });
    Closed = Command_Beenden.Click;
    Saving = checked([this] { complete_win(); });
    Source_Hide.Click = checked([this] { Source_Hide_Click(); });
    Source.Click = checked([this] { Source_Click(); });
    Source.DblClick = checked([this] { Source_DblClick(); });
    Timer1.Tick = checked([this] { Timer1_Timer(); });
    InName.KeyDown = [this](int KeyCode) { InName_KeyDown(KeyCode); };
}

void Form_Main::connect_rows() {
    for (int Index = 0; Index <= 9; ++Index) {
        for (TableauRow& row : Iv)
            row(Index).Click = checked([this, Index] { Iv1_Click(Index); });
        Iv(1)(Index).DblClick = checked([this, Index] { Iv1_DblClick(Index); });
    }
}

void Form_Main::Form_Load() {
    state.GameWon = false;
    load_fixed_pictures();
    Diddle.Visible = false;
    Scull.Visible = false;
    for (TableauRow& row : Ih) {
        for (PictureElement& slot : row)
            slot.Visible = false;
    }
    for (TableauRow& row : Iv) {
        for (PictureElement& slot : row)
            slot.Visible = false;
    }
    zeiger.Visible = false;
    show_name_frame(false);
    state.WonSinceStart = 0;
    state.PlayedSinceStart = 0;
    read_Highscore();
}

void Form_Main::load_fixed_pictures() {
    const auto load = [this](std::string_view name) {
        return Picture::load(program_file(directory_, name));
    };
    Diddle.Picture = load(win_picture_file);
    Scull.Picture = load(skull_picture_file);
    zeiger.Picture = load(pointer_file);
    const Picture strip = load(back_strip_file);
    for (TableauRow& row : Ih) {
        for (PictureElement& slot : row)
            slot.Picture = strip;
    }
}

void Form_Main::Refresh() {
    RefreshTable(state, *this, directory_);
}

void Form_Main::move_pointer(PointerChange change) {
    if (change != PointerChange::Kept) zeiger.Visible = change == PointerChange::Shown;
}

void Form_Main::confirm(const std::string& text, Buttons buttons, void (Form_Main::*act)()) {
    host_.ask(text, buttons, [this, act](Answer answer) {
        if (answer == Answer::Yes || answer == Answer::Ok) (this->*act)();
        check_record();
    });
}

void Form_Main::Command1_Click() {
    confirm("Neues Spiel?", Buttons::YesNo, &Form_Main::new_game);
}

void Form_Main::new_game() {
    complete_win();
    deal(state, seed_random_());
    zeiger.Visible = false;
    Refresh();
    state.Seconds = 0;
    state.ClockRunning = true;
    Zeitanzeige.Caption = clock_text(state.Seconds);
    count_up(state.GamesPlayed);
    count_up(state.PlayedSinceStart);
    write_Highscore();
}

void Form_Main::Source_Hide_Click() {
    if (!game_dealt(state)) return;
    if (click_stock(state) == StockClick::Refused) return refuse_turn();
    Refresh();
}

void Form_Main::refuse_turn() {
    Scull.Visible = true;
    confirm(
        "Leider können Sie den Stapel nicht mehr umdrehen. Wenn nichts mehr geht, ist das Spiel "
        "verloren!",
        Buttons::Ok, &Form_Main::hide_skull);
}

void Form_Main::hide_skull() {
    Scull.Visible = false;
    Refresh();
}

void Form_Main::Source_Click() {
    if (!game_dealt(state)) return;
    move_pointer(click_waste(state));
    Refresh();
}

void Form_Main::Source_DblClick() {
    if (state.WasteCount > 0) Iv1_DblClick(waste_index);
}

void Form_Main::Iv1_Click(int Index) {
    move_pointer(click_column(state, Index + 1));
    Refresh();
}

void Form_Main::Iv1_DblClick(int Index) {
    const bool column_without_open_card =
        Index < waste_index && (state.FaceUpCount(Index + 1) == 0 || state.Covered(Index + 1));
    if (column_without_open_card) {
        move_pointer(click_column(state, Index + 1));
    } else {
        send_to_foundation(state, Index);
        zeiger.Visible = false;
    }
    Refresh();
    if (cards_outside_foundations(state) == 0 && !state.GameWon) begin_win();
}

void Form_Main::Timer1_Timer() {
    if (!state.ClockRunning) return;
    count_up(state.Seconds);
    Zeitanzeige.Caption = clock_text(state.Seconds);
}

void Form_Main::begin_win() {
    state.GameWon = true;
    state.ClockRunning = false;
    const int place = place_for(state, state.Seconds);
    state.WinPending = true;
    Diddle.Visible = true;
    if (place != no_place) return open_name_entry(place);
    confirm("Gratulation! Spiel gewonnen!", Buttons::Ok, &Form_Main::complete_win);
}

void Form_Main::open_name_entry(int place) {
    Platz.Caption = "Platz: " + std::to_string(place);
    show_name_frame(true);
    state.NameEntryOpen = true;
    host_.set_focus(InName);
}

void Form_Main::show_name_frame(bool shown) {
    FrBestzeiteintrag.Enabled = shown;
    FrBestzeiteintrag.Visible = shown;
}

void Form_Main::InName_KeyDown(int KeyCode) {
    if (KeyCode == key_enter) complete_win();
    check_record();
}

/// No entry has been made since the place was found, so it is still the one that the time earns.
void Form_Main::enter_name() {
    insert_entry(state, place_for(state, state.Seconds), state.Seconds, to_list_text(InName.Text),
                 entry_stamp(host_.local_time(), host_.locale_texts()));
    show_name_frame(false);
}

void Form_Main::complete_win() {
    if (!std::exchange(state.WinPending, false)) return;
    if (std::exchange(state.NameEntryOpen, false)) enter_name();
    Diddle.Visible = false;
    count_up(state.GamesWon);
    count_up(state.WonSinceStart);
    write_Highscore();
}

void Form_Main::clear_list() {
    complete_win();
    clear_Highscore();
    write_Highscore();
}

void Form_Main::clear_Highscore() {
    clear_places(state);
    best_times_file_.forget();
    state.GamesPlayed = 0;
    state.GamesWon = 0;
    state.PlayedSinceStart = 0;
    state.WonSinceStart = 0;
    if (form_highscore_) host_.hide(*form_highscore_);
    Comm_highscore_Click();
}

void Form_Main::write_Highscore() {
    const bool was_behind = best_times_file_.is_behind();
    const std::error_code error = best_times_file_.write(state);
    if (static_cast<bool>(error) == was_behind) return;
    report_trouble(std::string(best_times_file_name) +
                   (error ? " kann nicht sicher geschrieben werden: " + error.message()
                          : " ist wieder auf dem Stand der Liste."));
}

void Form_Main::read_Highscore() {
    if (const std::error_code error = best_times_file_.read(state)) {
        report_trouble(std::string(best_times_file_name) +
                       " kann nicht gelesen werden und bleibt unverändert: " + error.message());
    }
}

bool Form_Main::take_Highscore(std::string_view bytes) {
    complete_win();
    const bool taken = !best_times_file_.take(bytes, state);
    if (form_highscore_) fill_list();
    return taken;
}

void Form_Main::Comm_highscore_Click() {
    if (!form_highscore_) {
        form_highscore_ = std::make_unique<Form_Highscore>(*this, host_);
        form_highscore_->Closed = [this] { form_highscore_.reset(); };
    }
    fill_list();
    host_.show(*form_highscore_);
}

void Form_Main::fill_list() {
    std::vector<std::string> lines = list_lines(state, host_.locale_texts().decimal_separator);
    if (best_times_file_.is_behind()) {
        lines.push_back(to_list_text("Die Bestzeiten können zurzeit nicht gespeichert werden."));
    }
    form_highscore_->RTB1.TextRTF = list_document(lines);
}

void Form_Main::Command3_Click() {
    if (!form2_) {
        form2_ = std::make_unique<Form2>();
        form2_->Closed = [this] { form2_.reset(); };
    }
    form2_->load_help(files_, program_file(directory_, "Help.rtf"));
    host_.show(*form2_);
}

void Form_Main::Command_Beenden_Click() {
    complete_win();
    host_.quit();
}

}  // namespace solvanta
