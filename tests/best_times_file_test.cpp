#include "scores/best_times_file.h"

#include <utility>

#include <gtest/gtest.h>

#include "scores/best_times.h"
#include "scores/best_times_format.h"
#include "tests/support/memory_files.h"
#include "tests/support/real_files.h"

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
std::string installed_file() {
    std::string bytes =
        "125,\"M\xFCller, J\xF6rg\",\"3. M\xE4r 2004 9:05\"\r\n"
        "125,\"\",\"25. Dez 2003 23:40\"\r\n"
        "300,\"  \",\"1. Jan 2005 0:00\"\r\n"
        "301,\"\x80 \x81\x8D\x8F\x90\x9D\x94\",\" \"\r\n"
        "6003,\"{\\b Name}\",\"x\"\r\n" +
        repeat(empty_place, 5) + "57,12\r\n" + repeat(empty_place, 20);
    return bytes;
}

GameState parsed(const std::string& bytes) {
    GameState state;
    parse_best_times(bytes, state);
    return state;
}

TEST(BestTimesFile, SurvivesReadingAndWritingByteForByte) {
    std::string full;
    for (int p = 1; p <= 30; ++p) {
        full += std::to_string(p * 100) + ",\"N" + std::to_string(p) + "\",\"D\"\r\n";
        if (p == 10) full += "2147483647,-5\r\n";
    }
    const std::string cleared = repeat(empty_place, 10) + "0,0\r\n" + repeat(empty_place, 20);
    for (const std::string& bytes : {installed_file(), full, cleared}) {
        EXPECT_EQ(format_best_times(parsed(bytes)), bytes);
    }
}

