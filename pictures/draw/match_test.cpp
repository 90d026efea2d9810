// Holds the comparison of sources and shipped files to noticing what an artist would change.
#include "match.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "catalogue.h"
#include "files.h"

namespace {

using namespace solvanta::pictures;

const std::filesystem::path sources = SOLVANTA_PICTURE_SOURCES;

PictureFile file_named(const std::string& name) {
    for (PictureFile& file : catalogue()) {
        if (file.name == name) {
            return file;
        }
    }
    throw std::runtime_error(name + " is not in the catalogue");
}

// The pictures of the file when the source `part` is replaced by the text given.
std::vector<Image> drawn(const std::string& name, const std::string& part = "",
                         const std::string& text = "") {
    const auto copy = std::filesystem::temp_directory_path() /
                      ("solvanta_sources_" + std::to_string(std::random_device{}()));
    std::filesystem::copy(sources, copy);
    if (!part.empty()) {
        write_file(copy / (part + ".svg"), Bytes(text.begin(), text.end()));
    }
    PartLibrary library(copy);
    auto images = decode(name, render(file_named(name), library));
    std::filesystem::remove_all(copy);
    return images;
}

std::string source_text(const std::string& part) {
    const Bytes bytes = read_file(sources / (part + ".svg"));
    return {bytes.begin(), bytes.end()};
}

// Puts a group that shifts the drawing around the whole content of a source.
std::string shifted(const std::string& text, double points) {
    const std::size_t content = text.find('>', text.find("<svg")) + 1;
    const std::size_t end = text.rfind("</svg>");
    std::string result = text.substr(0, content);
    result.append("<g transform=\"translate(").append(std::to_string(points)).append(" 0)\">");
    return result.append(text.substr(content, end - content)).append("</g></svg>");
}

TEST(MatchOfPictures, NoticesAMovedDrawing) {
    struct Shift {
        const char* file;
        const char* part;
        double points;
    };
    for (const Shift& row : {Shift{"Herz_7.bmp", "suit_herz", 0.4},
                             {"Pick_9@2x.bmp", "index_9", 0.4},
                             {"Karo_D.bmp", "court_karo_D", 0.4},
                             {"Back_verdeckt.bmp", "back", 0.6},
                             {"diddle.jpg", "win", 0.6},
                             {"skull.gif", "skull", 0.6},
                             {"Solvanta.ico", "icon", 0.5}}) {
        const auto before = drawn(row.file);
        const auto after = drawn(row.file, row.part, shifted(source_text(row.part), row.points));
        EXPECT_NE(difference_text(before, after), "") << row.file;
    }
}

TEST(MatchOfPictures, NoticesAnotherColour) {
    std::string text = source_text("suit_pick");
    const std::size_t colour = text.find("fill=\"#") + 6;
    text.replace(colour, 7, "#222438");
    EXPECT_NE(difference_text(drawn("Pick_10.bmp"), drawn("Pick_10.bmp", "suit_pick", text)), "");
}

TEST(MatchOfPictures, ForgivesAnotherShadingOfPixels) {
    std::mt19937 random(7);
    for (const char* name : {"Herz_K.bmp", "Back_ganz@2x.bmp", "diddle.jpg", "Solvanta.ico"}) {
        const auto before = drawn(name);
        auto after = before;
        for (Image& image : after) {
            for (Pixel& pixel : image.pixels) {
                const int step = static_cast<int>(random() % 11) - 5;
                pixel.red = static_cast<std::uint8_t>(std::clamp(pixel.red + step, 0, 255));
                pixel.green = static_cast<std::uint8_t>(std::clamp(pixel.green - step, 0, 255));
            }
        }
        EXPECT_EQ(difference_text(before, after), "") << name;
    }
}

TEST(MatchOfPictures, ReportsMissingAndBrokenFiles) {
    const auto empty = std::filesystem::temp_directory_path() /
                       ("solvanta_shipped_" + std::to_string(std::random_device{}()));
    std::filesystem::create_directory(empty);
    write_file(empty / "Herz_1.bmp", {'B', 'M', 0, 0});
    write_file(empty / "diddle.jpg", {0xFF, 0xD8, 0xFF});
    write_file(empty / "skull.gif", {'G', 'I', 'F', '8'});
    write_file(empty / "Solvanta.ico", {0, 0, 1, 0, 9, 0});
    PartLibrary library(sources);
    EXPECT_EQ(mismatches(library, empty).size(), catalogue().size());
    std::filesystem::remove_all(empty);
}

}  // namespace
