// What follows on a board without guessing, for all cells at once.
#pragma once

#include <array>
#include <cstddef>

#include "bands.h"

namespace gradino {

/// For each digit less one the cells that may still hold it. A cell left to one digit is decided.
struct Boards {
  std::array<Bands, 9> of{};

  GRADINO_STEP void place(int cell, std::size_t digit) {
    const Bands bit = onecell(cell);
    for (std::size_t d = 0; d < 9; ++d)
      if (d != digit) of[d] &= ~bit;
  }
};

/// What holds on every board whose digits don't clash; the boards hold the givens too, as decided cells. A
/// board with a clash has rules of its own with the same members (clash.h).
struct CleanRules {
  /// The cells that take a digit.
  GRADINO_STEP static Bands cells() { return eachband(wholeband); }
  /// At each triad, in the slots of a pack: whether its row or column, and its block, must take the digit.
  template <class T>
  GRADINO_STEP static Bands line(std::size_t) {
    return eachband(wholeband);
  }
  template <class T>
  GRADINO_STEP static Bands block(std::size_t) {
    return eachband(wholeband);
  }
  /// The triads whose three cells all take a digit, in the first slot.
  template <class T>
  GRADINO_STEP static Bands whole() {
    return eachband(T::places);
  }
  /// Whether something else forbids the board.
  GRADINO_STEP static bool refuse(const Boards&) { return false; }
};

/// What is known of the triads of one kind, by packs of three digits.
template <class T>
struct Triads {
  std::array<Bands, 3> possible{};  ///< the triad has a cell for the digit
  std::array<Bands, 3> several{};   ///< it has two or three
  std::array<Bands, 3> must{};      ///< the digit is in it

  GRADINO_STEP Triads(const Boards& boards, Bands decided) {
    for (std::size_t pack = 0; pack < 3; ++pack)
      for (std::size_t k = 0; k < 3; ++k) {
        const Bands x = boards.of[pack * 3 + k], x2 = x >> T::step, x3 = x >> 2 * T::step;
        const Bands n = x & decided, n2 = n >> T::step, n3 = n >> 2 * T::step;
        const int slot = static_cast<int>(k) * T::slot;
        possible[pack] |= ((x | x2 | x3) & eachband(T::places)) << slot;
        several[pack] |= (twoof(x, x2, x3) & eachband(T::places)) << slot;
        must[pack] |= ((n | n2 | n3) & eachband(T::places)) << slot;
      }
  }

  /// The triads of one digit, in the first slot.
  GRADINO_STEP static Bands ofdigit(const std::array<Bands, 3>& packs, std::size_t digit) {
    return (packs[digit / 3] >> static_cast<int>(digit % 3) * T::slot) & eachband(T::places);
  }
};

/// How many of the nine digits have the bit of a triad set: exactly three, more, or else fewer. In the first
/// slot.
struct Nine {
  Bands three, more;
};

/// The packs are added slot by slot to ones and twos, then the three slots to each other.
///
///   three   three ones and no two, or one one and one two
///   more    two twos, or a two and two ones
template <class T>
GRADINO_STEP Nine countdigits(const std::array<Bands, 3>& packs) {
  const Bands one = packs[0] ^ packs[1] ^ packs[2], two = twoof(packs[0], packs[1], packs[2]);
  const Bands one2 = one >> T::slot, one3 = one >> 2 * T::slot;
  const Bands two2 = two >> T::slot, two3 = two >> 2 * T::slot;
  const Bands allones = one & one2 & one3, odd = one ^ one2 ^ one3;
  const Bands sometwo = two | two2 | two3, twotwos = twoof(two, two2, two3);
  return {(~sometwo & allones) | (sometwo & ~twotwos & odd & ~allones),
          twotwos | (sometwo & twoof(one, one2, one3))};
}

/// Draws every conclusion between the triads of one kind. Returns the contradictions.
///
/// A triad must hold a digit when no other of its line, or of its block, can. Where it must, the others of
/// line and block can't: locked candidates and the effect of a decided cell, both in one. And as a triad
/// holds three digits, all must be in it when only three can, and no other can when three must: this rule
/// ends boards on which a search that looks at cells alone would take a second.
template <class T, class Rules>
GRADINO_STEP Bands deduce(Triads<T>& t, const Rules& rules) {
  const Nine can = countdigits<T>(t.possible);
  Bands bad = ~(can.three | can.more) & rules.template whole<T>();
  const Bands full = T::spread(can.three & rules.template whole<T>());
  for (std::size_t pack = 0; pack < 3; ++pack) {
    const Bands possible = t.possible[pack];
    const Bands line = T::othersinline(possible), block = T::othersinblock(possible);
    const Bands needsline = rules.template line<T>(pack), needsblock = rules.template block<T>(pack);
    bad |= (~(line | possible) & needsline) | (~(block | possible) & needsblock);
    t.must[pack] |= possible & (full | (~line & needsline) | (~block & needsblock));
  }
  const Nine musts = countdigits<T>(t.must);
  bad |= musts.more & eachband(T::places);
  const Bands closed = T::spread(musts.three & eachband(T::places));
  for (std::size_t pack = 0; pack < 3; ++pack) {
    const Bands must = t.must[pack];
    const Bands gone = T::othersinline(must) | T::othersinblock(must);
    bad |= gone & must;
    t.possible[pack] &= ~gone & (~closed | must);
  }
  return bad;
}

enum class Outcome { dead, open, complete };

/// Deduces until nothing changes. `complete`: every cell is decided and nothing contradicts.
template <class Rules>
Outcome settle(Boards& boards, const Rules& rules) {
  for (;;) {
    Bands some = boards.of[0], several{};
    for (std::size_t d = 1; d < 9; ++d) {
      several |= some & boards.of[d];
      some |= boards.of[d];
    }
    const Bands decided = some & ~several;
    Triads<Lying> lying(boards, decided);
    Triads<Standing> standing(boards, decided);
    Bands bad = rules.cells() & ~some;
    bad |= deduce(lying, rules);
    bad |= deduce(standing, rules);
    if (any(bad)) return Outcome::dead;
    if (!any(several)) return rules.refuse(boards) ? Outcome::dead : Outcome::complete;

    // A triad that must hold a digit and has one cell for it: the cell takes it and nothing else.
    std::array<Bands, 9> only;
    Bands taken{};
    for (std::size_t pack = 0; pack < 3; ++pack) {
      lying.several[pack] = lying.must[pack] & ~lying.several[pack];
      standing.several[pack] = standing.must[pack] & ~standing.several[pack];
    }
    for (std::size_t d = 0; d < 9; ++d) {
      only[d] = boards.of[d] & (Lying::spread(Triads<Lying>::ofdigit(lying.several, d)) |
                                Standing::spread(Triads<Standing>::ofdigit(standing.several, d)));
      bad |= taken & only[d];
      taken |= only[d];
    }
    if (any(bad)) return Outcome::dead;

    Bands changed{};
    for (std::size_t d = 0; d < 9; ++d) {
      const Bands before = boards.of[d];
      boards.of[d] &= Lying::spread(Triads<Lying>::ofdigit(lying.possible, d)) &
                      Standing::spread(Triads<Standing>::ofdigit(standing.possible, d)) & (~taken | only[d]);
      changed |= boards.of[d] ^ before;
    }
    if (any(changed)) continue;
    return rules.refuse(boards) ? Outcome::dead : Outcome::open;
  }
}

}  // namespace gradino
