#include <benchmark/benchmark.h>

#include "app/form_main.h"
#include "benchmarks/click_mix.h"
#include "benchmarks/counted_memory.h"
#include "tests/support/hand.h"
#include "tests/support/memory_files.h"
#include "tests/support/null_host.h"

namespace solvanta::benchmarks {
namespace {

constexpr int clicks_per_game = 1000;

/// A Host that shows nothing and keeps nothing.
class SilentHost final : public test::NullHost {
  public:
    void ask(const std::string& /*text*/, Buttons buttons, Answered then) override {
        then(buttons == Buttons::YesNo ? Answer::Yes : Answer::Ok);
    }
};

/// The whole program in front of somebody who clicks at random.
class Game {
  public:
    Game() {
        table_.Form_Load();
        deal();
    }

    void deal() { table_.Command1.Click(); }

    void play(int clicks = clicks_per_game) {
        for (int click = 0; click < clicks; ++click)
            play(clicks_[static_cast<std::size_t>(click)]);
    }

  private:
    void play(const Click& click) {
        const PictureElement& element = click.column == stock ? table_.Source_Hide
                                        : click.column == 0   ? table_.Source
                                                              : table_.Iv(1)(click.column - 1);
        const Twips x = element.Left + element.Width / 2;
        const Twips y = element.Top + element.Height / 2;
        hand_.click(x, y);
        if (click.twice) hand_.double_press(x, y);
    }

    SilentHost host_;
    test::MemoryFiles calls_;
    DurableFiles files_{calls_};
    Form_Main table_{host_, [seed = 1U]() mutable { return random_from_seed(seed++); }, files_};
    test::Hand hand_{table_};
    const std::vector<Click> clicks_ = click_mix(clicks_per_game);
};

/// Clicks a second, hit by the mouse and shown by the elements.
void WholeProgram(benchmark::State& measured) {
    Game game;
    for ([[maybe_unused]] auto round : measured) {
        measured.PauseTiming();
        game.deal();
        measured.ResumeTiming();
        game.play();
    }
    measured.SetItemsProcessed(measured.iterations() * clicks_per_game);
}

/// The same, and the memory held, after as many games as the argument says.
void AfterGames(benchmark::State& measured) {
    Game game;
    for (std::int64_t played = 1; played < measured.range(0); ++played) {
        game.play(50);
        game.deal();
    }
    for ([[maybe_unused]] auto round : measured)
        game.play();
    measured.SetItemsProcessed(measured.iterations() * clicks_per_game);
    measured.counters["bytes"] = static_cast<double>(memory_count().bytes_held);
}

BENCHMARK(WholeProgram);
BENCHMARK(AfterGames)->Arg(1)->Arg(10'000)->Iterations(100);

}  // namespace
}  // namespace solvanta::benchmarks
