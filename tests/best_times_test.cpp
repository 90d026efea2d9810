#include "scores/best_times.h"

#include <gtest/gtest.h>

#include "scores/clock_text.h"
#include "scores/list_text.h"
#include "scores/windows_1252.h"

namespace solvanta::test {
namespace {

TEST(BestTimes, ClockHasMinutesWithoutEnd) {
    const std::pair<int, const char*> texts[] = {
        {0, "0:00"},     {5, "0:05"},     {59, "0:59"},     {60, "1:00"},       {3599, "59:59"},
        {3600, "60:00"}, {4500, "75:00"}, {6003, "100:03"}, {60000, "1000:00"},
    };
    for (const auto& [seconds, text] : texts)
        EXPECT_EQ(clock_text(seconds), text);
}

/// A list of the given times, named by the place they stand at.
GameState list_of(const std::vector<int>& times) {
    GameState state;
    clear_places(state);
    for (std::size_t i = 0; i < times.size(); ++i) {
        const int p = static_cast<int>(i) + 1;
        state.BestTime(p) = times[i];
        state.BestName(p) = "old " + std::to_string(p);
        state.BestDate(p) = "date " + std::to_string(p);
    }
    return state;
}

std::vector<int> thirty_from(int first) {
    std::vector<int> times;
    for (int i = 0; i < 30; ++i)
        times.push_back(first + i);
    return times;
}

TEST(BestTimes, FindTheirPlaceAndMoveTheRestDown) {
    struct Case {
        std::vector<int> times;
        int seconds;
        int place;
    };
    const Case cases[] = {
        {{}, 5000, 1},
        {{100, 120, 120, 150}, 99, 1},
        {{100, 120, 120, 150}, 100, 2},
        {{100, 120, 120, 150}, 120, 4},
        {{100, 120, 120, 150}, 150, 5},
        {{100, 120, 120, 150}, 0, 1},
        {thirty_from(100), 99, 1},
        {thirty_from(100), 128, 30},
        {thirty_from(100), 129, no_place},
        {thirty_from(100), 130, no_place},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.seconds << " among " << c.times.size());
        GameState state = list_of(c.times);
        EXPECT_EQ(place_for(state, c.seconds), c.place);
        if (c.place == no_place) continue;
        const GameState before = state;
        insert_entry(state, c.place, c.seconds, "new", "now");
        for (int p = 1; p <= 30; ++p) {
            const int from = p > c.place ? p - 1 : p;
            const bool entered = p == c.place;
            EXPECT_EQ(state.BestTime(p), entered ? c.seconds : before.BestTime(from)) << p;
            EXPECT_EQ(state.BestName(p), entered ? "new" : before.BestName(from)) << p;
            EXPECT_EQ(state.BestDate(p), entered ? "now" : before.BestDate(from)) << p;
        }
    }
}

TEST(BestTimes, CountersStopAtTheirLargestValue) {
    std::int32_t counter = 2147483646;
    count_up(counter);
    count_up(counter);
    EXPECT_EQ(counter, 2147483647);
}

TEST(BestTimes, StampsFollowTheLocale) {
    EXPECT_EQ(entry_stamp(3, "Jan", 2026, 9, ":", 5), "3. Jan 2026 9:05");
    EXPECT_EQ(entry_stamp(25, "Dez", 2026, 23, ":", 40), "25. Dez 2026 23:40");
    EXPECT_EQ(entry_stamp(1, "Mär", 2026, 0, ".", 0), "1. M\xE4r 2026 0.00");
}

TEST(BestTimes, NamesBecomeOneByteACharacter) {
    const std::pair<const char*, const char*> names[] = {
        {"", ""},
        {"  Jörg Süß ", "  J\xF6rg S\xFC\xDF "},
        {"\u00A0\u00FF", "\xA0\xFF"},
        {"5 € – „ja“", "5 \x80 \x96 \x84ja\x93"},
        {"der \"Fuchs\"",
         "der \x94"
         "Fuchs\x94"},
        {"Łódź 猫 🙂 ♥",
         "?\xF3"
         "d? ? ? ?"},
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
    struct Case {
        int won, played;
        const char* text;
    };
    const Case cases[] = {
        {5, 12, "41,67%"},   {0, 0, "0,00%"},
        {1, 32, "3,13%"},    {7, 7, "100,00%"},
        {1, 3, "33,33%"},    {2, 3, "66,67%"},
        {7, 160, "4,38%"},   {1, 20001, "0,00%"},
        {1, 20000, "0,01%"}, {3, -1, "0,00%"},
        {2, 1, "200,00%"},   {-1, 32, "-3,13%"},
        {1, 1000, "0,10%"},  {2147483647, 2147483647, "100,00%"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(percentage(c.won, c.played, ","), c.text);
    EXPECT_EQ(percentage(5, 12, "."), "41.67%");
}

TEST(BestTimes, ListLinesKeepTheirColumns) {
    struct Case {
        int place, seconds;
        std::string name;
        const char* line;
    };
    const Case cases[] = {
        {1, 59, "Anna", " 1:   0:59  Anna                       3. Jan 2026 9:05"},
        {9, 60, "", " 9:   1:00                             3. Jan 2026 9:05"},
        {10, 3599, "M\xFCller \x80",
         "10:  59:59  M\xFCller \x80                   3. Jan 2026 9:05"},
        {11, 3600, "123456789012345678901234567890",
         "11:  60:00  1234567890123456789012345  3. Jan 2026 9:05"},
        {30, 60000, "x", "30: 1000:00  x                          3. Jan 2026 9:05"},
        {2, 60, "a\r\n\x7F\x81\xAD\x9F" + std::string(1, '\0') + "z\xA0",
         " 2:   1:00  a     \x9F z\xA0                 3. Jan 2026 9:05"},
    };
    for (const Case& c : cases) {
        GameState state;
        clear_places(state);
        state.BestTime(c.place) = c.seconds;
        state.BestName(c.place) = c.name;
        state.BestDate(c.place) = "3.\tJan 2026\x1F\x39:05";
        const auto lines = list_lines(state, ",");
        ASSERT_EQ(lines.size(), 3U);
        EXPECT_EQ(lines[0], c.line);
        EXPECT_EQ(lines[0].find("3. Jan"), c.seconds < 60000 ? 39U : 40U);
    }
    GameState state;
    clear_places(state);
    state.GamesPlayed = 12;
    state.GamesWon = 5;
    state.PlayedSinceStart = 32;
    state.WonSinceStart = 1;
    const std::vector<std::string> empty{
        "", "Spiele 12 Gewonnen: 5 [41.67%]  Seit Spielstart 32 Gewonnen: 1 [3.13%]"};
    EXPECT_EQ(list_lines(state, "."), empty);
}

TEST(BestTimes, DocumentEscapesWhatRichTextWouldRead) {
    EXPECT_EQ(list_document({"a\\b{c}\xFC\t", "", "z"}),
              "{\\rtf1\\ansi\\ansicpg1252 {a\\\\b\\{c\\}\\'fc\\'09}{\r\n\\par }{}{\r\n\\par }{z}}");
}

}  // namespace
}  // namespace solvanta::test
