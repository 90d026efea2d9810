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
    /// empty. A missing file is no error. A file whose content is unknown is never replaced.
    std::error_code read(GameState& state);

    /// Replaces the file durably by what `state` holds. After a failed `read` it is read first:
    /// what it holds becomes the list, the entries made meanwhile take their places in it, and the
    /// counts made meanwhile are added. After an error the file is as it was (or, if only the
    /// directory could not be flushed, already the new one), and the next call carries everything.
    std::error_code write(GameState& state);

    /// The player has emptied the list: what an unread file holds is no longer wanted.
    void forget() { wanted_ = false; }

    /// Puts another list, the bytes of its file, in the place of the one in `state` and in the
    /// file. After an error both are as they were.
    std::error_code take(std::string_view bytes, GameState& state);

    /// Whether the file lacks what the list holds, since an error.
    bool is_behind() const { return static_cast<bool>(error_); }

  private:
    std::error_code read_again(GameState& state);

    std::string path_;
    Files& files_;
    std::error_code error_;  // of the latest call
    bool unread_ = false;    // the file could not be read yet
    bool wanted_ = true;     // and holds what belongs to the list
};

}  // namespace solvanta
