// Forcing chains: suppose a candidate true and follow what it forces, the singles that arise on the way too,
// until one candidate has been reached both as true and as false. The supposition was wrong.
//
//                 r4c2 = 6 ... r9c5 = 1            first path
//     r4c1 = 3  <
//                 r6c1 <> 3 ... r9c5 <> 1          second path: r9c5 is both 1 and not 1, so r4c1 is not 3
//
// Cells with few candidates are tried first. A short contradiction is taken at once, otherwise the shortest
// of the board.
#include "forcing.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <optional>
#include <vector>

#include "candidatetext.h"
#include "chain.h"
#include "chainsteps.h"
#include "gradestate.h"
#include "grid.h"
#include "host.h"
#include "houses.h"
#include "lesson.h"
#include "light.h"
#include "log.h"
#include "nodequeue.h"
#include "step.h"
#include "words.h"

namespace gradino {
namespace {

// ---- words ------------------------------------------------------------------------------------------------

constexpr Words hint = {"CATENA FORZATA, trovata contradizione, numero {digit} , {cell}",
                        "FORCING CHAIN, contradiction found number {digit} , {cell}"};

constexpr Words loghead = {"CATENA FORZATA, numero {digit} , {cell}",
                           "FORCING CHAIN, number {digit} , {cell}"};
constexpr Words logif = {" * Se {cell}={digit} allora", " * If {cell}={digit} then"};
constexpr Words logcontradiction = {" * CONTRADDIZIONE", " * CONTRADICTION"};
constexpr Words logboth = {" * cell {cell} allo stesso tempo = e <> {digit}",
                           " * cell {cell} is at the same time = and <> {digit}"};
constexpr Words logdeleting = {" * elimino {digit} da {cell}", " * deleting {digit} from {cell}"};

// The title says 20, the grader counts 21.
constexpr Words title = {
    "CATENA FORZATA - LIVELLO 20\r\n"
    "Si deve trovare una catena di conseguenze che porti ad una contraddizione",
    "FORCING CHAIN - LEVEL 20\r\n"
    "We must find a chain that brings to a contradiction"};
constexpr Words suppose = {"se {cell}={digit}", "if {cell}={digit}"};
constexpr Words contradiction = {"CONTRADDIZIONE", "CONTRADICTION"};
constexpr Words both = {"cell {cell} è allo stesso tempo = e <> {digit}",
                        "cell {cell} is at the same time = and <> {digit}"};
constexpr Words candelete = {"posso, perciò, eliminare {digit} da {cell}",
                             "therefore, I can delete {digit} from {cell}"};

constexpr int level = 21;

// ---- search -----------------------------------------------------------------------------------------------

constexpr int nochain = 80;      ///< steps: there is none
constexpr int takenatonce = 10;  ///< a chain of fewer steps ends the search
constexpr int showable = 20;     ///< the hint shows a chain of fewer steps
constexpr int gradable = 15;     ///< the grader counts one of fewer
constexpr int walklimit = 250;   ///< nodes; above it the walk ends
constexpr int tablesize = 40;    ///< a chain of more steps doesn't fit the link tables: it is too long

Byte forcinglength{"forcinglength"};  ///< index of the last step in the link tables

/// The false nodes that made a single one. Nine are enough: there are more only if the user typed the same
/// digit many times into one cell, and then the chain is too long to be shown anyway.
constexpr std::size_t mostalone = 9;

/// A cell's candidates for the search. The user may have typed anything as pencil marks: a text that isn't a
/// set of digits in ascending order is read character by character.
struct Marks {
  unsigned set = 0;
  bool plain = false;
  bool two = false;  ///< two candidates, so each is the other's last
};

std::uint16_t place(int n) {
  return static_cast<std::uint16_t>(1u << n);
}

/// The pencil marks of the board, read once for many suppositions.
struct Reading {
  Reading() {
    for (int cell = 0; cell < cellcount; ++cell) {
      Marks& here = marks[cell];
      const int count = candidatecount(cell);
      here.two = count == 2;
      here.plain = true;
      for (int k = 0, last = 0; k < count; ++k) {
        const int digit = candidateat(cell, k);
        here.plain = here.plain && digit > last;
        here.set |= 1u << digit;
        last = digit;
      }
      if (here.two) addbivalue(cell);
    }
  }

