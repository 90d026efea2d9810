#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "files/file_calls.h"

namespace solvanta {
namespace {

std::error_code last_error() {
    return {errno, std::generic_category()};
}

std::error_code check(int result) {
    return result == 0 ? std::error_code{} : last_error();
}

template <typename Call>
auto retry_interrupted(const Call& call) {
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

/// The strongest flush the system offers: plain fsync leaves data in the drive's cache on macOS.
int flush_to_device(int file) {
#ifdef F_FULLFSYNC
    if (::fcntl(file, F_FULLFSYNC) == 0) return 0;
#endif
    return retry_interrupted([file] { return ::fsync(file); });
}

class OpenFile {
  public:
    OpenFile(const std::string& path, int flags)
        : file_(retry_interrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC); })) {}
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() {
        if (file_ >= 0) ::close(file_);
    }

    int get() const { return file_; }

  private:
    int file_;
};

std::error_code check_regular(int file, std::size_t& size) {
    struct stat status {};
    if (::fstat(file, &status) != 0) return last_error();
    if (S_ISDIR(status.st_mode)) return std::make_error_code(std::errc::is_a_directory);
    if (!S_ISREG(status.st_mode)) return std::make_error_code(std::errc::invalid_argument);
    size = static_cast<std::size_t>(status.st_size);
    return {};
}

/// After an error `bytes` may be anything.
std::error_code read_whole(int file, std::size_t limit, std::string& bytes) {
    std::size_t size = 0;
    if (const std::error_code error = check_regular(file, size)) return error;
    if (size > limit) return std::make_error_code(std::errc::file_too_large);
    std::size_t length = 0;
    bytes.resize(std::min(size + 1, limit));  // with room to meet the end in
    while (length < bytes.size()) {
        const ssize_t got = retry_interrupted(
            [&] { return ::read(file, bytes.data() + length, bytes.size() - length); });
        if (got < 0) return last_error();
        if (got == 0) break;
        length += static_cast<std::size_t>(got);
        if (length == bytes.size()) bytes.resize(std::min(2 * length, limit));
    }
    bytes.resize(length);
    return {};
}

class PosixCalls final : public FileCalls {
  public:
    std::error_code read(const std::string& path, std::size_t limit, std::string& bytes) override {
        // Without O_NONBLOCK a pipe of this name would hold up the program for ever.
        const OpenFile file(path, O_RDONLY | O_NONBLOCK);
        const std::error_code error =
            file.get() < 0 ? last_error() : read_whole(file.get(), limit, bytes);
        if (error) bytes.clear();
        return error;
    }

    std::error_code create(const std::string& path) override {
        constexpr mode_t read_write_all = 0666;  // what the player's umask leaves of it
        if (::unlink(path.c_str()) != 0 && errno != ENOENT) return last_error();
        file_ = retry_interrupted([&] {
            return ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, read_write_all);
        });
        return file_ < 0 ? last_error() : std::error_code{};
    }

    std::error_code open(const std::string& path) override {
        file_ = retry_interrupted(
            [&] { return ::open(path.c_str(), O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC); });
        if (file_ < 0) return last_error();
        std::size_t size = 0;
        const std::error_code error = check_regular(file_, size);
        if (error) close();
        return error;
    }

    std::error_code write(std::string_view bytes) override {
        while (!bytes.empty()) {
            const ssize_t written =
                retry_interrupted([&] { return ::write(file_, bytes.data(), bytes.size()); });
            if (written < 0) return last_error();
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        return {};
    }

    std::error_code cut() override {
        const off_t length = ::lseek(file_, 0, SEEK_CUR);
        if (length < 0) return last_error();
        return check(retry_interrupted([&] { return ::ftruncate(file_, length); }));
    }

    std::error_code flush() override { return check(flush_to_device(file_)); }

    std::error_code close() override {
        // Not retried: after an interruption the descriptor is gone all the same.
        const int result = ::close(file_);
        file_ = -1;
        return result == 0 || errno == EINTR ? std::error_code{} : last_error();
    }

    std::string resolve(const std::string& path) override {
        constexpr int most_links = 40;
        std::filesystem::path target = path;
        std::error_code error;
        for (int links = 0; links < most_links; ++links) {
            const std::filesystem::path next = std::filesystem::read_symlink(target, error);
            if (error) break;  // no link
            target = target.parent_path() / next;
        }
        return target.string();
    }

    std::error_code rename(const std::string& from, const std::string& to) override {
        struct stat old {};
        if (::stat(to.c_str(), &old) == 0) {
            // Not worth failing for: the list matters more than its permissions.
            [[maybe_unused]] const int result = ::chmod(from.c_str(), old.st_mode & 07777U);
        }
        return check(std::rename(from.c_str(), to.c_str()));
    }

    std::error_code remove(const std::string& path) override {
        return check(::unlink(path.c_str()));
    }

    std::error_code sync_directory_of(const std::string& path) override {
        const std::string directory = std::filesystem::path(path).parent_path().string();
        const OpenFile file(directory.empty() ? "." : directory, O_RDONLY | O_DIRECTORY);
        if (file.get() < 0) return last_error();
        const std::error_code error = check(flush_to_device(file.get()));
        // Some file systems can't flush a directory and say so; there is nothing more to do then.
        return error == std::errc::invalid_argument ? std::error_code{} : error;
    }

  private:
    int file_ = -1;
};

}  // namespace

FileCalls& system_file_calls() {
    static PosixCalls calls;
    return calls;
}

}  // namespace solvanta
