#pragma once

#include <cstdint>
#include <string>

#include "core/game_state.h"
#include "platform/locale.h"

namespace solvanta {

/// The place of a time that does not make the list.
inline constexpr int no_place = best_places + 1;

/// Empties all thirty places; the counters are left alone.
void clear_places(GameState& state);

/// The place (1 to 30) that `seconds` earns, below every entry with the same time, or `no_place`.
int place_for(const GameState& state, std::int32_t seconds);

/// Puts an entry at `place` (1 to 30); lower entries move down and the thirtieth is lost. Name
/// and date are Windows-1252 text.
void insert_entry(GameState& state, int place, std::int32_t seconds, std::string name,
                  std::string date);

/// Adds to a counter; beyond its largest value it stays there.
void count_up(std::int32_t& counter, std::int32_t by = 1);

/// The moment of an entry as the list shows it, "d. mmm yyyy h:mm" with the locale's abbreviated
/// month and time separator, in Windows-1252; with the German ones where that lacks a character.
std::string entry_stamp(const LocalTime& moment, const LocaleTexts& texts);

}  // namespace solvanta
