#include "scores/best_times.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

#include <gtest/gtest.h>

#include "scores/best_times_file.h"
#include "scores/best_times_format.h"
#include "scores/list_text.h"
#include "tests/support/memory_files.h"
#include "tests/support/real_files.h"
#include "text/windows_1252.h"

namespace solvanta::test {
namespace {

using namespace std::string_literals;

const std::string empty_place = "0,\" \",\" \"\r\n";

std::string repeat(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

/// A file of an existing installation: umlauts, the euro sign, bytes without a character, commas,
/// blanks, an empty name, all in Windows-1252.
const std::string installed_file =
    "125,\"M\xFCller, J\xF6rg\",\"3. M\xE4r 2004 9:05\"\r\n"
    "125,\"\",\"25. Dez 2003 23:40\"\r\n"
    "300,\"  \",\"1. Jan 2005 0:00\"\r\n"
    "301,\"\x80 \x81\x8D\x8F\x90\x9D\x94\",\" \"\r\n"
    "6003,\"{\\b Name}\",\"x\"\r\n" +
    repeat(empty_place, 5) + "57,-12\r\n" + repeat(empty_place, 19) +
    "2147483647,\"last\",\"d\"\r\n";

GameState parsed(const std::string& bytes) {
    GameState state;
    parse_best_times(bytes, state);
    return state;
}

std::string rewritten(const std::string& bytes) {
    return format_best_times(parsed(bytes));
}

TEST(BestTimesFile, SurvivesReadingAndWritingByteForByte) {
    EXPECT_EQ(rewritten(installed_file), installed_file);
    EXPECT_EQ(rewritten(""), repeat(empty_place, 10) + "0,0\r\n" + repeat(empty_place, 20));
}

TEST(BestTimesFile, UsesWhatCanBeRead) {
    const std::string first = "125,\"A\",\"d\"\r\n";
    const std::string ten = first + repeat(empty_place, 9);
    const struct {
        const char* name;
        std::string bytes;
        std::string as;  // the sound file it must read like, up to what is missing at its end
    } cases[] = {
        {"no last line end", ten + "57,12", ten + "57,12\r\n"},
        {"line ends of LF alone", "125,\"A\",\"d\"\n0,\" \",\" \"\n7,\"B\",\"e\"\n",
         first + empty_place + "7,\"B\",\"e\"\r\n"},
        {"line ends of CR alone", "125,\"A\",\"d\"\r7,\"B\",\"e\"\r", first + "7,\"B\",\"e\"\r\n"},
        {"a byte order mark", "\xEF\xBB\xBF" + first, first},
        {"blanks before fields", "  125,  \"A\" ,   \"d\"   \r\n", first},
        {"rest behind a closing quote", "125,\"A\"xyz,\"d\"!\r\n", first},
        {"fields spread over lines", "125\r\n\"A\"\r\n\"d\"\r\n", first},
        {"fields without quotes", "125,A,d\r\n", first},
        {"a number in quotes", "\"125\",\"A\",\"d\"\r\n", first},
        {"a line break in a name", "125,\"A\r\nB\",\"d\"\r\n", "125,\"A\r\nB\",\"d\"\r\n"},
        {"cut inside a name", first + "130,\"Bea", first + "130,\"Bea\",\" \"\r\n"},
        {"cut after a time", first + "130", first + "130,\" \",\" \"\r\n"},
        {"cut inside the counters", ten + "57", ten + "57,0\r\n"},
        {"numbers beyond 32 bits", "99999999999999999999999,\"A\",\"d\"\r\n-99999999999,\"\",\"\"",
         "2147483647,\"A\",\"d\"\r\n-2147483648,\"\",\"\"\r\n"},
        {"no numbers", "abc,\"A\",\"d\"\r\n12x,\"B\",\"e\"\r\n",
         "0,\"A\",\"d\"\r\n12,\"B\",\"e\"\r\n"},
        {"zero bytes", "125,\"A\0B\",\"d\"\r\n"s, "125,\"A\0B\",\"d\"\r\n"s},
    };
    for (const auto& c : cases)
        EXPECT_EQ(rewritten(c.bytes), rewritten(c.as)) << c.name;
    EXPECT_EQ(parsed(ten + "57,12").GamesPlayed, 57);
    EXPECT_EQ(parsed(first).BestName(1), "A");
}

TEST(BestTimesFile, AFailedWriteLeavesTheOldFile) {
    const auto full = std::make_error_code(std::errc::no_space_on_device);
    const auto denied = std::make_error_code(std::errc::permission_denied);
    using Failing = std::map<std::string, std::error_code>;  // each call fails once
    std::vector<std::pair<Failing, std::error_code>> cases;
    for (const char* call : {"create", "write", "flush", "close", "rename"})
        cases.push_back({{{call, full}}, full});
    // What may not be replaced is written in place.
    for (const char* call : {"create", "rename"})
        cases.push_back({{{call, denied}}, {}});
    for (const char* call : {"open", "write", "flush", "cut", "close"})
        cases.push_back({{{"create", denied}, {call, full}}, full});
    cases.push_back({{{"create", denied}, {"read", full}}, denied});
    GameState state;
    clear_places(state);
    const auto written = MemoryFiles(format_best_times(state)).files;
    for (auto [failing, answer] : cases) {
        SCOPED_TRACE(failing.begin()->first + " " + failing.rbegin()->first);
        MemoryFiles files(installed_file);
        files.before = [&failing = failing](const std::string& call) {
            const auto found = failing.extract(call);
            return found ? found.mapped() : std::error_code{};
        };
        DurableFiles durable(files);
        BestTimesFile file(MemoryFiles::list_path, durable);
        EXPECT_EQ(file.write(state), answer);
        EXPECT_EQ(files.files, answer ? MemoryFiles(installed_file).files : written);
        EXPECT_FALSE(file.write(state));
        EXPECT_EQ(files.files, written);
    }
}

/// What a list should come to, as plainly as it can be said: the entries in the order of their
/// times, of equal ones the older above.
struct PlainList {
    std::vector<std::pair<int, std::string>> entries;
    int played = 0;

    std::string file() const {
        GameState state;
        clear_places(state);
        auto sorted = entries;
        std::stable_sort(sorted.begin(), sorted.end(), [](const auto& one, const auto& other) {
            return one.first < other.first;
        });
        for (int p = 1; p <= std::min(30, static_cast<int>(sorted.size())); ++p)
            std::tie(state.BestTime(p), state.BestName(p)) = sorted[std::size_t(p - 1)];
        state.GamesPlayed = played;
        return format_best_times(state);
    }
};

// d deals, w wins in an ever different time, s in the same one, c clears the list. While the
// trouble lasts the file stays as it is; the first write after it carries everything.
TEST(BestTimesFile, CarriesEverythingOnceTheTroubleIsOver) {
    for (const std::string failing : {"read", "create"}) {
        for (const std::string& events :
             {"d"s, "wdsws"s, "sdcdw"s, "dwscs"s, "ccd"s, std::string(35, 'w')}) {
            for (const std::size_t lasts : {0U, 1U, 3U, 99U}) {
                SCOPED_TRACE(failing + " fails for " + std::to_string(lasts) + " of " + events);
                PlainList model{{{70, "a"}, {80, "b"}, {80, "c"}}, 99};
                const std::string stored = model.file();
                MemoryFiles files(stored);
                bool troubled = true;
                files.before = [&](const std::string& call) {
                    return std::make_error_code(troubled && call == failing ? std::errc::io_error
                                                                            : std::errc());
                };
                DurableFiles durable(files);
                BestTimesFile file(MemoryFiles::list_path, durable);
                GameState state;
                file.read(state);
                for (std::size_t i = 0; i < events.size(); ++i) {
                    troubled = i < lasts;
                    const int seconds = events[i] == 's' ? 80 : 60 + int(i) * 17 % 40;
                    const std::string name = std::to_string(i);
                    if (events[i] == 'd') count_up(state.GamesPlayed), ++model.played;
                    if (events[i] == 'w' || events[i] == 's') {
                        const int place = place_for(state, seconds);
                        if (place != no_place) insert_entry(state, place, seconds, name, " ");
                        model.entries.emplace_back(seconds, name);
                    }
                    if (events[i] == 'c') {
                        clear_places(state);
                        file.forget();
                        state.GamesPlayed = 0;
                        model = {};
                    }
                    EXPECT_EQ(static_cast<bool>(file.write(state)), troubled);
                    EXPECT_EQ(file.is_behind(), troubled);
                    EXPECT_EQ(files.files.at(MemoryFiles::list_path),
                              troubled ? stored : model.file());
                }
            }
        }
    }
}

TEST(BestTimesFile, NeverTouchesWhatIsTooLong) {
    MemoryFiles files(std::string((1 << 20) + 1, '0'));
    const auto before = files.files;
    DurableFiles durable(files);
    BestTimesFile file(MemoryFiles::list_path, durable);
    GameState state;
    EXPECT_EQ(file.read(state), std::errc::file_too_large);
    file.forget();
    EXPECT_EQ(file.write(state), std::errc::file_too_large);
    EXPECT_EQ(file.take("", state), std::errc::file_too_large);
    EXPECT_EQ(files.files, before);
    files.files[MemoryFiles::list_path].pop_back();
    EXPECT_FALSE(file.write(state));
}

TEST_F(RealFiles, AreReadAndWrittenWhole) {
    FileCalls& calls = system_file_calls();
    EXPECT_EQ(calls.open(list_path_), std::errc::no_such_file_or_directory);
    BestTimesFile file(list_path_, system_files());
    GameState state;
    EXPECT_FALSE(file.read(state));  // there is none yet
    GameState installed = parsed(installed_file);
    EXPECT_FALSE(file.write(installed));
    EXPECT_EQ(content(list_), installed_file);
    EXPECT_FALSE(file.read(state));
    EXPECT_EQ(format_best_times(state), installed_file);
    for (const std::string text : {"short", "a longer text"}) {
        EXPECT_FALSE(calls.open(list_path_) || calls.write(text) || calls.cut() || calls.close());
        EXPECT_EQ(content(list_), text);
    }
}

TEST(BestTimesFile, IsToldFromOtherFiles) {
    const std::string list = rewritten("100,\"J\xf6rg, der \x94\",\"3. Jan 2026 9:05\"\r\n");
    std::string with_unix_ends = list;
    std::erase(with_unix_ends, '\r');
    EXPECT_TRUE(is_best_times_file(list) && is_best_times_file(with_unix_ends));
    for (const std::string& other :
         {""s, "Ein Brief.\n"s, list.substr(1), list + "0", list + list,
          list.substr(0, list.size() - 2), std::string(2'000'000, ' ')}) {
        EXPECT_FALSE(is_best_times_file(other)) << other.substr(0, 40);
    }
}

TEST(BestTimes, FindTheirPlaceAndMoveTheRestDown) {
    GameState state;
    clear_places(state);
    std::vector<std::pair<int, std::string>> listed;
    for (int number = 0; number < 80; ++number) {
        const int seconds = 100 + number * 37 % 23;
        const auto slower = std::find_if(listed.begin(), listed.end(),
                                         [&](const auto& entry) { return entry.first > seconds; });
        const int place = 1 + static_cast<int>(slower - listed.begin());
        ASSERT_EQ(place_for(state, seconds), place > 30 ? no_place : place);
        if (place > 30) continue;
        const std::string text = std::to_string(number);
        listed.insert(slower, {seconds, text});
        insert_entry(state, place, seconds, text, text);
        for (int p = 1; p <= std::min(30, static_cast<int>(listed.size())); ++p) {
            const auto& [time, entry] = listed[static_cast<std::size_t>(p - 1)];
            EXPECT_EQ(state.BestTime(p), time);
            EXPECT_EQ(state.BestName(p), entry);
            EXPECT_EQ(state.BestDate(p), entry);
        }
    }
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
        {"\u0800\uD7FF\uE000\U00010000\U0010FFFF", "?????"},
        {"\xE0\x81\x81|\xE0\x9F\xBF|\xED\xA0\x80|\xED\xBF\xBF", "???|???|???|???"},
        {"\xC1\xBF|\xF0\x8F\xBF\xBF|\xF4\x90\x80\x80|\xF8\x88\x80\x80\x80", "??|????|????|?????"},
    };
    for (const auto& [utf8, bytes] : names)
        EXPECT_EQ(to_list_text(utf8), bytes) << utf8;
}

TEST(BestTimes, CountersEndAndPercentagesHaveTwoDecimals) {
    const std::tuple<int, int, const char*> cases[] = {
        {5, 12, "41,67%"},    {0, 0, "0,00%"},   {1, 32, "3,13%"},   {7, 7, "100,00%"},
        {1, 3, "33,33%"},     {2, 3, "66,67%"},  {7, 160, "4,38%"},  {1, 20001, "0,00%"},
        {1, 20000, "0,01%"},  {3, -1, "0,00%"},  {2, 1, "200,00%"},  {-1, 32, "-3,13%"},
        {-1, 99999, "0,00%"}, {1, 1, "100,00%"}, {1, 1000, "0,10%"}, {1, 2147483647, "0,00%"},
    };
    for (const auto& [won, played, text] : cases)
        EXPECT_EQ(percentage(won, played, ","), text);
    std::int32_t counter = 2147483646;
    count_up(counter);
    count_up(counter);
    EXPECT_EQ(counter, 2147483647);
    EXPECT_EQ(percentage(counter, counter, "."), "100.00%");
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
        GameState state = parsed(repeat(empty_place, 10) + "12,5");
        insert_entry(state, place, seconds, name, "3.\tJan 2026\x1F\x39:05");
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
