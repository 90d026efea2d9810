#include "tests/support/player.h"

#include <sstream>

#include <gtest/gtest.h>

#include "scores/best_times_format.h"
#include "tests/support/position.h"
#include "tests/support/table_check.h"
#include "view/table_display.h"

namespace solvanta::test {

Player::Player(std::uint64_t seed) : Player(seed, MemoryFiles()) {}

Player::Player(std::uint64_t seed, const MemoryFiles& at_start)
    : files(at_start),
      table(
          host, [seed]() mutable { return random_from_seed(seed++); }, files) {
    table.Form_Load();
    host.show(table);
}

void Player::set_up(const std::string& position) {
    GameState& state = table.state;
    GameState placed = parse_position(position);
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
