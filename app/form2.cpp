#include "app/form2.h"

#include "platform/trouble.h"

namespace solvanta {
namespace {

constexpr std::size_t size_limit = std::size_t{4} << 20;

}  // namespace

void Form2::load_help(Files& files, const std::string& path) {
    std::string& text = RichTextBox1.TextRTF;
    text.clear();
    if (const std::error_code error = files.read(path, size_limit, text)) {
        report_trouble(path + " kann nicht gelesen werden: " + error.message());
    } else if (!text.starts_with("{\\rtf")) {
        report_trouble(path + " ist kein formatierter Text.");
        text.clear();
    }
}

}  // namespace solvanta
