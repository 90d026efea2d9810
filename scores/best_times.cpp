#include "scores/best_times.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "text/windows_1252.h"

namespace solvanta {

void clear_places(GameState& state) {
    state.BestTime.fill(0);
    state.BestName.fill(" ");
    state.BestDate.fill(" ");
}

int place_for(const GameState& state, std::int32_t seconds) {
    for (int p = 1; p <= best_places; ++p) {
        if (seconds < state.BestTime(p) || state.BestTime(p) == 0) return p;
    }
    return no_place;
}

void insert_entry(GameState& state, int place, std::int32_t seconds, std::string name,
                  std::string date) {
    for (int p = best_places - 1; p >= place; --p) {
        state.BestTime(p + 1) = state.BestTime(p);
        state.BestName(p + 1) = std::move(state.BestName(p));
        state.BestDate(p + 1) = std::move(state.BestDate(p));
    }
    state.BestTime(place) = seconds;
    state.BestName(place) = std::move(name);
    state.BestDate(place) = std::move(date);
}

void count_up(std::int32_t& counter, std::int32_t by) {
    constexpr std::int64_t largest = std::numeric_limits<std::int32_t>::max();
    counter = static_cast<std::int32_t>(std::min(std::int64_t{counter} + by, largest));
}

std::string entry_stamp(const LocalTime& moment, const LocaleTexts& texts) {
    constexpr std::array german{"Jan", "Feb", "M\xe4r", "Apr", "Mai", "Jun",
                                "Jul", "Aug", "Sep",    "Okt", "Nov", "Dez"};
    const auto month = static_cast<std::size_t>(moment.month - 1);
    std::string stamp = std::to_string(moment.day) + ". ";
    stamp += to_list_text(texts.month_abbreviations.at(month), german.at(month));
    stamp += ' ' + std::to_string(moment.year) + ' ' + std::to_string(moment.hour);
    stamp += to_list_text(texts.time_separator, ":") + (moment.minute < 10 ? "0" : "");
    return stamp + std::to_string(moment.minute);
}

}  // namespace solvanta
