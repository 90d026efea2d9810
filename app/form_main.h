#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "app/form2.h"
#include "app/form_highscore.h"
#include "app/random.h"
#include "core/game_state.h"
#include "core/moves.h"
#include "platform/host.h"
#include "scores/best_times_file.h"
#include "view/windows.h"

namespace solvanta {

/// The card table: the window's elements, the game-state record, and the handlers that change
/// both. Lives as long as the program.
class Form_Main : public TableWindow {
  public:
    /// `host` shows the windows and must outlive the form. `seed_random` is asked for fresh random
    /// values at each deal; `files` reads and writes the files beside the program.
    explicit Form_Main(Host& host, std::function<RandomSource()> seed_random = random_from_clock,
                       Files& files = system_files());

    /// Start-up, once, before the window is first shown: loads the fixed pictures, hides what is
    /// not to be seen yet, reads the best-times file. Deals nothing.
    void Form_Load();

    /// Empties the list, sets all four counters to 0 and shows the best-times window anew. Does
    /// not write the file.
    void clear_Highscore();

    /// Stores list and counters in the best-times file. On a failure the old file stays, one line
    /// goes to standard error, and the next write tries again.
    void write_Highscore();

    /// Loads list and counters from the best-times file; without a readable one they are empty.
    void read_Highscore();

    /// Builds the best-times list and shows it, creating its window when needed.
    void Comm_highscore_Click();

    /// Puts the list of another best-times file, its bytes, in the place of the player's own, after
    /// completing a pending win; an open best-times window shows it. On a failure nothing changes;
    /// answers whether it could be stored.
    bool take_Highscore(std::string_view bytes);

    /// Asks in a message box and calls `act` when its first button has been pressed or, where there
    /// is only that, the box is closed.
    void confirm(const std::string& text, Buttons buttons, void (Form_Main::*act)());

    /// Empties list, counters and file, after completing a pending win.
    void clear_list();

    /// Stops debug builds when the record is inconsistent.
    void check_record() const;

    GameState state;

  private:
    void connect_events();
    void connect_rows();
    /// An event that runs `handler` and checks the record afterwards.
    Event checked(std::function<void()> handler);

    void load_fixed_pictures();
    void Refresh();
    void move_pointer(PointerChange change);

    void Command1_Click();
    void new_game();
    void Command3_Click();
    void Command_Beenden_Click();
    void Source_Hide_Click();
    void refuse_turn();
    void hide_skull();
    void Source_Click();
    void Source_DblClick();
    void Iv1_Click(int Index);
    void Iv1_DblClick(int Index);
    void Timer1_Timer();
    void InName_KeyDown(int KeyCode);

    /// Puts the list and its statistics into the best-times window.
    void fill_list();
    void begin_win();
    void open_name_entry(int place);
    /// Shows and enables the name-entry frame, or hides and disables it.
    void show_name_frame(bool shown);
    void enter_name();
    /// If a won game waits for its name or for its box to be closed, enters the name as if Enter
    /// had been pressed, counts the win and writes the file.
    void complete_win();

    Host& host_;
    std::function<RandomSource()> seed_random_;
    Files& files_;
    std::string directory_;
    BestTimesFile best_times_file_;
    std::unique_ptr<Form_Highscore> form_highscore_;
    std::unique_ptr<Form2> form2_;
};

}  // namespace solvanta
