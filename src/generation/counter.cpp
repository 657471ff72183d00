// The solutions in ascending order of their digits, read from r1c1 to r9c9, as a search finds them that takes
// the cells and the digits of each in ascending order: this order decides which is the first and which two
// are found first. How they are found is hidden (completions.h); what such a search leaves behind is told
// here.
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

constexpr int limit = 500;
constexpr std::size_t records = 2049;

std::vector<Digits> found;
std::size_t dirtyrecords = 0;  ///< from index 1, those of soluzioni that the last count has written

void freshrecords() {
  if (soluzioni.size() == records)
    std::fill_n(soluzioni.begin() + 1, dirtyrecords, GridRecord{});
  else
    soluzioni.assign(records, GridRecord{});
  dirtyrecords = 0;
}

void loadgivens() {
  for (int cell = 0; cell < cells; ++cell)
    cellvalue(cell) = givens(cell).empty() ? 0 : leadingnumber(givens(cell));
  rebuildusedmask();
}

void showboard(const Digits& digits) {
  std::copy(digits.begin(), digits.end(), cellvalue.begin());
  rebuildusedmask();
}

/// One pass, never repeated: each empty cell with one digit left gets it. Cells behind see it at once, cells
/// before don't. A board that has a cell with no digit left before the pass stays as it is.
void forcedpass(Digits& board) {
  std::array<std::int32_t, 9> rows, columns, blocks;
  std::copy_n(usedmask.begin() + rowslot, 9, rows.begin());
  std::copy_n(usedmask.begin() + columnslot, 9, columns.begin());
  std::copy_n(usedmask.begin() + blockslot, 9, blocks.begin());
  for (std::size_t cell = 0; cell < board.size(); ++cell)
    if (board[cell] == 0 && usedmask(cell) == fullmask) return;
  for (std::size_t cell = 0; cell < board.size(); ++cell) {
    if (board[cell] != 0) continue;
    std::int32_t &row = rows[cell / 9], &column = columns[cell % 9],
                 &block = blocks[cell / 27 * 3 + cell % 9 / 3];
    const auto left = static_cast<std::uint32_t>(fullmask & ~(row | column | block));
    if (!std::has_single_bit(left)) continue;
    board[cell] = static_cast<std::uint8_t>(std::countr_zero(left));
    row |= left, column |= left, block |= left;
  }
}

/// A solution as text and as record. In other modes than counting the first alone is kept as a record.
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
  loadgivens();
  Digits board;
  std::copy_n(cellvalue.begin(), cells, board.begin());

  const bool counting = comandocorrente == countcommand;
  const std::size_t stop = counting ? limit + 1 : 2;
  firstcompletions(board, stop, found);
  numerosoluzioni = static_cast<std::int32_t>(found.size());
  for (int number = 1; number <= std::min(numerosoluzioni, limit); ++number)
    registrasoluzione(number, found[static_cast<std::size_t>(number - 1)]);
  if (found.size() == stop)
    board = found.back();
  else
    forcedpass(board);
  showboard(board);

  if (numerosoluzioni == 1) {
    for (int cell = 0; cell < cells; ++cell)
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

void freshcounter() {
  stringhesoluzione.clear();
  soluzioni.clear();
}

}  // namespace gradino
