// Houses as nine cells.
#pragma once

#include <array>
#include <string>

#include "tables.h"

namespace gradino {

/// A house seen as its nine cells, in position order.
using House = std::array<int, 9>;

enum class HouseKind { row, column, block };

/// Cell at a position (0 to 8) of a house (0 to 8).
inline int housecell(HouseKind kind, int house, int position) {
  return kind == HouseKind::row      ? house * 9 + position
         : kind == HouseKind::column ? position * 9 + house
                                     : blockcells(house, position);
}

inline constexpr auto houses = [] {
  std::array<std::array<House, 9>, 3> kinds{};
  for (std::size_t house = 0; house < 9; ++house)
    for (std::size_t p = 0; p < 9; ++p) {
      kinds[0][house][p] = static_cast<int>(house * 9 + p);
      kinds[1][house][p] = static_cast<int>(p * 9 + house);
      kinds[2][house][p] = static_cast<int>(house / 3 * 27 + house % 3 * 3 + p / 3 * 9 + p % 3);
    }
  return kinds;
}();

/// The cells of a house, 0 to 8, of a kind.
inline const House& housecells(HouseKind kind, int house) {
  return houses[static_cast<std::size_t>(kind)].at(static_cast<std::size_t>(house));
}

/// The house of a kind (0 to 8) that a cell lies in.
inline int houseof(HouseKind kind, int cell) {
  return (kind == HouseKind::row      ? cellrow(cell)
          : kind == HouseKind::column ? cellcol(cell)
                                      : cellblock(cell)) -
         1;
}

/// Where a digit can still go in a house.
inline Positions housepos(HouseKind kind, int digit, int house) {
  return kind == HouseKind::row      ? rowpos(digit, house)
         : kind == HouseKind::column ? colpos(digit, house)
                                     : blockpos(digit, house);
}

/// "r4c5"
inline std::string cellname(int cell) {
  return {'r', static_cast<char>('0' + cellrow(cell)), 'c', static_cast<char>('0' + cellcol(cell))};
}

}  // namespace gradino
