#include "probe.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <initializer_list>

#include "tables.h"

namespace gradino {
namespace {

using Mask = std::uint16_t;

constexpr std::size_t rowhouse = 0, columnhouse = 9, blockhouse = 18;

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

/// Which houses must take which digits, by counting alone. A search would walk boards with a clash for ever,
/// because there some houses need not take all that they lack.
///
/// A house with as many holes as missing digits must take them all. A digit goes into as many houses of each
/// kind: at least into the most that must take it in some kind, at most into the fewest that lack it. Where
/// the two meet, every house of the kind that lacks it must take it, or none that need not may.
class Counting {
 public:
  explicit Counting(Attempt& a) : a_(a) {}

  /// False: the board can't be completed.
  bool settle() {
    do {
      changed_ = false;
      for (std::size_t house = 0; house < 27; ++house)
        if (!settlehouse(house)) return false;
      for (int digit = 1; digit <= 9; ++digit)
        if (!settledigit(static_cast<Mask>(1 << digit))) return false;
    } while (changed_);
    return true;
  }

 private:
  bool settlehouse(std::size_t house) {
    const int holes = a_.holes[house];
    if (holes == 0) a_.left[house] = 0;
    if (std::popcount(a_.left[house]) == holes) set(must_[house], a_.left[house]);
    if (std::popcount(must_[house]) == holes) set(a_.left[house], must_[house]);
    return std::popcount(must_[house]) <= holes && std::popcount(a_.left[house]) >= holes;
  }

  bool settledigit(Mask bit) {
    if (!balance(bit, {houses(rowhouse, 9), houses(columnhouse, 9), houses(blockhouse, 9)})) return false;
    for (std::size_t third = 0; third < 3; ++third) {
      if (!balance(bit, {houses(rowhouse + 3 * third, 3), houses(blockhouse + 3 * third, 3)})) return false;
      if (!balance(bit, {houses(columnhouse + 3 * third, 3), houses(blockhouse + third, 3, 3)})) return false;
    }
    return true;
  }

  struct Houses {
    std::size_t first, count, stride;
  };
  static Houses houses(std::size_t first, std::size_t count, std::size_t stride = 1) {
    return {first, count, stride};
  }

  /// Sets of houses that cover the same cells: the whole board, a band, a stack.
  bool balance(Mask bit, std::initializer_list<Houses> covers) {
    int least = 0, most = 27;
    for (const Houses& cover : covers) {
      least = std::max(least, count(must_, cover, bit));
      most = std::min(most, count(a_.left, cover, bit));
    }
    if (least > most) return false;
    for (const Houses& cover : covers) {
      const bool all = count(a_.left, cover, bit) == least, nomore = count(must_, cover, bit) == most;
      for (std::size_t k = 0; k < cover.count; ++k) {
        const std::size_t house = cover.first + k * cover.stride;
        if (all && (a_.left[house] & bit)) set(must_[house], static_cast<Mask>(must_[house] | bit));
        if (nomore && !(must_[house] & bit)) set(a_.left[house], static_cast<Mask>(a_.left[house] & ~bit));
      }
    }
    return true;
  }

  static int count(const std::array<Mask, 27>& masks, const Houses& cover, Mask bit) {
    int found = 0;
    for (std::size_t k = 0; k < cover.count; ++k) found += (masks[cover.first + k * cover.stride] & bit) != 0;
    return found;
  }

  void set(Mask& mask, Mask value) {
    changed_ |= mask != value;
    mask = value;
  }

  Attempt& a_;
  std::array<Mask, 27> must_{};
  bool changed_ = false;
};

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
  if (!Counting(attempt).settle() || !complete(attempt)) return false;
  known = attempt.value;
  isknown = true;
  return true;
}

}  // namespace gradino
