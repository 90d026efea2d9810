#include "tests/support/real_files.h"

#include <gtest/gtest.h>

#include "files/durable_files.h"

namespace solvanta::test {
namespace {

namespace fs = std::filesystem;

TEST(RealFiles, AreReadAndWrittenWhole) {
    const RealFolder folder;
    const std::string path = folder.path_of("list");
    FileCalls& calls = system_file_calls();
    std::string bytes;
    EXPECT_EQ(calls.open(path), std::errc::no_such_file_or_directory);
    EXPECT_EQ(calls.read(path, 9, bytes), std::errc::no_such_file_or_directory);
    EXPECT_FALSE(system_files().replace(path, "\r\n\xFF"));
    EXPECT_FALSE(calls.read(path, 3, bytes));
    EXPECT_EQ(bytes, "\r\n\xFF");
    for (const std::string text : {"short", "a longer text"}) {
        EXPECT_FALSE(calls.open(path) || calls.write(text) || calls.cut() || calls.close());
        EXPECT_EQ(calls.read(path, text.size() - 1, bytes), std::errc::file_too_large);
        EXPECT_FALSE(calls.read(path, text.size(), bytes));
        EXPECT_EQ(bytes, text);
    }
}

#ifndef _WIN32
TEST(RealFiles, KeepTheirLinkAndTheirPermissions) {
    const RealFolder folder;
    fs::create_directory(folder.path / "synced");
    const fs::path target = folder.put("synced/list", "before");
    const fs::path link = folder.path / "list";
    const fs::perms owner_only = fs::perms::owner_read | fs::perms::owner_write;
    fs::permissions(target, owner_only);
    fs::create_symlink(target, link);
    EXPECT_FALSE(system_files().replace(link, "new"));
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(fs::file_size(target), 3U);
    EXPECT_EQ(fs::status(target).permissions(), owner_only);
}

#endif

}  // namespace
}  // namespace solvanta::test
