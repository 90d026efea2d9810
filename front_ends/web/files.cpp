#include "front_ends/web/files.h"

#include <utility>

#include "front_ends/web/border.h"

namespace solvanta::web {
namespace {

std::error_code read_stored(const std::string& path, std::string& bytes) {
    constexpr int forbidden = -2;
    char* block = nullptr;
    const int length = page_stored(path.c_str(), &block);
    if (length == forbidden) return std::make_error_code(std::errc::permission_denied);
    if (length < 0) return std::make_error_code(std::errc::no_such_file_or_directory);
    bytes.assign(block, static_cast<std::size_t>(length));
    std::free(block);
    return {};
}

}  // namespace

WebFiles::WebFiles(std::string help) : help_path_(std::move(help)) {
    fetch_help();
}

void WebFiles::fetch_help() {
    fetch(help_path_, [this](const PageEvent& event) {
        if (event.bytes) help_ = event.bytes;
    });
}

std::error_code WebFiles::read(const std::string& path, std::size_t limit, std::string& bytes) {
    bytes.clear();
    if (path == help_path_ && help_) {
        bytes = *help_;
        fetch_help();
    } else if (const std::error_code error = read_stored(path, bytes)) {
        tell_whether_kept(error == std::errc::no_such_file_or_directory);
        return error;
    }
    if (bytes.size() <= limit) return {};
    bytes.clear();
    return std::make_error_code(std::errc::file_too_large);
}

std::error_code WebFiles::replace(const std::string& path, std::string_view bytes) {
    const int trouble = page_store(path.c_str(), bytes.data(), bytes.size());
    tell_whether_kept(trouble == 0);
    if (trouble == 0) return {};
    return std::make_error_code(trouble == 1 ? std::errc::no_space_on_device
                                             : std::errc::permission_denied);
}

void WebFiles::tell_whether_kept(bool kept) {
    if (std::exchange(is_kept_, kept) == kept) return;
    note_.say(kept ? "" : "Der Browser behält die Bestzeiten nur, solange diese Seite offen ist.");
}

}  // namespace solvanta::web
