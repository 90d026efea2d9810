#include "app/form_main.h"
#include "scores/best_times_format.h"
#include "tests/front_ends/stage.h"
#include "tests/support/golden_game.h"
#include "tests/support/player.h"
#include "tests/support/position.h"

namespace solvanta::test {
namespace {

/// Has every event of the table written down before it takes its way.
void log_events(TableWindow& table, std::string& log) {
    const auto wrap = [&log](Event& event, const std::string& name) {
        if (!event) return;
        event = [&log, name, inner = event] {
            log += name + '\n';
            inner();
        };
    };
    wrap(table.Command1.Click, "neues Spiel");
    int number = 0;
    for (const Painted& item : table.canvas) {
        auto* const* element = std::get_if<PictureElement*>(&item);
        if (!element) continue;
        const std::string name = std::to_string(++number);
        wrap((*element)->Click, name + " click");
        wrap((*element)->DblClick, name + " double click");
    }
    table.InName.KeyDown = [&log, inner = table.InName.KeyDown](int code) {
        if (code == key_enter) log += "Enter\n";
        inner(code);
    };
}

/// What is left of a game: the position and the best-times file, without the date of the entry.
std::string record_of(const Form_Main& table) {
    GameState state = table.state;
    state.BestDate(1) = "";
    state.BestTime(1) = 1;  // the clock ticks by itself in a real window
    return print_position(state) + '\n' + format_best_times(state);
}

struct HandMove {
    Point at;
    bool twice = false;
};

class Trace : public FrontEnd {
  protected:
    void play_by_hand(const Form& table, const std::vector<HandMove>& moves) {
        for (const HandMove& move : moves) {
            for (int press = 0; press <= (move.twice ? 1 : 0); ++press) {
                driver().press(table, move.at, MouseButton::Left);
                driver().release(table, move.at, MouseButton::Left);
                driver().settle();
            }
        }
    }
};

// The same hand on the mouse gives the same events and leaves the same record with every Host: as
// many as there are join in being held to what the rules make of it without windows.
TEST_F(Trace, OfTheGoldenGameIsThatOfTheRules) {
    const GoldenGame game = read_golden_game();
    std::vector<HandMove> moves;
    std::string expected;
    Player player(game.seed());
    log_events(player.table, expected);
    player.deal();
    player.on_click = [&](Twips x, Twips y, bool twice) {
        moves.push_back({{double(x) / twips_per_pixel, double(y) / twips_per_pixel}, twice});
    };
    player.play(game.words);
    player.enter_name("Jörg Süß");

    MemoryFiles files;
    Form_Main table(
        host(), [&] { return random_from_seed(game.seed()); }, files);
    std::string log;
    log_events(table, log);
    testing::internal::CaptureStderr();  // there are no pictures here
    table.Form_Load();
    show(table);
    when_box_opens([&] { driver().key(Key::Enter); });
    click(table, table.Command1);
    play_by_hand(table, moves);
    testing::internal::GetCapturedStderr();
    ASSERT_TRUE(table.state.NameEntryOpen) << log;
    driver().type("Jörg Süß");
    press_key(Key::Enter);
    EXPECT_EQ(log, expected);
    EXPECT_EQ(record_of(table), record_of(player.table));
}

}  // namespace
}  // namespace solvanta::test
