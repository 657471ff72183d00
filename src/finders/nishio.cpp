// Nishio: trial and error restricted to singles. Place a candidate that may be wrong, let the singles run
// until they stop, and look after each for an impossible state: a cell without a candidate, or a house in
// which a digit has no place left. The candidate was wrong.
//
//     r5c5 = 3  ->  r5c8 = 6  ->  r2c8 = 1  ->  no 4 any more in column 8
//
// The trial runs on the tables of the board itself and puts them back. Cells with few candidates are tried
// first; a short trial is taken at once, otherwise the shortest of the board.
#include "nishio.h"

#include <algorithm>
#include <array>
#include <bit>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

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
constexpr ByKind<std::string_view> logkind = {{"row", "column", "block"}};
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
constexpr ByKind<Words> noplace = {
    {{"{digit} non piu' possibile in riga {house}", "{digit} no more possible in row {house}"},
     {"{digit} non piu' possibile in colonna {house}", "{digit} no more possible in column {house}"},
     {"{digit} non piu' possibile in settore {house}", "{digit} no more possible in block {house}"}}};
constexpr Words also = {"IMPOSSIBILE - anche {cell}={digit}", " IMPOSSIBLE - also {cell}={digit}"};
constexpr Words removed = {" rimosso {digit} da {cell}", " removed {digit} from {cell}"};

constexpr int level = 21;

// ---- search -----------------------------------------------------------------------------------------------

constexpr int notrial = 81;      ///< in chainsteps, while no trial has led to a contradiction
constexpr int takenatonce = 11;  ///< a trial of fewer steps ends the search
constexpr int usable = 50;       ///< a trial of that many steps or more counts as none

/// What makes a state impossible: a house in which a digit has no place, or a cell without a candidate.
struct Impossible {
  std::optional<HouseKind> housekind;
  int index;  ///< house, 0-based, or cell
  int digit;  ///< the one without a place; with a cell, the one placed last
};

struct Placing {
  int cell, digit;
};

/// A trial that has refuted its hypothesis: the placings that followed, and what was impossible after them.
struct Trial {
  std::vector<Placing> placings;
  Impossible end;
};

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
  ByCell<std::int32_t> values_, masks_;
};

/// The shortest trial of the last search that had one. Step and twin show it, the explanation argues it, each
/// through usabletrial; its steps are in chainsteps, its hypothesis in stepcell and stepdigit.
Trial best;

/// The best trial, if the last search found one that is short enough. It may have no placings: if a command
/// has searched for a forcing chain meanwhile, chainsteps is that chain's.
std::optional<Trial> usabletrial() {
  if (chainsteps >= usable) return std::nullopt;
  return best;
}

void forget() {
  best = {};
  chainsteps = notrial;
}

/// The first slot of each kind of houses in usedmask and in the work space of candmask.
constexpr ByKind<int> slots = {{rowslot, columnslot, blockslot}};

/// The union of candidates of each house goes into the work space.
void unitecandidates() {
  ByHouse<std::int32_t> columns{}, blocks{};
  for (int row = 0; row < 9; ++row) {
    std::int32_t inrow = 0;
    for (int column = 0; column < 9; ++column) {
      const std::int32_t mask = candmask(cellat(row, column));
      inrow |= mask;
      columns[column] |= mask;
      blocks[blockat(row, column)] |= mask;
    }
    candmask(rowslot + row) = inrow;
  }
  for (int house = 0; house < 9; ++house) {
    candmask(columnslot + house) = columns[house];
    candmask(blockslot + house) = blocks[house];
  }
}

/// The first digit of a kind of houses that is neither placed nor has a place left.
std::optional<Impossible> lostdigit(HouseKind kind) {
  for (int house = 0; house < 9; ++house) {
    const int slot = slots[kind] + house;
    const int lost = fullmask & ~(usedmask(slot) | candmask(slot));
    if (lost != 0) return Impossible{kind, house, std::countr_zero(static_cast<unsigned>(lost))};
  }
  return std::nullopt;
}

/// Tries hypotheses on the tables of the board, one after the other.
class Trials {
 public:
  /// Keeps the trial if it is the shortest so far.
  void trial(const Saved& board, int cell, int digit) {
    try {
      cellvalue(cell) = digit;
      candmask(cell) = 0;
      rebuildusedmask();
      rebuildcandstr();
      rebuildpositions();
      nishiopropagate();
    } catch (const Fault&) {
      // A box holds a number above 9. The trial must not stay on the board, though the rebuild after it runs
      // into the number again.
      board.restore();
      throw;
    }
    if (impossible_ && nishiocount < chainsteps) keepbest(cell, digit);
    board.restore();
  }

 private:
  /// Places singles until there are none or the state is impossible. A trial that gets as long as the best is
  /// of no use any more and is left.
  void nishiopropagate() {
    nishiocount = 0;
    impossible_.reset();
    const bool before = suppresschange;
    suppresschange = true;
    while (!impossible_ && nishiocount < chainsteps && placenext()) nishiocheck();
    suppresschange = before;
  }

  /// Places and records the next single. The first rung, the last digit of a house, is left out: the others
  /// find it too.
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

  /// A house without a place for a digit comes before a cell without a candidate; of such cells the last
  /// counts.
  void nishiocheck() {
    unitecandidates();
    for (const HouseKind kind : housekinds)
      if ((impossible_ = lostdigit(kind))) return;
    for (int cell = cellcount - 1; cell >= 0; --cell)
      if (candmask(cell) == 0 && cellvalue(cell) == 0) {
        impossible_ = {std::nullopt, cell, chaindigit(nishiocount - 1)};
        return;
      }
  }

