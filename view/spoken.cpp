#include "view/spoken.h"

#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "core/foundations.h"

namespace solvanta {
namespace {

constexpr std::array<std::string_view, 4> suit_words{"Herz", "Pik", "Karo", "Kreuz"};
constexpr std::array<std::string_view, cards_per_suit> rank_words{
    "Ass", "2", "3", "4", "5", "6", "7", "8", "9", "10", "Bube", "Dame", "König"};

constexpr const char* nothing_dealt = "Noch nichts ausgeteilt";

std::string suit_word(int index) {
    return std::string(suit_words.at(static_cast<std::size_t>(index)));
}

/// "Herz König"; `card` must be a card.
std::string spoken_card(CardNumber card) {
    return suit_word(suit_index(card)) + ' ' +
           std::string(rank_words.at(static_cast<std::size_t>(rank(card) - 1)));
}

std::string cards(int count) {
    return std::to_string(count) + (count == 1 ? " Karte" : " Karten");
}

std::string column(int c) {
    return "Spalte " + std::to_string(c);
}

std::string stock_name(const GameState& state) {
    return "Stapel, " + (state.DeckCount > 0 ? cards(state.DeckCount) : "leer");
}

CardNumber waste_top(const GameState& state) {
    return state.WasteCount > 0 ? state.Waste(state.WasteCount) : 0;
}

std::string waste_name(const GameState& state) {
    if (state.WasteCount == 0) return "Ablage, leer";
    return spoken_card(waste_top(state)) + (state.Selected(0) ? ", ausgewählt" : "") +
           ", Ablage, " + cards(state.WasteCount);
}

std::string foundation_name(const GameState& state, int f) {
    const int count = state.FoundationCount(f);
    const std::string place = "Ziel " + std::to_string(f);
    if (count == 0) return place + ", leer, für " + suit_word((f - 1) % 4);
    return spoken_card(state.FoundationCards(f)(count)) + ", " + place;
}

/// The card that can be played or turned; empty in an empty column.
std::string exposed_card(const GameState& state, int c) {
    if (state.FaceUpCount(c) == 0) return {};
    return state.Covered(c) ? "Verdeckte Karte" : spoken_card(state.FaceUp(c)(1));
}

std::string column_name(const GameState& state, int c) {
    const int open = state.FaceUpCount(c);
    if (open == 0) return column(c) + ", leer";
    std::string text = exposed_card(state, c);
    if (state.Selected(c)) text += ", ausgewählt";
    text += ", " + column(c);
    if (open > 1)
        text += ", " + std::to_string(open) + " offene bis " + spoken_card(state.FaceUp(c)(open));
    const int covered = state.FaceDownCount(c);
    if (covered > 0) text += ", darunter " + std::to_string(covered) + " verdeckte";
    return text;
}

std::string row_name(const GameState& state, int c, int row) {
    if (row == 1) return column_name(state, c);
    if (row > state.FaceUpCount(c)) return {};
    return spoken_card(state.FaceUp(c)(row)) + ", " + column(c) + ", unter " + cards(row - 1);
}

std::string counters(const GameState& state, const TableWindow& table) {
    if (!game_dealt(state)) return nothing_dealt;
    return "Zeit " + table.Zeitanzeige.Caption + ". " + table.Status.Caption + ". " +
           stock_name(state) + ". Ablage, " + cards(state.WasteCount) + ". Noch " +
           cards(cards_outside_foundations(state)) + " abzulegen";
}

/// Texts one after another, parted by full stops.
class Report {
  public:
    void say(const std::string& text) {
        if (!text.empty()) text_ += (text_.empty() ? "" : ". ") + text;
    }

    bool empty() const { return text_.empty(); }
    const std::string& text() const { return text_; }

