#include <gtest/gtest.h>

#include "scores/best_times_format.h"
#include "tests/support/player.h"
#include "tests/support/position.h"
#include "view/pictures.h"

namespace solvanta::test {
namespace {

/// One double click away from the win: the king of clubs alone on column 4.
const std::string nearly_won = "F 13 13 13 13 13 13 13 12; 4 XK";

std::string list_file(Player& player) {
    return player.files.files[MemoryFiles::list_path];
}

constexpr const char* list_caption = "Highscores - Top 30";

/// The window with this caption if it is shown.
template <typename Window>
Window* shown(const Player& player, const std::string& caption) {
    for (Form* form : player.host.visible) {
        if (form->Caption == caption) return static_cast<Window*>(form);
    }
    return nullptr;
}

void win(Player& player, int seconds) {
    player.set_up(nearly_won);
    player.table.state.Seconds = seconds;
    player.play("c4!");
}

void expect_name_entry(const Form_Main& table, bool open) {
    EXPECT_EQ(table.state.NameEntryOpen, open);
    EXPECT_EQ(table.Diddle.Visible, open);
    EXPECT_EQ(table.FrBestzeiteintrag.Visible, open);
    EXPECT_EQ(table.FrBestzeiteintrag.Enabled, open);
}

TEST(Clock, CountsFromDealToWinOnly) {
    Player player;
    player.play("tick tick");
    EXPECT_EQ(player.table.Zeitanzeige.Caption, "");
    player.deal();
    for (int i = 0; i < 75; ++i)
        player.play("tick");
    EXPECT_EQ(player.table.Zeitanzeige.Caption, "1:15");
    player.host.during_message = [&] { player.play("tick"); };
    player.host.answers = {Answer::No};
    player.deal();
    EXPECT_EQ(player.table.Zeitanzeige.Caption, "1:16");

    win(player, 75);
    player.play("tick tick");
    EXPECT_EQ(player.table.state.Seconds, 75);
    player.deal();
    player.play("tick");
    EXPECT_EQ(player.table.Zeitanzeige.Caption, "0:01");
}

TEST(Stock, RefusesTheFourthPassBehindTheSkull) {
    Player player;
    player.set_up("D 1; S; F 13 13 13 13 13 13 13 11; W XD; 4 XK; sel 4");
    const std::string before = player.position();
    bool seen = false;
    player.host.during_message = [&] {
        seen = player.table.Scull.Visible;
        player.play("tick");
    };
    player.play("stock stock");
    EXPECT_TRUE(seen);
    EXPECT_FALSE(player.table.Scull.Visible);
    EXPECT_EQ(player.position(), before);
    EXPECT_EQ(player.table.state.Seconds, 2);
    const NullHost::Message refusal(
        "Leider können Sie den Stapel nicht mehr umdrehen. Wenn nichts mehr geht, ist das Spiel "
        "verloren!",
        Buttons::Ok);
    EXPECT_EQ(player.host.messages, std::vector(2, refusal));
}

TEST(Win, TakesTheRoadIntoTheList) {
    Player player(MemoryFiles("100,\"A\",\"d\"\r\n120,\"B\",\"d\"\r\n"));
    player.deal();
    const std::string file_at_deal = list_file(player);
    win(player, 120);
    const Form_Main& table = player.table;
    const GameState& state = table.state;
    EXPECT_EQ(table.Platz.Caption, "Platz: 3");
    EXPECT_EQ(player.host.focused, &table.InName);
    player.table.InName.KeyDown('M');
    player.play("c4! waste stock tick");
    expect_name_entry(table, true);
    EXPECT_EQ(list_file(player), file_at_deal);

    player.host.now = {2026, 3, 1, 0, 5};  // the moment of Enter counts
    player.enter_name(" Jörg \"€\" ");
    expect_name_entry(table, false);
    EXPECT_EQ(state.BestTime(3), 120);
    EXPECT_EQ(state.BestName(3) + state.BestDate(3), " J\xF6rg \x94\x80\x94 1. M\xE4r 2026 0:05");
    EXPECT_EQ(std::pair(state.GamesWon, state.WonSinceStart), std::pair(1, 1));
    EXPECT_EQ(list_file(player), format_best_times(state));
    EXPECT_EQ(table.InName.Text, " Jörg \"€\" ");

    const std::string file_at_win = list_file(player);
    player.enter_name("again");
    player.play("c4! waste! c5!!");
    EXPECT_FALSE(state.NameEntryOpen);
    EXPECT_EQ(list_file(player), file_at_win);
    win(player, 50);
    EXPECT_EQ(table.Platz.Caption, "Platz: 1");
    player.enter_name("");
    EXPECT_EQ(state.BestName(1) + state.BestName(4), " J\xF6rg \x94\x80\x94 ");
}

TEST(Win, TooSlowIsCongratulatedAndCounted) {
    std::string full;
    for (int p = 1; p <= 30; ++p)
        full += std::string(p == 11 ? "9,3\r\n" : "") + "10,\"A\",\"d\"\r\n";
    Player player{MemoryFiles(full)};
    bool seen = false;
    player.host.during_message = [&] { seen = player.table.Diddle.Visible; };
    win(player, 10);
    EXPECT_TRUE(seen);
    EXPECT_EQ(player.host.messages,
              std::vector(1, NullHost::Message("Gratulation! Spiel gewonnen!", Buttons::Ok)));
    expect_name_entry(player.table, false);
    EXPECT_EQ(list_file(player), full.replace(full.find("9,3"), 3, "9,4"));
    EXPECT_EQ(player.table.state.WonSinceStart, 1);
}

TEST(Win, CanComeFromTheWasteAndOnlyByDoubleClick) {
    Player player;
    for (const std::string last : {"stock waste waste!", "stock waste c1 c1! c1!", "c10!"}) {
        player.set_up("F 13 13 13 13 13 13 13 11; 4 XD; " +
                      std::string(last == "c10!" ? "10 XK; S" : "S XK"));
        player.play("c4!");
        EXPECT_FALSE(player.table.state.GameWon);
        player.play(last);
        EXPECT_TRUE(player.table.state.GameWon) << last;
        player.enter_name("");
    }
}

TEST(Win, PendingNameIsEnteredBeforeWhatOvertakesIt) {
    const auto deal_at_last = [](Player& player) {
        player.host.answers = {Answer::No};
        player.deal();
        expect_name_entry(player.table, true);
        player.deal();
    };
    const std::pair<std::function<void(Player&)>, bool> ends[] = {
        {deal_at_last, false},
        {[](Player& player) { player.table.Command_Beenden.Click(); }, true},
        {[](Player& player) { player.host.close(player.table); }, true},
        {[](Player& player) { player.table.Saving(); }, false},
    };
    for (const auto& [end, quits] : ends) {
        Player player;
        player.table.Saving();
        EXPECT_EQ(list_file(player), "");
        win(player, 77);
        player.table.InName.Text = "Eva";
        end(player);
        expect_name_entry(player.table, false);
        EXPECT_EQ(player.table.state.GamesWon, 1);
        EXPECT_EQ(list_file(player), format_best_times(player.table.state));
        EXPECT_EQ(list_file(player).substr(0, 9), "77,\"Eva\",");
        EXPECT_EQ(player.host.has_quit, quits);
    }
}

TEST(BestTimesWindow, IsASnapshotUntilShownAgain) {
    Player player(MemoryFiles("65,\"{\\b}\xDF\",\"d\"\r\n"));
    player.table.Comm_highscore.Click();
    auto* list = shown<Form_Highscore>(player, list_caption);
    ASSERT_TRUE(list);
    const std::string first = list->RTB1.TextRTF;
    EXPECT_NE(first.find(" 1:   1:05  \\{\\\\b\\}\\'df  "), std::string::npos) << first;
    EXPECT_NE(first.find("Spiele 0 Gewonnen: 0 [0,00%]  Seit Spielstart 0 Gewonnen: 0 [0,00%]"),
              std::string::npos);
    player.deal();
    EXPECT_EQ(list->RTB1.TextRTF, first);
    player.table.Comm_highscore.Click();
    EXPECT_NE(list->RTB1.TextRTF.find("Spiele 1 "), std::string::npos);
    list->Command_Ok.Click();
    EXPECT_FALSE(shown<Form_Highscore>(player, list_caption));
    player.table.Comm_highscore.Click();
    EXPECT_EQ(shown<Form_Highscore>(player, list_caption), list);

    player.host.close(*list);
    player.table.Comm_highscore.Click();
    EXPECT_NE(shown<Form_Highscore>(player, list_caption)->RTB1.TextRTF, first);
}

TEST(BestTimesWindow, ClearsListAndCountersWhenConfirmed) {
    Player player(MemoryFiles("65,\"A\",\"d\"\r\n"));
    player.deal();
    win(player, 70);
    player.table.InName.Text = "Eva";
    std::vector<std::string> written;
    player.files.before = [&](const std::string& call) {
        if (call == "sync") written.push_back(list_file(player));
        return std::error_code{};
    };
    player.table.Comm_highscore.Click();
    player.host.answers = {Answer::Cancel, Answer::Ok};
    shown<Form_Highscore>(player, list_caption)->Comm_clear_highscore.Click();
    EXPECT_TRUE(written.empty());
    // Even if the window goes while its question is open.
    player.host.during_message = [&] {
        EXPECT_TRUE(player.table.state.NameEntryOpen);
        player.host.close(*shown<Form_Highscore>(player, list_caption));
    };
    shown<Form_Highscore>(player, list_caption)->Comm_clear_highscore.Click();
    EXPECT_EQ(
        player.host.messages.back(),
        NullHost::Message("Soll die Highscore-Liste wirklich gelöscht werden?", Buttons::OkCancel));
    std::string cleared;
    for (int line = 1; line <= 31; ++line)
        cleared += line == 11 ? "0,0\r\n" : "0,\" \",\" \"\r\n";
    ASSERT_EQ(written.size(), 2U);
    EXPECT_EQ(written[0].find("65,\"A\",\"d\"\r\n70,\"Eva\","), 0U);
    EXPECT_EQ(written[1], cleared);
    const auto* list = shown<Form_Highscore>(player, list_caption);
    ASSERT_TRUE(list);
    EXPECT_EQ(list->RTB1.TextRTF,
              "{\\rtf1\\ansi\\ansicpg1252 {}{\r\n\\par }{Spiele 0 Gewonnen: 0 [0,00%]  Seit "
              "Spielstart 0 Gewonnen: 0 [0,00%]}}");
}

TEST(Help, IsReadAgainAtEachClick) {
    Player player;
    const std::string path = program_file("/nowhere", "Help.rtf");
    Form2* help = nullptr;
    for (const std::string content : {"{\\rtf1 eins}", "kein RTF", "{\\rtf1 zwei}", ""}) {
        player.files.files[path] = content;
        if (content.empty()) player.files.files.erase(path);
        player.table.Command3.Click();
        auto* const now_shown = shown<Form2>(player, "Hilfe");
        ASSERT_TRUE(now_shown);
        EXPECT_TRUE(!help || help == now_shown);
        help = now_shown;
        EXPECT_EQ(help->RichTextBox1.TextRTF, content[0] == '{' ? content : "");
    }
    ASSERT_TRUE(help);
    player.host.close(*help);
    player.files.files[path] = "{\\rtf1 drei}";
    player.table.Command3.Click();
    EXPECT_EQ(shown<Form2>(player, "Hilfe")->RichTextBox1.TextRTF, "{\\rtf1 drei}");
}

}  // namespace
}  // namespace solvanta::test
