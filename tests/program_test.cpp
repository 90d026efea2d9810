#include <algorithm>

#include <gtest/gtest.h>

#include "scores/best_times_format.h"
#include "tests/support/player.h"
#include "tests/support/position.h"
#include "view/pictures.h"

namespace solvanta::test {
namespace {

using namespace std::string_literals;

class Program : public testing::Test {
  protected:
    /// Starts anew with this list.
    void start_with(const std::string& list) {
        list_file = list;
        table.Form_Load();
    }

    void win(int seconds) {
        player.set_up("F 13 13 13 13 13 13 13 12; 4 XK");
        state.Seconds = seconds;
        player.play("c4!");
    }

    void expect_name_entry(bool open) const {
        EXPECT_EQ(state.NameEntryOpen, open);
        EXPECT_EQ(table.Diddle.Visible, open);
        EXPECT_EQ(table.FrBestzeiteintrag.Visible, open);
        EXPECT_EQ(table.FrBestzeiteintrag.Enabled, open);
    }

    /// The window with this caption if it is shown.
    template <typename Window>
    Window* shown(const std::string& caption) const {
        for (Form* form : player.host.visible) {
            if (form->Caption == caption) return static_cast<Window*>(form);
        }
        return nullptr;
    }

    Form_Highscore* list() const { return shown<Form_Highscore>("Highscores - Top 30"); }

    /// The list as its window shows it after a click on its button.
    std::string shown_list() {
        table.Comm_highscore.Click();
        return list()->RTB1.TextRTF;
    }

