#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace solvanta::test {

/// A folder of its own on the real file system, with a name that not every code page can write.
class RealFiles : public testing::Test {
  protected:
    RealFiles() { std::filesystem::create_directory(folder_); }
    ~RealFiles() override { std::filesystem::remove_all(folder_); }

    static std::string utf8(const std::filesystem::path& path) {
        const std::u8string text = path.u8string();
        return {text.begin(), text.end()};
    }

    std::string list_path() const { return utf8(folder_ / "highscore.scr"); }

    static std::string content(const std::filesystem::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    std::filesystem::path folder_ =
        std::filesystem::temp_directory_path() /
        (u8"Süße Łódź ♥" +
         std::filesystem::path(std::to_string(std::random_device{}())).u8string());
    std::filesystem::path list_ = folder_ / "highscore.scr";
};

}  // namespace solvanta::test
