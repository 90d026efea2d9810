#include "scores/best_times_file.h"

#include "scores/best_times_format.h"

namespace solvanta {
namespace {

constexpr std::size_t size_limit = std::size_t{1} << 20;

}  // namespace

std::error_code BestTimesFile::read(GameState& state) {
    std::string bytes;
    std::error_code error = calls_.read(path_, size_limit, bytes);
    if (error == std::errc::no_such_file_or_directory) error.clear();
    if (error) bytes.clear();
    may_replace_ = !error;
    parse_best_times(bytes, state);
    return error;
}

std::error_code BestTimesFile::write(const GameState& state) {
    if (!may_replace_) return {};
    return replace_file(calls_, calls_.resolve(path_), format_best_times(state));
}

}  // namespace solvanta
