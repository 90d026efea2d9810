#include "tests/support/position.h"

#include <algorithm>
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
            state_.DeckCount = take_all(words, state_.Deck);
        } else if (key == "W") {
            state_.WasteCount = take_all(words, state_.Waste);
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
    int take_all(std::istringstream& words, Pile& pile) {
        int count = 0;
        for (std::string word; words >> word && word != "|";)
            pile(++count) = take(word.substr(0, word.find('?')));
        return count;
    }

    void parse_foundations(std::istringstream& words) {
        for (int f = 1; f <= foundations; ++f) {
            words >> state_.FoundationCount(f);
            for (int level = 1; level <= state_.FoundationCount(f); ++level)
                state_.FoundationCards(f)(level) = take(print_card((f - 1) % 4 * 13 + level));
        }
    }

    void parse_column(int c, std::istringstream& words) {
        const std::string text = words.str();
        auto& run = state_.FaceUp(c);
        if (text.find('|') != std::string::npos)
            state_.FaceDownCount(c) = take_all(words, state_.FaceDown(c));
        state_.FaceUpCount(c) = take_all(words, run);
        std::reverse(run.begin(), run.begin() + state_.FaceUpCount(c));
        state_.Covered(c) = text.back() == '?';
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
    std::string text = "D " + std::to_string(state.DrawSize);
    const auto print = [&text](const auto& cards, int count) {
        for (int i = 1; i <= count; ++i)
            text += ' ' + print_card(cards(i));
    };
    text += "; S";
    print(state.Deck, state.DeckCount);
    text += "; W";
    print(state.Waste, state.WasteCount);
    text += "; F";
    for (const int count : state.FoundationCount)
        text += ' ' + std::to_string(count);
    for (int c = 1; c <= columns; ++c) {
        if (state.FaceUpCount(c) + state.FaceDownCount(c) == 0) continue;
        text += "; " + std::to_string(c);
        print(state.FaceDown(c), state.FaceDownCount(c));
        if (state.FaceDownCount(c) > 0) text += " |";
        for (int r = state.FaceUpCount(c); r >= 1; --r)
            text += ' ' + print_card(state.FaceUp(c)(r));
        if (state.Covered(c)) text += '?';
    }
    for (int slot = 0; slot <= columns; ++slot) {
        if (state.Selected(slot)) text += "; sel " + std::to_string(slot);
    }
    return text;
}

}  // namespace solvanta::test
