// Holds the shipped picture files to what the table and the player need of them.
#include <algorithm>
#include <array>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "bmp.h"
#include "catalogue.h"
#include "codecs.h"
#include "files.h"
#include "ico.h"

namespace {

using namespace solvanta::pictures;

const std::filesystem::path shipped = SOLVANTA_SHIPPED_PICTURES;
const std::array<std::string, 4> suits{"Herz", "Pick", "Karo", "Kreuz"};
const std::array<std::string, 13> ranks{"1", "2", "3",  "4", "5", "6", "7",
                                        "8", "9", "10", "B", "D", "K"};

// A face-up card beneath others shows its top 16 rows; the index must end within 15.
constexpr int index_rows = 15;
constexpr int index_columns = 27;

struct Format {
    int width = 0;
    int height = 0;
    unsigned bits = 0;  // of BMP files
};

Image load(const std::string& name) {
    return decode(name, read_file(shipped / name)).front();
}

std::vector<std::string> face_stems() {
    std::vector<std::string> stems;
    for (const std::string& suit : suits) {
        for (const std::string& rank : ranks) {
            stems.push_back(suit + "_" + rank);
        }
    }
    return stems;
}

std::map<std::string, Format> formats_at(const std::string& suffix, int scale) {
    std::map<std::string, Format> formats{
        {"Leer" + suffix + ".bmp", {72, 96, 24}},
        {"Back_ganz" + suffix + ".bmp", {72, 96, 24}},
        {"Back_verdeckt" + suffix + ".bmp", {72, 8, 24}},
        {"zeiger" + suffix + ".bmp", {45, 24, 32}},
        {"diddle" + suffix + ".jpg", {228, 242, 0}},
        {"skull" + suffix + ".gif", {188, 140, 0}},
    };
    for (const std::string& stem : face_stems()) {
        formats[stem + suffix + ".bmp"] = {72, 96, 24};
    }
    for (auto& [name, format] : formats) {
        format.width *= scale;
        format.height *= scale;
    }
    return formats;
}

std::map<std::string, Format> all_formats() {
    std::map<std::string, Format> formats = formats_at("", 1);
    formats.merge(formats_at("@2x", 2));
    for (const int side : {16, 24, 32, 48, 64, 128}) {
        formats["Solvanta-" + std::to_string(side) + ".png"] = {side, side, 0};
    }
    formats["Solvanta.png"] = {256, 256, 0};
    return formats;
}

TEST(ShippedPictures, AreAllThereInTheirFormats) {
    for (const auto& [name, format] : all_formats()) {
        SCOPED_TRACE(name);
        const Bytes bytes = read_file(shipped / name);
        const Image image = decode(name, bytes).front();
        EXPECT_EQ(image.width, format.width);
        EXPECT_EQ(image.height, format.height);
        if (format.bits != 0) {
            EXPECT_EQ(read_bmp_header(bytes).bits_per_pixel, format.bits);
        }
    }
}

TEST(ShippedPictures, HaveNoStrayFilesBesideThem) {
    std::set<std::string> expected{"Solvanta.ico"};
    for (const auto& [name, format] : all_formats()) {
        expected.insert(name);
    }
    std::set<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(shipped)) {
        const std::string ending = entry.path().extension().string();
        if (ending == ".bmp" || ending == ".jpg" || ending == ".gif" || ending == ".png" ||
            ending == ".ico") {
            found.insert(entry.path().filename().string());
        }
    }
    EXPECT_EQ(found, expected);
}

TEST(ShippedPictures, IconHoldsEverySizeAndThe256Colours) {
    std::set<std::pair<int, unsigned>> found;
    for (const IconEntry& entry : decode_ico(read_file(shipped / "Solvanta.ico"))) {
        found.insert({entry.image.width, entry.bits_per_pixel});
        const auto visible = std::count_if(entry.image.pixels.begin(), entry.image.pixels.end(),
                                           [](const Pixel& pixel) { return pixel.alpha > 127; });
        EXPECT_GT(visible * 3, entry.image.width * entry.image.width);
        EXPECT_EQ(entry.image.at(0, 0).alpha, 0);
    }
    const std::set<std::pair<int, unsigned>> expected{{16, 32}, {24, 32}, {32, 32},  {48, 8},
                                                      {48, 32}, {64, 32}, {128, 32}, {256, 32}};
    EXPECT_EQ(found, expected);
}

TEST(ShippedPictures, PointerHasHolesAndASolidHeart) {
    for (const char* name : {"zeiger.bmp", "zeiger@2x.bmp"}) {
        const Image pointer = load(name);
        EXPECT_EQ(read_bmp_header(read_file(shipped / name)).alpha_mask, 0xFF000000U);
        EXPECT_EQ(pointer.at(0, 0).alpha, 0);
        EXPECT_EQ(pointer.at(pointer.width - 1, pointer.height - 1).alpha, 0);
        EXPECT_EQ(pointer.at(pointer.width / 2, pointer.height / 2).alpha, 255);
    }
}

TEST(ShippedPictures, CornersAreTheTablesGreen) {
    std::vector<std::string> stems = face_stems();
    stems.insert(stems.end(), {"Leer", "Back_ganz"});
    for (const std::string& stem : stems) {
        for (const char* suffix : {".bmp", "@2x.bmp"}) {
            const Image card = load(stem + suffix);
            for (const int x : {0, card.width - 1}) {
                for (const int y : {0, card.height - 1}) {
                    EXPECT_EQ(card.at(x, y), table_green) << stem << suffix;
                }
            }
        }
    }
}

