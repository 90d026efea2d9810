#include <cmath>
#include <sstream>

#include "app/form_main.h"
#include "front_ends/common/walk.h"
#include "tests/front_ends/stage.h"
#include "tests/support/golden_game.h"
#include "tests/support/memory_files.h"

namespace solvanta::test {
namespace {

/// The real table with a player who has a keyboard and a screen reader.
class Access : public FrontEnd {
  protected:
    Access() {
        driver().announced();
        table.Form_Load();
        show(table);
    }

    /// What the reader finds on the canvas.
    std::vector<AccessibleLook> found() {
        std::vector<AccessibleLook> looks = driver().accessible(table);
        for (const Control& control : table.controls) {
            if (auto* const* button = std::get_if<CommandButton*>(&control))
                std::erase_if(looks,
                              [&](const auto& look) { return look.name == (*button)->Caption; });
        }
        return looks;
    }

    /// Each place is there once, as it is, and nothing else.
    void expect_places_found() {
        const auto looks = found();
        const auto places = places_of(table);
        ASSERT_EQ(looks.size(), places.size());
        for (std::size_t i = 0; i < places.size(); ++i) {
            const Rectangle place = place_of(table, *places[i]);
            const Point corner = looks[i].place.corner;
            EXPECT_EQ(looks[i].name, place_name(*places[i]));
            EXPECT_EQ(looks[i].key, places[i]->Key);
            EXPECT_EQ(looks[i].selected, places[i]->IsSelected && places[i]->IsSelected());
            EXPECT_LE(std::hypot(corner.x - place.corner.x, corner.y - place.corner.y), 1);
            EXPECT_LE(std::abs(looks[i].place.width - place.width), 1);
        }
    }

    /// The element with a key whose name has this part, in whole words.
    AccessibleLook look_at(const std::string& part) {
        for (const AccessibleLook& look : found()) {
            if (look.key != 0 && (look.name + ',').find(part + ',') != std::string::npos)
                return look;
        }
        throw std::runtime_error("nothing is named " + part);
    }

    std::string focused() {
        for (const AccessibleLook& look : found())
            if (look.focused) return look.name;
        return {};
    }

    void deal() {
        when_box_opens([&] { driver().key(Key::Enter); });
        press_key(Key::Enter);  // the first button has the focus
        ASSERT_TRUE(wait_until([&] { return game_dealt(table.state); }));
        show(table);  // a screen without a window manager leaves no window in front
    }

    /// Types a key; what is said then.
    std::vector<std::string> answers_to(char key, bool shift) {
        driver().announced();
        driver().type(key, shift);
        driver().settle();
        return driver().announced();
    }

    GoldenGame game;
    MemoryFiles files;
    DurableFiles durable{files};
    Form_Main table{host(), [this] { return random_from_seed(game.seed); }, durable};
};

TEST_F(Access, PlaysAGameByKeysAndByEar) {
    if (driver().ratio() > 1) GTEST_SKIP();  // it takes long, and is the same there
    expect_places_found();
    deal();
    for (int tabs = 0; tabs < 6 && focused().empty(); ++tabs)
        press_key(Key::Tab);
    ASSERT_NE(focused(), "");
    std::istringstream words(game.words);
    std::string word;
    for (int number = 0; words >> word; ++number) {
        const std::string place = word[0] == 's' ? "Stapel"
                                  : word[0] == 'w'
                                      ? "Ablage"
                                      : "Spalte " + std::to_string(std::atoi(&word[1]));
        const bool twice = word.ends_with('!');
        const auto answers = answers_to(look_at(place).key, twice);
        ASSERT_TRUE(answers.size() == 1 || (twice && answers.size() == 2))
            << word << ": " << testing::PrintToString(answers);
        if (number % 30 == 0) expect_places_found();
    }
    EXPECT_TRUE(table.state.GameWon);
    EXPECT_TRUE(wait_until([&] { return driver().control(table, table.InName).focused; }));
    press_key(Key::Enter);
    EXPECT_NE(focused(), "");  // as before
}

TEST_F(Access, FollowsTheReadersActionsAndTheWalk) {
    deal();
    for (const char key : {'T', 'Z'})
        EXPECT_EQ(answers_to(key, false).size(), 0U);  // the table has not the focus yet
    const AccessibleLook column = look_at("Spalte 4");
    driver().press_accessible(table, column.name);
    driver().settle();
    EXPECT_TRUE(table.state.Selected(4));
    while (focused().empty())
        press_key(Key::Tab);
    for (const char key : {'T', 'Z'})
        EXPECT_EQ(answers_to(key, false).size(), 1U);
    press_key(Key::End);
    EXPECT_EQ(focused(), "Ablage, leer");
    press_key(Key::ArrowLeft);
    EXPECT_EQ(focused(), "Stapel, 49 Karten");
    const auto [left, middle] =
        std::pair(look_at("Stapel").place.corner, look_at("Stapel").place.centre());
    expect_colors(table, {{left.x - 1, middle.y, {255, 255, 255}}, {left.x + 1, middle.y, black}});
    press_key(Key::Space);
    EXPECT_EQ(focused(), "Stapel, 46 Karten");
}

}  // namespace
}  // namespace solvanta::test
