#pragma once

#include <string>
#include <string_view>

#include "core/cards.h"

namespace solvanta {

inline constexpr std::string_view empty_place_file = "Leer.bmp";
inline constexpr std::string_view whole_back_file = "Back_ganz.bmp";
inline constexpr std::string_view back_strip_file = "Back_verdeckt.bmp";
inline constexpr std::string_view pointer_file = "zeiger.bmp";
inline constexpr std::string_view win_picture_file = "diddle.jpg";
inline constexpr std::string_view skull_picture_file = "skull.gif";

/// The path of a file of the program directory: directory, the platform's separator, name, joined
/// as they are.
std::string program_file(std::string_view directory, std::string_view name);

/// The path of a card's face picture; empty when `card` is not 1 to 52.
std::string CardPicturePath(std::string_view directory, CardNumber card);

}  // namespace solvanta
