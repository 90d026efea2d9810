#include "scores/best_times_file.h"

#include "scores/best_times_format.h"

namespace solvanta {

std::error_code BestTimesFile::read(GameState& state) {
    std::string bytes;
    read_error_ = files_.read(path_, longest_best_times_file, bytes);
    if (read_error_ == std::errc::no_such_file_or_directory) read_error_.clear();
    parse_best_times(bytes, state);
    return read_error_;
}

std::error_code BestTimesFile::write(const GameState& state) {
    if (read_error_) return {};
    return files_.replace(path_, format_best_times(state));
}

std::error_code BestTimesFile::take(std::string_view bytes, GameState& state) {
    if (read_error_) return read_error_;
    GameState taken = state;
    parse_best_times(bytes, taken);
    const std::error_code error = write(taken);
    if (!error) state = std::move(taken);
    return error;
}

}  // namespace solvanta
