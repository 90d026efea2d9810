#include <cstddef>
#include <cstdint>
#include <string_view>

#include "fuzz/require.h"
#include "scores/best_times_format.h"
#include "scores/list_text.h"

/// Reads the bytes as a best-times file: what is read is written and read again the same, and can
/// be shown.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace solvanta;
    GameState read;
    parse_best_times({reinterpret_cast<const char*>(data), size}, read);
    GameState again;
    parse_best_times(format_best_times(read), again);
    fuzz::require(read.BestTime == again.BestTime && read.BestName == again.BestName &&
                      read.BestDate == again.BestDate && read.GamesPlayed == again.GamesPlayed &&
                      read.GamesWon == again.GamesWon,
                  "What is read is not written and read again the same.");
    fuzz::require(list_lines(read, ",").size() <= std::size_t{best_places} + 2,
                  "There are more lines than places.");
    return 0;
}