TEST(BestTimesFile, UsesWhatCanBeRead) {
    const std::string first = "125,\"A\",\"d\"\r\n";
    const std::string ten = first + repeat(empty_place, 9);
    struct Damaged {
        const char* name;
        std::string bytes;
        std::string as;  // the sound file it must read like, up to what is missing at its end
    };
    const Damaged cases[] = {
        {"nothing", "", ""},
        {"one line", first, first},
        {"no places after the counters", ten + "57,12\r\n", ten + "57,12\r\n"},
        {"no last line end", ten + "57,12", ten + "57,12\r\n"},
        {"line ends of LF alone", "125,\"A\",\"d\"\n0,\" \",\" \"\n7,\"B\",\"e\"\n",
         first + empty_place + "7,\"B\",\"e\"\r\n"},
        {"line ends of CR alone", "125,\"A\",\"d\"\r7,\"B\",\"e\"\r", first + "7,\"B\",\"e\"\r\n"},
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
    for (const Damaged& c : cases) {
        EXPECT_EQ(format_best_times(parsed(c.bytes)), format_best_times(parsed(c.as))) << c.name;
    }
    const GameState sound = parsed(first + "60,\"B\",\"e\"\r\n");
    EXPECT_EQ(sound.BestTime(1), 125);
    EXPECT_EQ(sound.BestName(1), "A");
    EXPECT_EQ(sound.BestDate(1), "d");
    EXPECT_EQ(sound.BestTime(2), 60);
    EXPECT_EQ(sound.BestTime(3), 0);
    EXPECT_EQ(sound.BestName(30), " ");
    EXPECT_EQ(parsed(ten + "57,12").GamesPlayed, 57);
    EXPECT_EQ(parsed(ten + "57,12").GamesWon, 12);
    EXPECT_EQ(parsed(ten + "57").GamesPlayed, 57);
}

TEST(BestTimesFile, ReadsNoiseWithoutHarm) {
    std::uint32_t noise = 12345;
    const std::string alphabet = "0123456789,,,,\"\"\"\r\n -A\xFC\0"s;
    for (int round = 0; round < 500; ++round) {
        std::string bytes;
        for (int i = 0; i < 400; ++i) {
            noise = noise * 1664525U + 1013904223U;
            bytes += alphabet[(noise >> 16U) % alphabet.size()];
        }
        // What was read and written once is sound, so it must stay as it is from then on.
        const std::string once = format_best_times(parsed(bytes));
        EXPECT_EQ(format_best_times(parsed(once)), once);
    }
    EXPECT_EQ(parsed(std::string(1 << 20, '7')).BestTime(1), 2147483647);
    EXPECT_EQ(parsed(std::string(1 << 20, '"')).BestTime(30), 0);
}

TEST(BestTimesFile, AFailedWriteLeavesTheOldFile) {
    for (const std::string call : {"create", "write", "flush", "close", "rename"}) {
        MemoryFiles files(installed_file());
        BestTimesFile file(MemoryFiles::list_path, files);
        GameState state;
        EXPECT_FALSE(file.read(state));
        ++state.GamesPlayed;
        files.before = [&call](const std::string& name) {
            return name == call ? std::make_error_code(std::errc::no_space_on_device)
                                : std::error_code{};
        };
        EXPECT_EQ(file.write(state), std::errc::no_space_on_device) << call;
        EXPECT_EQ(files.files, MemoryFiles(installed_file()).files) << call;

        files.before = nullptr;
        EXPECT_FALSE(file.write(state));
        EXPECT_EQ(files.files, MemoryFiles(format_best_times(state)).files) << call;
    }
}

TEST(BestTimesFile, IsWrittenInPlaceWhereItMayNotBeReplaced) {
    const std::error_code denied = std::make_error_code(std::errc::permission_denied);
    const std::error_code broken = std::make_error_code(std::errc::io_error);
    for (const std::string refused : {"create", "rename"}) {
        MemoryFiles files(installed_file() + "something behind the list");
        BestTimesFile file(MemoryFiles::list_path, files);
        GameState state;
        EXPECT_FALSE(file.read(state));
        clear_places(state);
        files.before = [&](const std::string& name) {
            return name == refused ? denied : std::error_code{};
        };
        EXPECT_FALSE(file.write(state)) << refused;
        EXPECT_EQ(files.files, MemoryFiles(format_best_times(state)).files) << refused;
    }
    for (const std::string failing : {"open", "write", "flush", "cut", "close"}) {
        MemoryFiles files(installed_file());
        bool failed = false;
        files.before = [&](const std::string& name) {
            if (name == "create") return denied;
            if (name != failing || std::exchange(failed, true)) return std::error_code{};
            return broken;
        };
        EXPECT_EQ(BestTimesFile(MemoryFiles::list_path, files).write(GameState()), broken);
        EXPECT_EQ(files.files, MemoryFiles(installed_file()).files) << failing;
    }
    MemoryFiles without_list;
    without_list.before = [&](const std::string& name) {
        return name == "create" ? denied : std::error_code{};
    };
    EXPECT_EQ(BestTimesFile(MemoryFiles::list_path, without_list).write(GameState()), denied);
}

TEST(BestTimesFile, NeverReplacesWhatItCouldNotRead) {
    MemoryFiles files(std::string((1 << 20) + 1, '0'));
    const auto before = files.files;
    BestTimesFile too_long(MemoryFiles::list_path, files);
    GameState state;
    state.GamesPlayed = 7;
    EXPECT_EQ(too_long.read(state), std::errc::file_too_large);
    EXPECT_EQ(state.GamesPlayed, 0);
    EXPECT_FALSE(too_long.write(state));
    EXPECT_EQ(files.files, before);

    BestTimesFile unreadable(MemoryFiles::list_path, files);
    files.before = [](const std::string&) { return std::make_error_code(std::errc::io_error); };
    EXPECT_EQ(unreadable.read(state), std::errc::io_error);
    files.before = nullptr;
    EXPECT_FALSE(unreadable.write(state));
    EXPECT_EQ(files.files, before);
}

TEST_F(RealFiles, AreReadAndWrittenWhole) {
    BestTimesFile file(list_path(), system_file_calls());
    GameState state;
    EXPECT_FALSE(file.read(state));  // there is none yet
    state = parsed(installed_file());
    EXPECT_FALSE(file.write(state));
    EXPECT_EQ(content(list_), installed_file());
    GameState again;
    EXPECT_FALSE(file.read(again));
    EXPECT_EQ(format_best_times(again), installed_file());
}

TEST_F(RealFiles, AreWrittenOverFromTheStart) {
    FileCalls& calls = system_file_calls();
    EXPECT_EQ(calls.open(list_path()), std::errc::no_such_file_or_directory);
    for (const std::string text : {"a longer text", "short"}) {
        std::ofstream(list_, std::ios::binary) << "the old text";
        EXPECT_FALSE(calls.open(list_path()));
        EXPECT_FALSE(calls.write(text));
        EXPECT_FALSE(calls.cut());
        EXPECT_FALSE(calls.close());
        EXPECT_EQ(content(list_), text);
    }
}

TEST_F(RealFiles, StayWhenTheyAreNoFiles) {
    std::filesystem::create_directory(list_);
    BestTimesFile file(list_path(), system_file_calls());
    GameState state;
    EXPECT_TRUE(file.read(state));
    EXPECT_FALSE(file.write(state));
    EXPECT_TRUE(std::filesystem::is_directory(list_));

    BestTimesFile nowhere(utf8(folder_ / "gone" / "highscore.scr"), system_file_calls());
    EXPECT_FALSE(nowhere.read(state));
    EXPECT_EQ(nowhere.write(state), std::errc::no_such_file_or_directory);
}

TEST(BestTimesFile, IsToldFromOtherFiles) {
    GameState state;
    clear_places(state);
    insert_entry(state, 1, 100, "J\xf6rg, der \x94", "3. Jan 2026 9:05");
    const std::string list = format_best_times(state);
    std::string with_unix_ends = list;
    std::erase(with_unix_ends, '\r');
    EXPECT_TRUE(is_best_times_file(list));
    EXPECT_TRUE(is_best_times_file(with_unix_ends));
    for (const std::string& other :
         {std::string(), std::string("Ein Brief.\n"), list.substr(1), list + "0", list + list,
          list.substr(0, list.size() - 2), std::string(2'000'000, ' ')}) {
        EXPECT_FALSE(is_best_times_file(other)) << other.substr(0, 40);
    }
}

}  // namespace
}  // namespace solvanta::test
