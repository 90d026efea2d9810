#include "tests/support/position.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <stdexcept>

namespace solvanta::test {
namespace {

struct Parser {
    explicit Parser(std::string_view text) {
        state.DrawSize = 3;
        state.ClockRunning = true;
        left.fill(2);
        std::istringstream sections{std::string(text)};
        for (std::string section; std::getline(sections, section, ';');)
            parse_section(section);
        for (CardNumber card = 1; card <= cards_per_deck && !stock_given; ++card) {
            for (; left(card) > 0; --left(card))
                state.Deck(++state.DeckCount) = card;
        }
    }

    void parse_section(const std::string& section) {
        std::istringstream words(section);
        std::string key;
        words >> key;
        if (key == "D") words >> state.DrawSize;
        if (key == "S") state.DeckCount = take_all(words, state.Deck);
        if (key == "W") state.WasteCount = take_all(words, state.Waste);
        for (int f = 1, count = 0; key == "F" && words >> count; ++f) {
            for (int& level = state.FoundationCount(f); level < count; ++level)
                state.FoundationCards(f)(level + 1) =
                    take(print_card((f - 1) % 4 * 13 + level + 1));
        }
        if (const int column = std::atoi(key.c_str())) parse_column(column, words);
        stock_given |= key == "S";
        if (int slot = 0; key == "sel" && words >> slot) state.Selected(slot) = true;
    }

    CardNumber take(const std::string& word) {
        for (CardNumber card = 1; card <= cards_per_deck; ++card) {
            if (word == print_card(card) && --left(card) >= 0) return card;
        }
        throw std::invalid_argument("no card, or a third one: " + word);
    }

    template <typename Pile>
    int take_all(std::istringstream& words, Pile& pile) {
        int count = 0;
        for (std::string word; words >> word && word != "|";)
            pile(++count) = take(word.substr(0, word.find('?')));
        return count;
    }

    void parse_column(int c, std::istringstream& words) {
        const std::string text = words.str();
        if (text.find('|') != std::string::npos)
            state.FaceDownCount(c) = take_all(words, state.FaceDown(c));
        state.FaceUpCount(c) = take_all(words, state.FaceUp(c));
        std::reverse(state.FaceUp(c).begin(), state.FaceUp(c).begin() + state.FaceUpCount(c));
        state.Covered(c) = text.back() == '?';
    }

    GameState state;
    Bounded<int, 1, cards_per_deck> left;
    bool stock_given = false;
};

}  // namespace

std::string print_card(CardNumber card) {
    if (!is_card(card)) return "??";
    const int r = rank(card);
    return "HPKX"[suit_index(card)] + (r <= 10 ? std::to_string(r) : std::string(1, "BDK"[r - 11]));
}

GameState parse_position(std::string_view text) {
    return Parser(text).state;
}

std::string print_position(const GameState& state) {
    std::ostringstream text;
    const auto print = [&text](const auto& cards, int count) {
        for (int i = 1; i <= count; ++i)
            text << ' ' << print_card(cards(i));
    };
    text << "D " << state.DrawSize << "; S";
    print(state.Deck, state.DeckCount);
    text << "; W";
    print(state.Waste, state.WasteCount);
    text << "; F";
    for (const int count : state.FoundationCount)
        text << ' ' << count;
    for (int c = 1; c <= columns; ++c) {
        if (state.FaceUpCount(c) + state.FaceDownCount(c) == 0) continue;
        text << "; " << c;
        print(state.FaceDown(c), state.FaceDownCount(c));
        text << (state.FaceDownCount(c) > 0 ? " |" : "");
        for (int r = state.FaceUpCount(c); r >= 1; --r)
            text << ' ' << print_card(state.FaceUp(c)(r));
        text << (state.Covered(c) ? "?" : "");
    }
    for (int slot = 0; slot <= columns; ++slot) {
        if (state.Selected(slot)) text << "; sel " << slot;
    }
    return text.str();
}

}  // namespace solvanta::test
