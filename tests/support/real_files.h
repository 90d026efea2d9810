#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <string>

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

}  // namespace solvanta::test