    Player player;
    Form_Main& table = player.table;
    GameState& state = table.state;
    std::string& list_file = player.files.files[MemoryFiles::list_path];
};

TEST_F(Program, RefusesTheFourthPassBehindTheSkull) {
    player.set_up("D 1; S; F 13 13 13 13 13 13 13 11; W XD; 4 XK; sel 4");
    const std::string before = player.position();
    player.host.during_message = [&] {
        EXPECT_TRUE(table.Scull.Visible);
        player.play("tick");
    };
    player.play("stock stock");
    EXPECT_FALSE(table.Scull.Visible);
    EXPECT_EQ(std::pair(player.position(), state.Seconds), std::pair(before, 2));
    const char* const refusal =
        "Leider können Sie den Stapel nicht mehr umdrehen. Wenn nichts mehr geht, ist das Spiel "
        "verloren!";
    EXPECT_EQ(player.host.messages, std::vector(2, NullHost::Message(refusal, Buttons::Ok)));
}

TEST_F(Program, TakesAWinIntoTheList) {
    start_with("100,\"A\",\"d\"\r\n120,\"B\",\"d\"\r\n");
    player.deal();
    win(120);
    EXPECT_EQ(table.Platz.Caption, "Platz: 3");
    EXPECT_EQ(player.host.focused, &table.InName);
    table.InName.KeyDown('M');
    player.play("c4! waste stock tick");
    expect_name_entry(true);
    EXPECT_NE(list_file.find("\n1,0\r"), std::string::npos) << list_file;

    player.host.now = {2026, 3, 1, 0, 5};  // the moment of Enter counts
    player.enter_name(" Jörg \"€\" ");
    expect_name_entry(false);
    player.enter_name("again");
    player.play("c4! waste! c5!!");
    win(50);
    EXPECT_EQ(table.Platz.Caption, "Platz: 1");
    player.host.now = {2026, 12, 25, 23, 10};
    player.enter_name("");
    EXPECT_TRUE(list_file.starts_with(
        "50,\"\",\"25. Dez 2026 23:10\"\r\n100,\"A\",\"d\"\r\n120,\"B\",\"d\"\r\n"
        "120,\" J\xF6rg \x94\x80\x94 \",\"1. M\xE4r 2026 0:05\"\r\n0,"))
        << list_file;
    EXPECT_NE(list_file.find("\n1,2\r"), std::string::npos) << list_file;
}

TEST_F(Program, CongratulatesAndCountsTheTooSlow) {
    std::string full;
    for (int p = 1; p <= 30; ++p)
        full += std::string(p == 11 ? "9,3\r\n" : "") + "10,\"A\",\"d\"\r\n";
    start_with(full);
    // Whatever comes while the box stands: the win is counted once, and before anything ends.
    player.host.boxes_stay = true;
    for (const Event& end : {Event([] {}), table.Saving, table.Command_Beenden.Click}) {
        const int won = state.GamesWon;
        win(10);
        EXPECT_TRUE(table.Diddle.Visible);
        EXPECT_EQ(state.GamesWon, won);
        end();
        EXPECT_EQ(list_file, format_best_times(state));
        player.host.open_box(Answer::Ok);
        expect_name_entry(false);
        EXPECT_EQ(std::pair(state.GamesWon, state.WonSinceStart), std::pair(won + 1, won - 2));
    }
    EXPECT_EQ(player.host.messages,
              std::vector(3, NullHost::Message("Gratulation! Spiel gewonnen!", Buttons::Ok)));
    EXPECT_EQ(list_file, full.replace(full.find("9,3"), 3, "9,6"));
}

TEST_F(Program, EntersAPendingNameBeforeWhatOvertakesIt) {
    const Event refused_then_dealt = [&] {
        player.host.answers = {Answer::No};
        player.deal();
        expect_name_entry(true);
        player.deal();
    };
    const Event ends[] = {refused_then_dealt, table.Saving, table.Command_Beenden.Click,
                          [&] { player.host.close(table); }};
    table.Saving();
    EXPECT_EQ(list_file, "");
    for (int won = 0; const Event& end : ends) {
        player.host.has_quit = false;
        win(99 - ++won);
        table.InName.Text = "Eva";
        end();
        expect_name_entry(false);
        EXPECT_EQ(state.GamesWon, won);
        EXPECT_EQ(list_file, format_best_times(state));
        EXPECT_TRUE(list_file.starts_with(std::to_string(99 - won) + ",\"Eva\","));
        EXPECT_EQ(player.host.has_quit, won > 2);
    }
}

TEST_F(Program, ShowsTheListAsASnapshot) {
    start_with("65,\"{\\b}\xDF\",\"d\"\r\n");
    const std::string first = shown_list();
    EXPECT_NE(first.find(" 1:   1:05  \\{\\\\b\\}\\'df  "), std::string::npos) << first;
    player.deal();
    EXPECT_EQ(list()->RTB1.TextRTF, first);
    EXPECT_NE(shown_list().find("Spiele 1 "), std::string::npos);
    const Form_Highscore* window = list();
    list()->Command_Ok.Click();
    EXPECT_FALSE(list());
    EXPECT_NE(shown_list(), first);
    EXPECT_EQ(list(), window);
    player.host.close(*list());
    EXPECT_NE(shown_list(), first);
}

TEST_F(Program, TellsOnceAndInTheListThatItCannotBeStored) {
    testing::internal::CaptureStderr();
    for (const bool full : {true, true, true, false, false}) {
        player.files.before = [full](const std::string& call) {
            const bool fails = full && call == "create";
            return fails ? std::make_error_code(std::errc::no_space_on_device) : std::error_code{};
        };
        player.deal();
        EXPECT_EQ(shown_list().ends_with(
                      "{Die Bestzeiten k\\'f6nnen zurzeit nicht gespeichert werden.}}"),
                  full);
    }
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 2) << said;
}

TEST_F(Program, ClearsListAndCountersWhenConfirmed) {
    start_with("65,\"A\",\"d\"\r\n");
    player.deal();
    win(70);
    table.InName.Text = "Eva";
    const std::string before = list_file;
    shown_list();
    player.host.answers = {Answer::Cancel, Answer::Ok};
    list()->Comm_clear_highscore.Click();
    EXPECT_EQ(list_file, before);
    // Even if the window goes while its question is open.
    player.host.during_message = [&] {
        expect_name_entry(true);
        player.host.close(*list());
    };
    list()->Comm_clear_highscore.Click();
    expect_name_entry(false);
    EXPECT_EQ(
        player.host.messages.back(),
        NullHost::Message("Soll die Highscore-Liste wirklich gelöscht werden?", Buttons::OkCancel));
    EXPECT_EQ(list_file, format_best_times(Player().table.state));
    ASSERT_TRUE(list());
    EXPECT_EQ(list()->RTB1.TextRTF,
              "{\\rtf1\\ansi\\ansicpg1252 {}{\r\n\\par }{Spiele 0 Gewonnen: 0 [0,00%]  Seit "
              "Spielstart 0 Gewonnen: 0 [0,00%]}}");
}

TEST_F(Program, ReadsTheHelpAgainAtEachClick) {
    const std::pair<std::string, bool> cases[] = {
        {"{\\rtf1 eins}", true},
        {"kein RTF", false},
        {"{\\rtf1 {zwei}\\}}\n", true},
        {"{\\rtf1 drei\\}", false},
        {"{\\rtf1 {vier}", false},
        {"{\\rtf1" + std::string(4 << 20, '.') + "}", false},
        {"", false},
    };
    for (const auto& [content, whole] : cases) {
        player.files.files[program_file("/nowhere", "Help.rtf")] = content;
        if (content.empty()) player.files.files.clear();
        table.Command3.Click();
        ASSERT_EQ(player.host.visible.size(), 2U);
        const std::string& text = shown<Form2>("Hilfe")->RichTextBox1.TextRTF;
        EXPECT_EQ(text == content, whole) << text;
        EXPECT_EQ(text.ends_with(" fehlt oder ist besch\\'e4digt.}"), !whole) << text;
    }
    player.host.close(*shown<Form2>("Hilfe"));
    table.Command3.Click();
    EXPECT_TRUE(shown<Form2>("Hilfe"));
}

TEST_F(Program, StartsTheClockAtADealAndForgetsTheGameBefore) {
    const std::string& clock = table.Zeitanzeige.Caption;
    player.deal();
    const std::string first = player.position();
    state.Seconds = 74;
    player.host.answers = {Answer::No};
    player.host.during_message = [&] { player.play("tick"); };
    player.deal();
    EXPECT_EQ(std::pair(player.position(), clock), std::pair(first, std::string("1:15")));

    // Whatever a game leaves behind, the next is dealt like the second one of a fresh program.
    player.set_up("D 1; F 1 2 0 0 0 1; W H9 XK; 1 X2 | P4?; 2 K2 | K9; sel 2");
    state.Seconds = 74;
    state.ClockRunning = false;
    player.deal();
    Player fresh(2);
    fresh.deal();
    EXPECT_EQ(player.position(), fresh.position());
    EXPECT_NE(player.position(), first);
    EXPECT_EQ(clock, "0:00");
    player.play("tick");
    EXPECT_EQ(clock, "0:01");
    EXPECT_EQ(std::pair(state.GamesPlayed, state.PlayedSinceStart), std::pair(2, 2));
    EXPECT_EQ(player.host.messages,
              std::vector(3, NullHost::Message("Neues Spiel?", Buttons::YesNo)));
}

}  // namespace
}  // namespace solvanta::test