  ByCell<Marks> marks{};
  ByKind<ByHouse<unsigned>> bivalues{};  ///< the places of the cells with two candidates

 private:
  void addbivalue(int cell) {
    for (const HouseKind kind : housekinds)
      bivalues[kind][houseof(kind, cell)] |= 1u << positionof(kind, cell);
  }
};

/// How a single came to be: the last candidate of its cell or the last place in a house.
enum class By : std::uint8_t { other, cell, row, column, block };

/// What follows from one supposition, breadth first. What is known so far of each candidate is kept as bits,
/// by cell and by house, so that "has it been reached" and "what is left open" are one look each. How it was
/// reached is only in the nodes.
class Hypothesis {
 public:
  /// Chains of `enough` steps or more are of no use to the caller and may be passed over.
  Hypothesis(const Reading& board, int cell, int digit, int enough) : board_(board) {
    chainsteps = nochain;
    forcinglength = nochain;
    clearqueue();
    says(cell, digit, true, By::other);
    addhypothesis(cell, digit, 2);  // "0,"
    // A contradiction after a node takes its path, the contradicting step and at least the hypothesis again.
    for (int node = 0; node < nodecount() && nodecount() <= walklimit && depth_[node] + 3 < enough; ++node)
      if (chainpath(node) < 3 * forcinglength && !expand(node)) return;
  }

 private:
  /// Notes the first statement about a candidate, which becomes the next node.
  void says(int cell, int digit, bool flag, By by) {
    (flag ? true_ : false_)[cell] |= place(digit);
    node_[cell][digit] = static_cast<std::int16_t>(nodecount());
    by_[cell][digit] = by;
    if (flag) return;
    for (const HouseKind kind : housekinds)
      closed_[digit][kind][houseof(kind, cell)] |= place(positionof(kind, cell));
  }

  /// Makes all that follows from a node. False: the search is over.
  bool expand(int node) {
    const int cell = chaincell(node), digit = chaindigit(node);
    return chainflag(node) ? othersfalse(cell, digit, node) && peersfalse(cell, digit, node)
                           : lastcandidate(cell, digit, node) && lastplaces(cell, digit, node);
  }

  bool othersfalse(int cell, int digit, int node) {
    if (board_.marks[cell].plain) {
      for (unsigned rest = board_.marks[cell].set & ~(1u << digit); rest; rest &= rest - 1)
        if (!make(cell, std::countr_zero(rest), false, node)) return false;
      return true;
    }
    for (int k = 0; k < candidatecount(cell); ++k)
      if (const int y = candidateat(cell, k); y != digit && !make(cell, y, false, node)) return false;
    return true;
  }

  bool peersfalse(int cell, int digit, int node) {
    for (HouseKind kind : housekinds) {
      const int house = houseof(kind, cell);
      // Where it is false already nothing new follows for it, but something may for a second candidate.
      unsigned rest = housepos(kind, digit, house).bits;
      rest &= ~closed_[digit][kind][house] | board_.bivalues[kind][house];
      for (; rest; rest &= rest - 1) {
        const int q = housecell(kind, house, std::countr_zero(rest));
        if (q == cell) continue;
        if (!make(q, digit, false, node)) return false;
        if (board_.marks[q].two && !make(q, otherof(q, digit), true, node)) return false;
      }
    }
    return true;
  }

  /// The other of two candidates; or the naked single, the only one not yet false.
  bool lastcandidate(int cell, int digit, int node) {
    const Marks& marks = board_.marks[cell];
    if (marks.two) return make(cell, otherof(cell, digit), true, node);
    const unsigned open = marks.set & ~false_[cell];
    if (!issingle(open)) return true;
    const int last = std::countr_zero(open);
    if (!marks.plain && timesin(cell, last) > 1) return true;
    return make(cell, last, true, node, By::cell);
  }

  static int timesin(int cell, int digit) {
    int times = 0;
    for (int k = 0; k < candidatecount(cell); ++k) times += candidateat(cell, k) == digit ? 1 : 0;
    return times;
  }

