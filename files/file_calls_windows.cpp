#include <algorithm>
#include <initializer_list>
#include <utility>

#include <windows.h>

#include "files/file_calls.h"
#include "files/windows_error.h"
#include "text/windows_text.h"

namespace solvanta {
namespace {

std::error_code last_error() {
    return windows_error(GetLastError());
}

std::error_code check(BOOL succeeded) {
    return succeeded == FALSE ? last_error() : std::error_code{};
}

/// Virus scanners and indexers open a file for a moment just after it was written. Repeats `call`
/// while it fails with one of `passing` errors, for a quarter of a second at most.
template <typename Call>
std::error_code retry_while(std::initializer_list<DWORD> passing, const Call& call) {
    constexpr ULONGLONG patience_ms = 250;
    constexpr DWORD pause_ms = 10;
    const ULONGLONG start = GetTickCount64();
    for (;;) {
        if (call()) return {};
        const DWORD error = GetLastError();
        const bool passes = std::find(passing.begin(), passing.end(), error) != passing.end();
        if (!passes || GetTickCount64() - start >= patience_ms) return windows_error(error);
        Sleep(pause_ms);
    }
}

class FileHandle {
  public:
    explicit FileHandle(HANDLE file) : file_(file) {}
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;
    ~FileHandle() {
        if (is_open()) CloseHandle(file_);
    }

    bool is_open() const { return file_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return file_; }

  private:
    HANDLE file_;
};

std::error_code check_size(HANDLE file, std::size_t limit, std::size_t& size) {
    if (GetFileType(file) != FILE_TYPE_DISK) return windows_error(ERROR_INVALID_PARAMETER);
    LARGE_INTEGER length{};
    if (GetFileSizeEx(file, &length) == FALSE) return last_error();
    if (length.QuadPart > static_cast<LONGLONG>(limit)) return windows_error(ERROR_FILE_TOO_LARGE);
    size = static_cast<std::size_t>(length.QuadPart);
    return {};
}

std::error_code read_all(HANDLE file, std::string& bytes) {
    std::size_t length = 0;
    while (length < bytes.size()) {
        DWORD got = 0;
        const auto wanted = static_cast<DWORD>(bytes.size() - length);
        if (ReadFile(file, bytes.data() + length, wanted, &got, nullptr) == FALSE) {
            return last_error();
        }
        if (got == 0) break;
        length += got;
    }
    bytes.resize(length);
    return {};
}

constexpr DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// The attributes that a player may have set on a file, none where there is no file.
DWORD player_attributes(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return 0;
    return attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
}

void set_player_attributes(const std::wstring& path, DWORD attributes) {
    SetFileAttributesW(path.c_str(), attributes | FILE_ATTRIBUTE_ARCHIVE);
}

class WindowsCalls final : public FileCalls {
  public:
    std::error_code read(const std::string& path, std::size_t limit, std::string& bytes) override {
        bytes.clear();
        HANDLE handle = INVALID_HANDLE_VALUE;
        std::error_code error = retry_while({ERROR_SHARING_VIOLATION}, [&] {
            handle = CreateFileW(system_path(path).c_str(), GENERIC_READ, shared, nullptr,
                                 OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
            return handle != INVALID_HANDLE_VALUE;
        });
        if (error) return error;
        const FileHandle file(handle);
        std::size_t size = 0;
        error = check_size(file.get(), limit, size);
        if (error) return error;
        std::string buffer(size, '\0');
        error = read_all(file.get(), buffer);
        if (!error) bytes = std::move(buffer);
        return error;
    }

    std::error_code create(const std::string& path) override {
        // A file left over may be read-only, or a link to a file that is not to be written. While
        // somebody still has it open, its name can't be used again.
        const bool left_over = !remove(path);
        const DWORD passing = left_over ? ERROR_ACCESS_DENIED : ERROR_SHARING_VIOLATION;
        return retry_while({passing}, [&] {
            file_ = CreateFileW(system_path(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                FILE_ATTRIBUTE_NORMAL, nullptr);
            return file_ != INVALID_HANDLE_VALUE;
        });
    }

    std::error_code open(const std::string& path) override {
        const std::error_code error = retry_while({ERROR_SHARING_VIOLATION}, [&] {
            file_ = CreateFileW(system_path(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
            return file_ != INVALID_HANDLE_VALUE;
        });
        if (error || GetFileType(file_) == FILE_TYPE_DISK) return error;
        close();
        return std::make_error_code(std::errc::invalid_argument);
    }

    std::error_code write(std::string_view bytes) override {
        constexpr std::size_t largest_piece = std::size_t{1} << 20;
        while (!bytes.empty()) {
            DWORD written = 0;
            const auto size = static_cast<DWORD>(std::min(bytes.size(), largest_piece));
            if (WriteFile(file_, bytes.data(), size, &written, nullptr) == FALSE) {
                return last_error();
            }
            bytes.remove_prefix(written);
        }
        return {};
    }

    std::error_code cut() override { return check(SetEndOfFile(file_)); }

    std::error_code flush() override { return check(FlushFileBuffers(file_)); }

    std::error_code close() override {
        return check(CloseHandle(std::exchange(file_, INVALID_HANDLE_VALUE)));
    }

    std::string resolve(const std::string& path) override {
        const std::wstring link = system_path(path);
        const DWORD attributes = GetFileAttributesW(link.c_str());
        const bool is_link = attributes != INVALID_FILE_ATTRIBUTES &&
                             (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
        if (!is_link) return path;
        const FileHandle file(CreateFileW(link.c_str(), 0, shared, nullptr, OPEN_EXISTING,
                                          FILE_FLAG_BACKUP_SEMANTICS, nullptr));
        if (!file.is_open()) return path;
        std::wstring target(GetFinalPathNameByHandleW(file.get(), nullptr, 0, 0), L'\0');
        const DWORD length = GetFinalPathNameByHandleW(file.get(), target.data(),
                                                       static_cast<DWORD>(target.size()), 0);
        if (length == 0 || length >= target.size()) return path;
        target.resize(length);
        return to_utf8(target);
    }

    std::error_code rename(const std::string& from, const std::string& to) override {
        const std::wstring source = system_path(from);
        const std::wstring target = system_path(to);
        const DWORD attributes = player_attributes(target);
        const bool read_only = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
        set_player_attributes(source, attributes);
        if (read_only) set_player_attributes(target, 0);
        const std::error_code error =
            retry_while({ERROR_ACCESS_DENIED, ERROR_SHARING_VIOLATION, ERROR_LOCK_VIOLATION}, [&] {
                return MoveFileExW(source.c_str(), target.c_str(),
                                   MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
            });
        if (error && read_only) set_player_attributes(target, attributes);
        return error;
    }

    std::error_code remove(const std::string& path) override {
        const std::wstring file = system_path(path);
        if (player_attributes(file) != 0) set_player_attributes(file, 0);
        return check(DeleteFileW(file.c_str()));
    }

    /// The renaming itself returns only once it is on the device.
    std::error_code sync_directory_of(const std::string& /*path*/) override { return {}; }

  private:
    HANDLE file_ = INVALID_HANDLE_VALUE;
};

}  // namespace

FileCalls& system_file_calls() {
    static WindowsCalls calls;
    return calls;
}

}  // namespace solvanta
