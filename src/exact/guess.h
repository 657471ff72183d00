// What a search does with a board that deduction leaves open, and with one that it completes.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>

#include "completions.h"
#include "deduction.h"

namespace gradino {

struct Guess {
  int cell;
  std::size_t digit;  ///< 0 for the digit 1
};

/// The first of the cells with its lowest digit.
inline Guess lowestdigit(const Boards& boards, Bands cells) {
  const int cell = firstcell(cells);
  std::size_t digit = 0;
  while (!any(boards.of[digit] & onecell(cell))) ++digit;
  return {cell, digit};
}

/// The cells with at least two, three, four digits.
struct Many {
  Bands two{}, three{}, four{};

  explicit Many(const Boards& boards) {
    Bands one{};
    for (const Bands x : boards.of) {
      four |= three & x;
      three |= two & x;
      two |= one & x;
      one |= x;
    }
  }

  /// The open cells with the fewest digits; four and more count alike.
  Bands fewest() const {
    if (const Bands pairs = two & ~three; any(pairs)) return pairs;
    const Bands triples = three & ~four;
    return any(triples) ? triples : four;
  }
};

/// The digits of a complete board. Cells that it leaves out, as the givens of a board with a clash, keep what
/// they hold in `board`.
inline Digits digitsof(const Boards& boards, const Digits& board) {
  Digits digits = board;
  for (std::size_t d = 0; d < 9; ++d)
    for (int band = 0; band < 3; ++band)
      for (std::uint32_t bits = boards.of[d][band]; bits != 0; bits &= bits - 1)
        digits[band * 27 + std::countr_zero(bits)] = static_cast<std::uint8_t>(d + 1);
  return digits;
}

}  // namespace gradino
