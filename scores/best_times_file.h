#pragma once

#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "core/game_state.h"
#include "files/files.h"

namespace solvanta {

inline constexpr const char* best_times_file_name = "highscore.scr";

/// A longer file is taken for something else, in bytes.
inline constexpr std::size_t longest_best_times_file = std::size_t{1} << 20;

/// The file that mirrors the best-times list and the stored counters.
class BestTimesFile {
  public:
    /// `path` names the file in UTF-8; `files` must outlive this object.
    BestTimesFile(std::string path, Files& files) : path_(std::move(path)), files_(files) {}

    /// Loads list and counters; without a file, or with one that can't be read, they come out
    /// empty. A missing file is no error. After an error nothing is ever written: a file whose
    /// content is unknown must not be replaced.
    std::error_code read(GameState& state);

    /// Replaces the file durably by what `state` holds. After an error the old file is as it was
    /// (or, if only the directory could not be flushed, already the new one), and the next call
    /// tries again. Does nothing, and reports nothing, after a failed `read`.
    std::error_code write(const GameState& state);

    /// Puts another list, the bytes of its file, in the place of the one in `state` and in the
    /// file. After an error both are as they were; a failed `read` is an error here.
    std::error_code take(std::string_view bytes, GameState& state);

  private:
    std::string path_;
    Files& files_;
    std::error_code read_error_;
};

}  // namespace solvanta
