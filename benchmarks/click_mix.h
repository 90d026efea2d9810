#pragma once

#include <vector>

#include "core/game_state.h"

namespace solvanta::benchmarks {

/// Where a hand clicks that plays at random.
struct Click {
    int column = 0;  ///< 1 to 10; 0 is the waste, `stock` the stock
    bool twice = false;
};

inline constexpr int stock = -1;

/// `count` clicks, always the same: mostly on columns, now and then double clicks, the stock and
/// the waste.
std::vector<Click> click_mix(int count);

/// A freshly dealt game, always the same.
GameState dealt_game();

}  // namespace solvanta::benchmarks
