#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace solvanta::test {

/// A folder of its own on the real file system, with a name that not every code page can write.
struct RealFolder {
    RealFolder() { std::filesystem::create_directory(path); }
    RealFolder(const RealFolder&) = delete;
    RealFolder& operator=(const RealFolder&) = delete;
    ~RealFolder() { std::filesystem::remove_all(path); }

    /// The path of a file in it, in UTF-8.
    std::string path_of(const std::string& name) const {
        const std::u8string text = (path / name).u8string();
        return {text.begin(), text.end()};
    }

    std::string put(const std::string& name, const std::string& bytes) const {
        std::ofstream(path / name, std::ios::binary) << bytes;
        return path_of(name);
    }

    const std::filesystem::path path =
        std::filesystem::temp_directory_path() /
        (u8"Süße Łódź ♥" +
         std::filesystem::path(std::to_string(std::random_device{}())).u8string());
};

/// A list in such a folder.
class RealFiles : public testing::Test {
  protected:
    static std::string content(const std::filesystem::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    RealFolder folder_;
    std::filesystem::path list_ = folder_.path / "highscore.scr";
    std::string list_path_ = folder_.path_of("highscore.scr");
};

}  // namespace solvanta::test
