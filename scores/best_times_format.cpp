#include "scores/best_times_format.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "text/windows_1252.h"

namespace solvanta {
namespace {

constexpr int places_before_counters = 10;
constexpr std::string_view line_end = "\r\n";

class FieldReader {
  public:
    explicit FieldReader(std::string_view bytes) : rest_(bytes) {}

    bool at_end() const { return rest_.empty(); }

    std::string text() {
        skip_blanks();
        if (at_end()) return " ";
        if (rest_.front() != '"') return unquoted();
        rest_.remove_prefix(1);
        const std::size_t quote = std::min(rest_.find('"'), rest_.size());
        std::string value(rest_.substr(0, quote));
        rest_.remove_prefix(std::min(quote + 1, rest_.size()));
        take_to_delimiter();
        return value;
    }

    std::int32_t number() { return parse_number(text()); }

  private:
    void skip_blanks() {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(' '), rest_.size()));
    }

    /// The file can't hold a quote inside a field, so a stray one becomes typographic here as it
    /// does in a name that is typed.
    std::string unquoted() {
        std::string value(take_to_delimiter());
        std::replace(value.begin(), value.end(), '"', closing_quote);
        return value;
    }

    /// What stands before the next comma or line end, which is consumed with it.
    std::string_view take_to_delimiter() {
        const std::size_t length = std::min(rest_.find_first_of(",\r\n"), rest_.size());
        const std::string_view taken = rest_.substr(0, length);
        rest_.remove_prefix(length);
        if (rest_.substr(0, line_end.size()) == line_end) {
            rest_.remove_prefix(line_end.size());
        } else if (!at_end()) {
            rest_.remove_prefix(1);
        }
        return taken;
    }

    static std::int32_t parse_number(std::string_view digits) {
        const bool negative = digits.substr(0, 1) == "-";
        if (negative) digits.remove_prefix(1);
        constexpr std::int64_t beyond = std::int64_t{1} << 32;
        std::int64_t value = 0;
        for (const char digit : digits) {
            if (digit < '0' || digit > '9') break;
            value = std::min(value * 10 + (digit - '0'), beyond);
        }
        using Limits = std::numeric_limits<std::int32_t>;
        return static_cast<std::int32_t>(
            std::clamp<std::int64_t>(negative ? -value : value, Limits::min(), Limits::max()));
    }

    std::string_view rest_;
};

void read_place(FieldReader& reader, GameState& state, int place) {
    const bool missing = reader.at_end();
    state.BestTime(place) = missing ? 0 : reader.number();
    state.BestName(place) = missing ? " " : reader.text();
    state.BestDate(place) = missing ? " " : reader.text();
}

void write_place(std::string& bytes, const GameState& state, int place) {
    bytes += std::to_string(state.BestTime(place)) + ",\"";
    bytes += state.BestName(place) + "\",\"";
    bytes += state.BestDate(place) + '"';
    bytes += line_end;
}

}  // namespace

std::string format_best_times(const GameState& state) {
    std::string bytes;
    for (int p = 1; p <= best_places; ++p) {
        write_place(bytes, state, p);
        if (p != places_before_counters) continue;
        bytes += std::to_string(state.GamesPlayed) + ',' + std::to_string(state.GamesWon);
        bytes += line_end;
    }
    return bytes;
}

void parse_best_times(std::string_view bytes, GameState& state) {
    // Some editors put a mark of their own before what they store.
    constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
    if (bytes.starts_with(byte_order_mark)) bytes.remove_prefix(byte_order_mark.size());
    FieldReader reader(bytes);
    for (int p = 1; p <= best_places; ++p) {
        read_place(reader, state, p);
        if (p != places_before_counters) continue;
        state.GamesPlayed = reader.number();
        state.GamesWon = reader.number();
    }
}

bool is_best_times_file(std::string_view bytes) {
    constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
    constexpr int shortest = 11;  // lines: places 1 to 10 and the counters
    GameState state;
    parse_best_times(bytes, state);
    std::string written = format_best_times(state);
    std::string given(bytes.substr(bytes.starts_with(byte_order_mark) ? 3 : 0));
    std::erase(written, '\r');
    std::erase(given, '\r');
    if (!given.ends_with('\n')) given += '\n';
    return written.starts_with(given) && std::count(given.begin(), given.end(), '\n') >= shortest;
}

}  // namespace solvanta
