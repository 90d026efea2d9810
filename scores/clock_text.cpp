#include "scores/clock_text.h"

namespace solvanta {

std::string clock_text(std::int32_t seconds) {
    const std::string rest = std::to_string(seconds % 60);
    return std::to_string(seconds / 60) + (rest.size() < 2 ? ":0" : ":") + rest;
}

}  // namespace solvanta
