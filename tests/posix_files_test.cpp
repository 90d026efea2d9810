#include "files/files.h"
#include "tests/support/real_files.h"

namespace solvanta::test {
namespace {

namespace fs = std::filesystem;

TEST_F(RealFiles, KeepTheirLinkAndTheirPermissions) {
    fs::create_directory(folder_.path / "synced");
    const fs::path target = folder_.put("synced/list", "old");
    fs::permissions(target, fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink(target, list_);
    EXPECT_FALSE(system_files().replace(list_path_, "new"));
    EXPECT_TRUE(fs::is_symlink(list_));
    EXPECT_EQ(content(target), "new");
    EXPECT_EQ(fs::status(target).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(RealFiles, HandBackNothingWhenReadingFails) {
    std::string bytes = "before";
    EXPECT_TRUE(system_files().read("/proc/self/mem", 100, bytes));
    EXPECT_EQ(bytes, "");
}

}  // namespace
}  // namespace solvanta::test
