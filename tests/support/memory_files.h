#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <utility>

#include "files/durable_files.h"
#include "view/pictures.h"

namespace solvanta::test {

/// Files in memory whose every call can be made to fail: names of the calls run through `before`,
/// and an error it answers is what the call answers, undone.
class MemoryFiles final : public FileCalls {
  public:
    static inline const std::string list_path = program_file("/nowhere", "highscore.scr");

    std::error_code read(const std::string& path, std::size_t limit, std::string& bytes) override {
        if (const auto error = call("read")) return error;
        const auto file = files.find(path);
        if (file == files.end()) return std::make_error_code(std::errc::no_such_file_or_directory);
        if (file->second.size() > limit) return std::make_error_code(std::errc::file_too_large);
        bytes = file->second;
        return {};
    }

    std::error_code create(const std::string& path) override {
        return call("create", [&] { start(files[path] = ""); });
    }

    std::error_code open(const std::string& path) override {
        return call("open", [&] { start(files.at(path)); });
    }

    std::error_code write(std::string_view bytes) override {
        const auto error = call("write");
        // A full disk takes a part.
        const std::string_view taken = bytes.substr(0, error ? bytes.size() / 2 : bytes.size());
        const std::size_t over = std::min(taken.size(), written_->size() - position_);
        written_->replace(position_, over, taken);
        position_ += taken.size();
        return error;
    }

    std::error_code cut() override {
        return call("cut", [&] { written_->resize(position_); });
    }

    std::error_code flush() override { return call("flush"); }

    std::error_code close() override { return call("close"); }

    std::error_code rename(const std::string& from, const std::string& to) override {
        return call("rename", [&] { files[to] = files.extract(from).mapped(); });
    }

    std::string resolve(const std::string& path) override { return path; }

    std::error_code remove(const std::string& path) override {
        return call("remove", [&] { files.erase(path); });
    }

    std::error_code sync_directory_of(const std::string& /*path*/) override { return call("sync"); }

    std::map<std::string, std::string> files;
    std::function<std::error_code(const std::string& call)> before;

  private:
    std::error_code call(const std::string& name, const std::function<void()>& effect = {}) const {
        const auto error = before ? before(name) : std::error_code{};
        if (!error && effect) effect();
        return error;
    }

    void start(std::string& file) {
        written_ = &file;
        position_ = 0;
    }

    std::string* written_ = nullptr;
    std::size_t position_ = 0;
};

}  // namespace solvanta::test
