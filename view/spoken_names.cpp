#include "view/spoken_names.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "core/foundations.h"

namespace solvanta {
namespace {

constexpr std::array<std::string_view, 4> suit_words{"Herz", "Pik", "Karo", "Kreuz"};
constexpr std::array<std::string_view, cards_per_suit> rank_words{
    "Ass", "2", "3", "4", "5", "6", "7", "8", "9", "10", "Bube", "Dame", "König"};

constexpr const char* empty_place = "leerer Platz";
constexpr const char* covered_card = "verdeckte Karte";

std::string card_or_empty(CardNumber card) {
    return is_card(card) ? spoken_card(card) : empty_place;
}

std::string marked(bool selected) {
    return selected ? ", ausgewählt" : "";
}

std::string stock_name(int cards) {
    if (cards == 0) return std::string("Stapel, ") + empty_place;
    return "Stapel, " + std::to_string(cards) + (cards == 1 ? " Karte" : " Karten");
}

std::string exposed_name(const GameState& state, int col) {
    if (state.FaceUpCount(col) == 0) return empty_place;
    return state.Covered(col) ? covered_card : spoken_card(state.FaceUp(col)(1));
}

void name_column(const GameState& state, TableWindow& table, int col) {
    const std::string prefix = "Spalte " + std::to_string(col) + ": ";
    const std::string mark = marked(state.Selected(col));
    for (int r = 1; r <= state.FaceDownCount(col); ++r) {
        std::string& name = table.Ih(r)(col - 1).SpokenName;
        name = prefix;
        name += covered_card;
    }
    for (int r = 1; r <= std::max(state.FaceUpCount(col), 1); ++r) {
        std::string& name = table.Iv(r)(col - 1).SpokenName;
        name = prefix;
        name += r == 1 ? exposed_name(state, col) : spoken_card(state.FaceUp(col)(r));
        name += mark;
    }
}

}  // namespace

std::string spoken_card(CardNumber card) {
    if (!is_card(card)) return {};
    std::string name(suit_words.at(static_cast<std::size_t>(suit_index(card))));
    name += ' ';
    name += rank_words.at(static_cast<std::size_t>(rank(card) - 1));
    return name;
}

void name_places(const GameState& state, TableWindow& table) {
    for (int f = 1; f <= foundations; ++f) {
        const int count = state.FoundationCount(f);
        std::string& name = table.Stapel(f - 1).SpokenName;
        name = "Ziel ";
        name += std::to_string(f);
        name += ": ";
        name += card_or_empty(count > 0 ? state.FoundationCards(f)(count) : 0);
    }
    table.Source_Hide.SpokenName = stock_name(state.DeckCount);
    table.Source.SpokenName =
        "Ablage: " + card_or_empty(state.WasteCount > 0 ? state.Waste(state.WasteCount) : 0) +
        marked(state.Selected(0));
    for (int c = 1; c <= columns; ++c)
        name_column(state, table, c);
}

}  // namespace solvanta
