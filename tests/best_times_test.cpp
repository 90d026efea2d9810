#include "scores/best_times.h"

#include <algorithm>
#include <tuple>

#include <gtest/gtest.h>

#include "scores/list_text.h"
#include "scores/windows_1252.h"

namespace solvanta::test {
namespace {

using namespace std::string_literals;

TEST(BestTimes, FindTheirPlaceAndMoveTheRestDown) {
    for (const int filled : {0, 4, 29, 30}) {
        GameState before;
        clear_places(before);
        for (int p = 1; p <= filled; ++p)
            insert_entry(before, p, 100 + p / 2, "name " + std::to_string(p), std::to_string(p));
        for (const int seconds : {0, 99, 100, 101, 102, 113, 114, 115, 5000}) {
            SCOPED_TRACE(testing::Message() << seconds << " among " << filled);
            const int place = 1 + static_cast<int>(std::count_if(
                                      before.BestTime.begin(), before.BestTime.begin() + filled,
                                      [seconds](int listed) { return listed <= seconds; }));
            ASSERT_EQ(place_for(before, seconds), place > 30 ? no_place : place);
            if (place > 30) continue;
            GameState state = before;
            insert_entry(state, place, seconds, "new", "now");
            for (int p = 1; p <= 30; ++p) {
                const int from = p > place ? p - 1 : p;
                EXPECT_EQ(state.BestTime(p), p == place ? seconds : before.BestTime(from)) << p;
                EXPECT_EQ(state.BestName(p), p == place ? "new" : before.BestName(from)) << p;
                EXPECT_EQ(state.BestDate(p), p == place ? "now" : before.BestDate(from)) << p;
            }
        }
    }
}

TEST(BestTimes, CountersStopAtTheirLargestValue) {
    std::int32_t counter = 2147483646;
    count_up(counter);
    count_up(counter);
    EXPECT_EQ(counter, 2147483647);
}

TEST(BestTimes, NamesBecomeOneByteACharacter) {
    const std::pair<const char*, const char*> names[] = {
        {"", ""},
        {"  Jörg Süß ", "  J\xF6rg S\xFC\xDF "},
        {"\u00A0\u00FF", "\xA0\xFF"},
        {"5 € – „ja“", "5 \x80 \x96 \x84ja\x93"},
        {"\"z\"", "\x94z\x94"},
        {"Łó 猫🙂♥", "?\xF3 ???"},
        {"a\r\nb\tc\x7F", "a  b c "},
        {"a\xC3", "a?"},
        {"a\xE2\x82", "a??"},
        {"\xFF\x80z", "??z"},
        {"\xC2\x81", "\x81"},
    };
    for (const auto& [utf8, bytes] : names)
        EXPECT_EQ(to_list_text(utf8), bytes) << utf8;
}

TEST(BestTimes, PercentagesHaveTwoDecimals) {
    const std::tuple<int, int, const char*> cases[] = {
        {5, 12, "41,67%"},    {0, 0, "0,00%"},   {1, 32, "3,13%"},   {7, 7, "100,00%"},
        {1, 3, "33,33%"},     {2, 3, "66,67%"},  {7, 160, "4,38%"},  {1, 20001, "0,00%"},
        {1, 20000, "0,01%"},  {3, -1, "0,00%"},  {2, 1, "200,00%"},  {-1, 32, "-3,13%"},
        {-1, 99999, "0,00%"}, {1, 1, "100,00%"}, {1, 1000, "0,10%"}, {1, 2147483647, "0,00%"},
    };
    for (const auto& [won, played, text] : cases)
        EXPECT_EQ(percentage(won, played, ","), text);
    EXPECT_EQ(percentage(2147483647, 2147483647, "."), "100.00%");
}

TEST(BestTimes, ListLinesKeepTheirColumns) {
    const std::tuple<int, int, std::string, const char*> cases[] = {
        {1, 5, "Anna", " 1:   0:05  Anna                       "},
        {9, 60, "", " 9:   1:00                             "},
        {10, 3599, "M\xFCller \x80", "10:  59:59  M\xFCller \x80                   "},
        {11, 3600, std::string(26, 'x'), "11:  60:00  xxxxxxxxxxxxxxxxxxxxxxxxx  "},
        {30, 60000, "x", "30: 1000:00  x                          "},
        {2, 60, "a\r\n\x7F\x81\xAD\x9F" + std::string(1, '\0') + "z\xA0",
         " 2:   1:00  a     \x9F z\xA0                 "},
    };
    for (const auto& [place, seconds, name, line] : cases) {
        GameState state;
        clear_places(state);
        insert_entry(state, place, seconds, name, "3.\tJan 2026\x1F\x39:05");
        state.GamesPlayed = 12;
        state.GamesWon = 5;
        state.PlayedSinceStart = 32;
        state.WonSinceStart = 1;
        const std::vector<std::string> expected{
            line + "3. Jan 2026 9:05"s, "",
            "Spiele 12 Gewonnen: 5 [41.67%]  Seit Spielstart 32 Gewonnen: 1 [3.13%]"};
        EXPECT_EQ(list_lines(state, "."), expected);
    }
}

TEST(BestTimes, DocumentEscapesWhatRichTextWouldRead) {
    EXPECT_EQ(list_document({"a\\b{c}\xFC\t", "", "z"}),
              "{\\rtf1\\ansi\\ansicpg1252 {a\\\\b\\{c\\}\\'fc\\'09}{\r\n\\par }{}{\r\n\\par }{z}}");
}

}  // namespace
}  // namespace solvanta::test
