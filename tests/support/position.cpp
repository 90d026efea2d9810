#include "tests/support/position.h"

#include <sstream>
#include <stdexcept>
#include <vector>

#include "scores/best_times.h"

namespace solvanta::test {
namespace {

const std::string suits = "HPKX";
const std::vector<std::string> ranks{"1", "2", "3",  "4", "5", "6", "7",
                                     "8", "9", "10", "B", "D", "K"};

class Parser {
  public:
    GameState parse(std::string_view text) {
        clear_places(state_);
        state_.DrawSize = 3;
        state_.ClockRunning = true;
        left_.fill(2);
        std::istringstream sections{std::string(text)};
        for (std::string section; std::getline(sections, section, ';');) {
            std::istringstream words(section);
            std::string key;
            if (words >> key) parse_section(key, words);
        }
        if (!stock_given_) fill_stock();
        return state_;
    }

  private:
    void parse_section(const std::string& key, std::istringstream& words) {
        if (key == "D") {
            words >> state_.DrawSize;
        } else if (key == "S") {
            stock_given_ = true;
            parse_pile(words, state_.Deck, state_.DeckCount);
        } else if (key == "W") {
            parse_pile(words, state_.Waste, state_.WasteCount);
        } else if (key == "F") {
            parse_foundations(words);
        } else if (key == "sel") {
            int slot = 0;
            words >> slot;
            state_.Selected(slot) = true;
        } else {
            parse_column(std::stoi(key), words);
        }
    }

    CardNumber take(const std::string& word) {
        for (CardNumber card = 1; card <= cards_per_deck; ++card) {
            if (word == print_card(card) && --left_(card) >= 0) return card;
        }
        throw std::invalid_argument("no card, or a third one: " + word);
    }

    template <typename Pile>
    void parse_pile(std::istringstream& words, Pile& pile, int& count) {
        for (std::string word; words >> word;)
            pile(++count) = take(word);
    }

    void parse_foundations(std::istringstream& words) {
        for (int f = 1; f <= foundations; ++f) {
            words >> state_.FoundationCount(f);
            for (int level = 1; level <= state_.FoundationCount(f); ++level) {
                state_.FoundationCards(f)(level) = take(print_card((f - 1) % 4 * 13 + level));
            }
        }
    }

    void parse_column(int c, std::istringstream& words) {
        std::vector<CardNumber> run;
        for (std::string word; words >> word;) {
            if (word == "|") {
                for (const CardNumber card : run)
                    state_.FaceDown(c)(++state_.FaceDownCount(c)) = card;
                run.clear();
                continue;
            }
            state_.Covered(c) = word.back() == '?';
            if (state_.Covered(c)) word.pop_back();
            run.push_back(take(word));
        }
        state_.FaceUpCount(c) = static_cast<int>(run.size());
        int row = state_.FaceUpCount(c);
        for (const CardNumber card : run)
            state_.FaceUp(c)(row--) = card;
    }

    void fill_stock() {
        for (CardNumber card = 1; card <= cards_per_deck; ++card) {
            for (; left_(card) > 0; --left_(card))
                state_.Deck(++state_.DeckCount) = card;
        }
    }

    GameState state_;
    Bounded<int, 1, cards_per_deck> left_;
    bool stock_given_ = false;
};

template <typename Pile>
void print_pile(std::ostream& out, const char* key, const Pile& pile, int count) {
    out << "; " << key;
    for (int i = 1; i <= count; ++i)
        out << ' ' << print_card(pile(i));
}

void print_column(std::ostream& out, const GameState& state, int c) {
    if (state.FaceUpCount(c) == 0 && state.FaceDownCount(c) == 0) return;
    out << "; " << c;
    for (int r = 1; r <= state.FaceDownCount(c); ++r) {
        out << ' ' << print_card(state.FaceDown(c)(r));
    }
    if (state.FaceDownCount(c) > 0) out << " |";
    for (int r = state.FaceUpCount(c); r >= 1; --r)
        out << ' ' << print_card(state.FaceUp(c)(r));
    if (state.Covered(c)) out << '?';
}

}  // namespace

std::string print_card(CardNumber card) {
    if (!is_card(card)) return "??";
    return suits.at(static_cast<std::size_t>(suit_index(card))) +
           ranks.at(static_cast<std::size_t>(rank(card) - 1));
}

GameState parse_position(std::string_view text) {
    return Parser().parse(text);
}

std::string print_position(const GameState& state) {
    std::ostringstream out;
    out << "D " << state.DrawSize;
    print_pile(out, "S", state.Deck, state.DeckCount);
    print_pile(out, "W", state.Waste, state.WasteCount);
    out << "; F";
    for (const int count : state.FoundationCount)
        out << ' ' << count;
    for (int c = 1; c <= columns; ++c)
        print_column(out, state, c);
    for (int slot = 0; slot <= columns; ++slot) {
        if (state.Selected(slot)) out << "; sel " << slot;
    }
    return out.str();
}

}  // namespace solvanta::test
