#include "view/spoken_names.h"

#include <array>
#include <string>
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
    if (!is_card(card)) return empty_place;
    std::string name(suit_words.at(static_cast<std::size_t>(suit_index(card))));
    name += ' ';
    name += rank_words.at(static_cast<std::size_t>(rank(card) - 1));
    return name;
}

std::string marked(bool selected) {
    return selected ? ", ausgewählt" : "";
}

std::string stock_name(int cards) {
    if (cards == 0) return std::string("Stapel, ") + empty_place;
    return "Stapel, " + std::to_string(cards) + (cards == 1 ? " Karte" : " Karten");
}

std::string in_column(int col, const std::string& what) {
    return "Spalte " + std::to_string(col) + ": " + what;
}

std::string face_up_name(const GameState& state, int col, int row) {
    const bool covered = row == 1 && state.Covered(col);
    const bool there = row <= state.FaceUpCount(col);
    return in_column(col,
                     (covered ? covered_card : card_or_empty(there ? state.FaceUp(col)(row) : 0)) +
                         marked(state.Selected(col)));
}

std::string waste_name(const GameState& state) {
    return "Ablage: " + card_or_empty(state.WasteCount > 0 ? state.Waste(state.WasteCount) : 0) +
           marked(state.Selected(0));
}

std::string foundation_name(const GameState& state, int f) {
    const int count = state.FoundationCount(f);
    return "Ziel " + std::to_string(f) + ": " +
           card_or_empty(count > 0 ? state.FoundationCards(f)(count) : 0);
}

}  // namespace

void name_places(const GameState& state, TableWindow& table) {
    const auto name = [&state](PictureElement& element, auto name_of) {
        element.SpokenName = [&state, name_of] {
            return game_dealt(state) ? name_of(state) : std::string();
        };
    };
    name(table.Source_Hide, [](const GameState& now) { return stock_name(now.DeckCount); });
    name(table.Source, waste_name);
    for (int f = 1; f <= foundations; ++f)
        name(table.Stapel(f - 1), [f](const GameState& now) { return foundation_name(now, f); });
    for (int c = 1; c <= columns; ++c) {
        for (TableauRow& row : table.Ih)
            name(row(c - 1), [c](const GameState&) { return in_column(c, covered_card); });
        for (int r = 1; r <= cards_per_suit; ++r)
            name(table.Iv(r)(c - 1), [=](const GameState& now) { return face_up_name(now, c, r); });
    }
}

}  // namespace solvanta
