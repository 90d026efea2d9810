#include "tests/support/player.h"

#include <sstream>
#include <string_view>

#include <gtest/gtest.h>

#include "scores/best_times_format.h"
#include "view/table_display.h"

namespace solvanta::test {
namespace {

/// Whether they look the same; pictures loaded at start-up a fresh table lacks.
bool same_look(const PictureElement& shown, const PictureElement& fresh) {
    if (!shown.Visible && !fresh.Visible) return true;
    const std::string& path = fresh.Picture.path();
    return (path.empty() || path == shown.Picture.path()) &&
           static_cast<const Element&>(shown) == fresh && shown.CutToHeight == fresh.CutToHeight;
}

/// Holds every picture of a dealt table, and the status line, against one shown afresh.
void expect_shown(const Form_Main& table) {
    static TableWindow fresh;
    GameState state = table.state;
    fresh.zeiger.Visible = state.Selected(0);
    RefreshTable(state, fresh, "/nowhere");
    for (std::size_t i = 0; i < fresh.canvas.size(); ++i) {
        auto* const* picture = std::get_if<PictureElement*>(&table.canvas[i]);
        if (!picture || same_look(**picture, *std::get<PictureElement*>(fresh.canvas[i]))) continue;
        ADD_FAILURE() << (*picture)->Picture.path() << " at " << (*picture)->Left << ", "
                      << (*picture)->Top << " in " << print_position(state);
    }
    EXPECT_EQ(table.Status.Caption, fresh.Status.Caption);
    EXPECT_EQ(state.GameWon, cards_outside_foundations(state) == 0);
}

}  // namespace

Player::Player(std::uint64_t seed, std::map<std::string, std::string> at_start)
    : table(
          host, [seed]() mutable { return random_from_seed(seed++); }, durable) {
    files.files = std::move(at_start);
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
    const bool twice = word.ends_with('!');
    const std::size_t dot = word.find('.');
    const int row = dot == std::string::npos ? 1 : std::stoi(word.substr(dot + 1));
    const PictureElement& element = word.starts_with("stock") ? table.Source_Hide
                                    : word.starts_with("waste")
                                        ? table.Source
                                        : table.Iv(row)(std::stoi(word.substr(1)) - 1);
    ASSERT_TRUE(element.Visible) << word << " in " << position();
    if (word.ends_with("!!")) return element.DblClick();
    // Left and right in turn: two words in quick succession are never taken for a double click.
    const Twips x = element.Left + (std::exchange(on_the_left_, !on_the_left_) ? 900 : 300);
    const Twips y = element.Top + 60;
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
    if (game_dealt(table.state)) expect_shown(table);
}

}  // namespace solvanta::test
