#include "clash.h"

#include <algorithm>
#include <bit>
#include <initializer_list>
#include <vector>

#include "houses.h"
#include "positions.h"

namespace gradino {
namespace {

// The 27 houses are numbered, and are bits of a word: rows first, then columns, then blocks.
constexpr int rowhouse = 0, columnhouse = 9, blockhouse = 18;
constexpr ByKind<int> firsthouse = {{rowhouse, columnhouse, blockhouse}};

constexpr int lastcell = cellcount - 1;

constexpr std::uint32_t unknown = ~0u;  ///< differs from every set of 27 houses

/// The cells of each of the 27 houses.
const auto cellsofhouse = [] {
  ByIndex<Bands, 27> cells{};
  for (const HouseKind kind : housekinds)
    for (int cell = 0; cell < cellcount; ++cell)
      cells[firsthouse[kind] + houseof(kind, cell)] |= onecell(cell);
  return cells;
}();

int count(std::uint32_t houses27) {
  return bitcounts[houses27 & 511] + bitcounts[houses27 >> 9 & 511] + bitcounts[houses27 >> 18];
}

/// The houses in which some of the cells lie. The lying triads of a row are 3 bits apart in a lane, those of
/// a block 9 bits apart.
std::uint32_t housesof(Bands cells) {
  const Bands lying = (cells | cells >> 1 | cells >> 2) & eachband(Lying::places);
  const Bands rows = lying | lying >> 3 | lying >> 6, blocks = lying | lying >> 9 | lying >> 18;
  const std::uint32_t stacks = cells[0] | cells[1] | cells[2];
  std::uint32_t found = ((stacks | stacks >> 9 | stacks >> 18) & 511) << columnhouse;
  for (int band = 0; band < 3; ++band) {
    const std::uint32_t row = rows[band], block = blocks[band];
    found |= ((row & 1) | (row >> 8 & 2) | (row >> 16 & 4)) << (rowhouse + 3 * band);
    found |= ((block & 1) | (block >> 2 & 2) | (block >> 4 & 4)) << (blockhouse + 3 * band);
  }
  return found;
}

/// For each house the number of the sets that it is in.
template <class Sets>
HouseNumbers addup(const Sets& sets) {
  HouseNumbers sum{};
  for (std::uint32_t carry : sets)
    for (std::uint32_t& bit : sum) {
      const std::uint32_t both = bit & carry;
      bit ^= carry;
      carry = both;
    }
  return sum;
}

/// The houses where a number is less than another, and where they are equal.
struct Compared {
  std::uint32_t less = 0, equal = ~0u;

