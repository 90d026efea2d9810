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
        EXPECT_EQ(answers_to(Key{'T'}), 0U);  // the table has not the focus yet
    }

    void go_to_the_table() {
        for (int tabs = 0; tabs < 6 && focused().empty(); ++tabs)
            press_key(Key::Tab);
        ASSERT_NE(focused(), "");
    }

    /// How often something is said at a key.
    std::size_t answers_to(Key key, Modifier modifier = Modifier::None) {
        driver().announced();
        press_key(key, modifier);
        return driver().announced().size();
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
        EXPECT_EQ(answers_to(Key{key}), 1U);
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
    const std::tuple<const char*, char, Modifier, std::size_t> cases[] = {
        {"1 H1 P2 | HK XD HB; 10 X9 | H1?", '0', Modifier::None, 1},
        {"W H5; 10 X9 | H1?; sel 0", 'A', Modifier::None, 1},
        {"F 1; 2 K9 H1; 3 P4 H3 P2", '2', Modifier::Shift, 2},
        {"S; F 13 13 13 13 13 13 13 12; 4 XK", '4', Modifier::Shift, 2},
    };
    deal();
    go_to_the_table();
    for (const auto& [position, key, modifier, said] : cases) {
        table.state = parse_position(position);
        RefreshTable(table.state, table, "");
        press_key(Key{'S'});  // which has it shown
        expect_places_found();
        EXPECT_EQ(answers_to(Key{key}, modifier), said) << position;
        expect_places_found();
    }
    EXPECT_TRUE(wait_until([&] { return driver().control(table, table.InName).focused; }));
    press_key(Key::Enter);
    EXPECT_NE(focused(), "");  // as before
}

}  // namespace
}  // namespace solvanta::test
