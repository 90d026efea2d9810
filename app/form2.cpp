#include "app/form2.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

namespace solvanta {

void Form2::load_help(const std::string& path) {
    const std::u8string name(path.begin(), path.end());
    std::ifstream file(std::filesystem::path(name), std::ios::binary);
    RichTextBox1.TextRTF.assign(std::istreambuf_iterator<char>(file), {});
    if (!RichTextBox1.TextRTF.starts_with("{\\rtf")) {
        RichTextBox1.TextRTF.clear();
        std::cerr << "Solvanta: " << path << " kann nicht gelesen werden.\n";
    }
}

}  // namespace solvanta
