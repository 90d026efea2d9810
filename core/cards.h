#pragma once

namespace solvanta {

/// 1 to 52: hearts 1-13, spades 14-26, diamonds 27-39, clubs 40-52, each from ace to king; 0 means
/// no card. A game holds every number twice, and the two copies can't be told apart.
using CardNumber = int;

inline constexpr int cards_per_suit = 13;
inline constexpr int cards_per_deck = 52;
inline constexpr int cards_in_game = 2 * cards_per_deck;

inline constexpr int ace = 1;
inline constexpr int king = 13;

constexpr bool is_card(CardNumber card) {
    return card >= 1 && card <= cards_per_deck;
}

/// 0 hearts, 1 spades, 2 diamonds, 3 clubs; `card` must be a card.
constexpr int suit_index(CardNumber card) {
    return (card - 1) / cards_per_suit;
}

/// 1 (ace) to 13 (king); `card` must be a card.
constexpr int rank(CardNumber card) {
    return (card - 1) % cards_per_suit + 1;
}

/// Suits alternate in colour along the numbering: red, black, red, black.
constexpr bool is_red(CardNumber card) {
    return suit_index(card) % 2 == 0;
}

}  // namespace solvanta
