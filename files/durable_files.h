#pragma once

#include "files/file_calls.h"
#include "files/files.h"

namespace solvanta {

/// Files that survive crashes and power failures, by the calls of a system.
///
/// `replace` follows links to the file that is meant. The new content goes to its path + ".tmp"
/// first, which is never read as data. On an error the old file is untouched and the temporary one
/// removed, except that after a failed directory sync the new file is already in place.
///
/// Where the directory lets no new file be made or put in the place of the old one, and the old one
/// may be read and written, it is written in place as the last resort: the new content over the
/// old, flushed, then the rest of the old cut off. A crash within the write itself can then leave a
/// mixture of both. On an error the old content is put back as far as the system allows.
class DurableFiles final : public Files {
  public:
    /// `calls` must outlive this object.
    explicit DurableFiles(FileCalls& calls) : calls_(calls) {}

    std::error_code read(const std::string& path, std::size_t limit, std::string& bytes) override;
    std::error_code replace(const std::string& path, std::string_view bytes) override;

  private:
    std::error_code close_after(const std::error_code& error);
    std::error_code write_new(const std::string& path, std::string_view bytes);
    std::error_code write_over(const std::string& path, std::string_view bytes);
    std::error_code write_in_place(const std::string& path, std::string_view bytes,
                                   const std::error_code& refusal);

    FileCalls& calls_;
};

}  // namespace solvanta
