#include "probe.h"

#include <array>
#include <bit>
#include <cstdint>

#include "tables.h"

namespace gradino {
namespace {

using Mask = std::uint16_t;

constexpr int rowhouse = 0, columnhouse = 9, blockhouse = 18;

/// A board while it is being completed. Small enough to be copied at each branch.
struct Attempt {
  std::array<Mask, 27> left;           ///< digits that a house still lacks: rows, columns, blocks
  std::array<std::uint8_t, 27> holes;  ///< its empty cells
  std::array<std::uint8_t, 81> empty;  ///< the empty cells, the first `count` of the array
  std::array<std::uint8_t, 81> value;
  int count;

  Mask open(int cell) const {
    const auto c = static_cast<std::size_t>(cell);
    return left[c / 9] & left[columnhouse + c % 9] & left[blockhouse + c / 27 * 3 + c % 9 / 3];
  }

  void place(int index, Mask bit) {
    const std::size_t c = empty[static_cast<std::size_t>(index)];
    value[c] = static_cast<std::uint8_t>(std::countr_zero(bit));
    empty[static_cast<std::size_t>(index)] = empty[static_cast<std::size_t>(--count)];
    for (std::size_t house : {c / 9, columnhouse + c % 9, blockhouse + c / 27 * 3 + c % 9 / 3}) {
      left[house] = static_cast<Mask>(left[house] & ~bit);
      --holes[house];
    }
  }
};

Attempt fromboard() {
  Attempt a{};
  a.left.fill(fullmask);
  for (int cell = 0; cell < cells; ++cell) {
    const auto c = static_cast<std::size_t>(cell);
    const std::size_t houses[] = {c / 9, columnhouse + c % 9, blockhouse + c / 27 * 3 + c % 9 / 3};
    const int digit = cellvalue(cell);
    a.value[c] = static_cast<std::uint8_t>(digit);
    if (digit == 0) a.empty[static_cast<std::size_t>(a.count++)] = static_cast<std::uint8_t>(cell);
    for (std::size_t house : houses) {
      if (digit == 0)
        ++a.holes[house];
      else
        a.left[house] = static_cast<Mask>(a.left[house] & ~(1 << digit));
    }
  }
  return a;
}

/// A digit with one place left in a house that must still take it. Only a house without a clash must take all
/// its missing digits: one with as many holes as missing digits.
enum class Hidden { none, placed, dead };

Hidden placehidden(Attempt& a) {
  std::array<Mask, 27> once{}, twice{};
  for (int i = 0; i < a.count; ++i) {
    const std::size_t c = a.empty[static_cast<std::size_t>(i)];
    const Mask open = a.open(static_cast<int>(c));
    for (std::size_t house : {c / 9, columnhouse + c % 9, blockhouse + c / 27 * 3 + c % 9 / 3}) {
      twice[house] = static_cast<Mask>(twice[house] | (once[house] & open));
      once[house] = static_cast<Mask>(once[house] | open);
    }
  }
  Mask single = 0;
  std::size_t where = 0;
  for (std::size_t house = 0; house < 27; ++house) {
    if (std::popcount(a.left[house]) != a.holes[house]) continue;
    if (once[house] != a.left[house]) return Hidden::dead;
    if (const int lone = once[house] & ~twice[house]; lone != 0) {
      single = static_cast<Mask>(lone & -lone);
      where = house;
    }
  }
  if (single == 0) return Hidden::none;
  for (int i = 0; i < a.count; ++i) {
    const std::size_t c = a.empty[static_cast<std::size_t>(i)];
    const bool inhouse =
        where == c / 9 || where == columnhouse + c % 9 || where == blockhouse + c / 27 * 3 + c % 9 / 3;
    if (inhouse && (a.open(static_cast<int>(c)) & single)) {
      a.place(i, single);
      return Hidden::placed;
    }
  }
  return Hidden::dead;
}

bool complete(Attempt& a) {
  while (a.count > 0) {
    int best = 10, at = 0;
    for (int i = 0; i < a.count && best > 1; ++i) {
      const int open = std::popcount(a.open(a.empty[static_cast<std::size_t>(i)]));
      if (open < best) best = open, at = i;
    }
    if (best == 0) return false;
    Mask open = a.open(a.empty[static_cast<std::size_t>(at)]);
    if (best == 1) {
      a.place(at, open);
      continue;
    }
    const Hidden hidden = placehidden(a);
    if (hidden == Hidden::dead) return false;
    if (hidden == Hidden::placed) continue;
    for (; open & (open - 1); open = static_cast<Mask>(open & (open - 1))) {
      Attempt branch = a;
      branch.place(at, static_cast<Mask>(open & -open));
      if (complete(branch)) {
        a = branch;
        return true;
      }
    }
    a.place(at, open);  // the last digit of the cell needs no way back
  }
  return true;
}

/// The completion found last: as long as the board agrees with it there is nothing to search.
std::array<std::uint8_t, 81> known;
bool isknown = false;

bool agrees() {
  for (int cell = 0; cell < cells; ++cell)
    if (cellvalue(cell) != 0 && cellvalue(cell) != known[static_cast<std::size_t>(cell)]) return false;
  return true;
}

}  // namespace

void newprobe() {
  isknown = false;
}

bool completable() {
  if (isknown && agrees()) return true;
  Attempt attempt = fromboard();
  if (!complete(attempt)) return false;
  known = attempt.value;
  isknown = true;
  return true;
}

}  // namespace gradino
