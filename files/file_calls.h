#pragma once

#include <string>
#include <string_view>
#include <system_error>

namespace solvanta {

/// The system calls that reading and durable replacement need, one step each. Paths are UTF-8.
/// Of a file being written there is one at a time: `create` or `open` begins it, `close` ends it.
class FileCalls {
  public:
    FileCalls() = default;
    FileCalls(const FileCalls&) = delete;
    FileCalls& operator=(const FileCalls&) = delete;
    virtual ~FileCalls() = default;

    /// As `Files::read`.
    virtual std::error_code read(const std::string& path, std::size_t limit,
                                 std::string& bytes) = 0;

    /// Creates the file to be written, new and empty; a file, a link or a pipe of this name goes
    /// first, so that nothing outside the directory is ever written.
    virtual std::error_code create(const std::string& path) = 0;
    /// Begins to write over an existing regular file from its start. What it holds beyond the
    /// bytes written stays until `cut`.
    virtual std::error_code open(const std::string& path) = 0;
    virtual std::error_code write(std::string_view bytes) = 0;
    /// Ends the file behind what was written.
    virtual std::error_code cut() = 0;
    /// Returns once the device holds what was written.
    virtual std::error_code flush() = 0;
    /// Ends the writing, whatever came before.
    virtual std::error_code close() = 0;

    /// The file that `path` leads to through symbolic links, whether or not it is there; `path`
    /// itself where there are none.
    virtual std::string resolve(const std::string& path) = 0;

    /// Puts `from` in the place of `to` in one step: `to` is the old file or the new one, never
    /// something between. It keeps the permissions of `to` where there was one.
    virtual std::error_code rename(const std::string& from, const std::string& to) = 0;
    virtual std::error_code remove(const std::string& path) = 0;
    /// Makes the renaming of the file at `path` survive a power failure.
    virtual std::error_code sync_directory_of(const std::string& path) = 0;
};

/// The system's own calls.
FileCalls& system_file_calls();

}  // namespace solvanta
