#include <algorithm>
#include <cmath>

#include "app/form_main.h"
#include "front_ends/common/walk.h"
#include "tests/front_ends/stage.h"
#include "tests/support/memory_files.h"
#include "tests/support/position.h"
#include "view/table_display.h"

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

    MemoryFiles files;
    DurableFiles durable{files};
    Form_Main table{host(), [] { return random_from_seed(1); }, durable};
};

TEST_F(Access, FollowsTheReadersActionsAndTheWalk) {
    expect_places_found();
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

TEST_F(Access, IsToldWhatIsPlayedByKeys) {
    const std::tuple<const char*, char, bool, const char*> cases[] = {
        {"W H5; 10 X9 | H1?; sel 0", 'A', false, "Nicht mehr ausgewählt"},
        {"F 1; 2 K9 | H1; 3 P4 H3 P2", '2', true, "Herz Ass, Ziel 5. Verdeckte Karte, Spalte 2"},
        {"S; F 13 13 13 13 13 13 13 12; 4 XK", '4', true,
         "Kreuz König, Ziel 8. Spalte 4, leer. Gewonnen. Platz: 1"},
    };
    deal();
    go_to_the_table();
    for (const auto& [position, key, twice, said] : cases) {
        table.state = parse_position(position);
        RefreshTable(table.state, table, "");
        press_key(Key{'S'});  // which has it shown
        expect_places_found();
        const auto answers = answers_to(Key{key}, twice ? Modifier::Shift : Modifier::None);
        // Of two clicks at once the first may be left unsaid.
        ASSERT_TRUE(answers.size() == 1 || (twice && answers.size() == 2)) << position;
        EXPECT_EQ(answers.back(), said);
        expect_places_found();
    }
    EXPECT_TRUE(wait_until([&] { return driver().control(table, table.InName).focused; }));
    press_key(Key::Enter);
    EXPECT_NE(focused(), "");  // as before
}

}  // namespace
}  // namespace solvanta::test
