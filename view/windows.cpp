#include "view/windows.h"

#include <string_view>

namespace solvanta {
namespace {

struct Place {
    Twips left;
    Twips top;
    Twips width;
    Twips height;
};

struct FontLayout {
    std::string_view family;
    double points;
    bool bold;
};

template <typename Window>
struct ButtonLayout {
    CommandButton Window::*button;
    Place place;
    std::string_view caption;
};

struct LabelLayout {
    Label TableWindow::*label;
    Place place;
    std::string_view caption;
    FontLayout font;
    Color text;
    bool on_table;  // filled with the table's green, else with the standard background
    Alignment alignment;
};

struct PictureLayout {
    PictureElement TableWindow::*element;
    Place place;
};

struct PictureBoxLayout {
    PictureBox TableWindow::*box;
    Place place;
};

struct FormLayout {
    std::string_view caption;
    Twips width;
    Twips height;
    OpeningPlace place;
};

constexpr Color table_green{0, 64, 0};

constexpr FontLayout standard_font{"", 0, false};
constexpr FontLayout prompt_font{"MS Sans Serif", 9.75, true};
constexpr FontLayout input_font{"MS Sans Serif", 12, true};
constexpr FontLayout place_font{"MS Sans Serif", 13.5, true};
constexpr FontLayout list_font{"Courier New", 11.25, false};

constexpr FormLayout table_form{"Solvanta V1.6", 12330, 7800, OpeningPlace::Centered};
constexpr FormLayout best_times_form{"Highscores - Top 30", 10830, 7020, OpeningPlace::Centered};
constexpr FormLayout help_form{"Hilfe", 10020, 6660, OpeningPlace::SystemChoice};

constexpr ButtonLayout<TableWindow> table_buttons[] = {
    {&TableWindow::Command1, {120, 7440, 1215, 255}, "neues Spiel"},
    {&TableWindow::Comm_highscore, {1920, 7440, 1215, 255}, "Bestzeiten"},
    {&TableWindow::Command3, {3840, 7440, 735, 255}, "Hilfe"},
    {&TableWindow::Command_Beenden, {8880, 7440, 1095, 255}, "Beenden"},
};

constexpr ButtonLayout<BestTimesWindow> best_times_buttons[] = {
    {&BestTimesWindow::Command_Ok, {4320, 6600, 1335, 375}, "Ok"},
    {&BestTimesWindow::Comm_clear_highscore, {120, 6600, 1455, 375}, "Löschen"},
};

constexpr LabelLayout table_labels[] = {
    {&TableWindow::Status,
     {5160, 7440, 3135, 255},
     "",
     standard_font,
     {0, 192, 192},
     true,
     Alignment::Left},
    {&TableWindow::Zeitanzeige,
     {10440, 7320, 1695, 375},
     "",
     input_font,
     {0, 128, 128},
     true,
     Alignment::Right},
    {&TableWindow::Label1,
     {600, 240, 4935, 1455},
     "Gratulation, bitte geben Sie Ihren Namen ein:",
     prompt_font,
     {0, 0, 255},
     false,
     Alignment::Centered},
    {&TableWindow::Platz,
     {1680, 960, 2655, 375},
     "Platz:",
     place_font,
     {192, 0, 192},
     false,
     Alignment::Centered},
};

constexpr PictureLayout table_pictures[] = {
    {&TableWindow::zeiger, {9720, 1440, 675, 360}},
    {&TableWindow::Source_Hide, {9960, 120, card_width, card_height}},
    {&TableWindow::Source, {11160, 120, card_width, card_height}},
};

constexpr PictureBoxLayout table_boxes[] = {
    {&TableWindow::Scull, {4560, 720, 2820, 2100}},
    {&TableWindow::Diddle, {4080, 960, 3420, 3630}},
};

constexpr Place frame_place{2640, 4680, 6135, 1455};
constexpr std::string_view frame_caption = "Eintrag in die Bestzeitliste";
constexpr Place name_place{600, 480, 4935, 420};
constexpr int clock_interval = 1000;
constexpr Place list_place{0, 0, 10815, 6495};
constexpr Place help_place{0, 0, 10035, 6675};

constexpr Place foundation_place(int i) {
    return {column_left + column_pitch * i, 120, card_width, card_height};
}

constexpr Place face_down_place(int row, int i) {
    return {column_left + column_pitch * i, column_top + face_down_step * (row - 1), card_width,
            face_down_step};
}

/// As designed: the first refresh gives every row but the exposed one the size of its strip.
constexpr Place face_up_place(int row, int i) {
    const Twips left = column_left + column_pitch * i;
    if (row == 1) return {left, 5760, card_width, card_height};
    if (row == 2) return {left, 2880, card_width, face_up_step};
    return {left, 2880 + face_up_step * (row - 2), 1095, i == 0 ? face_up_step : 255};
}

void put(Element& element, const Place& place) {
    element.Left = place.left;
    element.Top = place.top;
    element.Width = place.width;
    element.Height = place.height;
}

Font font_from(const FontLayout& layout) {
    return {std::string(layout.family), layout.points, layout.bold};
}

void set_up(Form& form, const FormLayout& layout) {
    form.Caption = layout.caption;
    form.ClientWidth = layout.width;
    form.ClientHeight = layout.height;
    form.Place = layout.place;
}

template <typename Window, std::size_t Count>
void set_up_buttons(Window& window, const ButtonLayout<Window> (&layouts)[Count]) {
    for (const auto& layout : layouts) {
        CommandButton& button = window.*layout.button;
        put(button, layout.place);
        button.Caption = layout.caption;
    }
}

}  // namespace

TableWindow::TableWindow() {
    set_up(*this, table_form);
    BackColor = table_green;
    HasIcon = true;
    Timer1.Interval = clock_interval;
    place_elements();
    place_rows();
    list_elements();
}

void TableWindow::place_elements() {
    set_up_buttons(*this, table_buttons);
    for (const LabelLayout& layout : table_labels) {
        Label& label = this->*layout.label;
        put(label, layout.place);
        label.Caption = layout.caption;
        label.Font = font_from(layout.font);
        label.ForeColor = layout.text;
        if (layout.on_table) label.BackColor = table_green;
        label.Alignment = layout.alignment;
    }
    for (const PictureLayout& layout : table_pictures)
        put(this->*layout.element, layout.place);
    for (const PictureBoxLayout& layout : table_boxes)
        put(this->*layout.box, layout.place);
    put(FrBestzeiteintrag, frame_place);
    FrBestzeiteintrag.Caption = frame_caption;
    put(InName, name_place);
    InName.Font = font_from(input_font);
}

void TableWindow::place_rows() {
    for (int i = 0; i <= 7; ++i)
        put(Stapel(i), foundation_place(i));
    for (int i = 0; i <= 9; ++i) {
        for (int r = 1; r <= 9; ++r)
            put(Ih(r)(i), face_down_place(r, i));
        for (int r = 1; r <= 13; ++r)
            put(Iv(r)(i), face_up_place(r, i));
    }
}

void TableWindow::add_key_stop(PictureElement& element, char key) {
    element.KeyStop = true;
    element.Key = key;
    canvas.emplace_back(&element);
}

void TableWindow::list_elements() {
    for (PictureElement& element : Stapel)
        add_key_stop(element);
    add_key_stop(Source_Hide, 'S');
    add_key_stop(Source, 'A');
    for (int i = 0; i <= 9; ++i) {
        for (TableauRow& row : Ih)
            canvas.emplace_back(&row(i));
        for (int r = 13; r >= 1; --r)
            add_key_stop(Iv(r)(i), r == 1 ? "1234567890"[i] : '\0');
    }
    canvas.insert(canvas.end(), {&zeiger, &Status, &Zeitanzeige});

    FrBestzeiteintrag.canvas = {&Label1, &Platz};
    FrBestzeiteintrag.controls = {&InName};
    controls = {&Command1, &FrBestzeiteintrag, &Comm_highscore, &Command3, &Command_Beenden, &Scull,
                &Diddle};
    timers = {&Timer1};
}

BestTimesWindow::BestTimesWindow() {
    set_up(*this, best_times_form);
    set_up_buttons(*this, best_times_buttons);
    put(RTB1, list_place);
    RTB1.Font = font_from(list_font);
    RTB1.Columns = {{"Platz", 0}, {"Zeit", 4}, {"Name", 12}, {"Datum", 39}};
    controls = {&Command_Ok, &RTB1, &Comm_clear_highscore};
}

HelpWindow::HelpWindow() {
    set_up(*this, help_form);
    put(RichTextBox1, help_place);
    controls = {&RichTextBox1};
}

}  // namespace solvanta
