#include "generator.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "boardgrade.h"
#include "boxes.h"
#include "grader.h"
#include "gradestate.h"
#include "grid.h"
#include "host.h"
#include "intersections.h"
#include "library.h"
#include "light.h"
#include "log.h"
#include "pairs.h"
#include "reduction.h"
#include "singles.h"
#include "step.h"
#include "tables.h"
#include "view.h"

namespace gradino {

using frmmain::Text1;

namespace {

constexpr const char* newpuzzle = "new puzzle";  // in both languages

/// The chosen cells and their digits in order of choice. A cell may be in the list twice: for itself and as
/// the mirror of another.
Table<int, 0, 80> cellescelte{"cellescelte"}, cifrescelte{"cifrescelte"};
Int16 scelte{"scelte"};

bool marksstale = false;  ///< a digit was placed, and the pencil marks on the screen are out of date

constexpr int unsolved = 21;     ///< up to this many entries are chosen without solving
constexpr int enoughpairs = 20;  ///< with fewer free pairs the choice is no longer random

void enter(int cell) {
  cellescelte(scelte) = cell;
  cifrescelte(scelte) = cellvalue(cell);
  scelte += 1;
}

int randombelow(std::size_t count) {
  return static_cast<int>(host.random() * static_cast<double>(count));
}

/// Puts a random candidate into a cell. False: the cell has none, and the try has failed.
bool place(int cell) {
  const std::string& open = candstr(cell);
  if (open.empty()) {
    generationfailed = true;
    return false;
  }
  const char digit = open[static_cast<std::size_t>(randombelow(open.size()))];
  writetext1(cell, std::string(1, digit));
  Text1(cell).locked = true;
  placequickly(cell, digit - '0');
  marksstale = true;
  return true;
}

/// Enters a mirror of the chosen cell, after filling it unless the quick solver has done so.
bool entermirror(int cell) {
  if (cellvalue(cell) == 0 && !place(cell)) return false;
  enter(cell);
  return true;
}

/// The cell to fill next: while there are many free pairs (a cell and its point mirror, both empty), a random
/// cell of them; then the last such cell on the board, and finally the last empty cell.
int choosecell() {
  static std::vector<int> celledisponibili;
  celledisponibili.clear();
  int lastempty = 0;
  for (int cell = 0; cell < cellcount; ++cell) {
    if (cellvalue(cell) != 0) continue;
    lastempty = cell;
    if (cellvalue(mirrors(cell).point) == 0) celledisponibili.push_back(cell);
  }
  if (celledisponibili.size() >= enoughpairs)
    return celledisponibili[static_cast<std::size_t>(randombelow(celledisponibili.size()))];
  const int lastpair = celledisponibili.empty() ? 0 : celledisponibili.back();
  return lastpair != 0 ? lastpair : lastempty;
}

/// Lets events run in the middle of a try. A command that clears the board ends the generation. False: a
/// command changed the tables in another way, as the menu has no lock, and the try has failed.
bool windowsturn() {
  const auto values = cellvalue;
  const auto masks = candmask;
  letevents();
  suppresschange = true;
  comandocorrente = generatecommand;  // the key conta may have cleared it
  const bool untouched = std::equal(values.begin(), values.end(), cellvalue.begin()) &&
                         std::equal(masks.begin(), masks.end(), candmask.begin());
  if (!untouched) generationfailed = true;
  return untouched;
}

// Naked singles first: the order only affects the speed.
const std::array<const SingleRung*, 4> quickrungs = {&singlerungs[4], &singlerungs[1], &singlerungs[2],
                                                     &singlerungs[3]};

/// The first single that the quick solver finds.
std::optional<Single> quicksingle() {
  for (const SingleRung* rung : quickrungs)
    if (const std::string result = rung->find(); !result.empty()) return rung->read(result);
  return std::nullopt;
}

/// Solves the board as far as singles, intersections and naked pairs go. Its digits and deletions stay in the
/// tables, but are not shown, and its digits are not among the chosen ones.
void risolvirapido() {
  cleargrade();
  boardfinished = false;
  if (std::exchange(marksstale, false)) updatetext2();  // they could not be seen until now
  suppresschange = true;
  for (;;) {
    if (!windowsturn()) return;
    foundflag = false;
    if (const std::optional<Single> single = quicksingle()) {
      placequickly(single->cell, single->digit);
      boardfinished = filledcount == cellcount;
      if (boardfinished) return;
      continue;
    }
    frmgenerazione::intersections();
    if (foundflag) continue;
    frmgenerazione::nakedpair();
    if (!foundflag) return;
  }
}

/// After the first entries the quick solver runs at every placement. True: the board is finished.
bool finishedquickly() {
  if (scelte > unsolved) risolvirapido();
  return boardfinished;
}

/// The chosen digits become the puzzle and the board its solution.
void finish() {
  for (int cell = 0; cell < cellcount; ++cell) {
    writetext1(cell, "");
    solutiontext(cell) = std::to_string(cellvalue(cell));
    cellvalue(cell) = 0;
    givens(cell).clear();
  }
  for (int n = scelte - 1; n >= 0; --n) {
    const int cell = cellescelte(n), digit = cifrescelte(n);
    writetext1(cell, std::to_string(digit));
    givens(cell) = Text1(cell).text;
    cellvalue(cell) = digit;
  }
  riduzione();
}

/// Clears the board for a try.
void wipe() {
  frmactivity::Text3.text.clear();
  emptylogtext();
  suppresschange = true;
  for (int cell = 0; cell < cellcount; ++cell) {
    cellvalue(cell) = 0;
    candmask(cell) = fullmask;
    writetext1(cell, "");
    candstr(cell) = "123456789";
    writetext2(cell, candstr(cell));
    Text1(cell).fore = red;
    Text1(cell).locked = false;
    frmmain::Text2(cell).back = white;
  }
  filledcount = 0;
  rebuildusedmask();
  rebuildpositions();
}

/// Chooses and fills a cell and its mirrors. True: the board is finished, or the try has failed.
bool choose() {
  const int cell = choosecell();
  if (!place(cell)) return true;
  enter(cell);
  const auto [point, a, b] = mirrors(cell);
  if (finishedquickly()) {
    enter(point);
    if (frmmain::Check1.ticked) {
      enter(a);
      enter(b);
    }
    return true;
  }
  if (generationfailed) return true;
  if (cell == point) {
    enter(cell);  // the centre is its own mirror, and is entered twice
    return false;
  }
  if (!entermirror(point)) return true;
  if (frmmain::Check1.ticked)
    for (const int mirror : {a, b})
      if (mirror != cell && !entermirror(mirror)) return true;
  return finishedquickly() || generationfailed;
}

/// One try at a puzzle. There is no backtracking: a cell without candidates ends the try.
void riempischema() {
  suppresschange = true;
  scelte = 0;
  while (!choose()) continue;
  if (!generationfailed) finish();
}

}  // namespace

void frmgenerazione::genera() {
  mnupencil_Click();
  const int clicks = pencilclicks;
  loseboard();
  try {
    do {
      generationfailed = foundflag = boardfinished = false;
      wipe();
      riempischema();
    } while (generationfailed);
  } catch (const Fault&) {
    mnupencil_Click();
    throw;
  } catch (const BoardLost&) {  // lost to a command that may have set the display itself
    if (clicks == pencilclicks) mnupencil_Click();
    throw;
  }
  mnupencil_Click();
  pencilclicks = clicks - 1;  // two clicks that cancel each other count as none
  frmprogress::visible = false;
}

void freshgenerator() {
  cellescelte.clear();
  cifrescelte.clear();
  scelte = 0;
  generationfailed = marksstale = false;
}

void frmprogress::timer() {
  Text1.text = fmt::format("{}", static_cast<float>(host.clock()));
}

namespace {

/// Puts the givens on the board, ready to be solved.
void showpuzzle() {
  suppresschange = true;
  for (int cell = 0; cell < cellcount; ++cell) {
    Text1(cell).fore = red;
    writetext1(cell, "");
    writetext1(cell, givens(cell));
    if (givens(cell).empty()) Text1(cell).fore = textcolor;
  }
  suppresschange = false;
  frmmain::filetxt.text = newpuzzle;
  repaintboard();
}

}  // namespace

void frmmain::nuovoschema() {
  libraryrecordopen = false;  // the puzzle graded now is no record of the library
  comandocorrente = generatecommand;
  gradeandrestore(frmgenerazione::genera, showpuzzle);
}

}  // namespace gradino
