#include <algorithm>
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

    /// Each place is there once, as it is, and nothing else.
    void expect_places_found() {
        const auto looks = driver().accessible(table);
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

    /// The name of the place that has the focus.
    std::string focused() {
        for (const AccessibleLook& look : driver().accessible(table))
            if (look.focused) return look.name;
        return {};
    }

    void deal() {
        when_box_opens([&] { driver().key(Key::Enter); });
        press_key(Key::Enter);  // the first button has the focus
        ASSERT_TRUE(wait_until([&] { return game_dealt(table.state); }));
        show(table);  // a screen without a window manager leaves no window in front
        EXPECT_EQ(answers_to(Key{'T'}).size(), 0U);  // the table has not the focus yet
    }

    void go_to_the_table() {
        for (int tabs = 0; tabs < 6 && focused().empty(); ++tabs)
            press_key(Key::Tab);
        ASSERT_NE(focused(), "");
    }

    /// What is said at a key.
    std::vector<std::string> answers_to(Key key, Modifier modifier = Modifier::None) {
        driver().announced();
        press_key(key, modifier);
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
    go_to_the_table();
    std::istringstream words(game.words);
    std::string word;
    for (int number = 0; words >> word; ++number) {
        const bool twice = word.ends_with('!');
        const char column = word[word.size() - (twice ? 2 : 1)];
        const Key place{word[0] == 's' ? 'S' : word[0] == 'w' ? 'A' : column};
        const auto answers = answers_to(place, twice ? Modifier::Shift : Modifier::None);
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
    const auto places = places_of(table);
    const auto column = std::find(places.begin(), places.end(), &table.Iv(1)(3));
    driver().press_accessible(table, static_cast<std::size_t>(column - places.begin()));
    driver().settle();
    EXPECT_TRUE(table.state.Selected(4));
    go_to_the_table();
    for (const char key : {'T', 'Z'})
        EXPECT_EQ(answers_to(Key{key}).size(), 1U);
    press_key(Key::End);
    EXPECT_EQ(focused(), "Ablage, leer");
    press_key(Key::ArrowLeft);
    EXPECT_EQ(focused(), "Stapel, 49 Karten");
    const Rectangle stock = place_of(table, table.Source_Hide);
    const auto [left, middle] = std::pair(stock.corner.x, stock.centre().y);
    expect_colors(table, {{left - 1, middle, {255, 255, 255}}, {left + 1, middle, black}});
    press_key(Key::Space);
    EXPECT_EQ(focused(), "Stapel, 46 Karten");
}

}  // namespace
}  // namespace solvanta::test
