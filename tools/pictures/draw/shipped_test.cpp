// Holds the shipped picture files to what the table and the player need of them.
#include <algorithm>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <utility>

#include <gtest/gtest.h>

#include "catalogue.h"
#include "files.h"
#include "ico.h"

namespace {

using namespace solvanta::pictures;

const std::filesystem::path shipped = SOLVANTA_SHIPPED_PICTURES;

Image load(const std::string& stem, int scale = 1, const std::string& ending = ".bmp") {
    const std::string name = stem + (scale == 1 ? ending : "@" + std::to_string(scale) + "x.png");
    return decode(name, read_file(shipped / name)).front();
}

std::set<std::string> faces() {
    std::set<std::string> names;
    for (const std::string suit : {"Herz_", "Pick_", "Karo_", "Kreuz_"}) {
        for (const char* rank : {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "B", "D", "K"})
            names.insert(suit + rank);
    }
    return names;
}

TEST(ShippedPictures, HaveTheirFormatsAndNoCornersOnTheTable) {
    std::map<std::string, std::tuple<std::string, int, int>> formats{
        {"Leer", {".bmp", 72, 96}},         {"Back_ganz", {".bmp", 72, 96}},
        {"Back_verdeckt", {".bmp", 72, 8}}, {"zeiger", {".bmp", 45, 24}},
        {"diddle", {".jpg", 228, 242}},     {"skull", {".gif", 188, 140}}};
    for (const std::string& face : faces())
        formats[face] = formats["Leer"];
    for (const auto& [stem, format] : formats) {
        const auto& [ending, width, height] = format;
        for (int scale = 1; scale <= largest_scale; ++scale) {
            const Image image = load(stem, scale, ending);
            ASSERT_TRUE(image.width == width * scale && image.height == height * scale) << stem;
            for (const int x : {0, image.width - 1}) {
                const Pixel& corner = image.at(x, image.height - 1);
                EXPECT_TRUE(height != 96 || (corner == table_green && image.at(x, 0) == corner))
                    << stem;
                EXPECT_EQ(corner.alpha, stem == "zeiger" ? 0 : 255) << stem;
            }
        }
    }
}

TEST(ShippedPictures, IconHoldsEverySizeAndThe256Colours) {
    using Kinds = std::set<std::pair<int, unsigned>>;
    Kinds found;
    for (const IconEntry& entry : decode_ico(read_file(shipped / "Solvanta.ico"))) {
        found.insert({entry.image.width, entry.bits_per_pixel});
        EXPECT_EQ(entry.image.at(0, 0).alpha, 0);
    }
    EXPECT_EQ(
        found,
        (Kinds{{16, 32}, {24, 32}, {32, 32}, {48, 8}, {48, 32}, {64, 32}, {128, 32}, {256, 32}}));
}

TEST(ShippedPictures, StripsTellTheirCardsInGreyAndAreTheBacksTop) {
    std::set<std::string> strips;
    for (const std::string& face : faces()) {
        const Image card = load(face);
        std::string strip;  // what a card beneath others shows
        for (int place = 0; place < 16 * card.width; ++place)
            strip += static_cast<char>(grey_of(card.pixels[std::size_t(place)]));
        EXPECT_TRUE(strips.insert(strip).second) << face;
    }
    for (int scale = 1; scale <= largest_scale; ++scale) {
        const Image back = load("Back_ganz", scale);
        const Image strip = load("Back_verdeckt", scale);
        EXPECT_TRUE(std::equal(strip.pixels.begin(), strip.pixels.end(), back.pixels.begin()));
    }
}

}  // namespace
