#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "app/form_main.h"
#include "tests/support/hand.h"
#include "tests/support/memory_files.h"
#include "tests/support/null_host.h"
#include "tests/support/position.h"

namespace solvanta::test {

/// A started program over the null host and a player with a mouse in front of it. Every event is
/// followed by a check of the record and of the table that shows it.
class Player {
  public:
    /// The seed of the first deal, and files that are there at start-up.
    explicit Player(std::uint64_t seed = 1, std::map<std::string, std::string> at_start = {});

    /// Puts a position on the table as if play had led there; list and counters stay.
    void set_up(GameState placed);
    void set_up(std::string_view position) { set_up(parse_position(position)); }

    void deal();

    /// Plays the words in turn: "stock", "waste", "c4" (the exposed card of column 4 or its empty
    /// place), "c4.3" (the card in face-up row 3 of column 4), "tick"; with '!' behind it the
    /// place is double clicked; "c4!!" gives the double-click event alone.
    void play(const std::string& words);

    /// At a place in twips.
    void click(Twips x, Twips y);
    void double_click(Twips x, Twips y);

    /// Types a name and presses Enter.
    void enter_name(const std::string& name);

    std::string position() const { return print_position(table.state); }

    /// What follows every event: expects the record consistent and shown as it is.
    void check() const;

    /// Called for each word that uses the mouse with the place it clicks.
    std::function<void(Twips x, Twips y, bool twice)> on_click;

    MemoryFiles files;
    DurableFiles durable{files};
    NullHost host;
    Form_Main table;

  private:
    void play_word(const std::string& word);

    Hand hand_{table};
    bool on_the_left_ = false;
};

}  // namespace solvanta::test
