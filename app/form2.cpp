#include "app/form2.h"

#include <string_view>

#include "platform/trouble.h"

namespace solvanta {
namespace {

constexpr std::size_t size_limit = std::size_t{4} << 20;

constexpr const char* no_help =
    R"({\rtf1\ansi{\fonttbl{\f0\fswiss Arial;}}\f0\b0\fs20 )"
    R"(Die Hilfe kann nicht angezeigt werden: Help.rtf fehlt oder ist besch\'e4digt.})";

/// Whether bytes are formatted text up to its last brace.
bool is_whole_document(std::string_view bytes) {
    if (!bytes.starts_with("{\\rtf")) return false;
    int depth = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] == '\\') {
            ++i;  // what follows is no brace of the document's
        } else if (bytes[i] == '{') {
            ++depth;
        } else if (bytes[i] == '}' && --depth == 0) {
            return true;
        }
    }
    return false;
}

}  // namespace

void Form2::load_help(Files& files, const std::string& path) {
    std::string& text = RichTextBox1.TextRTF;
    const std::error_code error = files.read(path, size_limit, text);
    if (!error && is_whole_document(text)) return;
    report_trouble(path + (error ? " kann nicht gelesen werden: " + error.message()
                                 : " ist kein formatierter Text."));
    text = no_help;
}

}  // namespace solvanta
