// The solutions come in ascending order of their digits, read from r1c1 to r9c9, as a search finds them that
// takes the cells, and the digits of each, in ascending order. The order decides which solution is the first,
// and which two are found before a count stops. completions.h finds them; here is what such a search leaves
// in the tables.
#include "counter.h"

#include <algorithm>
#include <bit>

#include "completions.h"
#include "gradestate.h"
#include "host.h"
#include "step.h"

namespace gradino {
namespace {

// The counter's own boxes are in English in both languages.
constexpr const char* invalid = "Invalid Puzzle";
constexpr const char* toomany = "More than 500 solutions";
constexpr const char* counted = " Solutions";
constexpr const char* several = "More than one solution ";

constexpr int limit = 500;
constexpr std::size_t records = 2049;

std::vector<Digits> found;
std::size_t dirtyrecords = 0;  ///< how many of soluzioni, from index 1 on, the last count has written

void freshrecords() {
  if (soluzioni.size() == records)
    std::fill_n(soluzioni.begin() + 1, dirtyrecords, GridRecord{});
  else
    soluzioni.assign(records, GridRecord{});
  dirtyrecords = 0;
}

struct CellHouses {
  std::uint8_t row, column, block;
};

/// The houses of each cell, as a table: the divisions would take a third of the time of a count.
constexpr auto housesofcell = [] {
  ByCell<CellHouses> houses{};
  for (int cell = 0; cell < cellcount; ++cell)
    houses[cell] = {static_cast<std::uint8_t>(rowof(cell)), static_cast<std::uint8_t>(columnof(cell)),
                    static_cast<std::uint8_t>(blockof(cell))};
  return houses;
}();

/// A board together with the digits that its houses hold.
struct Board {
  Digits digits{};
  ByHouse<std::int32_t> rows{}, columns{}, blocks{};

  std::int32_t seen(int cell) const {
    const CellHouses h = housesofcell[cell];
    return rows[h.row] | columns[h.column] | blocks[h.block];
  }

  void place(int cell, int digit) {
    digits[cell] = static_cast<std::uint8_t>(digit);
    const CellHouses h = housesofcell[cell];
    const std::int32_t bit = 1 << digit & fullmask;
    rows[h.row] |= bit;
    columns[h.column] |= bit;
    blocks[h.block] |= bit;
  }
};

/// Fault: a number above 9.
Board loadgivens() {
  Board board;
  bool digits = true;
  for (int cell = 0; cell < cellcount; ++cell) {
    const std::string& text = givens(cell);
    const std::int32_t value = text.empty() ? 0 : leadingnumber(text);
    cellvalue(cell) = value;
    digits &= value <= 9;
    if (digits) board.place(cell, value);
  }
  if (!digits) rebuildusedmask();
  return board;
}

/// One pass, never repeated: each empty cell with one digit left gets it. Cells after it see it at once,
/// cells before don't. A board that has a cell with no digit left before the pass stays as it is.
void forcedpass(Board& board) {
  for (int cell = 0; cell < cellcount; ++cell)
    if (board.digits[cell] == 0 && board.seen(cell) == fullmask) return;
  for (int cell = 0; cell < cellcount; ++cell) {
    if (board.digits[cell] != 0) continue;
    if (const int last = onlydigit(fullmask & ~board.seen(cell)); last != 0) board.place(cell, last);
  }
}

/// To cellvalue and usedmask.
void leave(const Board& board) {
  std::copy(board.digits.begin(), board.digits.end(), cellvalue.begin());
  for (int cell = 0; cell < cellcount; ++cell) usedmask.begin()[cell] = board.seen(cell);
  std::copy(board.rows.begin(), board.rows.end(), usedmask.begin() + rowslot);
  std::copy(board.columns.begin(), board.columns.end(), usedmask.begin() + columnslot);
  std::copy(board.blocks.begin(), board.blocks.end(), usedmask.begin() + blockslot);
}

/// Keeps a solution as text and as record; except while the command is to count, only the first as a record.
void registrasoluzione(int number, const Digits& digits) {
  std::string& text = stringhesoluzione(number);
  text.resize(digits.size());
  std::transform(digits.begin(), digits.end(), text.begin(),
                 [](std::uint8_t digit) { return static_cast<char>('0' + digit); });
  if (comandocorrente != countcommand && number >= 2) return;
  dirtyrecords = static_cast<std::size_t>(number);
  std::copy(digits.begin(), digits.end(), soluzioni[dirtyrecords].begin());
}

}  // namespace

void conta() {
  numerosoluzioni = 0;
  freshrecords();
  Board board = loadgivens();
  const std::size_t stop = comandocorrente == countcommand ? limit + 1 : 2;
  firstcompletions(board.digits, stop, found);
  numerosoluzioni = static_cast<std::int32_t>(found.size());
  for (int number = 1; number <= std::min(numerosoluzioni, limit); ++number)
    registrasoluzione(number, found[static_cast<std::size_t>(number - 1)]);
  if (found.size() < stop)
    forcedpass(board);
  else
    for (int cell = 0; cell < cellcount; ++cell) board.place(cell, found.back()[cell]);
  leave(board);

  if (numerosoluzioni == 1) {
    for (int cell = 0; cell < cellcount; ++cell)
      solutiontext(cell) = stringhesoluzione(1).at(static_cast<std::size_t>(cell));
    return;
  }
  if (numerosoluzioni > limit) {
    host.message(toomany);
    comandocorrente.clear();
  }
  if (numerosoluzioni == 0) host.message(invalid);
  if (comandocorrente == countcommand) host.message(std::to_string(numerosoluzioni) + counted);
}

void countgivens() {
  conta();
  if (numerosoluzioni > 1) host.message(several);
}

// The records stay where they are: to make 664 kB anew would take longer than most counts.
void freshcounter() {
  stringhesoluzione.clear();
  freshrecords();
}

}  // namespace gradino
