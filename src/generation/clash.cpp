#include "clash.h"

#include <algorithm>
#include <bit>
#include <initializer_list>

namespace gradino {
namespace {

constexpr int rowhouse = 0, columnhouse = 9, blockhouse = 18;

constexpr std::size_t lastcell = 80;

struct Seen {
  std::size_t row, column, block;
};

constexpr Seen housesof(std::size_t cell) {
  return {rowhouse + cell / 9, columnhouse + cell % 9, blockhouse + cell / 27 * 3 + cell % 9 / 3};
}

/// The cells of each house.
const auto houses = [] {
  std::array<Bands, 27> cells{};
  for (std::size_t cell = 0; cell < 81; ++cell)
    for (const Seen h = housesof(cell); std::size_t house : {h.row, h.column, h.block})
      cells[house] |= onecell(static_cast<int>(cell));
  return cells;
}();

int count(std::uint32_t houses27) {
  return std::popcount(houses27);
}

}  // namespace

ClashRules::ClashRules(const Digits& board) {
  for (std::size_t cell = 0; cell < 81; ++cell)
    if (board[cell] == 0) empty_ |= onecell(static_cast<int>(cell));
  start_.of.fill(empty_);
  for (std::size_t cell = 0; cell < 81; ++cell) {
    const Seen h = housesof(cell);
    if (board[cell] != 0)
      start_.of[board[cell] - 1u] &= ~(houses[h.row] | houses[h.column] | houses[h.block]);
    else
      for (std::size_t house : {h.row, h.column, h.block}) ++holes_[house];
  }
  const Seen last = housesof(lastcell);
  const Bands itself = onecell(lastcell);
  lasthouses_ = 1u << last.row | 1u << last.column | 1u << last.block;
  seenbylast_ = empty_ & (houses[last.row] | houses[last.column] | houses[last.block]) & ~itself;
  for (std::size_t d = 0; d < 9; ++d) lastdigits_[d] = any(start_.of[d] & itself);
}

/// A digit that r9c9 could take at the start, and that no cell it sees can take any more, is one it takes at
/// the end as well. There may be one.
bool ClashRules::refuse(const Boards& boards) const {
  int open = 0;
  for (std::size_t d = 0; d < 9; ++d) open += lastdigits_[d] && !any(boards.of[d] & seenbylast_);
  return open > 1;
}

/// Where all houses of r9c9 have digits to spare, whether it is left with one digit is found out there and
/// nowhere else.
Bands ClashRules::first() const {
  for (std::size_t d = 0; d < 9; ++d)
    if (lastdigits_[d] && !(must_[d] & lasthouses_)) return seenbylast_ | onecell(lastcell);
  return Bands{};
}

/// A house with as many holes as digits that it can still take must take them all. A digit goes into as many
/// houses of each kind: at least into the most that must take it in some kind, at most into the fewest that
/// can. Where the two meet, every house of the kind that can must take it, or none that need not does.
///
/// Without this a search would walk for ever: where digits are to spare, that there are too few of them for
/// the holes is seen by no cell and no digit alone.
Tightened ClashRules::tighten(Boards& boards) {
  const auto known = must_;
  must_.fill(0);
  for (std::size_t d = 0; d < 9; ++d) {
    can_[d] = 0;
    for (std::size_t house = 0; house < 27; ++house)
      can_[d] |= static_cast<std::uint32_t>(any(boards.of[d] & houses[house])) << house;
  }
  const auto could = can_;
  for (bool changed = true; changed;) {
    const auto can = can_, must = must_;
    if (!settlehouses()) return Tightened::dead;
    for (std::size_t d = 0; d < 9; ++d)
      if (!settledigit(d) || !settlelast(d)) return Tightened::dead;
    changed = can != can_ || must != must_;
  }
  if (could == can_ && known == must_) return Tightened::same;
  for (std::size_t d = 0; d < 9; ++d)
    for (std::size_t house = 0; house < 27; ++house)
      if (!(can_[d] >> house & 1)) boards.of[d] &= ~houses[house];
  tellneeds(lying_, rowhouse);
  tellneeds(standing_, columnhouse);
  return Tightened::more;
}

bool ClashRules::settlehouses() {
  for (std::size_t house = 0; house < 27; ++house) {
    const std::uint32_t bit = 1u << house;
    int can = 0, must = 0;
    for (std::size_t d = 0; d < 9; ++d) {
      can += (can_[d] & bit) != 0;
      must += (must_[d] & bit) != 0;
    }
    if (can < holes_[house] || must > holes_[house]) return false;
    if (can == holes_[house])
      for (std::size_t d = 0; d < 9; ++d) must_[d] |= can_[d] & bit;
    else if (must == holes_[house])
      for (std::size_t d = 0; d < 9; ++d) can_[d] &= must_[d] | ~bit;
  }
  return true;
}

bool ClashRules::settledigit(std::size_t digit) {
  if (!balance(digit, {0b111111111u << rowhouse, 0b111111111u << columnhouse, 0b111111111u << blockhouse}))
    return false;
  for (int third = 0; third < 3; ++third) {
    const std::uint32_t band = 0b111u << 3 * third, stack = 0b001001001u << third;
    if (!balance(digit, {band << rowhouse, band << blockhouse})) return false;
    if (!balance(digit, {band << columnhouse, stack << blockhouse})) return false;
  }
  return true;
}

/// A digit that r9c9 could take at the start must at the end stand in one of its houses, in itself or where
/// it is seen, or r9c9 could take it as well. Where leaving it out of one house leaves it out of the others
/// too, as it does when all three have one digit to spare, it must stand in that house.
bool ClashRules::settlelast(std::size_t digit) {
  if (!lastdigits_[digit] || (must_[digit] & lasthouses_)) return true;
  const auto can = can_[digit], must = must_[digit];
  std::uint32_t needed = 0;
  for (std::uint32_t rest = lasthouses_; rest != 0; rest &= rest - 1) {
    const std::uint32_t house = rest & -rest;
    can_[digit] &= ~house;
    bool possible = true;
    for (std::uint32_t before = 0; possible && before != can_[digit];) {
      before = can_[digit];
      possible = settledigit(digit);
    }
    if (!possible || !(can_[digit] & lasthouses_)) needed |= house;
    can_[digit] = can;
    must_[digit] = must;
  }
  must_[digit] |= needed;
  return (can & lasthouses_) != 0 && (needed & ~can) == 0;
}

/// Sets of houses that cover the same cells: the whole board, a band, a stack.
bool ClashRules::balance(std::size_t digit, std::initializer_list<std::uint32_t> covers) {
  std::uint32_t &can = can_[digit], &must = must_[digit];
  int least = 0, most = 27;
  for (const std::uint32_t cover : covers) {
    least = std::max(least, count(must & cover));
    most = std::min(most, count(can & cover));
  }
  if (least > most) return false;
  for (const std::uint32_t cover : covers) {
    if (count(can & cover) == least) must |= can & cover;
    if (count(must & cover) == most) can &= must | ~cover;
  }
  return true;
}

template <class T>
void ClashRules::tellneeds(Needs<T>& needs, int line) const {
  needs = {};
  for (std::size_t d = 0; d < 9; ++d) {
    const int slot = static_cast<int>(d % 3) * T::slot;
    for (int position = 0; position < 9; ++position) {
      const auto add = [&](Bands& into, int house) {
        if (must_[d] >> house & 1)
          into |= (houses[static_cast<std::size_t>(house)] & eachband(T::places)) << slot;
      };
      add(needs.line[d / 3], line + position);
      add(needs.block[d / 3], blockhouse + position);
    }
  }
}

}  // namespace gradino
