// Nishio: trial and error restricted to singles. Place a candidate that may be wrong, let the singles run
// until they stop, and look after each for an impossible state: a cell without a candidate, or a house in
// which a digit has no place left. The candidate was wrong.
//
//     r5c5 = 3  ->  r5c8 = 6  ->  r2c8 = 1  ->  no 4 any more in column 8
//
// The trial runs on the live tables and puts them back. Cells with few candidates are tried first; a short
// trial is taken as it stands, otherwise the shortest of the board.
#include "nishio.h"

#include <algorithm>
#include <array>
#include <bit>
#include <string>
#include <vector>

#include "candidatetext.h"
#include "chainsteps.h"
#include "gradestate.h"
#include "grid.h"
#include "host.h"
#include "houses.h"
#include "lesson.h"
#include "light.h"
#include "log.h"
#include "nodequeue.h"
#include "singles.h"
#include "step.h"
#include "words.h"

namespace gradino {
namespace {

// ---- words ------------------------------------------------------------------------------------------------

// The hint and the headline of the log.
constexpr Words found = {"CATENA NISHIO - Se {cell}={digit}", "NISHIO CHAIN - If {cell}={digit}"};

// These lines are in English in both languages, and the house counts from 0.
constexpr Words logstep = {" * {cell}={digit}", " * {cell}={digit}"};
constexpr Words logalso = {" * also {cell}={digit}", " * also {cell}={digit}"};
constexpr Words lognoplace = {" * {digit} no more possible in {kind} {house}",
                              " * {digit} no more possible in {kind} {house}"};
constexpr Words logimpossible = {" * IMPOSSIBLE", " * IMPOSSIBLE"};

constexpr Words title = {
    "TECNICA NISHIO  LIVELLO 21\r\n"
    "si deve trovare una catena di conseguenze\r\n"
    "che porti ad una contradizione: un numero\r\n"
    "non e' piu' possibile in in gruppo oppure\r\n"
    "e' contenuto piu' di una volta",
    "TECHNIQUE NISHIO  LEVEL 21\r\n"
    "a chain of consequences that brings to a contradiction\r\n"
    "a number is not any more possible in a house \r\n"
    "or in an empty cell NO CANDIDATE is any more possible"};
constexpr Words suppose = {"Se {cell}={digit}", "If {cell}={digit}"};
constexpr Words step = {"{cell}={digit}", "{cell}={digit}"};
constexpr Words noplaceinrow = {"{digit} non piu' possibile in riga {house}",
                                "{digit} no more possible in row {house}"};
constexpr Words noplaceincolumn = {"{digit} non piu' possibile in colonna {house}",
                                   "{digit} no more possible in column {house}"};
constexpr Words noplaceinblock = {"{digit} non piu' possibile in settore {house}",
                                  "{digit} no more possible in block {house}"};
constexpr Words also = {"IMPOSSIBILE - anche {cell}={digit}", " IMPOSSIBLE - also {cell}={digit}"};
constexpr Words removed = {" rimosso {digit} da {cell}", " removed {digit} from {cell}"};

constexpr int level = 21;

// ---- search -----------------------------------------------------------------------------------------------

constexpr int notrial = 81;      ///< steps: there is none
constexpr int takenatonce = 11;  ///< a trial of fewer steps ends the search
constexpr int usable = 50;       ///< a trial of that many steps or more counts as none

/// What makes a state impossible: in a house a digit without a place, or a cell without a candidate.
struct Impossible {
  bool flag = false;
  bool house = false;
  const char* kind = "";  ///< "row", "column", "block" or "cell"
  int index = 0;          ///< house, 0-based, or cell
  int digit = 0;
  int cell = 0;
};

/// One trial: the placings that follow the hypothesis, and how it ended.
struct Trial {
  std::vector<int> cell, digit;
  Impossible end;
};

Byte nishiocount{"nishiocount"};  ///< placings of the running trial, which stand in the node queue's tables
Impossible impossible;
Trial best;

/// The first digit of a kind of houses that is neither placed nor has a place left.
bool lostdigit(int slots, const char* name) {
  for (int house = 0; house < 9; ++house) {
    const int lost = fullmask & ~(usedmask(slots + house) | candmask(slots + house));
    if (lost == 0) continue;
    impossible = {true, true, name, house, std::countr_zero(static_cast<unsigned>(lost)), impossible.cell};
    return true;
  }
  return false;
}

/// The union of candidates of each house goes into the work space of candmask, at the slot that usedmask has
/// for the house.
void unitecandidates() {
  std::array<std::int32_t, 9> columns{}, blocks{};
  for (int row = 0; row < 9; ++row) {
    std::int32_t inrow = 0;
    for (int col = 0; col < 9; ++col) {
      const std::int32_t mask = candmask(row * 9 + col);
      inrow |= mask;
      columns[static_cast<std::size_t>(col)] |= mask;
      blocks[static_cast<std::size_t>(row / 3 * 3 + col / 3)] |= mask;
    }
    candmask(rowslot + row) = inrow;
  }
  for (int house = 0; house < 9; ++house) {
    candmask(columnslot + house) = columns[static_cast<std::size_t>(house)];
    candmask(blockslot + house) = blocks[static_cast<std::size_t>(house)];
  }
}

/// A house without a place for a digit overrides a cell without a candidate.
void nishiocheck() {
  impossible.house = false;
  for (int cell = 0; cell < cellcount; ++cell)
    if (candmask(cell) == 0 && cellvalue(cell) == 0)
      impossible = {true, false, "cell", cell, impossible.digit, cell};
  unitecandidates();
  if (lostdigit(rowslot, "row")) return;
  if (lostdigit(columnslot, "column")) return;
  lostdigit(blockslot, "block");
}

/// The next single there is, placed and recorded. The last digit of a house is left to the others.
bool placenext() {
  for (std::size_t rung = 1; rung < singlerungs.size(); ++rung) {
    const std::string result = singlerungs[rung].find();
    if (result.empty()) continue;
    const Single single = singlerungs[rung].read(result);
    placeuncounted(single.cell, single.digit);
    chaincell(nishiocount) = single.cell;
    chaindigit(nishiocount) = single.digit;
    nishiocount += 1;
    return true;
  }
  return false;
}

/// A trial that has grown as long as the best is of no use any more, and is left as if nothing had come of
/// it.
void nishiopropagate() {
  nishiocount = 0;
  impossible.flag = false;
  const bool before = suppresschange;
  suppresschange = true;
  while (!impossible.flag && nishiocount < chainsteps && placenext()) nishiocheck();
  suppresschange = before;
}

/// The board before a trial.
class Saved {
 public:
  Saved() {
    std::copy_n(cellvalue.begin(), cellcount, values_.begin());
    std::copy_n(candmask.begin(), cellcount, masks_.begin());
  }
  void restore() const {
    std::copy_n(values_.begin(), cellcount, cellvalue.begin());
    std::copy_n(masks_.begin(), cellcount, candmask.begin());
    rebuildusedmask();
    rebuildcandstr();
    rebuildpositions();
  }

