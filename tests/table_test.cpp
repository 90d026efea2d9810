#include <functional>
#include <set>

#include <gtest/gtest.h>

#include "front_ends/common/walk.h"
#include "tests/support/golden_game.h"
#include "tests/support/player.h"
#include "view/pictures.h"
#include "view/spoken.h"

namespace solvanta::test {
namespace {

TEST(Table, ShowsNothingButButtonsAtStartAndIgnoresTheMouse) {
    Player player;
    const Form_Main& table = player.table;
    for (const Painted& item : table.canvas) {
        auto* const* slot = std::get_if<PictureElement*>(&item);
        if (!slot) continue;
        player.double_click((*slot)->Left, (*slot)->Top);
        EXPECT_TRUE(!(*slot)->Visible || (*slot)->Picture.path().empty());
    }
    player.play("tick");
    EXPECT_TRUE(!game_dealt(table.state) && player.host.messages.empty());
    EXPECT_FALSE(table.Diddle.Visible || table.Scull.Visible || table.FrBestzeiteintrag.Visible ||
                 table.FrBestzeiteintrag.Enabled);
    EXPECT_EQ(table.Status.Caption + table.Zeitanzeige.Caption, "");
    EXPECT_EQ(table.Diddle.Picture.path(), program_file("/nowhere", "diddle.jpg"));
    EXPECT_EQ(table.Scull.Picture.path(), program_file("/nowhere", "skull.gif"));
    EXPECT_EQ(CardPicturePath("d", 0), "");
}

/// The pictures to be seen in a column and above it, in stacking order: the file's name, the top
/// edge and, where the picture is cut off, the height.
std::string pictures_at(const Form_Main& table, Twips left) {
    std::string text;
    for (const Painted& item : table.canvas) {
        auto* const* slot = std::get_if<PictureElement*>(&item);
        const Twips right = left + column_pitch;
        if (!slot || !(*slot)->Visible || (*slot)->Left < left || (*slot)->Left >= right) continue;
        const std::string& path = (*slot)->Picture.path();
        text += path.substr(9, path.size() - 13) + '@' + std::to_string((*slot)->Top) +
                ((*slot)->CutToHeight ? "/" + std::to_string((*slot)->Height) : "") + ' ';
    }
    return text;
}

TEST(Table, ShowsItsPositions) {
    const std::tuple<const char*, Twips, const char*, const char*> cases[] = {
        {"1 H1 P2 | HK XD HB", 120,
         "Leer@120 Back_verdeckt@1800 Back_verdeckt@1920 Herz_K@2040/240 Kreuz_D@2280/240 "
         "Herz_B@2520 ",
         "1.Runde: 3 Karten heben"},
        {"F 0 10; 2 K1 | P5?", 1320, "Pick_10@120 Back_verdeckt@1800 Back_ganz@1920 ",
         "1.Runde: 3 Karten heben"},
        {"D 2; F 0 0 1; 10 HK; sel 10", 10920, "Leer@120 Herz_K@1800 zeiger@1440 ",
         "2.Runde: 2 Karten heben"},
        {"W K2 X10; sel 0", 11160, "Kreuz_10@120 zeiger@20 ", "1.Runde: 3 Karten heben"},
        {"D 1; S; F 13 13 13 13 13 13 13 12; 9 XK", 9720, "Leer@120 Kreuz_K@1800 ",
         "3.Runde: 1 Karte heben"},
    };
    Player player;
    for (const auto& [position, left, shown, status] : cases) {
        player.set_up(position);
        EXPECT_EQ(pictures_at(player.table, left), shown) << position;
        EXPECT_EQ(player.table.Status.Caption, status) << position;
    }
}

using Elements = std::vector<const Element*>;

/// The elements of a container, which lie within these sides: the painted ones, then the controls.
Elements elements_of(const Container& container, Twips width, Twips height) {
    Elements elements;
    const auto add = [&](const Element* element) {
        elements.push_back(element);
        EXPECT_TRUE(element->Left >= 0 && element->Top >= 0);
        // The help's view reaches a pixel beyond its window.
        EXPECT_LE(element->Left + element->Width, width + twips_per_pixel);
        EXPECT_LE(element->Top + element->Height, height + twips_per_pixel);
    };
    for (const Painted& item : container.canvas)
        std::visit(add, item);
    for (const Control& item : container.controls)
        std::visit(add, item);
    return elements;
}

TEST(Layout, ListsEveryElementOnceInItsOrderAndWithinItsWindow) {
    TableWindow table;
    const BestTimesWindow list;
    const HelpWindow help;
    const Frame& frame = table.FrBestzeiteintrag;
    const Elements all = elements_of(table, table.ClientWidth, table.ClientHeight);
    // Card slots never overlap one another, so only what may lie above them has its order.
    constexpr std::size_t slots = 2 + 8 + 10 * (9 + 13);
    EXPECT_EQ(std::set(all.begin(), all.end()).size(), slots + 10);
    EXPECT_EQ(Elements(all.begin() + slots, all.end()),
              (Elements{&table.zeiger, &table.Status, &table.Zeitanzeige, &table.Command1, &frame,
                        &table.Comm_highscore, &table.Command3, &table.Command_Beenden,
                        &table.Scull, &table.Diddle}));
    EXPECT_EQ(elements_of(frame, table.ClientWidth, table.ClientHeight),
              (Elements{&table.Label1, &table.Platz, &table.InName}));
    EXPECT_EQ(elements_of(list, list.ClientWidth, list.ClientHeight),
              (Elements{&list.Command_Ok, &list.RTB1, &list.Comm_clear_highscore}));
    EXPECT_EQ(elements_of(help, help.ClientWidth, help.ClientHeight), Elements{&help.RichTextBox1});
    EXPECT_TRUE(table.Status.BackColor == table.BackColor &&
                table.Zeitanzeige.BackColor == table.BackColor);
    EXPECT_FALSE(table.Label1.BackColor || table.Platz.BackColor);
    EXPECT_EQ(table.timers, std::vector{&table.Timer1});
    EXPECT_EQ(table.Timer1.Interval, 1000);
}

TEST(Table, SaysWhatHasChanged) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"1 H7 P6", "c1.2", "Pik 6, ausgewählt, Spalte 1, 2 offene bis Herz 7"},
        {"W H7 P6", "waste", "Pik 6, ausgewählt, Ablage, 2 Karten"},
        {"1 H7; sel 1", "c1", "Nicht mehr ausgewählt"},
        {"1 H7; 2 H5; sel 1", "c2", "Passt nicht. Herz 5, ausgewählt, Spalte 2"},
        {"1 H7; W H5; sel 1", "waste", "Herz 5, ausgewählt, Ablage, 1 Karte"},
        {"1 X8 H7; 2 H2 K3 | P6 H5 X4; sel 2", "c1",
         "Pik 6 mit 2 Karten auf Herz 7, Spalte 1. Verdeckte Karte, Spalte 2, darunter 1 "
         "verdeckte"},
        {"W H8 X6; 1 H7; sel 0", "c1", "Kreuz 6 auf Herz 7, Spalte 1. Herz 8, Ablage, 1 Karte"},
        {"W H7; 1 P8; sel 0", "c1", "Herz 7 auf Pik 8, Spalte 1. Ablage, leer"},
        {"4 X3 H2 P1", "c4!", "Pik Ass, Ziel 2. Herz 2, Spalte 4, 2 offene bis Kreuz 3"},
        {"D 1", "stock", "Kreuz König, Ablage. Stapel, 103 Karten"},
        {"S; F 13 13 13 13 12 12 13 13; W HK PK", "stock", "Umgedreht, 2. Runde. Stapel, 2 Karten"},
        {"S; F 13 13 13 13 13 13 13 12; 1 XK", "c1!",
         "Kreuz König, Ziel 8. Spalte 1, leer. Gewonnen. Platz: 1"},
    };
    for (const auto& [position, played, said] : cases) {
        Player player;
        player.set_up(position);
        player.table.SpokenChanges();
        player.play(played);
        EXPECT_EQ(player.table.SpokenChanges(), said) << position;
    }
}

