#include <algorithm>
#include <array>

#include <benchmark/benchmark.h>

#include "app/random.h"
#include "benchmarks/click_mix.h"
#include "benchmarks/counted_memory.h"
#include "core/deal.h"
#include "core/foundations.h"
#include "core/moves.h"
#include "core/stock.h"

namespace solvanta::benchmarks {
namespace {

constexpr int games = 100;
constexpr int clicks_per_game = 1000;

void play(GameState& state, const Click& click) {
    if (click.column == stock) {
        click_stock(state);
    } else if (click.column == 0) {
        click_waste(state);
        if (click.twice && state.WasteCount > 0) send_to_foundation(state, waste_index);
    } else {
        click_column(state, click.column);
        const bool open = state.FaceUpCount(click.column) > 0 && !state.Covered(click.column);
        if (click.twice && open) send_to_foundation(state, click.column - 1);
    }
}

/// The rules alone: clicks a second, over so many games that none can be learned by heart.
void Rules(benchmark::State& measured) {
    const std::vector<Click> clicks = click_mix(games * clicks_per_game);
    const GameState dealt = dealt_game();
    GameState state;
    std::int64_t allocations = 0;
    for ([[maybe_unused]] auto round : measured) {
        for (int game = 0; game < games; ++game) {
            state = dealt;
            const std::int64_t before = memory_count().allocations;
            const auto first = clicks.begin() + std::ptrdiff_t{game} * clicks_per_game;
            std::for_each(first, first + clicks_per_game,
                          [&state](const Click& click) { play(state, click); });
            benchmark::DoNotOptimize(state);
            allocations += memory_count().allocations - before;
        }
    }
    measured.SetItemsProcessed(measured.iterations() * games * clicks_per_game);
    measured.counters["allocations"] = static_cast<double>(allocations);
}

/// Draws as the shuffle of a deal does, and does no more than tick off what came.
void BareShuffle(benchmark::State& measured) {
    const RandomSource random = random_from_seed(1);
    for ([[maybe_unused]] auto round : measured) {
        std::array<int, cards_in_game> deck{};
        std::array<bool, cards_in_game> drawn{};
        for (int& card : deck) {
            do {
                card = static_cast<int>(random() * cards_in_game);
            } while (drawn.at(static_cast<std::size_t>(card)));
            drawn.at(static_cast<std::size_t>(card)) = true;
        }
        benchmark::DoNotOptimize(deck);
    }
}

void Deal(benchmark::State& measured) {
    const RandomSource random = random_from_seed(1);
    GameState state;
    for ([[maybe_unused]] auto round : measured) {
        deal(state, random);
        benchmark::DoNotOptimize(state);
    }
}

BENCHMARK(Rules);
BENCHMARK(BareShuffle);
BENCHMARK(Deal);

}  // namespace
}  // namespace solvanta::benchmarks
