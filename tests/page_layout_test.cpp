#include "front_ends/web/page_layout.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace solvanta::web