  void keepbest(int cell, int digit) {
    chainsteps = nishiocount;
    stepcell = cell;
    stepdigit = digit;
    best = {{}, *impossible_};
    for (int k = 0; k < nishiocount; ++k) best.placings.push_back({chaincell(k), chaindigit(k)});
  }

  Byte nishiocount{"nishiocount"};  ///< placings of the running trial, in the node queue's tables
  std::optional<Impossible> impossible_;
};

/// Leaves the shortest trial in `best`, its steps in chainsteps and its hypothesis in stepcell and stepdigit.
void scannishio() {
  foundflag = false;
  chainsteps = notrial;
  Trials trials;
  supposeall<Saved>([&](const Saved& board, int cell, int digit) {
    trials.trial(board, cell, digit);
    return chainsteps < takenatonce;
  });
}

void paintplacings(const Trial& trial, Colour colour) {
  for (const Placing& placing : trial.placings) frmmain::Text2(placing.cell).back = colour;
}

std::string tell(const Words& words, const Placing& placing) {
  return say(words, incell(placing.cell), ofdigit(placing.digit));
}

}  // namespace

// ---- step -------------------------------------------------------------------------------------------------

void frmmain::stepnishio() {
  steptag = techniques::nishio.tag;
  scannishio();
  const std::optional<Trial> shown = usabletrial();
  if (!shown) return;
  foundflag = true;
  const int cell = stepcell, digit = stepdigit;  // a command that comes in during the wait may change them
  paintplacings(*shown, yellow);
  txthint.text = say(found, incell(cell), ofdigit(digit));
  const bool stop = waitatlight() == Answer::stop;
  paintplacings(*shown, white);
  if (stop) return;
  deletecandidate(cell, digit);
  showdeletions();
}

// ---- twin -------------------------------------------------------------------------------------------------

namespace {

std::string logend(const Impossible& end) {
  if (!end.housekind) return say(logalso, incell(end.index), ofdigit(end.digit));
  return say(lognoplace, ofdigit(end.digit), hole("kind", logkind[*end.housekind]), hole("house", end.index));
}

}  // namespace

void frmgenerazione::gradenishio() {
  scannishio();
  const std::optional<Trial> logged = usabletrial();
  if (!logged) return;
  foundflag = true;
  headline(say(found, incell(stepcell), ofdigit(stepdigit)));
  nishioflag = true;  // widens the next search for a loop
  for (const Placing& placing : logged->placings) detail(tell(logstep, placing));
  detail(logend(logged->end));
  detail(inlanguage(logimpossible));
  deletecandidate(stepcell, stepdigit);
  raiselevel(level);
  settledeletions();
}

// ---- explanation ------------------------------------------------------------------------------------------

namespace {

/// The digit boxes before the argument, which writes its placings into them: the user's board comes back
/// afterwards.
class SavedBoxes {
 public:
  explicit SavedBoxes(const Trial& argued) : argued_(argued) {
    for (int cell = 0; cell < cellcount; ++cell) boxes_[cell] = frmmain::Text1(cell);
  }
  ~SavedBoxes() { restore(); }
  SavedBoxes(const SavedBoxes&) = delete;
  SavedBoxes& operator=(const SavedBoxes&) = delete;

  /// Leaves alone another board that came in meanwhile, and what the user has entered. Where the argument has
  /// written over a digit entered meanwhile, the digit comes back.
  void restore() {
    if (restored_ || board_ != boardnumber) return;
    restored_ = true;
    for (const auto& [cell, digit] : argued_.placings) {
      const Box& before = boxes_[cell];
      Box& box = frmmain::Text1(cell);
      if (box.text != std::to_string(digit)) continue;
      const bool entered = cellvalue(cell) != 0;
      box.text = entered ? std::to_string(cellvalue(cell)) : before.text;
      box.visible = entered || before.visible;
    }
  }

 private:
  const Trial& argued_;
  const int board_ = boardnumber;
  ByCell<Box> boxes_;
  bool restored_ = false;
};

/// Shows a placing without letting the tables follow.
void showplacing(const Placing& placing) {
  const auto [cell, digit] = placing;
  frmmain::Text2(cell).back = yellow;
  frmmain::Text1(cell).back = green;
  frmmain::Text1(cell).text = std::to_string(digit);
  frmmain::Text1(cell).visible = true;
}

std::string tellend(const Impossible& end) {
  if (!end.housekind) return say(also, incell(end.index), ofdigit(end.digit));
  return say(noplace[*end.housekind], ofdigit(end.digit), hole("house", end.index + 1));
}

}  // namespace

void explainnishio() {
  const std::optional<Trial> argued = usabletrial();
  if (!argued || argued->placings.empty()) return;  // the tag was set, but nothing was found
  SavedBoxes boxes(*argued);
  const int cell = stepcell, digit = stepdigit;
  Lesson lesson;
  lesson.line(inlanguage(title)).line(longruleline);
  lesson.line(say(suppose, incell(cell), ofdigit(digit)));
  paintplacings(*argued, white);
  if (lesson.showandwait() == Answer::stop) return;
  for (const Placing& placing : argued->placings) {
    showplacing(placing);
    lesson.line(tell(step, placing));
    if (lesson.showandwait() == Answer::stop) return;
  }
  lesson.line(tellend(argued->end));
  if (lesson.showandwait() == Answer::stop) return;

  boxes.restore();
  lesson.line(say(removed, incell(cell), ofdigit(digit)));
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
    .forget = forget,
};

}  // namespace gradino