using enum Direction;

class DealtTable : public testing::Test {
  protected:
    DealtTable() { player.deal(); }

    GoldenGame game;
    Player player{game.seed};
    Form_Main& table = player.table;
};

TEST_F(DealtTable, LoadsItsPicturesAgainAtEachRefresh) {
    for (const auto* slot : {&table.Source, &table.Stapel(0)}) {
        const std::uint64_t before = slot->Picture.load_number();
        player.play("c5");
        EXPECT_GT(slot->Picture.load_number(), before);
    }
}

TEST_F(DealtTable, TellsItsPlacesAndItsWhole) {
    EXPECT_TRUE(table.SpokenChanges().ends_with(". Herz 4, Spalte 10. Stapel, 49 Karten"));
    player.play("stock");
    EXPECT_EQ(table.SpokenAnswer('Z'),
              "Zeit 0:00. 1.Runde: 3 Karten heben. Stapel, 46 Karten. Ablage, 3 Karten. Noch 104 "
              "Karten abzulegen");
    EXPECT_TRUE(table.SpokenAnswer('T').ends_with(". Ziel 8, leer, für Kreuz"));
    player.set_up("S; W XK; F 13 13 13 13 12 13 13 11; 1 HK XD; sel 1");
    const std::string whole = table.SpokenAnswer('T');
    EXPECT_TRUE(whole.starts_with("Spalte 1, ausgewählt, Kreuz Dame, Herz König. Spalte 2, leer."));
    EXPECT_TRUE(whole.ends_with(". Kreuz Bube, Ziel 8")) << whole;
    EXPECT_EQ(table.Iv(2)(0).spoken_name(), "Herz König, Spalte 1, unter 1 Karte");
    EXPECT_EQ(table.SpokenAnswer('X'), "");
}

