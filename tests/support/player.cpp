#include "tests/support/player.h"

#include <algorithm>
#include <map>
#include <sstream>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "scores/best_times_format.h"
#include "view/pictures.h"
#include "view/table_display.h"

namespace solvanta::test {
namespace {

std::vector<std::string> face_files() {
    std::map<char, std::string> words{
        {'H', "Herz_"}, {'P', "Pick_"}, {'K', "Karo_"}, {'X', "Kreuz_"}};
    std::vector<std::string> files{""};
    for (CardNumber card = 1; card <= cards_per_deck; ++card) {
        const std::string printed = print_card(card);
        files.push_back(words[printed[0]] + printed.substr(1) + ".bmp");
    }
    return files;
}

const std::string& face_file(CardNumber card) {
    static const std::vector<std::string> files = face_files();
    return files.at(static_cast<std::size_t>(card));
}

std::string_view file_of(const PictureElement& element, const std::string& directory) {
    const std::string_view path = element.Picture.path();
    EXPECT_TRUE(path.starts_with(directory)) << path;
    return path.substr(directory.size() + 1);
}

void expect_column(const Form_Main& table, const std::string& directory, int c) {
    const GameState& state = table.state;
    const int down = state.FaceDownCount(c);
    const int up = state.FaceUpCount(c);
    for (int r = 1; r <= 9; ++r) {
        EXPECT_EQ(table.Ih(r)(c - 1).Visible, r <= down) << "strip " << r << " of column " << c;
        EXPECT_EQ(table.Ih(r)(c - 1).Top, 1680 + 120 * r);
        EXPECT_EQ(file_of(table.Ih(r)(c - 1), directory), "Back_verdeckt.bmp");
    }
    for (int r = 2; r <= 13; ++r) {
        const PictureElement& slot = table.Iv(r)(c - 1);
        ASSERT_EQ(slot.Visible, r <= up) << "card " << r << " of column " << c;
        if (!slot.Visible) continue;
        EXPECT_EQ(file_of(slot, directory), face_file(state.FaceUp(c)(r)));
        EXPECT_EQ(slot.Top, 1800 + 120 * down + 240 * (up - r));
        EXPECT_EQ(slot.Width, 1080);
        EXPECT_EQ(slot.Height, 240);
        EXPECT_TRUE(slot.CutToHeight);
    }
    const PictureElement& front = table.Iv(1)(c - 1);
    ASSERT_TRUE(front.Visible) << "column " << c;
    EXPECT_FALSE(front.CutToHeight);
    EXPECT_EQ(front.Left, 1200 * c - 1080);
    EXPECT_EQ(front.Top, up == 0 ? 1800 : 1800 + 120 * down + 240 * (up - 1));
    EXPECT_EQ(file_of(front, directory), up == 0            ? "Leer.bmp"
                                         : state.Covered(c) ? "Back_ganz.bmp"
                                                            : face_file(state.FaceUp(c)(1)));
}

void expect_pointer(const Form_Main& table) {
    const auto& selected = table.state.Selected;
    const auto c = std::find(selected.begin(), selected.end(), true) - selected.begin();
    ASSERT_EQ(table.zeiger.Visible, c <= columns);
    if (!table.zeiger.Visible) return;
    EXPECT_EQ(table.zeiger.Left, c == 0 ? 11370 : 1200 * c - 870);
    EXPECT_EQ(table.zeiger.Top, c == 0 ? 20 : 1440);
}

/// Holds every element of a dealt table against the record: pictures, places, visibility, the
/// pointer, the status line.
void expect_table_shows(const Form_Main& table, const std::string& directory) {
    const GameState& state = table.state;
    if (!game_dealt(state)) return;
    for (int c = 1; c <= columns; ++c)
        expect_column(table, directory, c);
    for (int f = 1; f <= foundations; ++f) {
        const int count = state.FoundationCount(f);
        EXPECT_TRUE(table.Stapel(f - 1).Visible);
        EXPECT_EQ(file_of(table.Stapel(f - 1), directory),
                  count == 0 ? "Leer.bmp" : face_file(state.FoundationCards(f)(count)));
    }
    expect_pointer(table);
    EXPECT_EQ(file_of(table.zeiger, directory), "zeiger.bmp");
    static const std::vector<std::string> passes{
        "", "3.Runde: 1 Karte heben", "2.Runde: 2 Karten heben", "1.Runde: 3 Karten heben"};
    EXPECT_EQ(table.Status.Caption, passes.at(static_cast<std::size_t>(state.DrawSize)));
    EXPECT_EQ(file_of(table.Source, directory),
              state.WasteCount == 0 ? "Leer.bmp" : face_file(state.Waste(state.WasteCount)));
    EXPECT_EQ(file_of(table.Source_Hide, directory),
              state.DeckCount == 0 ? "Leer.bmp" : "Back_ganz.bmp");
}

}  // namespace

Player::Player(std::uint64_t seed) : Player(seed, MemoryFiles()) {}

Player::Player(std::uint64_t seed, const MemoryFiles& at_start)
    : files(at_start),
      table(
          host, [seed]() mutable { return random_from_seed(seed++); }, files) {
    table.Form_Load();
    host.show(table);
}

void Player::set_up(GameState placed) {
    GameState& state = table.state;
    parse_best_times(format_best_times(state), placed);
    placed.PlayedSinceStart = state.PlayedSinceStart;
    placed.WonSinceStart = state.WonSinceStart;
    state = placed;
    table.zeiger.Visible = state.Selected(0);
    RefreshTable(state, table, host.directory);
    table.Zeitanzeige.Caption = "0:00";
    check();
}

void Player::deal() {
    table.Command1.Click();
    check();
}

void Player::click(Twips x, Twips y) {
    mouse_.press(x, y);
    mouse_.release(x, y);
    check();
}

void Player::double_click(Twips x, Twips y) {
    click(x, y);
    mouse_.double_press(x, y);
    mouse_.release(x, y);
    check();
}

void Player::play(const std::string& words) {
    std::istringstream in(words);
    for (std::string word; in >> word;) {
        play_word(word);
        check();
    }
}

void Player::play_word(const std::string& word) {
    if (word == "tick") return table.Timer1.Tick();
    const std::string place = word.substr(0, word.find('!'));
    const bool twice = place != word;
    const PictureElement* element = nullptr;
    if (place == "stock") {
        element = &table.Source_Hide;
    } else if (place == "waste") {
        element = &table.Source;
    } else {
        const std::size_t dot = place.find('.');
        const int row = dot == std::string::npos ? 1 : std::stoi(place.substr(dot + 1));
        element = &table.Iv(row)(std::stoi(place.substr(1)) - 1);
    }
    ASSERT_TRUE(element->Visible) << word;
    if (word.ends_with("!!")) return element->DblClick();
    // Left and right in turn: two words in quick succession are never taken for a double click.
    on_the_left_ = !on_the_left_;
    const Twips x = element->Left + (on_the_left_ ? 300 : 900);
    const Twips y = element->Top + 60;
    if (on_click) on_click(x, y, twice);
    twice ? double_click(x, y) : click(x, y);
}

void Player::enter_name(const std::string& name) {
    table.InName.Text = name;
    table.InName.KeyDown(key_enter);
    check();
}

std::string Player::position() const {
    return print_position(table.state);
}

void Player::check() const {
    ASSERT_EQ(violated_invariant(table.state), "") << position();
    expect_table_shows(table, host.directory);
}

}  // namespace solvanta::test
