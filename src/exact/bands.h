// A yes or no for each of the 81 cells in one register, so that a rule is applied to all cells, all triads or
// all houses at once, without loops or tables.
//
//   lane 0   r1c1 ... r1c9   r2c1 ... r2c9   r3c1 ... r3c9        bit 0 is the first cell, bit 26 the last
//   lane 1   r4c1 ...                                             lanes are the three bands
//   lane 2   r7c1 ...
//   lane 3   always empty
//
// Between cell and house comes the triad: the three cells that a block shares with a row (a lying triad) or
// with a column (a standing one). A block is three lying triads and also three standing ones. A digit is in
// one triad of each row, column and block, and a triad holds three digits.
#pragma once

#include <array>
#include <bit>
#include <cstdint>

#include "houses.h"

namespace gradino {

/// A vector type of the compiler, no intrinsics: every processor of the family has registers of this width.
using Bands [[gnu::vector_size(16)]] = std::uint32_t;

// These functions are steps of one long straight computation; a call would push its registers to memory.
#define GRADINO_STEP [[gnu::always_inline]] inline

/// The same 27 bits in each band.
GRADINO_STEP constexpr Bands eachband(std::uint32_t bits) {
  return Bands{bits, bits, bits, 0};
}

constexpr std::uint32_t wholeband = 0b111111111'111111111'111111111;

GRADINO_STEP bool any(Bands b) {
  using Halves [[gnu::vector_size(16)]] = std::uint64_t;
  const auto halves = reinterpret_cast<Halves>(b);
  return (halves[0] | halves[1]) != 0;
}

/// Each lane holds what the band below it has, the last what the first has; then the same from above.
GRADINO_STEP Bands bandbelow(Bands b) {
  return __builtin_shufflevector(b, b, 1, 2, 0, 3);
}
GRADINO_STEP Bands bandabove(Bands b) {
  return __builtin_shufflevector(b, b, 2, 0, 1, 3);
}

constexpr auto singlecells = [] {
  ByCell<Bands> bands{};
  for (int cell = 0; cell < cellcount; ++cell) {
    const std::uint32_t bit = 1u << cell % 27;
    bands[cell] = Bands{cell < 27 ? bit : 0, cell / 27 == 1 ? bit : 0, cell >= 54 ? bit : 0, 0};
  }
  return bands;
}();

GRADINO_STEP Bands onecell(int cell) {
  return singlecells[cell];
}

/// The first cell in reading order. At least one must be there.
GRADINO_STEP int firstcell(Bands b) {
  for (int band = 0; band < 2; ++band)
    if (b[band] != 0) return band * 27 + std::countr_zero(b[band]);
  return 54 + std::countr_zero(b[2]);
}

/// True where at least two of the three are.
GRADINO_STEP Bands twoof(Bands a, Bands b, Bands c) {
  return (a & b) | (c & (a | b));
}

// Three digits, a pack, share one register of triads: a triad takes a single bit where its three cells took
// three. The slots, where the bits of the three digits are, differ between lying and standing triads.

/// A lying triad has the bit of its first cell; the second and third digit use the two bits after it.
///
///   bit       0 1 2   3 4 5   6 7 8   9 ...
///   digit     a b c   a b c   a b c   a ...
///   triad     r1 b1   r1 b2   r1 b3   r2 b1
struct Lying {
  static constexpr int step = 1;  ///< bits from cell to cell in a triad
  static constexpr int slot = 1;  ///< bits from digit to digit in a pack
  static constexpr std::uint32_t places = 0b001001001'001001001'001001001;

  /// From the first slot to all three, which are also the bits of the triad's cells: each bit times 7.
  GRADINO_STEP static Bands spread(Bands triads) { return (triads << 3) - triads; }

  /// For each triad, whether one of the other two of its row is there: the row turned by one triad and by
  /// two.
  GRADINO_STEP static Bands othersinline(Bands t) {
    constexpr std::uint32_t first = 0b000000111'000000111'000000111, last = first << 6;
    return ((t << 3) & eachband(wholeband & ~first)) | ((t >> 6) & eachband(first)) |
           ((t << 6) & eachband(last)) | ((t >> 3) & eachband(wholeband & ~last));
  }

  /// The same in the block: the three rows of the band turned.
  GRADINO_STEP static Bands othersinblock(Bands t) {
    return ((t << 9) | (t >> 18) | (t << 18) | (t >> 9)) & eachband(wholeband);
  }
};

/// Standing triads need nine bits a band, one a column; each digit of a pack has a row of the lane.
///
///   bit       0 ... 8   9 ... 17   18 ... 26
///   digit     a         b          c
///   triad     c1 to c9  c1 to c9   c1 to c9
struct Standing {
  static constexpr int step = 9;
  static constexpr int slot = 9;
  static constexpr std::uint32_t places = 0b111111111;

  GRADINO_STEP static Bands spread(Bands triads) { return triads | triads << 9 | triads << 18; }

  GRADINO_STEP static Bands othersinline(Bands t) { return bandbelow(t) | bandabove(t); }

  /// The three columns of each block turned.
  GRADINO_STEP static Bands othersinblock(Bands t) {
    constexpr std::uint32_t first = 0b001001001'001001001'001001001, last = first << 2;
    return ((t << 1) & eachband(wholeband & ~first)) | ((t >> 2) & eachband(first)) |
           ((t << 2) & eachband(last)) | ((t >> 1) & eachband(wholeband & ~last));
  }
};

}  // namespace gradino