TEST_F(DealtTable, IsNamedAndCanBeWalkedThroughoutAGameThatIsWonAsEver) {
    player.on_click = [&](auto&&...) {
        const auto listed = places_of(table);
        const std::set<const PictureElement*> places(listed.begin(), listed.end());
        ASSERT_NE(table.SpokenChanges(), "") << player.position();
        std::set<const PictureElement*> reached;
        const std::function<void(const PictureElement&)> go_on = [&](const PictureElement& from) {
            if (!reached.insert(&from).second) return;
            for (const auto direction : {Left, Right, Up, Down})
                if (const PictureElement* to = next_place(table, from, direction)) go_on(*to);
        };
        go_on(table.Source_Hide);
        ASSERT_EQ(reached, places) << player.position();
    };
    player.play(game.words);
    EXPECT_EQ(player.position(), "D 2; S; W; F 13 13 13 13 13 13 13 13");
    EXPECT_TRUE(table.state.NameEntryOpen);
}

TEST_F(DealtTable, IsWalkedFromPlaceToPlaceAndNearWhereOneWas) {
    auto& pile = table.Stapel;
    auto& card = table.Iv(1);
    const std::tuple<PictureElement&, Direction, PictureElement*> cases[] = {
        {pile(0), Left, nullptr},       {pile(0), Up, nullptr},
        {card(0), Right, &card(1)},     {card(9), Left, &card(8)},
        {card(9), Down, nullptr},       {table.Source, Right, nullptr},
        {pile(2), Down, &card(2)},      {card(2), Up, &pile(2)},
        {table.Source, Down, &card(9)}, {pile(7), Right, &table.Source_Hide},
    };
    for (const auto& [from, direction, to] : cases)
        EXPECT_EQ(next_place(table, from, direction), to) << from.spoken_name() << int(direction);
    PictureElement gone = card(4);
    gone.Top += 2 * face_up_step;
    gone.Visible = false;
    EXPECT_EQ(nearest_place(table, gone), &card(4));
    EXPECT_EQ(nearest_place({}, gone), nullptr);
}

}  // namespace
}  // namespace solvanta::test
