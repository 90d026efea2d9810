#pragma once

#include <array>
#include <string>

namespace solvanta {

struct LocalTime {
    int year = 0;
    int month = 1;  ///< 1 to 12
    int day = 1;    ///< 1 to 31
    int hour = 0;   ///< 0 to 23
    int minute = 0;
};

struct LocaleTexts {
    std::array<std::string, 12> month_abbreviations;
    std::string time_separator;
    std::string decimal_separator;
};

}  // namespace solvanta
