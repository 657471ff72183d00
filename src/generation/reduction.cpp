#include "reduction.h"

#include <array>
#include <optional>
#include <string>

#include <fmt/format.h>

#include "boxes.h"
#include "completions.h"
#include "counter.h"
#include "grader.h"
#include "gradestate.h"
#include "grid.h"
#include "host.h"
#include "light.h"
#include "log.h"
#include "tables.h"
#include "words.h"

namespace gradino {

using frmmain::Text1;

namespace {

// In Italian or English, whatever the language.
constexpr const char* analysed = "coppia analizzata {}";
constexpr const char* reduced = "1 RIDUZIONE ESEGUITA ";
constexpr const char* done = "executed {} reductions";
constexpr const char* fromto = "beginning = {} end = {}";

using Puzzle = std::array<std::string, cellcount>;

Puzzle puzzleingivens() {
  Puzzle puzzle;
  for (int cell = 0; cell < cellcount; ++cell) puzzle[static_cast<std::size_t>(cell)] = givens(cell);
  return puzzle;
}

void tell(const std::string& line) {
  frmactivity::Text3.text.insert(0, line + std::string(newline));
}

void togivens(const Puzzle& puzzle) {
  for (int cell = 0; cell < cellcount; ++cell) givens(cell) = puzzle[static_cast<std::size_t>(cell)];
}

Digits digitsingivens() {
  Digits digits{};
  for (int cell = 0; cell < cellcount; ++cell)
    digits[cell] = static_cast<std::uint8_t>(leadingnumber(givens(cell)));
  return digits;
}

/// A group of mirrored cells, removed from the boxes and from the puzzle.
class Group {
 public:
  explicit Group(int cell) {
    const auto [point, a, b] = mirrors(cell);
    if (frmmain::Check1.ticked) {
      take(a);
      take(b);
    }
    take(cell);
    take(point);
  }

  /// Whether the puzzle, which had one solution with the group, still has no other. Any other solution must
  /// differ in the group: in its first cell, or else in its second, and so on.
  bool isspare() const {
    Digits digits = digitsingivens();
    for (std::size_t n = 0; n < count_; ++n) {
      const int digit = leadingnumber(texts_[n]);
      if (completesotherwise(digits, cells_[n], digit)) return false;
      digits[cells_[n]] = static_cast<std::uint8_t>(digit);
    }
    return true;
  }

  void putback() const {
    for (std::size_t n = 0; n < count_; ++n) {
      writetext1(cells_[n], texts_[n]);
      givens(cells_[n]) = texts_[n];
    }
  }

 private:
  void take(int cell) {
    if (givens(cell).empty()) return;  // the centre or a cell on an axis, taken already as its own mirror
    cells_[count_] = cell;
    texts_[count_++] = givens(cell);
    writetext1(cell, "");
    givens(cell).clear();
  }

  std::array<int, 4> cells_{};
  std::array<std::string, 4> texts_;
  std::size_t count_ = 0;
};

/// Puts the reduced puzzle on the board for the grader.
void putup(const Puzzle& puzzle) {
  filledcount = 0;
  for (int cell = 0; cell < cellcount; ++cell) {
    givens(cell) = puzzle[static_cast<std::size_t>(cell)];  // events may have run since
    cellvalue(cell) = leadingnumber(givens(cell));
    if (givens(cell).empty())
      writetext1(cell, "");
    else
      filledcount += 1;
    Text1(cell).locked = !givens(cell).empty();  // an empty box must not be locked against typing
  }
  rebuildusedmask();
  refreshcandidates();
  rebuildcandstr();
}

}  // namespace

// One pass from the top left tries each group once; the order decides which groups are removed. For each it
// is only checked whether there is another solution. The tables are to be as a full count of each try would
// have left them: at the end the last rejected try and, if the last try was accepted, the puzzle are counted.
void riduzione() {
  std::optional<Puzzle> rejected;
  conta();
  const bool one = numerosoluzioni == 1;
  bool lastfell = false;
  int groups = 0, reductions = 0;
  const std::string beginning;  // never filled in
  std::string end;              // the board's filled cells, not the puzzle's: the counter leaves them alone
  suppresschange = true;
  for (int cell = 0; cell <= 40; ++cell) {
    if (Text1(cell).text.empty()) continue;
    groups += 1;
    tell(fmt::format(analysed, groups));
    const Group group(cell);
    lastfell = one && group.isspare();
    if (lastfell) {
      tell(reduced);
      host.repaint();
      reductions += 1;
      end = std::to_string(filledcount);
    } else {
      rejected = puzzleingivens();
      group.putback();
    }
  }
  const Puzzle puzzle = puzzleingivens();
  if (rejected) {
    togivens(*rejected);
    conta();
    togivens(puzzle);
  }
  if (lastfell) conta();
  tell(fmt::format(done, reductions));
  tell(fmt::format(fromto, beginning, end));
  // What is typed meanwhile changes nothing until the puzzle is graded.
  letevents();
  putup(puzzle);
  clearlog();
  SolveSudoku();
  suppresschange = false;
}

}  // namespace gradino
