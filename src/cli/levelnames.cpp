#include "levelnames.h"

#include <array>

namespace gradino::cli {
namespace {

// clang-format off
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
// clang-format on

}  // namespace

const Words& levelname(int level) {
  return names.at(static_cast<std::size_t>(level));
}

}  // namespace gradino::cli