  private:
    std::string text_;
};

void report_deal(const GameState& after, Report& report) {
    report.say("Ausgeteilt");
    for (int c = 1; c <= columns; ++c)
        report.say(exposed_card(after, c) + ", " + column(c));
    report.say(stock_name(after));
}

void report_stock(const GameState& before, const GameState& after, Report& report) {
    if (after.DrawSize != before.DrawSize) {
        report.say("Umgedreht, " + std::to_string(4 - after.DrawSize) + ". Runde");
    } else if (after.WasteCount > before.WasteCount) {
        report.say(spoken_card(waste_top(after)) + ", Ablage");
    } else if (after.WasteCount < before.WasteCount) {
        report.say(waste_name(after));
    }
    if (after.DeckCount != before.DeckCount) report.say(stock_name(after));
}

void report_foundations(const GameState& before, const GameState& after, Report& report) {
    for (int f = 1; f <= foundations; ++f) {
        if (after.FoundationCount(f) != before.FoundationCount(f))
            report.say(foundation_name(after, f));
    }
}

/// What has come to a column.
std::string arrival(const GameState& before, const GameState& after, int c) {
    const int come = after.FaceUpCount(c) - before.FaceUpCount(c);
    if (come <= 0 || after.FaceDownCount(c) < before.FaceDownCount(c)) return {};
    const bool was_empty = before.FaceUpCount(c) == 0;
    return spoken_card(after.FaceUp(c)(come)) + (come > 1 ? " mit " + cards(come - 1) : "") +
           (was_empty ? "" : " auf " + spoken_card(after.FaceUp(c)(come + 1))) + ", " + column(c);
}

/// Whether another card, or none, is the exposed one, because something has gone or been turned.
bool is_bared(const GameState& before, const GameState& after, int c) {
    return after.FaceUpCount(c) < before.FaceUpCount(c) ||
           after.FaceDownCount(c) < before.FaceDownCount(c) ||
           (before.Covered(c) && !after.Covered(c));
}

int selected_slot(const GameState& state) {
    for (int slot = 0; slot <= columns; ++slot) {
        if (state.Selected(slot)) return slot;
    }
    return -1;
}

void report_selection(const GameState& before, const GameState& after, Report& report) {
    const int was = selected_slot(before);
    const int is = selected_slot(after);
    if (was == is) return;
    if (is < 0) {
        if (report.empty()) report.say("Nicht mehr ausgewählt");
        return;
    }
    if (was >= 0 && is > 0 && report.empty()) report.say("Passt nicht");
    report.say(is == 0 ? waste_name(after) : column_name(after, is));
}

/// First what has been moved, then what that leaves.
void report_moves(const GameState& before, const GameState& after, Report& report) {
    for (int c = 1; c <= columns; ++c)
        report.say(arrival(before, after, c));
    report_foundations(before, after, report);
    for (int c = 1; c <= columns; ++c) {
        if (is_bared(before, after, c)) report.say(column_name(after, c));
    }
}

void report_end(const GameState& before, const GameState& after, const TableWindow& table,
                Report& report) {
    if (after.GameWon && !before.GameWon) report.say("Gewonnen");
    if (after.NameEntryOpen && !before.NameEntryOpen) report.say(table.Platz.Caption);
    if (before.NameEntryOpen && !after.NameEntryOpen) report.say("Eingetragen");
}

/// What has become of the table between two moments.
std::string changes(const GameState& before, const GameState& after, const TableWindow& table) {
    Report report;
    if (after.PlayedSinceStart != before.PlayedSinceStart) {
        report_deal(after, report);
        return report.text();
    }
    report_moves(before, after, report);
    report_stock(before, after, report);
    report_selection(before, after, report);
    report_end(before, after, table, report);
    return report.text();
}

std::string column_cards(const GameState& state, int c) {
    if (state.FaceUpCount(c) <= 1) return column_name(state, c);
    std::string text = column(c) + (state.Selected(c) ? ", ausgewählt" : "");
    for (int r = 1; r <= state.FaceUpCount(c); ++r)
        text += ", " + spoken_card(state.FaceUp(c)(r));
    const int covered = state.FaceDownCount(c);
    return covered > 0 ? text + ", darunter " + std::to_string(covered) + " verdeckte" : text;
}

std::string whole_table(const GameState& state) {
    if (!game_dealt(state)) return nothing_dealt;
    Report report;
    for (int c = 1; c <= columns; ++c)
        report.say(column_cards(state, c));
    report.say(waste_name(state));
    report.say(stock_name(state));
    for (int f = 1; f <= foundations; ++f)
        report.say(foundation_name(state, f));
    return report.text();
}

void name_places(const GameState& state, TableWindow& table) {
    const auto name = [&state](PictureElement& element, auto name_of) {
        element.SpokenName = [&state, name_of] { return name_of(state); };
    };
    name(table.Source_Hide, stock_name);
    name(table.Source, waste_name);
    table.Source.IsSelected = [&state] { return state.Selected(0); };
    for (int f = 1; f <= foundations; ++f)
        name(table.Stapel(f - 1), [f](const GameState& now) { return foundation_name(now, f); });
    for (int c = 1; c <= columns; ++c) {
        for (int r = 1; r <= cards_per_suit; ++r) {
            name(table.Iv(r)(c - 1), [=](const GameState& now) { return row_name(now, c, r); });
            table.Iv(r)(c - 1).IsSelected = [&state, c] { return state.Selected(c); };
        }
    }
}

}  // namespace

void let_speak(const GameState& state, TableWindow& table) {
    name_places(state, table);
    table.SpokenChanges = [&state, &table, before = state]() mutable {
        const GameState was = std::exchange(before, state);
        return changes(was, state, table);
    };
    table.SpokenAnswer = [&state, &table](char key) {
        return key == 'T'   ? whole_table(state)
               : key == 'Z' ? counters(state, table)
                            : std::string();
    };
}

}  // namespace solvanta