  /// The hidden single: the only place of a house not yet false.
  bool lastplaces(int cell, int digit, int node) {
    for (HouseKind kind : housekinds) {
      const int house = houseof(kind, cell);
      const unsigned open = housepos(kind, digit, house).bits & ~closed_[digit][kind][house];
      if (!issingle(open)) continue;
      const By by = kind == HouseKind::row ? By::row : kind == HouseKind::column ? By::column : By::block;
      if (!make(housecell(kind, house, std::countr_zero(open)), digit, true, node, by)) return false;
    }
    return true;
  }

  /// A statement that follows from a node. False: the search is over, by a contradiction or a full queue.
  /// A statement that was reached before is not added again: breadth first, no later way to it is shorter.
  bool make(int cell, int digit, bool flag, int node, By by = By::other) {
    const unsigned bit = 1u << digit;
    if ((flag ? false_ : true_)[cell] & bit) {
      if (nodecount() <= decltype(chaincell)::high) contradiction(cell, digit, flag, node);
      return false;
    }
    if ((flag ? true_ : false_)[cell] & bit) return true;
    if (nodecount() > decltype(chaincell)::high) return false;
    says(cell, digit, flag, by);
    depth_[nodecount()] = static_cast<std::int16_t>(depth_[node] + 1);
    addfirst(cell, digit, flag, node, chainpath(node) + tokenlength(nodecount()));
    return true;
  }

  /// The nodes that made it a single: those by which all else in its cell or house was false.
  std::vector<int> alone(int cell, int digit) const {
    std::vector<int> nodes;
    const auto add = [&](int c, int d) {
      if ((c != cell || d != digit) && nodes.size() < mostalone) nodes.push_back(node_[c][d]);
    };
    const By by = by_[cell][digit];
    if (by == By::cell)
      for (int k = 0; k < candidatecount(cell); ++k) add(cell, candidateat(cell, k));
    if (by == By::other || by == By::cell) return nodes;
    const HouseKind kind = by == By::row      ? HouseKind::row
                           : by == By::column ? HouseKind::column
                                              : HouseKind::block;
    const int house = houseof(kind, cell);
    for (int p : housepos(kind, digit, house)) add(housecell(kind, house, p), digit);
    return nodes;
  }

  /// The steps to the contradicting node, then those to the same candidate when it was first reached.
  void contradiction(int cell, int digit, bool flag, int parent) {
    std::vector<int> steps = pathto(parent);
    const std::size_t contradicting = steps.size();
    const int first = node_[cell][digit];
    const std::vector<int> others = alone(cell, digit);
    for (int node : others) steps = joined(steps, pathto(node));
    if (others.empty())
      steps = joined(steps, pathto(first));
    else
      steps.push_back(first);
    if (steps.size() + 1 > tablesize) return;

    clearlinks();
    int k = 0;
    for (std::size_t s = 0; s < steps.size(); ++s) {
      if (s == contradicting) storelink(k++, cell, digit, flag);
      storelink(k++, chaincell(steps[s]), chaindigit(steps[s]), chainflag(steps[s]));
    }
    forcinglength = k - 1;
    chainsteps = k;
  }

  static void storelink(int index, int cell, int digit, bool flag) {
    linkcell(index) = cell;
    linkdigit(index) = digit;
    linkflag(index) = flag;
  }

  /// A path ends in its node's own index.
  static std::vector<int> pathto(int node) {
    std::vector<int> path;
    for (; node != 0; node = chainparent(node)) path.insert(path.begin(), node);
    path.insert(path.begin(), 0);
    return path;
  }

  static std::vector<int> joined(std::vector<int> path, const std::vector<int>& more) {
    path.insert(path.end(), more.begin(), more.end());
    return path;
  }

