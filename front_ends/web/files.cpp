#include "front_ends/web/files.h"

#include "front_ends/web/border.h"
#include "front_ends/web/fetching.h"

namespace solvanta::web {

void WebFiles::fetch_copy(const std::string& path) {
    fetch(path, [this, path](const std::string* bytes) {
        if (bytes) copies_[path] = *bytes;
    });
}

/// A copy read is fetched anew, so that the next reading has what the server holds by then.
std::error_code WebFiles::read(const std::string& path, std::size_t limit, std::string& bytes) {
    bytes.clear();
    if (const auto copy = copies_.find(path); copy != copies_.end()) {
        bytes = copy->second;
        fetch_copy(path);
    } else {
        char* block = nullptr;
        const int length = page_stored(path.c_str(), &block);
        constexpr int forbidden = -2;
        if (length == forbidden) return std::make_error_code(std::errc::permission_denied);
        if (length < 0) return std::make_error_code(std::errc::no_such_file_or_directory);
        bytes.assign(block, static_cast<std::size_t>(length));
        std::free(block);
    }
    if (bytes.size() <= limit) return {};
    bytes.clear();
    return std::make_error_code(std::errc::file_too_large);
}

std::error_code WebFiles::create(const std::string& path) {
    writing_ = &written_[path];
    writing_->clear();
    return {};
}

std::error_code WebFiles::open(const std::string& /*path*/) {
    return std::make_error_code(std::errc::permission_denied);
}

std::error_code WebFiles::write(std::string_view bytes) {
    *writing_ += bytes;
    return {};
}

std::error_code WebFiles::rename(const std::string& from, const std::string& to) {
    const std::string& bytes = written_.at(from);
    const int trouble = page_store(to.c_str(), bytes.data(), bytes.size());
    if (trouble != 0) {
        return std::make_error_code(trouble == 1 ? std::errc::no_space_on_device
                                                 : std::errc::permission_denied);
    }
    written_.erase(from);
    return {};
}

std::error_code WebFiles::remove(const std::string& path) {
    written_.erase(path);
    return {};
}

}  // namespace solvanta::web
