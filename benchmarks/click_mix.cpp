#include "benchmarks/click_mix.h"

#include "app/random.h"
#include "core/deal.h"

namespace solvanta::benchmarks {

std::vector<Click> click_mix(int count) {
    const RandomSource random = random_from_seed(7);
    const auto below = [&random](int limit) { return static_cast<int>(random() * limit); };
    std::vector<Click> clicks(static_cast<std::size_t>(count));
    for (Click& click : clicks) {
        const int kind = below(10);
        click.column = kind == 0 ? stock : kind == 1 ? 0 : 1 + below(columns);
        click.twice = click.column != stock && below(4) == 0;
    }
    return clicks;
}

GameState dealt_game() {
    GameState state;
    deal(state, random_from_seed(1));
    return state;
}

}  // namespace solvanta::benchmarks