  Compared(const HouseNumbers& a, const HouseNumbers& b) {
    for (std::size_t bit = a.size(); bit-- > 0;) {
      less |= equal & ~a[bit] & b[bit];
      equal &= ~(a[bit] ^ b[bit]);
    }
  }
};

/// The cells that share a house with it, itself among them.
Bands seenby(int cell) {
  Bands seen{};
  for (const Bands house : cellsofhouse)
    if (any(house & onecell(cell))) seen |= house;
  return seen;
}

}  // namespace

ClashRules::ClashRules(const Digits& board) {
  std::vector<std::uint32_t> holes;
  for (int cell = 0; cell < cellcount; ++cell) {
    if (board[cell] != 0) continue;
    empty_ |= onecell(cell);
    holes.push_back(housesof(onecell(cell)));
  }
  holes_ = addup(holes);
  start_.of.fill(empty_);
  for (int cell = 0; cell < cellcount; ++cell)
    if (const std::size_t digit = board[cell]; digit != 0) start_.of[digit - 1] &= ~seenby(cell);
  const Bands last = onecell(lastcell);
  lasthouses_ = housesof(last);
  seenbylast_ = empty_ & seenby(lastcell) & ~last;
  for (std::size_t d = 0; d < 9; ++d) lastdigits_[d] = any(start_.of[d] & last);
  can_.fill(unknown);
}

/// A digit that r9c9 could take at the start can be taken by it at the end too if no cell that it sees can
/// take the digit any more. There may be one such digit, not two.
bool ClashRules::refuse(const Boards& boards) const {
  int open = 0;
  for (std::size_t d = 0; d < 9; ++d) open += lastdigits_[d] && !any(boards.of[d] & seenbylast_);
  return open > 1;
}

/// A house with as many holes as digits that it can still take must take them all. And a digit goes into the
/// same number of rows, of columns and of blocks: at least the greatest number that must take it of any kind,
/// at most the smallest number that can. Where a kind has just as many houses that can take the digit as the
/// least, all of them must; where it has as many that must as the most, no other does.
///
/// Without this a search would take forever: in houses with digits to spare, no single cell and no single
/// digit shows that there are too few digits for the holes.
///
/// What was known of the board from which this one was made still holds. A digit whose houses haven't changed
/// since it was last settled gives nothing new.
Tightened ClashRules::tighten(Boards& boards) {
  const auto known = must_;
  auto settledcan = can_, settledmust = must_;
  std::transform(boards.of.begin(), boards.of.end(), can_.begin(), housesof);
  const auto could = can_;
  for (bool changed = true; changed;) {
    changed = false;
    if (!settlehouses()) return Tightened::dead;
    for (std::size_t d = 0; d < 9; ++d) {
      if (can_[d] == settledcan[d] && must_[d] == settledmust[d]) continue;
      changed = true;
      settledcan[d] = can_[d];
      settledmust[d] = must_[d];
      if (!settledigit(d) || !settlelast(d)) return Tightened::dead;
    }
  }
  if (could == can_ && known == must_) return Tightened::same;
  for (std::size_t d = 0; d < 9; ++d)
    for (std::uint32_t gone = could[d] & ~can_[d]; gone != 0; gone &= gone - 1)
      boards.of[d] &= ~cellsofhouse[std::countr_zero(gone)];
  spreadneeds();
  return Tightened::more;
}

std::optional<ClashRules::Need> ClashRules::openneed() const {
  std::array<std::uint32_t, 9> open{};
  for (std::size_t d = 0; d < 9; ++d) open[d] = can_[d] & ~must_[d];
  const HouseNumbers numbers = addup(open);
  std::uint32_t fewest = numbers[0] | numbers[1] | numbers[2] | numbers[3];
  if (fewest == 0) return std::nullopt;
  for (std::size_t bit = numbers.size(); bit-- > 0;)
    if ((fewest & ~numbers[bit]) != 0) fewest &= ~numbers[bit];
  const int house = std::countr_zero(fewest);
  std::size_t digit = 0;
  while (!(open[digit] >> house & 1)) ++digit;
  return Need{house, digit};
}

void ClashRules::insist(Need need) {
  must_[need.digit] |= 1u << need.house;
  can_[need.digit] = unknown;  // to be settled anew
  spreadneeds();
}

void ClashRules::leaveout(Boards& boards, Need need) const {
  boards.of[need.digit] &= ~cellsofhouse[need.house];
}

bool ClashRules::settlehouses() {
  const HouseNumbers can = addup(can_), must = addup(must_);
  const Compared room(can, holes_), load(holes_, must);
  if ((room.less | load.less) != 0) return false;
  for (std::size_t d = 0; d < 9; ++d) {
    must_[d] |= can_[d] & room.equal;
    can_[d] &= must_[d] | ~load.equal;
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

/// A digit that r9c9 could take at the start must be in one of the three houses of r9c9 at the end, or r9c9
/// could still take it. If leaving it out of one of them leaves it out of the other two as well, as when all
/// three have one digit to spare, that house must take it.
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

void ClashRules::spreadneeds() {
  spreadneeds(lying_, rowhouse);
  spreadneeds(standing_, columnhouse);
}

template <class T>
void ClashRules::spreadneeds(Needs<T>& needs, int line) const {
  needs = {};
  for (std::size_t d = 0; d < 9; ++d) {
    const int slot = static_cast<int>(d % 3) * T::slot;
    const auto add = [&](Bands& into, int first) {
      for (std::uint32_t rest = must_[d] >> first & 511; rest != 0; rest &= rest - 1)
        into |= (cellsofhouse[first + std::countr_zero(rest)] & eachband(T::places)) << slot;
    };
    add(needs.line[d / 3], line);
    add(needs.block[d / 3], blockhouse);
  }
}

}  // namespace gradino