 private:
  std::array<std::int32_t, cellcount> values_, masks_;
};

void keepbest(int digit, int cell) {
  chainsteps = nishiocount;
  stepcell = cell;
  stepdigit = digit;
  best = {{}, {}, impossible};
  for (int k = 0; k < nishiocount; ++k) {
    best.cell.push_back(chaincell(k));
    best.digit.push_back(chaindigit(k));
  }
}

void trial(int digit, int cell, const Saved& board) {
  try {
    cellvalue(cell) = digit;
    candmask(cell) = 0;
    rebuildusedmask();
    rebuildcandstr();
    rebuildpositions();
    nishiopropagate();
  } catch (const Fault&) {  // a box with a number above 9: the board keeps its trouble, not the trial
    board.restore();        // meets it again
    throw;
  }
  if (impossible.flag && nishiocount < chainsteps) keepbest(digit, cell);
  board.restore();
  impossible.flag = false;
}

/// Leaves the shortest trial in `best`, its steps in chainsteps and its hypothesis in stepcell and stepdigit.
void scannishio() {
  foundflag = false;
  impossible.flag = false;
  chainsteps = notrial;
  int longest = 0;
  for (int most = 2; most <= longest + 1 || most == 2; ++most) {
    const Saved board;  // of each band afresh: a command that came in between may have changed it
    for (int cell = 0; cell < cellcount; ++cell) {
      const int count = candidatecount(cell);
      longest = std::max(longest, count);
      if (count != most) continue;
      for (int k = 0; k < count; ++k) {
        const int digit = candidateat(cell, k);
        if (digit == 0 || !maybewrong(cell, digit)) continue;
        trial(digit, cell, board);
        if (chainsteps < takenatonce) return;
      }
    }
    letevents();
  }
}

std::string tell(const Words& words, int cell, int digit) {
  return say(words, incell(cell), ofdigit(digit));
}

void paintplacings(const Trial& trial, Colour colour) {
  for (int cell : trial.cell) frmmain::Text2(cell).back = colour;
}

}  // namespace

// ---- step -------------------------------------------------------------------------------------------------

void frmmain::stepnishio() {
  steptag = techniques::nishio.tag;
  scannishio();
  if (chainsteps >= usable) return;
  foundflag = true;
  const Trial shown = best;  // a command that comes in during the wait may search for another
  const int cell = stepcell, digit = stepdigit;
  paintplacings(shown, yellow);
  txthint.text = tell(found, cell, digit);
  const bool stop = waitatlight() == Answer::stop;
  paintplacings(shown, white);
  if (stop) return;
  deletecandidate(cell, digit);
  showdeletions();
}

// ---- twin -------------------------------------------------------------------------------------------------

void frmgenerazione::gradenishio() {
  scannishio();
  if (chainsteps >= usable) return;
  foundflag = true;
  headline(tell(found, stepcell, stepdigit));
  nishioflag = true;  // widens the next search for a loop
  for (std::size_t k = 0; k < best.cell.size(); ++k) detail(tell(logstep, best.cell[k], best.digit[k]));
  if (best.end.house)
    detail(
        say(lognoplace, ofdigit(best.end.digit), hole("kind", best.end.kind), hole("house", best.end.index)));
  else
    detail(tell(logalso, best.end.cell, best.digit.back()));
  detail(inlanguage(logimpossible));
  deletecandidate(stepcell, stepdigit);
  raiselevel(level);
  settledeletions();
}

// ---- explanation ------------------------------------------------------------------------------------------

namespace {

/// The digit boxes as they stood: the argument writes its placings into them, and nobody's board is lost by
/// it.
class SavedBoxes {
 public:
  explicit SavedBoxes(const Trial& argued) : argued_(argued) {
    for (int cell = 0; cell < cellcount; ++cell)
      boxes_[static_cast<std::size_t>(cell)] = frmmain::Text1(cell);
  }
  ~SavedBoxes() { restore(); }
  SavedBoxes(const SavedBoxes&) = delete;
  SavedBoxes& operator=(const SavedBoxes&) = delete;

