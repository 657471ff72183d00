#include "tables.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace gradino {

void buildtables() {
  for (int block = 0; block < 9; ++block)
    for (int position = 0; position < 9; ++position)
      blockcells(block, position) = static_cast<std::uint8_t>(housecell(HouseKind::block, block, position));
  for (int cell = 0; cell < cellcount; ++cell) {
    cellrow(cell) = rowof(cell) + 1;
    cellcol(cell) = columnof(cell) + 1;
    cellblock(cell) = blockof(cell) + 1;
  }
  bitvalue(0) = 0;
  for (int digit = 1; digit <= 9; ++digit) bitvalue(digit) = 1 << digit;
}

void freshboard() {
  cellvalue.clear();
  candmask.clear();
  candstr.clear();
  usedmask.clear();
  filledcount = 0;
  givens.clear();
  solutiontext.clear();
  rowpos.clear();
  colpos.clear();
  blockpos.clear();
}

namespace {

/// The bit of a cell's digit. Checked here, since a Fault of the table bitvalue couldn't name the cell.
std::int32_t bitof(int cell, const char* place) {
  const std::int32_t value = cellvalue(cell);
  if (value < 0 || value > 9) throw Fault{Fault::Kind::bounds, "bitvalue", value, 0, 9, place, cell};
  return bitvalue(value);
}

}  // namespace

void rebuildusedmask() {
  // The rows go first, one slot at a time: where a value is no digit, the slots of the rows above it are
  // done.
  ByHouse<std::int32_t> columns{}, blocks{};
  for (int row = 0; row < 9; ++row) {
    std::int32_t used = 0;
    for (int col = 0; col < 9; ++col) {
      const std::int32_t bit = bitof(cellat(row, col), __func__);
      used |= bit;
      columns[col] |= bit;
      blocks[blockat(row, col)] |= bit;
    }
    usedmask(rowslot + row) = used;
  }
  for (int house = 0; house < 9; ++house) {
    usedmask(columnslot + house) = columns[house];
    usedmask(blockslot + house) = blocks[house];
  }
  for (int row = 0; row < 9; ++row)
    for (int col = 0; col < 9; ++col)
      usedmask(cellat(row, col)) = usedmask(rowslot + row) | columns[col] | blocks[blockat(row, col)];
}

namespace {

/// A digit set as text, digits ascending.
struct SetText {
  char digits[9];
  std::uint8_t length;
};

/// All 512 of them, by mask / 2.
constexpr auto settexts = [] {
  ByIndex<SetText, 512> texts{};
  for (int set = 0; set < 512; ++set)
    for (int digit = 1; digit <= 9; ++digit)
      if (set >> (digit - 1) & 1) texts[set].digits[texts[set].length++] = static_cast<char>('0' + digit);
  return texts;
}();

}  // namespace

void rebuildcandstr() {
  for (int cell = 0; cell < cellcount; ++cell) {
    std::int32_t& mask = candmask(cell);
    mask &= fullmask - usedmask(cell);
    const SetText& text = settexts[mask >> 1];
    std::string& stored = candstr(cell);
    if (stored.size() != text.length || std::memcmp(stored.data(), text.digits, text.length) != 0)
      stored.assign(text.digits, text.length);
  }
}

void refreshcandidates() {
  for (int cell = 0; cell < cellcount; ++cell)
    candmask(cell) = cellvalue(cell) == 0 ? fullmask - usedmask(cell) : 0;
}

void rebuildpositions() {
  Positions rows[10][9] = {}, columns[10][9] = {}, blocks[10][9] = {};
  for (int row = 0; row < 9; ++row)
    for (int col = 0; col < 9; ++col)
      for (unsigned rest = static_cast<unsigned>(candmask(cellat(row, col))) & fullmask; rest;
           rest &= rest - 1) {
        const int digit = std::countr_zero(rest);
        rows[digit][row].add(col);
        columns[digit][col].add(row);
        blocks[digit][blockat(row, col)].add(placeat(row, col));
      }
  for (int digit = 1; digit <= 9; ++digit) {
    std::copy_n(rows[digit], 9, rowpos.row(digit));
    std::copy_n(columns[digit], 9, colpos.row(digit));
    std::copy_n(blocks[digit], 9, blockpos.row(digit));
  }
}

void placesilently(int cell, int digit) {
  cellvalue(cell) = digit;
  candmask(cell) = 0;
  filledcount += 1;
  rebuildusedmask();
  rebuildcandstr();
  rebuildpositions();
}

namespace {

/// Takes a candidate out of the position index.
void takeout(int cell, int digit) {
  const int row = rowof(cell), col = columnof(cell);
  rowpos(digit, row).remove(col);
  colpos(digit, col).remove(row);
  blockpos(digit, blockat(row, col)).remove(placeat(row, col));
}

}  // namespace

void placequickly(int cell, int digit) {
  placeuncounted(cell, digit);
  filledcount += 1;
}

void placeuncounted(int cell, int digit) {
  const int row = rowof(cell), col = columnof(cell), block = blockat(row, col);
  const std::int32_t bit = bitvalue(digit);
  cellvalue(cell) = digit;
  for (auto rest = static_cast<unsigned>(candmask(cell)); rest; rest &= rest - 1)
    takeout(cell, std::countr_zero(rest));
  candmask(cell) = 0;
  candstr(cell).clear();
  for (const int house : {rowslot + row, columnslot + col, blockslot + block}) usedmask(house) |= bit;
  const auto see = [&](int seen) {
    usedmask(seen) |= bit;
    std::int32_t& mask = candmask(seen);
    if ((mask & bit) == 0) return;
    mask &= ~bit;
    takeout(seen, digit);
    const SetText& text = settexts[mask >> 1];
    candstr(seen).assign(text.digits, text.length);
  };
  for (int position = 0; position < 9; ++position) {
    see(cellat(row, position));
    see(cellat(position, col));
    see(housecell(HouseKind::block, block, position));
  }
}

void settledeletions() {
  rebuildcandstr();
  rebuildpositions();
}

bool deletecandidate(int cell, int digit) {
  if (!hascandidate(cell, digit)) return false;
  candmask(cell) ^= bitvalue(digit);
  return true;
}

std::int32_t leadingnumber(std::string_view text, std::optional<int> cell) {
  long long number = 0;
  std::size_t i = text.find_first_not_of(' ');
  for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i) {
    number = number * 10 + (text[i] - '0');
    if (number > INT32_MAX)
      throw Fault{Fault::Kind::overflow, "cellvalue", number, INT32_MIN, INT32_MAX, __func__, cell};
  }
  return static_cast<std::int32_t>(number);
}

}  // namespace gradino
