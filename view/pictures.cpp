#include "view/pictures.h"

#include <array>
#include <filesystem>

namespace solvanta {
namespace {

constexpr std::array<std::string_view, 4> suit_words{"Herz", "Pick", "Karo", "Kreuz"};
constexpr std::array<std::string_view, cards_per_suit> rank_words{
    "1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "B", "D", "K"};

}  // namespace

std::string program_file(std::string_view directory, std::string_view name) {
    std::string path;
    path.reserve(directory.size() + 1 + name.size());
    path += directory;
    path += static_cast<char>(std::filesystem::path::preferred_separator);
    path += name;
    return path;
}

std::string CardPicturePath(std::string_view directory, CardNumber card) {
    if (!is_card(card)) return {};
    std::string name(suit_words.at(static_cast<std::size_t>(suit_index(card))));
    name += '_';
    name += rank_words.at(static_cast<std::size_t>(rank(card) - 1));
    name += ".bmp";
    return program_file(directory, name);
}

}  // namespace solvanta
