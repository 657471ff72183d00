// BUG: if every open cell had two candidates left, each digit would have two places in every house where it
// is open, and the board would have no solution or several. Just one cell has a third candidate, so one of
// its three must break the pattern: the digit with three places in a house of the cell.
//
//     12 . 23 | . . . | . . .
//      . .  . | . . . | . . .      the 2 of the cell 123 has three places in the column
//     13 . 123| . . . | . . .
//      . .  . | . . . | . . .
//      . . 24 | . . . | . . .
//
// Of several such digits the highest is taken. It isn't checked that there is one: without one the digit is
// what colourdigit held before.
#include "bug.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "boxes.h"
#include "candidatetext.h"
#include "gradestate.h"
#include "grid.h"
#include "houses.h"
#include "lesson.h"
#include "light.h"
#include "log.h"
#include "step.h"
#include "words.h"

namespace gradino {
namespace {

// ---- words ------------------------------------------------------------------------------------------------

constexpr Words found = {"BUG in {cell}", "BUG in {cell}"};
constexpr Words entered = {"inserito {digit} in {cell}", "entered {digit} in {cell}"};
constexpr Words logentered = {" * inserito {digit} in {cell}", " * entered {digit} in {cell}"};

constexpr std::string_view title = "BUG LEVEL 18";  // in both languages
constexpr Words rule = {
    "Se ogni cella insoluta ha solo 2 candidati, in ogni gruppo abbiamo esattamente ogni candiato 2 volte, allora "
    "abbiamo un Bivalue Universal Grave (BUG).\r\n"
    "Il BUG è un deadly pattern, ha 0 o più di 1 soluzione.\r\n"
    "Se troviamo una situazione dove tutte le celle insolute ad eccezione di una hanno 2 soli candidati, tallora "
    "dalla cella che ha più di 2 candidati possiamo escludere i candidati che portanno al BUG.",
    "If every unsolved cell has only 2 possible candidates, in every house there are exactly 2 of every "
    "candidate, then we have a Bivalue Universal Grave (BUG).\r\n"
    "The BUG is a deadly pattern, it has either zero or more than one solution.\r\n"
    "If we found a situation were all but one unsolved cell has only 2 candidates, then from the cell that has "
    "more than 2 candidates we can remove the candidates that will create a BUG."};
constexpr Words ifdifferent = {"se {cell} è differente da {digit}, lo schema si troba in un BUG",
                               "if {cell} is different from {digit}, the puzzle is in a BUG position"};
constexpr Words wecaninsert = {"posso quindi inserire {digit} in {cell}",
                               "we can, therefore, insert {digit} in {cell}"};

constexpr int level = 18;

// ---- search -----------------------------------------------------------------------------------------------

/// The only cell with more than two candidates, if it has three. Cells with one candidate or none don't
/// matter.
std::optional<int> gravecell() {
  std::optional<int> grave;
  for (int cell = 0; cell < cellcount; ++cell) {
    if (candidatecount(cell) <= 2) continue;
    if (grave) return std::nullopt;
    grave = cell;
  }
  return grave && candidatecount(*grave) == 3 ? grave : std::nullopt;
}

bool threeplaces(int cell, int digit) {
  return std::any_of(housekinds.begin(), housekinds.end(), [&](HouseKind kind) {
    return housepos(kind, digit, houseof(kind, cell)).length() == 3;
  });
}

struct Bug {
  int cell, digit;
};

/// The cell, and the last of its digits that qualifies; `before` where none does.
std::optional<Bug> scanbug(int before) {
  const std::optional<int> cell = gravecell();
  if (!cell) return std::nullopt;
  Bug bug = {*cell, before};
  for (int k = 0; k < 3; ++k)
    if (const int digit = candidateat(bug.cell, k); threeplaces(bug.cell, digit)) bug.digit = digit;
  return bug;
}

/// The step on show. Only its explanation reads it.
std::optional<Bug> shown;

void forget() {
  shown.reset();
}

std::string tell(const Words& words, const Bug& bug) {
  return say(words, incell(bug.cell), ofdigit(bug.digit));
}

}  // namespace

// ---- step -------------------------------------------------------------------------------------------------

void frmmain::stepbug() {
  foundflag = false;
  steptag = techniques::bug.tag;
  shown = scanbug(colourdigit);
  if (!shown) return;
  const Bug bug = *shown;  // a command that comes in during the wait may show another
  colourdigit = bug.digit;
  foundflag = true;
  Text5.text = std::to_string(bug.digit);
  Text2(bug.cell).back = yellow;
  txthint.text = tell(found, bug);
  const bool stop = waitatlight() == Answer::stop;
  Text2(bug.cell).back = white;
  if (stop) return;  // with foundflag set: the ladder stops all the same

  txthint.text = tell(entered, bug);
  writetext1(bug.cell, std::to_string(bug.digit));
  Text1(bug.cell).visible = true;
}

// ---- twin -------------------------------------------------------------------------------------------------

// It starts from 0 instead of colourdigit: where no digit qualifies, the log says 0.
void frmgenerazione::gradebug() {
  foundflag = false;
  const std::optional<Bug> bug = scanbug(0);
  if (!bug) return;
  foundflag = true;
  headline(tell(found, *bug));
  detail(tell(logentered, *bug));
  placesilently(bug->cell, bug->digit);
  raiselevel(level);
}

// ---- explanation ------------------------------------------------------------------------------------------

void explainbug() {
  if (!shown) return;      // a search without a result was started during another step's wait
  const Bug bug = *shown;  // a command that comes in during a wait may show another, or none
  Lesson lesson;
  lesson.line(title).line(inlanguage(rule)).line(longruleline);
  lesson.line(tell(found, bug)).line(tell(ifdifferent, bug));
  if (lesson.showandwait() == Answer::stop) return;

  lesson.line(tell(wecaninsert, bug));
  if (lesson.showandwait() == Answer::stop) return;
  closelesson();
  clearcolours();
}

// ---- record -----------------------------------------------------------------------------------------------

const Technique techniques::bug{
    .tag = "bug",
    .name = "bug",
    .called = {"BUG", "BUG"},
    .step = byfoundflag<frmmain::stepbug>,
    .twin = byfoundflag<frmgenerazione::gradebug>,
    .explain = explainbug,
    .level = level,
    .forget = forget,
};

}  // namespace gradino
