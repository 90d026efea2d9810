#include "app/form2.h"

#include <iostream>

namespace solvanta {
namespace {

constexpr std::size_t size_limit = std::size_t{4} << 20;

}  // namespace

void Form2::load_help(FileCalls& files, const std::string& path) {
    std::string& text = RichTextBox1.TextRTF;
    text.clear();
    if (const std::error_code error = files.read(path, size_limit, text)) {
        std::cerr << "Solvanta: " << path << " kann nicht gelesen werden: " << error.message()
                  << '\n';
    } else if (!text.starts_with("{\\rtf")) {
        std::cerr << "Solvanta: " << path << " ist kein formatierter Text.\n";
        text.clear();
    }
}

}  // namespace solvanta
