#pragma once

#include <string>
#include <system_error>
#include <utility>

#include "core/game_state.h"
#include "scores/durable_file.h"

namespace solvanta {

inline constexpr const char* best_times_file_name = "highscore.scr";

/// The file that mirrors the best-times list and the stored counters.
class BestTimesFile {
  public:
    /// `path` names the file in UTF-8; `calls` must outlive this object.
    BestTimesFile(std::string path, FileCalls& calls) : path_(std::move(path)), calls_(calls) {}

    /// Loads list and counters; without a file, or with one that can't be read, they come out
    /// empty. A missing file is no error. After an error nothing is ever written: a file whose
    /// content is unknown must not be replaced. Files over 1 MiB are taken for something else.
    std::error_code read(GameState& state);

    /// Replaces the file durably by what `state` holds. After an error the old file is as it was
    /// (or, if only the directory could not be flushed, already the new one), and the next call
    /// tries again. Does nothing, and reports nothing, after a failed `read`.
    std::error_code write(const GameState& state);

  private:
    std::string path_;
    FileCalls& calls_;
    bool may_replace_ = true;
};

}  // namespace solvanta
