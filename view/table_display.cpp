#include "view/table_display.h"

#include "core/moves.h"
#include "view/pictures.h"

namespace solvanta {
namespace {

constexpr Twips pointer_offset_x = 210;       // from the left edge of what it points at
constexpr Twips pointer_offset_waste = -100;  // from the waste's upper edge
constexpr Twips pointer_top = 1440;           // above a column

Picture load_file(const std::string& directory, std::string_view name) {
    return Picture::load(program_file(directory, name));
}

Picture load_card(const std::string& directory, CardNumber card) {
    return Picture::load(CardPicturePath(directory, card));
}

void show_exposed(const GameState& state, TableWindow& table, const std::string& directory, int col,
                  Twips top) {
    PictureElement& slot = table.Iv(1)(col - 1);
    slot.Picture = state.Covered(col) ? load_file(directory, whole_back_file)
                                      : load_card(directory, state.FaceUp(col)(1));
    slot.Top = top;
    slot.Visible = true;
}

void show_cascade(const GameState& state, TableWindow& table, const std::string& directory, int col,
                  Twips origin) {
    const int count = state.FaceUpCount(col);
    for (int r = count; r >= 2; --r) {
        PictureElement& slot = table.Iv(r)(col - 1);
        slot.Picture = load_card(directory, state.FaceUp(col)(r));
        slot.Width = card_width;
        slot.Height = face_up_step;
        slot.CutToHeight = true;
        slot.Top = origin + face_up_step * (count - r);
        slot.Visible = true;
    }
    show_exposed(state, table, directory, col, origin + face_up_step * (count - 1));
}

void show_empty_column(TableWindow& table, const std::string& directory, int col) {
    PictureElement& slot = table.Iv(1)(col - 1);
    slot.Picture = load_file(directory, empty_place_file);
    slot.Top = column_top;
    slot.Visible = true;
}

Twips face_up_origin(const GameState& state, int col) {
    return column_top + face_down_step * state.FaceDownCount(col);
}

void place_pointer(const GameState& state, TableWindow& table) {
    if (state.Selected(0)) {
        table.zeiger.Left = table.Source.Left + pointer_offset_x;
        table.zeiger.Top = table.Source.Top + pointer_offset_waste;
        return;
    }
    for (int c = 1; c <= columns; ++c) {
        if (!state.Selected(c)) continue;
        table.zeiger.Left = column_left + column_pitch * (c - 1) + pointer_offset_x;
        table.zeiger.Top = pointer_top;
        table.zeiger.Visible = true;
    }
}

std::string status_text(int draw_size) {
    if (draw_size == 1) return "3.Runde: 1 Karte heben";
    return std::to_string(4 - draw_size) + ".Runde: " + std::to_string(draw_size) + " Karten heben";
}

}  // namespace

void ShowFaceDownCards(const GameState& state, TableWindow& table) {
    for (int c = 1; c <= columns; ++c) {
        for (int r = 1; r <= 9; ++r)
            table.Ih(r)(c - 1).Visible = state.FaceDownCount(c) >= r;
    }
}

void ShowFoundations(const GameState& state, TableWindow& table, const std::string& directory) {
    for (int f = 1; f <= foundations; ++f) {
        const int count = state.FoundationCount(f);
        table.Stapel(f - 1).Picture = count > 0
                                          ? load_card(directory, state.FoundationCards(f)(count))
                                          : load_file(directory, empty_place_file);
    }
}

void ShowFaceUpCards(GameState& state, TableWindow& table, const std::string& directory) {
    for (int c = 1; c <= columns; ++c) {
        for (TableauRow& row : table.Iv)
            row(c - 1).Visible = false;
        if (state.FaceUpCount(c) > 0) {
            show_cascade(state, table, directory, c, face_up_origin(state, c));
        } else if (state.FaceDownCount(c) == 0) {
            show_empty_column(table, directory, c);
        } else {
            expose_next_card(state, c);
            ShowFaceDownCards(state, table);
            show_exposed(state, table, directory, c, face_up_origin(state, c));
        }
    }
}

void RefreshTable(GameState& state, TableWindow& table, const std::string& directory) {
    ShowFaceDownCards(state, table);
    ShowFoundations(state, table, directory);
    ShowFaceUpCards(state, table, directory);
    place_pointer(state, table);
    table.Status.Caption = status_text(state.DrawSize);
    table.Source.Picture = state.WasteCount == 0
                               ? load_file(directory, empty_place_file)
                               : load_card(directory, state.Waste(state.WasteCount));
    table.Source_Hide.Picture =
        load_file(directory, state.DeckCount != 0 ? whole_back_file : empty_place_file);
}

}  // namespace solvanta
