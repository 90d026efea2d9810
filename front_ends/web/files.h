#pragma once

#include <map>
#include <string>

#include "scores/durable_file.h"

namespace solvanta::web {

/// The program's files in a browser. What it writes goes to the storage that the browser keeps for
/// the page, byte for byte; putting a file there is one step, which the browser makes whole or not
/// at all. Any other file is the copy fetched last.
class WebFiles final : public FileCalls {
  public:
    /// Fetches the file at `path` for later reading; what can't be had is not there.
    void fetch_copy(const std::string& path);

    std::error_code read(const std::string& path, std::size_t limit, std::string& bytes) override;
    std::error_code create(const std::string& path) override;
    /// What is stored is only ever replaced whole.
    std::error_code open(const std::string& path) override;
    std::error_code write(std::string_view bytes) override;
    std::error_code cut() override { return {}; }
    std::error_code flush() override { return {}; }
    std::error_code close() override { return {}; }
    std::string resolve(const std::string& path) override { return path; }
    std::error_code rename(const std::string& from, const std::string& to) override;
    std::error_code remove(const std::string& path) override;
    std::error_code sync_directory_of(const std::string& /*path*/) override { return {}; }

  private:
    std::map<std::string, std::string> copies_;
    std::map<std::string, std::string> written_;  // and not yet given their names
    std::string* writing_ = nullptr;
};

}  // namespace solvanta::web
