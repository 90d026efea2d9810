#include "tests/support/player.h"

#include <algorithm>
#include <sstream>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "scores/best_times_format.h"
#include "view/table_display.h"

namespace solvanta::test {
namespace {

/// Of a card, or of the place where there is none.
const std::string& face_file(CardNumber card) {
    static const std::vector<std::string> files = [] {
        const std::vector<std::string> suits{"Herz_", "Pick_", "Karo_", "Kreuz_"};
        std::vector<std::string> all{"Leer.bmp"};
        for (CardNumber c = 1; c <= cards_per_deck; ++c)
            all.push_back(suits[std::size_t(suit_index(c))] + print_card(c).substr(1) + ".bmp");
        return all;
    }();
    return files.at(static_cast<std::size_t>(card));
}

template <typename Pile>
const std::string& top_file(const Pile& pile, int count) {
    return face_file(count == 0 ? 0 : pile(count));
}

void expect_file(const PictureElement& element, std::string_view file) {
    const std::string_view path = element.Picture.path();
    constexpr std::string_view directory = "/nowhere";
    EXPECT_TRUE(path.starts_with(directory) && path.substr(directory.size() + 1) == file)
        << path << " in place of " << file;
}

void expect_column(const Form_Main& table, int c) {
    const GameState& state = table.state;
    const int down = state.FaceDownCount(c);
    const int up = state.FaceUpCount(c);
    for (int r = 1; r <= 9; ++r) {
        EXPECT_EQ(table.Ih(r)(c - 1).Visible, r <= down) << "strip " << r << " of column " << c;
        EXPECT_EQ(table.Ih(r)(c - 1).Top, 1680 + 120 * r);
        expect_file(table.Ih(r)(c - 1), "Back_verdeckt.bmp");
    }
    for (int r = 2; r <= 13; ++r) {
        const PictureElement& slot = table.Iv(r)(c - 1);
        ASSERT_EQ(slot.Visible, r <= up) << "card " << r << " of column " << c;
        if (!slot.Visible) continue;
        expect_file(slot, face_file(state.FaceUp(c)(r)));
        EXPECT_EQ(slot.Top, 1800 + 120 * down + 240 * (up - r));
        EXPECT_TRUE(slot.Width == 1080 && slot.Height == 240 && slot.CutToHeight);
    }
    const PictureElement& front = table.Iv(1)(c - 1);
    ASSERT_TRUE(front.Visible && !front.CutToHeight) << "column " << c;
    EXPECT_EQ(front.Left, 1200 * c - 1080);
    EXPECT_EQ(front.Top, up == 0 ? 1800 : 1800 + 120 * down + 240 * (up - 1));
    expect_file(front,
                state.Covered(c) ? "Back_ganz.bmp" : top_file(state.FaceUp(c), up == 0 ? 0 : 1));
}

void expect_pointer(const Form_Main& table) {
    const auto& selected = table.state.Selected;
    const auto c = std::find(selected.begin(), selected.end(), true) - selected.begin();
    expect_file(table.zeiger, "zeiger.bmp");
    ASSERT_EQ(table.zeiger.Visible, c <= columns);
    if (!table.zeiger.Visible) return;
    EXPECT_EQ(table.zeiger.Left, c == 0 ? 11370 : 1200 * c - 870);
    EXPECT_EQ(table.zeiger.Top, c == 0 ? 20 : 1440);
}

/// Holds every element of a dealt table against the record: pictures, places, visibility, the
/// pointer, the status line.
void expect_table_shows(const Form_Main& table) {
    const GameState& state = table.state;
    if (!game_dealt(state)) return;
    EXPECT_EQ(state.GameWon, cards_outside_foundations(state) == 0);
    for (int c = 1; c <= columns; ++c)
        expect_column(table, c);
    for (int f = 1; f <= foundations; ++f) {
        EXPECT_TRUE(table.Stapel(f - 1).Visible);
        expect_file(table.Stapel(f - 1),
                    top_file(state.FoundationCards(f), state.FoundationCount(f)));
    }
    expect_pointer(table);
    static const std::vector<std::string> passes{
        "", "3.Runde: 1 Karte heben", "2.Runde: 2 Karten heben", "1.Runde: 3 Karten heben"};
    EXPECT_EQ(table.Status.Caption, passes.at(static_cast<std::size_t>(state.DrawSize)));
    expect_file(table.Source, top_file(state.Waste, state.WasteCount));
    expect_file(table.Source_Hide, state.DeckCount == 0 ? "Leer.bmp" : "Back_ganz.bmp");
}

}  // namespace

Player::Player(std::uint64_t seed, const MemoryFiles& at_start)
    : files(at_start),
      table(
          host, [seed]() mutable { return random_from_seed(seed++); }, durable) {
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
    hand_.click(x, y);
    check();
}

void Player::double_click(Twips x, Twips y) {
    click(x, y);
    hand_.double_press(x, y);
    hand_.release(x, y);
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
    const std::size_t dot = place.find('.');
    const int row = dot == std::string::npos ? 1 : std::stoi(place.substr(dot + 1));
    const PictureElement* element = place == "stock" ? &table.Source_Hide
                                    : place == "waste"
                                        ? &table.Source
                                        : &table.Iv(row)(std::stoi(place.substr(1)) - 1);
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

void Player::check() const {
    ASSERT_EQ(violated_invariant(table.state), "") << position();
    expect_table_shows(table);
}

}  // namespace solvanta::test
