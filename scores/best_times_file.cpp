#include "scores/best_times_file.h"

#include "scores/best_times.h"
#include "scores/best_times_format.h"

namespace solvanta {
namespace {

/// Puts what `later` holds behind what `list` holds, as if it had come after it. Among equal times
/// the list keeps the order in which the entries were made, so its own order serves.
void add(GameState& list, const GameState& later) {
    for (int p = 1; p <= best_places; ++p) {
        const int place = place_for(list, later.BestTime(p));
        if (later.BestTime(p) == 0 || place == no_place) continue;
        insert_entry(list, place, later.BestTime(p), later.BestName(p), later.BestDate(p));
    }
    count_up(list.GamesPlayed, later.GamesPlayed);
    count_up(list.GamesWon, later.GamesWon);
}

}  // namespace

std::error_code BestTimesFile::read(GameState& state) {
    std::string bytes;
    error_ = files_.read(path_, longest_best_times_file, bytes);
    if (error_ == std::errc::no_such_file_or_directory) error_.clear();
    unread_ = static_cast<bool>(error_);
    parse_best_times(bytes, state);
    return error_;
}

std::error_code BestTimesFile::read_again(GameState& state) {
    GameState from_file = state;
    if (const std::error_code error = read(from_file)) return error;
    if (!std::exchange(wanted_, true)) return {};
    add(from_file, state);
    state = std::move(from_file);
    return {};
}

std::error_code BestTimesFile::write(GameState& state) {
    if (unread_ && read_again(state)) return error_;
    return error_ = files_.replace(path_, format_best_times(state));
}

std::error_code BestTimesFile::take(std::string_view bytes, GameState& state) {
    if (unread_ && read_again(state)) return error_;
    GameState taken = state;
    parse_best_times(bytes, taken);
    const std::error_code error = write(taken);
    if (!error) state = std::move(taken);
    return error;
}

}  // namespace solvanta
