#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/bounded.h"
#include "core/cards.h"

namespace solvanta {

/// The one record of the program: the game on the table, the clock, the statistics and the
/// best-times list. Every handler changes it in place. Of each card array only the first "count"
/// entries mean anything; entries beyond keep what they last held and nothing reads them.
struct GameState {
    /// The stock; `Deck(DeckCount)` is its top, drawn next.
    Bounded<CardNumber, 1, 104> Deck;
    int DeckCount = 0;

    /// The waste in the order drawn; `Waste(WasteCount)` is its top, the only playable card.
    Bounded<CardNumber, 1, 104> Waste;
    int WasteCount = 0;

    /// Face-down cards by column and row; `FaceDown(c)(FaceDownCount(c))` is turned next.
    Bounded<Bounded<CardNumber, 1, 9>, 1, 10> FaceDown;
    Bounded<int, 1, 10> FaceDownCount;

    /// Face-up cards by column and row; row 1 is the exposed card, row `FaceUpCount(c)` the
    /// deepest, which lies on the face-down cards.
    Bounded<Bounded<CardNumber, 1, 13>, 1, 10> FaceUp;
    Bounded<int, 1, 10> FaceUpCount;

    /// The column's only face-up card has just come to the front and still shows its back.
    Bounded<bool, 1, 10> Covered;

    /// Foundations f and f + 4 take the suit with index f - 1; level 1 is the ace.
    Bounded<Bounded<CardNumber, 1, 13>, 1, 8> FoundationCards;
    Bounded<int, 1, 8> FoundationCount;

    /// Cards taken per draw: 3, 2, 1 in passes 1, 2, 3; 0 before the first deal.
    int DrawSize = 0;

    /// Slot 0 is the waste's top card, slots 1 to 10 the face-up run of a column.
    Bounded<bool, 0, 10> Selected;

    std::int32_t Seconds = 0;  ///< playing time of the current game
    bool ClockRunning = false;
    bool GameWon = false;        ///< the current deal is won
    bool WinPending = false;     ///< it is still to be counted, when the player has been asked
    bool NameEntryOpen = false;  ///< what it waits for is the player's name

    std::int32_t GamesPlayed = 0;  ///< over all runs, as is `GamesWon`
    std::int32_t GamesWon = 0;
    std::int32_t PlayedSinceStart = 0;
    std::int32_t WonSinceStart = 0;

    /// The best-times list; a time of 0 marks an empty place. Names and dates are Windows-1252
    /// text, so that a character is a byte and a list file survives unchanged.
    Bounded<std::int32_t, 1, 30> BestTime;
    Bounded<std::string, 1, 30> BestName;
    Bounded<std::string, 1, 30> BestDate;
};

inline constexpr int columns = 10;
inline constexpr int foundations = 8;
inline constexpr int best_places = 30;

/// Whether a game has been dealt since the program started.
inline bool game_dealt(const GameState& state) {
    return state.DrawSize > 0;
}

/// The cards still to be sent to the foundations; 0 once a game is won.
int cards_outside_foundations(const GameState& state);

/// Names the first invariant of the record that does not hold; empty when all do. Invariants hold
/// between events, before the first deal as well as during play and after a win.
std::string_view violated_invariant(const GameState& state);

inline bool is_consistent(const GameState& state) {
    return violated_invariant(state).empty();
}

}  // namespace solvanta