  /// A board that came in meanwhile, or a digit that the user entered, is not put back over; a digit that the
  /// argument came to write over stands there again.
  void restore() {
    if (restored_ || board_ != boardnumber) return;
    restored_ = true;
    for (std::size_t k = 0; k < argued_.cell.size(); ++k) {
      const int cell = argued_.cell[k];
      const Box& before = boxes_[static_cast<std::size_t>(cell)];
      Box& box = frmmain::Text1(cell);
      if (box.text != std::to_string(argued_.digit[k])) continue;
      const bool entered = cellvalue(cell) != 0;
      box.text = entered ? std::to_string(cellvalue(cell)) : before.text;
      box.visible = entered || before.visible;
    }
  }

 private:
  const Trial& argued_;
  const int board_ = boardnumber;
  std::array<Box, cellcount> boxes_;
  bool restored_ = false;
};

/// Shows a placing without letting the tables follow.
void showplacing(int cell, int digit) {
  frmmain::Text2(cell).back = yellow;
  frmmain::Text1(cell).back = green;
  frmmain::Text1(cell).text = std::to_string(digit);
  frmmain::Text1(cell).visible = true;
}

std::string tellend(const Trial& argued) {
  if (!argued.end.house) return tell(also, argued.end.cell, argued.digit.back());
  const std::string_view kind = argued.end.kind;
  const Words& words = kind == "row" ? noplaceinrow : kind == "column" ? noplaceincolumn : noplaceinblock;
  return say(words, ofdigit(argued.end.digit), hole("house", argued.end.index + 1));
}

}  // namespace

void explainnishio() {
  if (chainsteps >= usable || best.cell.empty()) return;  // the tag was set, but nothing was found
  const Trial argued = best;
  SavedBoxes boxes(argued);
  const int cell = stepcell, digit = stepdigit;
  Lesson lesson;
  lesson.line(inlanguage(title)).line(longruleline);
  lesson.line(tell(suppose, cell, digit));
  paintplacings(argued, white);
  if (lesson.showandwait() == Answer::stop) return;
  for (std::size_t k = 0; k < argued.cell.size(); ++k) {
    showplacing(argued.cell[k], argued.digit[k]);
    lesson.line(tell(step, argued.cell[k], argued.digit[k]));
    if (lesson.showandwait() == Answer::stop) return;
  }
  lesson.line(tellend(argued));
  if (lesson.showandwait() == Answer::stop) return;

  boxes.restore();
  lesson.line(tell(removed, cell, digit));
  deletecandidate(cell, digit);
  showdeletions();
  if (lesson.showandwait() == Answer::stop) return;
  closelesson();
  clearcolours();
}

// ---- record -----------------------------------------------------------------------------------------------

const Technique techniques::nishio{
    .tag = "impossible",
    .name = "nishio",
    .called = {"Nishio", "Nishio"},
    .step = byfoundflag<frmmain::stepnishio>,
    .twin = byfoundflag<frmgenerazione::gradenishio>,
    .explain = explainnishio,
    .level = level,
};

}  // namespace gradino
