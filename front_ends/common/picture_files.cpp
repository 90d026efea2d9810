#include "front_ends/common/picture_files.h"

#include <algorithm>

#include "files/files.h"
#include "front_ends/common/picture_bytes.h"
#include "front_ends/common/trouble.h"

namespace solvanta {
namespace {

/// The place of the full stop before a path's suffix; the path's length without one.
std::size_t end_of_stem(const std::string& path) {
    const std::size_t name = path.size() - file_name(path).size();
    const std::size_t dot = path.rfind('.');
    return dot == std::string::npos || dot < name ? path.size() : dot;
}

char to_lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

}  // namespace

std::string file_name(const std::string& path) {
    return path.substr(path.find_last_of(R"(/\)") + 1);
}

std::string suffix_of(const std::string& path) {
    std::string suffix = path.substr(std::min(end_of_stem(path) + 1, path.size()));
    std::transform(suffix.begin(), suffix.end(), suffix.begin(), to_lower);
    return suffix;
}

std::string larger_file(const std::string& path, int times) {
    return path.substr(0, end_of_stem(path)) + '@' + std::to_string(times) + "x.png";
}

void report_picture(const std::string& path, bool missing) {
    const std::string trouble = missing ? "Bild nicht gefunden" : "Bild nicht lesbar";
    report_once(path, trouble + " (" + path + ")");
}

bool read_picture(const std::string& path, bool optional, std::string& bytes) {
    const std::error_code error = system_files().read(path, largest_picture_file, bytes);
    const bool missing = error == std::errc::no_such_file_or_directory;
    if (missing && optional) return false;
    const bool whole = !error && is_whole_picture(bytes, suffix_of(path));
    if (!whole) report_picture(path, missing);
    return whole;
}

}  // namespace solvanta
