#pragma once

#include "core/bounded.h"
#include "platform/elements.h"

// The three windows with their elements as they are laid out. Nothing here reacts to anything:
// the handlers belong to the application.

namespace solvanta {

/// A row of the tableau: element c - 1 shows column c.
using TableauRow = Bounded<PictureElement, 0, 9>;

inline constexpr Twips card_width = 1080;
inline constexpr Twips card_height = 1440;
inline constexpr Twips column_pitch = 1200;
inline constexpr Twips column_left = 120;
inline constexpr Twips column_top = 1800;
inline constexpr Twips face_down_step = 120;
inline constexpr Twips face_up_step = 240;

/// The card table as it is laid out, before start-up hides anything.
struct TableWindow : Form {
    TableWindow();

    CommandButton Command1;  ///< "neues Spiel"
    Label Status;
    Label Zeitanzeige;
    Frame FrBestzeiteintrag;
    Label Label1;
    TextBox InName;
    CommandButton Comm_highscore;
    CommandButton Command3;  ///< "Hilfe"
    Label Platz;
    CommandButton Command_Beenden;
    PictureBox Scull;
    PictureBox Diddle;

    Timer Timer1;
    PictureElement zeiger;
    PictureElement Source_Hide;            ///< the stock
    PictureElement Source;                 ///< the waste's top card
    Bounded<PictureElement, 0, 7> Stapel;  ///< element f - 1 shows foundation f
    Bounded<TableauRow, 1, 9> Ih;          ///< `Ih1` to `Ih9`, the face-down rows
    Bounded<TableauRow, 1, 13> Iv;         ///< `Iv1` to `Iv13`, the face-up rows

  private:
    void place_elements();
    void place_rows();
    void add_key_stop(PictureElement& element, char key = 0);
    void list_elements();
};

/// The best-times list.
struct BestTimesWindow : Form {
    BestTimesWindow();

    CommandButton Command_Ok;
    RichTextBox RTB1;
    CommandButton Comm_clear_highscore;
};

/// The help.
struct HelpWindow : Form {
    HelpWindow();

    RichTextBox RichTextBox1;
};

}  // namespace solvanta
