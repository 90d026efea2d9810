#include "cards.h"

#include <string>
#include <vector>

namespace solvanta::pictures {

namespace {

constexpr Box whole_card{0, 0, card_width, card_height};
constexpr std::size_t first_court = 10;

// The index stands in whole pixels, so that it is sharp where a point is one pixel, and within
// the 15 rows that a covered card in a column shows beneath its edge.
constexpr Box index_rank{4, 3, 11, 11};
constexpr Box index_suit{16, 3, 11, 11};

// A court's own pip, beneath the index.
constexpr Box court_pip{4, 18, 13, 13};

constexpr double pip_size = 14;
constexpr double left_column = 19;
constexpr double middle_column = card_width / 2;
constexpr double right_column = card_width - left_column;
constexpr double middle_row = card_height / 2;
constexpr double top_row = 24;

// The courts' halves meet on a line that falls to the left; the half's upper side is its own.
constexpr double seam_rise = 5;

struct Place {
    double x = 0;
    double y = 0;
};

// Rows of four across the card, counted from the top.
constexpr double second_of_four = top_row + (card_height - 2 * top_row) / 3;
// Between the first two of three or four rows.
constexpr double high_of_three = (top_row + middle_row) / 2;
constexpr double high_of_four = (top_row + second_of_four) / 2;

// The pips in the upper half of the card and on its middle line; the lower half mirrors them.
std::vector<Place> upper_pips(std::size_t count) {
    const Place top{middle_column, top_row};
    const Place centre{middle_column, middle_row};
    const std::vector<Place> corners{{left_column, top_row}, {right_column, top_row}};
    std::vector<Place> pips;
    if (count == 2 || count == 3) {
        pips.push_back(top);
    } else {
        pips = corners;
    }
    if (count >= 9) {
        pips.push_back({left_column, second_of_four});
        pips.push_back({right_column, second_of_four});
    }
    if (count == 6 || count == 7 || count == 8) {
        pips.push_back({left_column, middle_row});
        pips.push_back({right_column, middle_row});
    }
    if (count == 3 || count == 5 || count == 9) {
        pips.push_back(centre);
    }
    if (count == 7 || count == 8) {
        pips.push_back({middle_column, high_of_three});
    }
    if (count == 10) {
        pips.push_back({middle_column, high_of_four});
    }
    return pips;
}

std::string lower_case(std::string_view word) {
    std::string text(word);
    text.front() = static_cast<char>(text.front() - 'A' + 'a');
    return text;
}

std::string part_name(const char* kind, const Card& card) {
    return std::string(kind) + "_" + lower_case(suit_words[card.suit]);
}

std::string rank_name(const Card& card) {
    return card.rank == 0 ? "A" : std::string(rank_words[card.rank]);
}

void draw_index(Painter& painter, const Card& card) {
    const std::string suit = part_name("suit", card);
    painter.place_in_ink_of(suit, "index_" + rank_name(card), index_rank);
    painter.place(part_name("index", card), index_suit);
}

void draw_pips(Painter& painter, const Card& card) {
    const std::size_t count = card.rank + 1;
    const std::string suit = part_name("suit", card);
    for (const Place& pip : upper_pips(count)) {
        const Box box{pip.x - pip_size / 2, pip.y - pip_size / 2, pip_size, pip_size};
        painter.place(suit, box);
        // The seven has its odd pip in the upper half alone.
        const bool only_above = count == 7 && pip.x == middle_column;
        if (pip.y < middle_row && !only_above) {
            const HalfTurn turn(painter.context(), card_width, card_height);
            painter.place(suit, box);
        }
    }
}

// The area of the card above the seam and as much below it as `overlap` says.
void trace_upper_half(cairo_t* context, double overlap) {
    cairo_move_to(context, 0, 0);
    cairo_line_to(context, card_width, 0);
    cairo_line_to(context, card_width, middle_row - seam_rise + overlap);
    cairo_line_to(context, 0, middle_row + seam_rise + overlap);
    cairo_close_path(context);
}

// Draws the figure whole before cutting it, so that nothing behind it shines through the cut.
void draw_court_half(Painter& painter, const Card& card, double overlap) {
    cairo_t* context = painter.context();
    cairo_push_group(context);
    painter.place(part_name("court", card) + "_" + rank_name(card), whole_card);
    painter.place(part_name("suit", card), court_pip);
    cairo_pop_group_to_source(context);
    trace_upper_half(context, overlap);
    cairo_fill(context);
}

// The turned half reaches a little across the seam, so that no gap shows the card between them.
void draw_court(Painter& painter, const Card& card) {
    {
        const HalfTurn turn(painter.context(), card_width, card_height);
        draw_court_half(painter, card, 0.5);
    }
    draw_court_half(painter, card, 0);
}

}  // namespace

void draw_face(Painter& painter, const Card& card) {
    painter.fill(table_green);
    painter.place("card", whole_card);
    if (card.rank == 0) {
        painter.place(part_name("ace", card), whole_card);
    } else if (card.rank < first_court) {
        draw_pips(painter, card);
    } else {
        draw_court(painter, card);
    }
    draw_index(painter, card);
    const HalfTurn turn(painter.context(), card_width, card_height);
    draw_index(painter, card);
}

void draw_back(Painter& painter) {
    painter.fill(table_green);
    painter.place("back", whole_card);
}

void draw_empty_place(Painter& painter) {
    painter.fill(table_green);
    painter.place("leer", whole_card);
}

}  // namespace solvanta::pictures
