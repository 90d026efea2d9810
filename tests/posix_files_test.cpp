#include "scores/durable_file.h"
#include "tests/support/real_files.h"

namespace solvanta::test {
namespace {

namespace fs = std::filesystem;

TEST_F(RealFiles, KeepTheirLinkAndTheirPermissions) {
    const fs::path target = folder_.path / "synced" / "list";
    fs::create_directory(folder_.path / "synced");
    std::ofstream(target, std::ios::binary) << "old";
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
    const std::string fails_when_read = "/proc/self/mem";
    EXPECT_TRUE(system_file_calls().read(fails_when_read, 100, bytes));
    EXPECT_EQ(bytes, "");
}

}  // namespace
}  // namespace solvanta::test
