#include "view/spoken_names.h"

#include <functional>
#include <set>

#include <gtest/gtest.h>

#include "front_ends/common/spoken_changes.h"
#include "front_ends/common/walk.h"
#include "tests/support/golden_game.h"
#include "tests/support/player.h"

namespace solvanta::test {
namespace {

TEST(SpokenNames, AreGerman) {
    const std::pair<CardNumber, const char*> table[] = {
        {0, ""},          {1, "Herz Ass"},   {13, "Herz König"}, {14, "Pik Ass"},
        {24, "Pik Bube"}, {38, "Karo Dame"}, {49, "Kreuz 10"},   {53, ""},
    };
    for (const auto& [card, name] : table)
        EXPECT_EQ(spoken_card(card), name);
}

using enum Direction;

class DealtTable : public testing::Test {
  protected:
    DealtTable() { player.deal(); }

    /// The places that the arrow keys reach from the stock.
    std::set<const PictureElement*> reached() const {
        std::set<const PictureElement*> places;
        const std::function<void(const PictureElement&)> go_on = [&](const PictureElement& from) {
            if (!places.insert(&from).second) return;
            for (const auto direction : {Left, Right, Up, Down})
                if (const PictureElement* to = next_place(table, from, direction)) go_on(*to);
        };
        go_on(table.Source_Hide);
        return places;
    }

    GoldenGame game;
    Player player{game.seed};
    Form_Main& table = player.table;
};

TEST_F(DealtTable, HasANameForEachPlace) {
    SpokenChanges changes;
    EXPECT_EQ(changes.since_last_time(table), "");  // too much for anybody to follow
    EXPECT_EQ(table.Source.spoken_name(), "Ablage: leerer Platz");
    EXPECT_EQ(table.Stapel(7).spoken_name(), "Ziel 8: leerer Platz");
    EXPECT_EQ(table.Ih(1)(0).spoken_name(), "Spalte 1: verdeckte Karte");
    player.play("c10");
    EXPECT_EQ(changes.since_last_time(table), "Spalte 10: Herz 4, ausgewählt");
    player.play("stock waste");
    EXPECT_EQ(changes.since_last_time(table),
              "Stapel, 46 Karten. Ablage: Pik 2, ausgewählt. Spalte 10: Herz 4");
    EXPECT_EQ(changes.since_last_time(table), "");
    player.set_up("S H2; W H3; F 13 13 13 13 1 13 13 13; 1 H4 H5 H6 H7 H8 H9 H10 HB HD | HK?");
    EXPECT_EQ(table.Source_Hide.spoken_name(), "Stapel, 1 Karte");
    EXPECT_EQ(table.Iv(1)(0).spoken_name(), "Spalte 1: verdeckte Karte");
    player.play("stock");
    EXPECT_EQ(table.Source_Hide.spoken_name(), "Stapel, leerer Platz");
}

TEST_F(DealtTable, IsNamedAndCanBeWalkedThroughoutAGame) {
    player.on_click = [&](auto&&...) {
        std::set<const PictureElement*> places;
        for (const Painted& item : table.canvas) {
            auto* const* element = std::get_if<PictureElement*>(&item);
            if (!element || *element == &table.zeiger || !(*element)->Visible) continue;
            if (is_place(**element)) places.insert(*element);
            ASSERT_NE((*element)->spoken_name(), "");
            ASSERT_TRUE(!(*element)->Click || is_place(**element));
        }
        ASSERT_EQ(reached(), places) << player.position();
    };
    player.play(game.words);
    EXPECT_EQ(table.Stapel(0).spoken_name(), "Ziel 1: Herz König");
    EXPECT_EQ(table.Iv(1)(0).spoken_name(), "Spalte 1: leerer Platz");
}

TEST_F(DealtTable, IsWalkedFromPlaceToPlace) {
    auto& pile = table.Stapel;
    auto& card = table.Iv(1);
    PictureElement& stock = table.Source_Hide;
    PictureElement& waste = table.Source;
    const std::tuple<PictureElement&, Direction, PictureElement*> cases[] = {
        {pile(0), Left, nullptr},   {pile(0), Up, nullptr},    {pile(0), Right, &pile(1)},
        {pile(7), Right, &stock},   {stock, Right, &waste},    {waste, Left, &stock},
        {waste, Right, nullptr},    {pile(2), Down, &card(2)}, {card(2), Up, &pile(2)},
        {card(0), Right, &card(1)}, {card(9), Left, &card(8)}, {card(9), Down, nullptr},
        {waste, Down, &card(9)},
    };
    for (const auto& [from, direction, to] : cases) {
        EXPECT_EQ(next_place(table, from, direction), to)
            << from.spoken_name() << ' ' << static_cast<int>(direction);
    }
}

TEST_F(DealtTable, IsWalkedOnNearWhereAPlaceWas) {
    PictureElement gone = table.Iv(1)(4);
    gone.Top += 2 * face_up_step;
    gone.Visible = false;
    EXPECT_EQ(nearest_place(table, gone), &table.Iv(1)(4));
    const Form_Main& empty = Player(1).table;
    EXPECT_EQ(nearest_place(empty, gone), nullptr);
}

}  // namespace
}  // namespace solvanta::test
