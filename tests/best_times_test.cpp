#include "scores/best_times.h"

#include <algorithm>
#include <iterator>
#include <tuple>
#include <utility>

#include <gtest/gtest.h>

#include "scores/best_times_file.h"
#include "scores/best_times_format.h"
#include "scores/list_text.h"
#include "tests/support/memory_files.h"
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
    // And the sound file it must read like, up to what is missing at its end.
    const std::pair<std::string, std::string> cases[] = {
        {ten + "57,12", ten + "57,12\r\n"},
        {ten + "57", ten + "57,0\r\n"},
        {"125,\"A\",\"d\"\n0,\" \",\" \"\n7,\"B\",\"e\"\n",
         first + empty_place + "7,\"B\",\"e\"\r\n"},
        {"125,\"A\",\"d\"\r7,\"B\",\"e\"\r", first + "7,\"B\",\"e\"\r\n"},
        {"\xEF\xBB\xBF  125,  \"A\"xyz ,   \"d\"!   \r\n", first},
        {"\"125\",A,d\r\n", first},
        {first + "130,\"Bea", first + "130,\"Bea\",\" \"\r\n"},
        {first + "130", first + "130,\" \",\" \"\r\n"},
        {"99999999999999999999999,\"A\r\nB\",\"d\"\r\n-99999999999,\"\",\"\0\""s,
         "2147483647,\"A\r\nB\",\"d\"\r\n-2147483648,\"\",\"\0\"\r\n"s},
        {"abc,\"A\",\"d\"\r\n12x,\"B\",\"e\"\r\n", "0,\"A\",\"d\"\r\n12,\"B\",\"e\"\r\n"},
    };
    for (const auto& [bytes, as] : cases)
        EXPECT_EQ(rewritten(bytes), rewritten(as)) << bytes;
    EXPECT_EQ(parsed(ten + "57,12").GamesPlayed, 57);
}

/// A list in a file, read at the start of the program.
struct KeptList {
    explicit KeptList(const std::string& bytes) { files.files[MemoryFiles::list_path] = bytes; }

    /// Deals, clears the list, or wins in as many seconds as the code of a capital letter.
    void play(char event, const std::string& name) {
        const int place = place_for(state, event);
        if (event == 'c') {
            clear_places(state);
            file.forget();
            state.GamesPlayed = 0;
        } else if (event == 'd') {
            count_up(state.GamesPlayed);
        } else {
            count_up(state.GamesWon);
            if (place != no_place) insert_entry(state, place, event, name, name);
        }
    }

    MemoryFiles files;
    DurableFiles durable{files};
    BestTimesFile file{MemoryFiles::list_path, durable};
    GameState state;
};

/// Always without the permission for the call `denied`, the disk full at the call `failing` of the
/// first so many writes and, without a denied one, when the list is read. While the trouble lasts
/// the file stays as it is; the first write after it makes it what it is without any trouble.
void expect_carried(const std::string& denied, const std::string& failing, int trouble,
                    const std::string& events) {
    const std::string at_start = rewritten("70,a,a\r\n80,b,b\r\n80,c,c\r\n");
    KeptList list(at_start);
    KeptList untroubled(at_start);
    bool full = denied.empty();
    list.files.before = [&](const std::string& call) {
        const bool fails = call == failing && std::exchange(full, false);
        return std::make_error_code(fails            ? std::errc::no_space_on_device
                                    : call == denied ? std::errc::permission_denied
                                                     : std::errc());
    };
    list.file.read(list.state);
    untroubled.file.read(untroubled.state);
    auto expected = list.files.files;
    for (int i = 0; i < static_cast<int>(events.size()); ++i) {
        full = !failing.empty() && i < trouble;
        const bool fails = full;
        for (KeptList* played : {&list, &untroubled})
            played->play(events[static_cast<std::size_t>(i)], std::to_string(i));
        EXPECT_EQ(static_cast<bool>(list.file.write(list.state)), fails);
        EXPECT_EQ(list.file.is_behind(), fails);
        untroubled.file.write(untroubled.state);
        if (!fails) expected = untroubled.files.files;
        EXPECT_EQ(list.files.files, expected)
            << events.substr(0, std::size_t(i) + 1) << ", " << trouble << " fail at " << failing;
    }
}

TEST(BestTimesFile, CarriesEverythingOnceTheTroubleIsOver) {
    for (const std::string& events :
         {"d"s, "SdPFP"s, "PdcdA"s, "ccd"s, "ZAPYBXDWVEUFTGSHIQPJKZOLNMAZYBXCDP"s}) {
        for (const int trouble : {0, 1, 3, 99}) {
            for (const char* call : {"read", "create", "write", "flush", "close", "rename"})
                expect_carried("", call, trouble, events);
            // What may not be replaced is written in place.
            expect_carried("rename", "", trouble, events);
            for (const char* call : {"", "read", "open", "write", "flush", "cut", "close"})
                expect_carried("create", call, trouble, events);
        }
    }
}

