#include "reduction.h"

#include <string>

#include <fmt/format.h>

#include "boxes.h"
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

using Puzzle = std::array<std::string, cells>;

Puzzle puzzleingivens() {
  Puzzle puzzle;
  for (int cell = 0; cell < cells; ++cell) puzzle[static_cast<std::size_t>(cell)] = givens(cell);
  return puzzle;
}

void tell(const std::string& line) {
  frmactivity::Text3.text.insert(0, line + std::string(newline));
}

/// Empties the boxes of the group and makes what is left the puzzle.
void takegroup(int cell) {
  const auto [point, a, b] = mirrors(cell);
  if (frmmain::Check1.ticked) {
    writetext1(a, "");
    writetext1(b, "");
  }
  writetext1(cell, "");
  writetext1(point, "");
  for (int c = 0; c < cells; ++c) givens(c) = Text1(c).text;
}

/// The reduced puzzle on the board, as the grader wants it.
void putup(const Puzzle& puzzle) {
  filledcount = 0;
  for (int cell = 0; cell < cells; ++cell) {
    givens(cell) = puzzle[static_cast<std::size_t>(cell)];
    cellvalue(cell) = leadingnumber(givens(cell));
    if (givens(cell).empty())
      writetext1(cell, "");
    else
      filledcount += 1;
    Text1(cell).locked = !givens(cell).empty();  // nobody is to meet an empty box that can't be typed in
  }
  rebuildusedmask();
  refreshcandidates();
  rebuildcandstr();
}

}  // namespace

// One pass from the top left, each group tried once: this order decides which groups fall.
void riduzione() {
  Puzzle backup = puzzleingivens();
  int groups = 0, reductions = 0;
  const std::string beginning;  // nobody ever fills it in
  std::string end;              // the board's filled cells, not the puzzle's: the counter leaves them alone
  suppresschange = true;
  for (int cell = 0; cell <= 40; ++cell) {
    if (Text1(cell).text.empty()) continue;
    groups += 1;
    tell(fmt::format(analysed, groups));
    takegroup(cell);
    conta();
    if (numerosoluzioni == 1) {
      backup = puzzleingivens();
      tell(reduced);
      host.repaint();
      reductions += 1;
      end = std::to_string(filledcount);
    } else {
      for (int c = 0; c < cells; ++c) writetext1(c, backup[static_cast<std::size_t>(c)]);
    }
  }
  tell(fmt::format(done, reductions));
  tell(fmt::format(fromto, beginning, end));
  // Whoever types meanwhile changes nothing before the grade stands.
  letevents();
  putup(backup);
  clearlog();
  SolveSudoku();
  suppresschange = false;
}

}  // namespace gradino