  const Reading& board_;
  ByCell<std::uint16_t> true_{}, false_{};            ///< by cell, a bit a digit
  ByDigit<ByKind<ByHouse<std::uint16_t>>> closed_{};  ///< by digit: the places where it is false
  ByCell<ByDigit<std::int16_t>> node_;                ///< that said it first
  ByCell<ByDigit<By>> by_;
  ByIndex<std::int16_t, 261> depth_{};  ///< of each node: its ancestors
};

void scanforcing(const Reading& board, int cell, int digit, int enough) {
  const Hypothesis searched(board, cell, digit, enough);
}

/// Leaves the chain in the link tables and its steps in chainsteps.
void scanforcingall() {
  struct Supposed {
    int cell, digit;
  };
  foundflag = false;
  chainsteps = nochain;
  std::optional<Supposed> best;
  int enough = showable;
  const bool taken = supposeall<Reading>([&](const Reading& board, int cell, int digit) {
    scanforcing(board, cell, digit, enough);
    if (chainsteps < enough) best = {cell, digit}, enough = chainsteps;
    return chainsteps < takenatonce;
  });
  if (best && !taken) scanforcing(Reading(), best->cell, best->digit, nochain);
}

/// The chain that the last search left, if it has fewer steps than these.
std::optional<Chain> chainbelow(int steps) {
  if (chainsteps >= steps) return std::nullopt;
  return Chain(forcinglength);
}

void forget() {
  chainsteps = nochain;
  forcinglength = nochain;
}

}  // namespace

// ---- step -------------------------------------------------------------------------------------------------

void frmmain::stepforcing() {
  steptag = techniques::forcingchain.tag;
  scanforcingall();
  const std::optional<Chain> chain = chainbelow(showable);
  if (!chain) return;
  const auto [cell, digit, istrue] = chain->start();
  pencilmark(cell, digit).back = red;
  foundflag = true;
  txthint.text = say(hint, incell(cell), ofdigit(digit));
  appendline(txthint.text);  // the one step that writes to the log; it keeps no board there
  if (comandocorrente.empty()) logcount += 1;
  nishioflag = false;
  chain->paint(yellow);
  if (waitatlight() == Answer::stop) return;  // the colours stay

  deletecandidate(cell, digit);
  showdeletions();
  pencilmark(cell, digit).back = white;
  chain->paint(white);
}

// ---- twin -------------------------------------------------------------------------------------------------

void frmgenerazione::gradeforcing() {
  scanforcingall();
  const std::optional<Chain> chain = chainbelow(gradable);
  if (!chain) {  // gives up; all that the user sees of it is an empty box
    host.message("");
    runninglevel = level;
    return;
  }
  const auto [cell, digit, istrue] = chain->start();
  foundflag = true;
  headline(say(loghead, incell(cell), ofdigit(digit)));
  detail(say(logif, incell(cell), ofdigit(digit)));
  chain->log();
  detail(inlanguage(logcontradiction));
  detail(say(logboth, incell(chain->last().cell), ofdigit(chain->last().digit)));
  detail(say(logdeleting, incell(cell), ofdigit(digit)));
  deletecandidate(cell, digit);
  nishioflag = false;
  raiselevel(level);
  settledeletions();
}

// ---- explanation ------------------------------------------------------------------------------------------

void explainforcing() {
  const std::optional<Chain> chain = chainbelow(showable);
  if (!chain) return;  // the tag was set, but nothing was found
  const auto [cell, digit, istrue] = chain->start();
  Lesson lesson;
  lesson.line(inlanguage(title)).line(ruleline);
  if (chain->argue(lesson, say(suppose, incell(cell), ofdigit(digit))) == Answer::stop) return;
  lesson.line(inlanguage(contradiction))
      .line(say(both, incell(chain->last().cell), ofdigit(chain->last().digit)));
  if (lesson.showandwait() == Answer::stop) return;
  lesson.line(say(candelete, incell(cell), ofdigit(digit)));
  if (lesson.showandwait() == Answer::stop) return;
  closelesson();
  foundflag = true;
  clearcolours();
}

// ---- record -----------------------------------------------------------------------------------------------

const Technique techniques::forcingchain{
    .tag = "xlinks",
    .name = "forcing",
    .called = {"forcing chain", "forcing chain"},
    .step = byfoundflag<frmmain::stepforcing>,
    .twin = byfoundflag<frmgenerazione::gradeforcing>,
    .explain = explainforcing,
    .level = level,
    .forget = forget,
};

}  // namespace gradino
