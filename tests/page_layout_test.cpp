#include "front_ends/web/page_layout.h"

#include <gtest/gtest.h>

#include "front_ends/web/double_press.h"

namespace solvanta::web {
namespace {

constexpr Size table{822, 520};
constexpr double cards_height = 488;

TEST(PageLayout, FitsTheTableIntoEveryPage) {
    const struct {
        Size page;
        bool touched;
        bool compact;
        bool sideways;
    } cases[] = {
        {{360, 740}, true, true, false},    {{740, 360}, true, true, true},
        {{820, 1180}, true, true, false},   {{1180, 820}, true, true, false},
        {{1280, 800}, false, false, false}, {{3840, 2160}, true, false, false},
        {{500, 500}, false, true, false},   {{100, 40}, false, true, false},
    };
    for (const auto& [page, touched, compact, sideways] : cases) {
        const Layout layout = layout_for(page, table, cards_height, touched, 2);
        EXPECT_EQ(layout.compact, compact) << page.width;
        EXPECT_EQ(layout.sideways, sideways) << page.width;
        if (page.width < 360) continue;  // nothing is scaled to nothing
        EXPECT_LE(layout.scale * table.width + (sideways ? 132 : 0), page.width);
        EXPECT_LE(layout.scale * (compact ? cards_height : table.height) + 30, page.height);
        EXPECT_GE(layout.scale, 0.43);
        EXPECT_LE(layout.scale, 2);
    }
    EXPECT_GT(layout_for({100, 40}, table, cards_height, false, 2).scale, 0);
}

TEST(DoublePresses, AreToldByTimeAndPlace) {
    const struct {
        double milliseconds;
        double x;
        bool second;
    } presses[] = {
        {1000, 50, false}, {1400, 55, true}, {1700, 55, false}, {2201, 55, false},
        {2300, 90, false}, {2400, 90, true}, {2500, 90, false}, {2600, 90, true},
    };
    DoublePress double_press;
    for (const auto& [milliseconds, x, second] : presses)
        EXPECT_EQ(double_press.is_second(milliseconds, x, 50), second) << milliseconds;
    double_press.is_second(5000, 0, 0);
    double_press.forget();
    EXPECT_FALSE(double_press.is_second(5100, 0, 0));
}

}  // namespace
}  // namespace solvanta::web