TEST(ShippedPictures, BackStripIsTheTopOfTheBackCutAtAPlainRow) {
    for (const char* suffix : {".bmp", "@2x.bmp"}) {
        const Image whole = load(std::string("Back_ganz") + suffix);
        const Image strip = load(std::string("Back_verdeckt") + suffix);
        for (int y = 0; y < strip.height; ++y) {
            for (int x = 0; x < strip.width; ++x) {
                ASSERT_EQ(strip.at(x, y), whole.at(x, y)) << suffix << " " << x << "," << y;
            }
        }
        const int margin = strip.width / 8;
        for (int x = margin; x < strip.width - margin; ++x) {
            ASSERT_EQ(strip.at(x, strip.height - 1), strip.at(margin, strip.height - 1))
                << suffix << " " << x;
        }
    }
}

int strip_difference(const Image& first, const Image& second) {
    constexpr int clear_step = 64;
    int pixels = 0;
    for (int y = 0; y < index_rows; ++y) {
        for (int x = 0; x < index_columns; ++x) {
            const int step = grey_of(first.at(x, y)) - grey_of(second.at(x, y));
            pixels += step > clear_step || step < -clear_step ? 1 : 0;
        }
    }
    return pixels;
}

TEST(ShippedPictures, EveryPairOfStripsDiffersClearlyInGrey) {
    constexpr int fewest_pixels = 15;
    const std::vector<std::string> stems = face_stems();
    std::vector<Image> faces;
    for (const std::string& stem : stems) {
        faces.push_back(load(stem + ".bmp"));
    }
    int fewest = index_rows * index_columns;
    std::string closest;
    for (std::size_t i = 0; i < faces.size(); ++i) {
        for (std::size_t j = i + 1; j < faces.size(); ++j) {
            const int pixels = strip_difference(faces[i], faces[j]);
            if (pixels < fewest) {
                fewest = pixels;
                closest = stems[i] + " and " + stems[j];
            }
        }
    }
    EXPECT_GE(fewest, fewest_pixels) << closest;
    RecordProperty("closest_pair", closest + ": " + std::to_string(fewest) + " pixels");
}

TEST(ShippedPictures, IndexStandsFreeWithinTheStrip) {
    for (const std::string& suit : suits) {
        for (const std::string& rank : ranks) {
            const Image face = load(suit + "_" + rank + ".bmp");
            const Pixel paper = face.at(3, 20);
            for (int x = 4; x < index_columns; ++x) {
                for (const int y : {1, 2, index_rows, index_rows + 1}) {
                    EXPECT_LT(contrast_ratio(face.at(x, y), paper), 1.2)
                        << suit << "_" << rank << " " << x << "," << y;
                }
            }
        }
    }
}

// The renderer shades an edge and the same edge turned by up to this step of grey differently.
constexpr int edge_noise = 24;

TEST(ShippedPictures, IndexIsRepeatedTurnedAtTheBottomRight) {
    for (const std::string& stem : face_stems()) {
        const Image face = load(stem + ".bmp");
        int different = 0;
        for (int y = 0; y < index_rows; ++y) {
            for (int x = 0; x < index_columns; ++x) {
                const Pixel& turned = face.at(face.width - 1 - x, face.height - 1 - y);
                different +=
                    std::abs(grey_of(face.at(x, y)) - grey_of(turned)) > edge_noise ? 1 : 0;
            }
        }
        EXPECT_EQ(different, 0) << stem;
    }
}

TEST(ShippedPictures, CourtsAreTwoHeaded) {
    for (const std::string& suit : suits) {
        for (const char* rank : {"B", "D", "K"}) {
            const Image face = load(suit + "_" + rank + ".bmp");
            Image turned = face;
            std::reverse(turned.pixels.begin(), turned.pixels.end());
            const Difference difference = compare(face, turned);
            EXPECT_LT(difference.changed, face.pixels.size() / 100) << suit << "_" << rank;
        }
    }
}

// The commonest colour of the index that is not paper.
Pixel ink_of(const std::string& stem) {
    const Image face = load(stem + ".bmp");
    const Pixel paper = face.at(3, 20);
    std::map<std::array<std::uint8_t, 3>, int> counts;
    for (int y = 2; y < index_rows; ++y) {
        for (int x = 3; x < index_columns; ++x) {
            const Pixel& pixel = face.at(x, y);
            if (!(pixel == paper)) {
                ++counts[{pixel.red, pixel.green, pixel.blue}];
            }
        }
    }
    const auto commonest =
        std::max_element(counts.begin(), counts.end(),
                         [](const auto& a, const auto& b) { return a.second < b.second; });
    return {commonest->first[0], commonest->first[1], commonest->first[2], 255};
}

int colour_step(const Pixel& first, const Pixel& second) {
    return std::abs(first.red - second.red) + std::abs(first.green - second.green) +
           std::abs(first.blue - second.blue);
}

TEST(ShippedPictures, InksAreReadableAndSuitsOfOneColourDiffer) {
    std::map<std::string, Pixel> inks;
    for (const std::string& suit : suits) {
        inks[suit] = ink_of(suit + "_8");
        const double ratio = contrast_ratio(inks[suit], load(suit + "_8.bmp").at(3, 20));
        EXPECT_GE(ratio, 4.5) << suit;
        RecordProperty("contrast_" + suit, std::to_string(ratio));
    }
    EXPECT_GE(colour_step(inks["Herz"], inks["Karo"]), 60);
    EXPECT_GE(colour_step(inks["Pick"], inks["Kreuz"]), 60);
}

TEST(ShippedPictures, SkullStandsOnTheTablesGreen) {
    for (const char* name : {"skull.gif", "skull@2x.gif"}) {
        const Image skull = load(name);
        for (const int x : {0, skull.width - 1}) {
            EXPECT_EQ(skull.at(x, 0), table_green) << name;
            EXPECT_EQ(skull.at(x, skull.height - 1), table_green) << name;
        }
    }
}

}  // namespace
