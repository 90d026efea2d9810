// How a card is composed of its parts.
#pragma once

#include <array>
#include <string_view>

#include "painter.h"

namespace solvanta::pictures {

// Size of a card in points, and of the strip that a face-down card in a column shows.
inline constexpr double card_width = 72;
inline constexpr double card_height = 96;
inline constexpr double back_strip_height = 8;

// Suit and rank words as the picture files bear them.
inline constexpr std::array<std::string_view, 4> suit_words{"Herz", "Pick", "Karo", "Kreuz"};
inline constexpr std::array<std::string_view, 13> rank_words{"1", "2", "3",  "4", "5", "6", "7",
                                                             "8", "9", "10", "B", "D", "K"};

// A card by its places in the word lists above: suit 0..3, rank 0..12.
struct Card {
    std::size_t suit = 0;
    std::size_t rank = 0;
};

// Each draws a whole card, green corners included, from the origin.
void draw_face(Painter& painter, const Card& card);
void draw_back(Painter& painter);
void draw_empty_place(Painter& painter);

}  // namespace solvanta::pictures
