#pragma once

#include <string>
#include <string_view>
#include <system_error>

namespace solvanta {

/// The files that the program reads and writes. Paths are UTF-8.
class Files {
  public:
    Files() = default;
    Files(const Files&) = delete;
    Files& operator=(const Files&) = delete;
    virtual ~Files() = default;

    /// Reads a regular file of at most `limit` bytes whole. A missing file is
    /// `no_such_file_or_directory`, a longer one `file_too_large`. After an error `bytes` is empty.
    virtual std::error_code read(const std::string& path, std::size_t limit,
                                 std::string& bytes) = 0;

    /// Puts `bytes` in the place of what the file holds, so that at every moment, a crash included,
    /// it holds the old content or the new one whole. After an error the next call may succeed.
    virtual std::error_code replace(const std::string& path, std::string_view bytes) = 0;
};

/// The files of the system the program runs on.
Files& system_files();

}  // namespace solvanta
