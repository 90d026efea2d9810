// draw_pictures SOURCE_DIR OUT_DIR              renders every picture file of the program
// draw_pictures --check SOURCE_DIR SHIPPED_DIR  lists the shipped files that the sources do not
//                                               give, and ends with 1 if there are any
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "catalogue.h"
#include "files.h"
#include "match.h"

namespace {

using namespace solvanta::pictures;

int render_all(const std::filesystem::path& source, const std::filesystem::path& out) {
    PartLibrary library(source);
    std::filesystem::create_directories(out);
    for (const PictureFile& file : catalogue()) {
        write_file(out / file.name, render(file, library));
    }
    return 0;
}

int check_all(const std::filesystem::path& source, const std::filesystem::path& shipped) {
    PartLibrary library(source);
    const std::vector<std::string> lines = mismatches(library, shipped);
    for (const std::string& line : lines) {
        std::cout << line << '\n';
    }
    return lines.empty() ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    try {
        if (arguments.size() == 2 && !arguments[0].starts_with("--")) {
            return render_all(arguments[0], arguments[1]);
        }
        if (arguments.size() == 3 && arguments[0] == "--check") {
            return check_all(arguments[1], arguments[2]);
        }
    } catch (const std::exception& trouble) {
        std::cerr << "draw_pictures: " << trouble.what() << '\n';
        return 2;
    }
    std::cerr << "use: draw_pictures [--check] SOURCE_DIR PICTURE_DIR\n";
    return 2;
}