TEST(BestTimesFile, NeverTouchesWhatIsTooLong) {
    KeptList list(std::string((1 << 20) + 1, '0'));
    const auto before = list.files.files;
    EXPECT_EQ(list.file.read(list.state), std::errc::file_too_large);
    list.file.forget();
    EXPECT_EQ(list.file.write(list.state), std::errc::file_too_large);
    EXPECT_EQ(list.file.take("", list.state), std::errc::file_too_large);
    EXPECT_EQ(list.files.files, before);
    list.files.files[MemoryFiles::list_path].pop_back();
    EXPECT_FALSE(list.file.write(list.state));
}

TEST(BestTimesFile, KeepsWhatWasUnreadWhenAnotherListCannotBeStored) {
    KeptList list(installed_file);
    std::string failing = "read";
    list.files.before = [&](const std::string& call) {
        return std::make_error_code(call == failing ? std::errc::io_error : std::errc());
    };
    EXPECT_TRUE(list.file.read(list.state));
    failing = "create";
    EXPECT_TRUE(list.file.take("", list.state));
    failing.clear();
    EXPECT_FALSE(list.file.write(list.state));
    EXPECT_EQ(list.files.files.at(MemoryFiles::list_path), installed_file);
}

TEST(BestTimesFile, IsToldFromOtherFiles) {
    const std::string list = rewritten("100,\"J\xf6rg, der \x94\",\"3. Jan 2026 9:05\"\r\n");
    std::string with_unix_ends = list;
    std::erase(with_unix_ends, '\r');
    const std::string eleven_lines = list.substr(0, list.find("0,0\r\n") + 5);
    for (const std::string& taken : {list, with_unix_ends, list.substr(0, list.size() - 2),
                                     eleven_lines, "\xEF\xBB\xBF" + list})
        EXPECT_TRUE(is_best_times_file(taken)) << taken.size();
    for (const std::string& other :
         {""s, "Ein Brief.\n"s, list.substr(1), list + "0", list + list,
          list.substr(0, list.size() - 3), eleven_lines.substr(0, 50), std::string(2'000'000, ' ')})
        EXPECT_FALSE(is_best_times_file(other)) << other.substr(0, 40);
}

TEST(BestTimes, AreTheThirtyShortest) {
    GameState state;
    std::multiset<int> times;
    for (int event = 0; event < 40; ++event) {
        const int seconds = *times.insert(60 + event * 14 % 37);
        const int place = place_for(state, seconds);
        if (place != no_place) insert_entry(state, place, seconds, "", "");
        const auto listed = std::next(times.begin(), std::min(event + 1, 30));
        EXPECT_TRUE(std::equal(times.begin(), listed, state.BestTime.begin())) << event;
    }
}

TEST(BestTimes, AreStampedInGermanWhereTheirCharactersLackOthers) {
    LocaleTexts texts{{"янв.", "Mär", "март"}, "˸", "٫"};
    EXPECT_EQ(entry_stamp({2026, 1, 3, 9, 5}, texts), "3. Jan 2026 9:05");
    EXPECT_EQ(entry_stamp({2026, 3, 3, 19, 15}, texts), "3. M\xe4r 2026 19:15");
    texts.time_separator = ".";
    EXPECT_EQ(entry_stamp({2026, 2, 3, 9, 5}, texts), "3. M\xe4r 2026 9.05");
    EXPECT_NE(list_lines({}, texts.decimal_separator).back().find("0,00%"), std::string::npos);
}

TEST(BestTimes, NamesBecomeOneByteACharacter) {
    const std::pair<const char*, const char*> names[] = {
        {"  Jörg Süß \u00A0\u00FF\xC2\x81", "  J\xF6rg S\xFC\xDF \xA0\xFF\x81"},
        {"\"5 € – „ja“\"", "\x94\x35 \x80 \x96 \x84ja\x93\x94"},
        {"Łó 猫🙂♥\r\nb\tc\x7F", "?\xF3 ???  b c "},
        {"a\xC3", "a?"},
        {"\xFF\x80z\xE2\x82", "??z??"},
        {"\xE0\x81\x81|\xE0\x9F\xBF|\xED\xA0\x80|\xED\xBF\xBF", "???|???|???|???"},
    };
    for (const auto& [utf8, bytes] : names)
        EXPECT_EQ(to_list_text(utf8), bytes) << utf8;
}

TEST(BestTimes, CountersEndAndPercentagesHaveTwoDecimals) {
    const std::tuple<int, int, const char*> cases[] = {
        {0, 0, "0,00%"},    {1, 32, "3,13%"},  {1, 20001, "0,00%"}, {1, 20000, "0,01%"},
        {3, -1, "0,00%"},   {2, 1, "200,00%"}, {-1, 32, "-3,13%"},  {-1, 99999, "0,00%"},
        {1, 1000, "0,10%"}, {5, 12, "41,67%"}, {7, 160, "4,38%"},   {1, 2147483647, "0,00%"},
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

}  // namespace
}  // namespace solvanta::test
