#include <algorithm>

#include <gtest/gtest.h>

#include "tests/support/player.h"
#include "tests/support/position.h"
#include "view/pictures.h"

namespace solvanta::test {
namespace {

TEST(Table, ShowsNothingButButtonsAtStartAndIgnoresTheMouse) {
    Player player;
    const Form_Main& table = player.table;
    for (Twips y = 0; y < table.ClientHeight && !HasFailure(); y += 240) {
        for (Twips x = 0; x < table.ClientWidth; x += 240)
            player.double_click(x, y);
    }
    EXPECT_FALSE(game_dealt(table.state));
    EXPECT_TRUE(player.host.messages.empty());
    for (const Painted& item : table.canvas) {
        auto* const* slot = std::get_if<PictureElement*>(&item);
        EXPECT_TRUE(!slot || !(*slot)->Visible || (*slot)->Picture.path().empty());
    }
    EXPECT_FALSE(table.Diddle.Visible || table.Scull.Visible);
    EXPECT_FALSE(table.FrBestzeiteintrag.Visible || table.FrBestzeiteintrag.Enabled);
    EXPECT_EQ(table.Status.Caption + table.Zeitanzeige.Caption, "");
    EXPECT_EQ(table.Diddle.Picture.path(), program_file("/nowhere", "diddle.jpg"));
    EXPECT_EQ(table.Scull.Picture.path(), program_file("/nowhere", "skull.gif"));
    for (const CardNumber card : {-1, 0, 53})
        EXPECT_EQ(CardPicturePath("d", card), "");
}

TEST(Table, LoadsItsPicturesAgainAtEachRefresh) {
    Player player;
    player.deal();
    const Form_Main& table = player.table;
    for (const auto* slot : {&table.Source, &table.Stapel(0), &table.Iv(1)(4)}) {
        const std::uint64_t before = slot->Picture.load_number();
        player.play("c5");
        EXPECT_GT(slot->Picture.load_number(), before);
    }
}

using Elements = std::vector<const Element*>;

template <typename Listed>
Elements elements_of(const std::vector<Listed>& listed) {
    Elements elements;
    for (const Listed& item : listed) {
        std::visit([&elements](const Element* element) { elements.push_back(element); }, item);
    }
    return elements;
}

TEST(Layout, ListsEveryElementOnceInItsOrderAndWithinItsWindow) {
    const TableWindow table;
    const BestTimesWindow list;
    const HelpWindow help;
    // Card slots never overlap one another, so only what may lie above them has its order.
    Elements canvas = elements_of(table.canvas);
    Elements slots{&table.Source_Hide, &table.Source};
    const auto add = [&slots](const auto& row) {
        for (const PictureElement& slot : row)
            slots.push_back(&slot);
    };
    add(table.Stapel);
    std::for_each(table.Ih.begin(), table.Ih.end(), add);
    std::for_each(table.Iv.begin(), table.Iv.end(), add);
    ASSERT_EQ(canvas.size(), slots.size() + 3);
    EXPECT_EQ(Elements(canvas.end() - 3, canvas.end()),
              (Elements{&table.zeiger, &table.Status, &table.Zeitanzeige}));
    EXPECT_TRUE(std::is_permutation(slots.begin(), slots.end(), canvas.begin()));

    EXPECT_EQ(elements_of(table.controls),
              (Elements{&table.Command1, &table.FrBestzeiteintrag, &table.Comm_highscore,
                        &table.Command3, &table.Command_Beenden, &table.Scull, &table.Diddle}));
    EXPECT_EQ(elements_of(table.FrBestzeiteintrag.canvas), (Elements{&table.Label1, &table.Platz}));
    EXPECT_EQ(elements_of(table.FrBestzeiteintrag.controls), Elements{&table.InName});
    ASSERT_EQ(table.timers.size(), 1U);
    EXPECT_EQ(table.timers.front(), &table.Timer1);
    EXPECT_EQ(table.Timer1.Interval, 1000);
    EXPECT_EQ(elements_of(list.controls),
              (Elements{&list.Command_Ok, &list.RTB1, &list.Comm_clear_highscore}));
    EXPECT_EQ(elements_of(help.controls), Elements{&help.RichTextBox1});
    for (const Form* form : std::initializer_list<const Form*>{&table, &list, &help}) {
        Elements elements = elements_of(form->canvas);
        for (const Element* control : elements_of(form->controls))
            elements.push_back(control);
        for (const Element* element : elements) {
            EXPECT_TRUE(element->Left >= 0 && element->Top >= 0);
            // The help's view reaches a pixel beyond its window.
            EXPECT_LE(element->Left + element->Width, form->ClientWidth + twips_per_pixel);
            EXPECT_LE(element->Top + element->Height, form->ClientHeight + twips_per_pixel);
        }
    }
}

}  // namespace
}  // namespace solvanta::test
