#include "levelnames.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

namespace gradino::cli {
namespace {

// clang-format off
constexpr Words nishio = {"Nishio", "Nishio"};

constexpr std::array<Words, 22> names{{
    {"ultima cifra, singolo nel riquadro", "last digit, single in block"},
    {"singolo nascosto", "hidden single"},
    {"singolo nudo", "naked single"},
    {"intersezioni", "intersections"},
    {"coppia nuda", "naked pair"},
    {"coppia nascosta", "hidden pair"},
    {"tripla", "triple"},
    {"quadrupla", "quad"},
    {"XY-Wing", "XY-Wing"},
    {"XYZ-Wing", "XYZ-Wing"},
    {"X-Wing", "X-Wing"},
    {"Swordfish", "Swordfish"},
    {"Jellyfish", "Jellyfish"},
    {"colori semplici", "simple colours"},
    {"colori semplici, contraddizione", "simple colours, contradiction"},
    {"X-Colors", "X-colours"},
    {"X-Colors, contraddizione", "X-colours, contradiction"},
    {"rettangolo unico", "unique rectangle"},
    {"BUG", "BUG"},
    {"XY-chain", "XY-chain"},
    {"loop", "loop"},
    {"forcing chain", "forcing chain"},
}};

constexpr std::array<std::pair<std::string_view, Words>, 22> techniques{{
    {"findOneMissing",     {"ultima cifra di una casa", "last digit of a house"}},
    {"findSingleInBlock",  {"singolo nascosto in un riquadro", "hidden single in a block"}},
    {"findSingleInRow",    {"singolo nascosto in una riga", "hidden single in a row"}},
    {"findSingleInColumn", {"singolo nascosto in una colonna", "hidden single in a column"}},
    {"findSingleInCell",   names[2]},
    {"intersections",      names[3]},
    {"nakedpair",          names[4]},
    {"hiddenpair",         names[5]},
    {"findtriple",         names[6]},
    {"findquad",           names[7]},
    {"findxywing",         names[8]},
    {"findxyzwing",        names[9]},
    {"findxwing",          names[10]},
    {"findswordfish",      names[11]},
    {"findjellyfish",      names[12]},
    {"colors",             {"colori semplici o X-Colors", "simple colours or X-colours"}},
    {"ur",                 names[17]},
    {"bug",                names[18]},
    {"xychain",            names[19]},
    {"links",              names[20]},
    {"xlinks",             names[21]},
    {"impossible",         nishio},
}};
// clang-format on

}  // namespace

const Words& levelname(int level) {
  return names.at(static_cast<std::size_t>(level));
}

const Words& techniquename(std::string_view tag) {
  const auto* found = std::ranges::find(techniques, tag, &std::pair<std::string_view, Words>::first);
  if (found == techniques.end()) throw std::out_of_range("no technique of this tag");
  return found->second;
}

}  // namespace gradino::cli
