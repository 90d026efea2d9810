// Holds the comparison of sources and shipped files to noticing what an artist would change.
#include "match.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "catalogue.h"
#include "files.h"

namespace {

using namespace solvanta::pictures;

const std::filesystem::path sources = SOLVANTA_PICTURE_SOURCES;
const std::filesystem::path shipped = SOLVANTA_SHIPPED_PICTURES;

class MatchOfPictures : public testing::Test {
  protected:
    MatchOfPictures() { std::filesystem::create_directory(folder_); }
    ~MatchOfPictures() override { std::filesystem::remove_all(folder_); }

    std::filesystem::path folder_ = std::filesystem::temp_directory_path() /
                                    ("solvanta_" + std::to_string(std::random_device{}()));
};

TEST_F(MatchOfPictures, NoticesAMovedDrawingAndAnotherColour) {
    std::filesystem::copy(sources, folder_);
    const std::string corner = "viewBox=\"0";
    const std::string moved = "viewBox=\"-0.4";
    const std::array<std::string, 4> edits[] = {
        {"Pick_10.bmp", "suit_pick", "#14162c", "#222438"},
        {"Herz_7.bmp", "suit_herz", corner, moved},
        {"Kreuz_9@2x.bmp", "index_9", corner, moved},
        {"Karo_D.bmp", "court_karo_D", corner, moved},
        {"Back_verdeckt.bmp", "back", corner, moved},
        {"diddle.jpg", "win", corner, moved},
        {"skull.gif", "skull", corner, moved},
        {"Solvanta.ico", "icon", corner, moved},
    };
    for (const auto& [file, part, old_text, text] : edits) {
        const auto path = folder_ / (part + ".svg");
        const Bytes bytes = read_file(path);
        std::string edited(bytes.begin(), bytes.end());
        edited.replace(edited.find(old_text), old_text.size(), text);
        write_file(path, Bytes(edited.begin(), edited.end()));
    }
    PartLibrary library(folder_);
    std::string reported;
    for (const std::string& line : mismatches(library, shipped))
        reported += line + '\n';
    for (const auto& change : edits)
        EXPECT_NE(reported.find(change[0] + ": "), std::string::npos) << change[0];
    EXPECT_EQ(reported.find("Kreuz_8"), std::string::npos) << reported;
}

TEST_F(MatchOfPictures, ForgivesAnotherShadingOfPixels) {
    std::mt19937 random(7);
    for (const std::string name :
         {"Herz_K.bmp", "Back_ganz@2x.bmp", "diddle.jpg", "Solvanta.ico"}) {
        const auto before = decode(name, read_file(shipped / name));
        auto after = before;
        for (Image& image : after) {
            for (Pixel& pixel : image.pixels) {
                const int step = static_cast<int>(random() % 11) - 5;
                for (std::uint8_t* channel : {&pixel.red, &pixel.green})
                    *channel = static_cast<std::uint8_t>(std::clamp(*channel + step, 0, 255));
            }
        }
        EXPECT_EQ(difference_text(before, after), "") << name;
    }
}

TEST_F(MatchOfPictures, ReportsMissingAndBrokenFiles) {
    for (const char* name : {"Herz_1.bmp", "diddle.jpg", "skull.gif", "Solvanta.ico"}) {
        Bytes bytes = read_file(shipped / name);
        bytes.resize(bytes.size() / 2);
        write_file(folder_ / name, bytes);
    }
    PartLibrary library(sources);
    EXPECT_EQ(mismatches(library, folder_).size(), catalogue().size());
}

}  // namespace
