#include "scores/durable_file.h"
#include "tests/support/real_files.h"

namespace solvanta::test {
namespace {

namespace fs = std::filesystem;

TEST_F(RealFiles, KeepTheirLinkAndTheirPermissions) {
    fs::create_directory(folder_.path / "synced");
    const fs::path target = folder_.put("synced/list", "old");
    fs::permissions(target, fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink(target, list_);
    FileCalls& calls = system_file_calls();
    EXPECT_FALSE(replace_file(calls, calls.resolve(list_path_), "new"));
    EXPECT_TRUE(fs::is_symlink(list_));
    EXPECT_EQ(content(target), "new");
    EXPECT_EQ(fs::status(target).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(RealFiles, HandBackNothingWhenReadingFails) {
    std::string bytes = "before";
    EXPECT_TRUE(system_file_calls().read("/proc/self/mem", 100, bytes));
    EXPECT_EQ(bytes, "");
}

}  // namespace
}  // namespace solvanta::test
