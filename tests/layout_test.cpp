#include <algorithm>

#include <gtest/gtest.h>

#include "view/windows.h"

namespace solvanta::test {
namespace {

using Elements = std::vector<const Element*>;

/// The card slots of the table.
Elements slots_of(const TableWindow& table) {
    Elements slots{&table.Source_Hide, &table.Source};
    const auto add = [&slots](const auto& row) {
        for (const PictureElement& slot : row)
            slots.push_back(&slot);
    };
    add(table.Stapel);
    std::for_each(table.Ih.begin(), table.Ih.end(), add);
    std::for_each(table.Iv.begin(), table.Iv.end(), add);
    return slots;
}

template <typename Listed>
Elements elements_of(const std::vector<Listed>& listed) {
    Elements elements;
    for (const Listed& item : listed) {
        std::visit([&elements](const Element* element) { elements.push_back(element); }, item);
    }
    return elements;
}

TEST(Layout, ListsEveryElementOnceInItsOrder) {
    const TableWindow table;
    const BestTimesWindow list;
    const HelpWindow help;
    // Card slots never overlap one another, so only what may lie above them has its order.
    Elements canvas = elements_of(table.canvas);
    Elements slots = slots_of(table);
    ASSERT_EQ(canvas.size(), slots.size() + 3);
    EXPECT_EQ(Elements(canvas.end() - 3, canvas.end()),
              (Elements{&table.zeiger, &table.Status, &table.Zeitanzeige}));
    canvas.resize(slots.size());
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
}

TEST(Layout, KeepsEverythingWithinItsWindow) {
    const TableWindow table;
    const BestTimesWindow list;
    const HelpWindow help;
    for (const Form* form : std::initializer_list<const Form*>{&table, &list, &help}) {
        Elements all = elements_of(form->canvas);
        const Elements controls = elements_of(form->controls);
        all.insert(all.end(), controls.begin(), controls.end());
        for (const Element* element : all) {
            EXPECT_TRUE(element->Left >= 0 && element->Top >= 0);
            // The help's view reaches a pixel beyond its window.
            EXPECT_LE(element->Left + element->Width, form->ClientWidth + twips_per_pixel);
            EXPECT_LE(element->Top + element->Height, form->ClientHeight + twips_per_pixel);
        }
    }
}

}  // namespace
}  // namespace solvanta::test
