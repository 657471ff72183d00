// The geometry of the board, known when the program is compiled.
//
//   cell      0 to 80, row by row                 r1c1 is cell 0, r9c9 is cell 80
//   house     rows, columns, blocks 0 to 8        blocks left to right, top to bottom:   0 1 2
//   position  0 to 8 inside a house               in a block row by row                  3 4 5
//                                                                                        6 7 8
//
// Everything here counts from 0. Only what a user reads counts from 1: cellname, the tables cellrow, cellcol
// and cellblock (tables.h), and the numbers in sentences.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "byindex.h"
#include "checked.h"

namespace gradino {

inline constexpr int cellcount = 81;

template <class T>
using ByCell = ByIndex<T, cellcount>;
template <class T>
using ByDigit = ByIndex<T, 10>;  ///< digits 1 to 9; slot 0 is for an empty cell
template <class T>
using ByHouse = ByIndex<T, 9>;  ///< houses of one kind

constexpr int rowof(int cell) {
  return cell / 9;
}
constexpr int columnof(int cell) {
  return cell % 9;
}
constexpr int cellat(int row, int column) {
  return row * 9 + column;
}

/// The block of a row and a column, and the position there.
constexpr int blockat(int row, int column) {
  return row / 3 * 3 + column / 3;
}
constexpr int placeat(int row, int column) {
  return row % 3 * 3 + column % 3;
}
constexpr int blockof(int cell) {
  return blockat(rowof(cell), columnof(cell));
}
constexpr int blockplace(int cell) {
  return placeat(rowof(cell), columnof(cell));
}

enum class HouseKind { row, column, block };

/// By kind, in the order of HouseKind.
template <class T>
struct ByKind {
  T items[3];

  constexpr T& operator[](HouseKind kind) { return items[static_cast<int>(kind)]; }
  constexpr const T& operator[](HouseKind kind) const { return items[static_cast<int>(kind)]; }
  constexpr T* begin() { return items; }
  constexpr T* end() { return items + 3; }
  constexpr const T* begin() const { return items; }
  constexpr const T* end() const { return items + 3; }
};

inline constexpr std::array housekinds = {HouseKind::row, HouseKind::column, HouseKind::block};

/// The house of a kind that a cell lies in, and the cell's position there.
constexpr int houseof(HouseKind kind, int cell) {
  return kind == HouseKind::row ? rowof(cell) : kind == HouseKind::column ? columnof(cell) : blockof(cell);
}
constexpr int positionof(HouseKind kind, int cell) {
  return kind == HouseKind::row ? columnof(cell) : kind == HouseKind::column ? rowof(cell) : blockplace(cell);
}

/// The cell at a position of a house.
constexpr int housecell(HouseKind kind, int house, int position) {
  return kind == HouseKind::row      ? cellat(house, position)
         : kind == HouseKind::column ? cellat(position, house)
                                     : cellat(house / 3 * 3 + position / 3, house % 3 * 3 + position % 3);
}

/// A house as its nine cells, by position.
using House = ByIndex<int, 9>;

inline constexpr auto allhouses = [] {
  ByKind<ByHouse<House>> all{};
  for (const HouseKind kind : housekinds)
    for (int house = 0; house < 9; ++house)
      for (int position = 0; position < 9; ++position)
        all[kind][house][position] = housecell(kind, house, position);
  return all;
}();

constexpr const House& housecells(HouseKind kind, int house) {
  return allhouses[kind][house];
}

/// The house of a kind with the cell in it.
constexpr const House& housearound(HouseKind kind, int cell) {
  return housecells(kind, houseof(kind, cell));
}

constexpr bool samehouse(HouseKind kind, int one, int other) {
  return houseof(kind, one) == houseof(kind, other);
}

inline constexpr auto cellnames = [] {
  ByCell<std::array<char, 4>> names{};
  for (int cell = 0; cell < cellcount; ++cell)
    names[cell] = {'r', static_cast<char>('1' + rowof(cell)), 'c', static_cast<char>('1' + columnof(cell))};
  return names;
}();

/// "r4c5". Fault: there is no such cell.
constexpr std::string_view cellname(int cell) {
  if (cell < 0 || cell >= cellcount)
    throw Fault{Fault::Kind::bounds, "cellname", cell, 0, cellcount - 1, __func__};
  return {cellnames[cell].data(), cellnames[cell].size()};
}

}  // namespace gradino
