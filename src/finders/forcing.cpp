// Forcing chains: suppose a candidate true and follow what it forces, the singles that arise on the way too,
// until one candidate has been reached both as true and as false. The supposition was wrong.
//
//                 r4c2 = 6 ... r9c5 = 1            first path
//     r4c1 = 3  <
//                 r6c1 <> 3 ... r9c5 <> 1          second path: r9c5 is both 1 and not 1, so r4c1 is not 3
//
// Cells with few candidates are tried first. A short contradiction is taken as it stands, otherwise the
// shortest of the board.
#include "forcing.h"

#include <algorithm>
#include <array>
#include <cstdint>
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

/// The false nodes that left a single alone. Nine are enough: only a digit that the user typed over and over
/// into one cell gives more, and then the chain is too long to be shown either way.
struct Alone {
  std::array<std::int16_t, 9> nodes{};
  int count = 0;
};

/// How a candidate was first reached: as what, by which node, and if a single put it there, by which false
/// nodes. Of another run it counts as not reached.
struct Reached {
  int run = 0;
  bool flag = false;
  int node = 0;
  Alone alone;
};
std::array<Reached, 820> reachedtable;  ///< cell * 10 + digit
int run = 0;

class Hypothesis {
 public:
  Hypothesis(int digit, int cell) {
    chainsteps = nochain;
    forcinglength = nochain;
    clearqueue();
    ++run;
    reached(cell, digit) = {run, true, 0, {}};
    addhypothesis(cell, digit, 2);  // "0,"
    for (int node = 0; node < nodecount() && nodecount() <= walklimit; ++node)
      if (chainpath(node) < 3 * forcinglength && !expand(node)) return;
  }

 private:
  static Reached& reached(int cell, int digit) {
    return reachedtable[static_cast<std::size_t>(cell * 10 + digit)];
  }
  static bool isfalse(int cell, int digit) {
    const Reached& first = reached(cell, digit);
    return first.run == run && !first.flag;
  }
  static void addfalse(Alone& alone, int cell, int digit) {
    if (alone.count == static_cast<int>(alone.nodes.size())) return;
    alone.nodes[static_cast<std::size_t>(alone.count++)] =
        static_cast<std::int16_t>(reached(cell, digit).node);
  }

  /// Makes all that follows from a node. False: the search is over.
  bool expand(int node) {
    const int cell = chaincell(node), digit = chaindigit(node);
    return chainflag(node) ? othersfalse(cell, digit, node) && peersfalse(cell, digit, node)
                           : lastcandidate(cell, digit, node) && lastplaces(cell, digit, node);
  }

  bool othersfalse(int cell, int digit, int node) {
    for (int k = 0; k < candidatecount(cell); ++k)
      if (const int y = candidateat(cell, k); y != digit && !make(cell, y, false, node)) return false;
    return true;
  }

  bool peersfalse(int cell, int digit, int node) {
    for (HouseKind kind : {HouseKind::row, HouseKind::column, HouseKind::block}) {
      const int house = houseof(kind, cell);
      for (int p : housepos(kind, digit, house)) {
        const int q = housecell(kind, house, p);
        if (q == cell) continue;
        if (!make(q, digit, false, node)) return false;
        if (bivalue(q) && !make(q, otherof(q, digit), true, node)) return false;
      }
    }
    return true;
  }

  /// The other of two candidates; or the naked single, the only one not yet false.
  bool lastcandidate(int cell, int digit, int node) {
    if (bivalue(cell)) return make(cell, otherof(cell, digit), true, node);
    int open = 0, last = 0;
    Alone alone;
    for (int k = 0; k < candidatecount(cell) && open < 2; ++k) {
      const int y = candidateat(cell, k);
      if (isfalse(cell, y))
        addfalse(alone, cell, y);
      else
        ++open, last = y;
    }
    return open != 1 || make(cell, last, true, node, alone);
  }

  /// The hidden single: the only place of a house not yet false.
  bool lastplaces(int cell, int digit, int node) {
    for (HouseKind kind : {HouseKind::row, HouseKind::column, HouseKind::block}) {
      const int house = houseof(kind, cell);
      int open = 0, last = 0;
      Alone alone;
      for (int p : housepos(kind, digit, house)) {
        const int q = housecell(kind, house, p);
        if (isfalse(q, digit))
          addfalse(alone, q, digit);
        else if (++open < 2)
          last = q;
        else
          break;
      }
      if (open == 1 && !make(last, digit, true, node, alone)) return false;
    }
    return true;
  }

  /// A statement that follows from a node. False: the search is over, by a contradiction or a full queue.
  bool make(int cell, int digit, bool flag, int node, const Alone& alone = {}) {
    Reached& first = reached(cell, digit);
    const int path = chainpath(node) + tokenlength(nodecount());
    if (first.run == run && first.flag != flag) {
      if (nodecount() <= decltype(chaincell)::high) contradiction(cell, digit, flag, node, first);
      return false;
    }
    if (first.run != run) first = {run, flag, nodecount(), alone};
    return addnode(cell, digit, flag, node, path) != Added::full;
  }

  /// The steps to the contradicting node, then those to the same candidate when it was first reached.
  void contradiction(int cell, int digit, bool flag, int parent, const Reached& first) {
    std::vector<int> steps = pathto(parent);
    const std::size_t contradicting = steps.size();
    for (int k = 0; k < first.alone.count; ++k)
      steps = joined(steps, pathto(first.alone.nodes[static_cast<std::size_t>(k)]));
    if (first.alone.count == 0)
      steps = joined(steps, pathto(first.node));
    else
      steps.push_back(first.node);
    if (steps.size() + 1 > tablesize) return;

    linkcell.clear();
    linkdigit.clear();
    linkflag.clear();
    int k = 0;
    const auto store = [&k](int c, int d, bool f) {
      linkcell(k) = c;
      linkdigit(k) = d;
      linkflag(k) = f;
      ++k;
    };
    for (std::size_t s = 0; s < steps.size(); ++s) {
      if (s == contradicting) store(cell, digit, flag);
      store(chaincell(steps[s]), chaindigit(steps[s]), chainflag(steps[s]));
    }
    forcinglength = k - 1;
    chainsteps = k;
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
};

void scanforcing(int digit, int cell) {
  const Hypothesis searched(digit, cell);
}

/// Tries the wrong candidates of the cells with two candidates, then of those with three, and so on. Leaves
/// the chain in the link tables and its steps in chainsteps.
void scanforcingall() {
  foundflag = false;
  chainsteps = nochain;
  int best = nochain, bestdigit = 0, bestcell = 0, longest = 0;
  for (int most = 2;; ++most) {
    for (int cell = 0; cell < cells; ++cell) {
      longest = std::max(longest, candidatecount(cell));
      if (candidatecount(cell) != most) continue;
      for (int k = 0; k < candidatecount(cell); ++k) {
        const int digit = candidateat(cell, k);
        if (digit == 0 || !maybewrong(cell, digit)) continue;
        scanforcing(digit, cell);
        if (chainsteps < takenatonce) return;
        if (chainsteps < best) best = chainsteps, bestdigit = digit, bestcell = cell;
      }
    }
    letevents();
    if (most + 1 > longest + 1) break;
  }
  if (best < showable) scanforcing(bestdigit, bestcell);
}

}  // namespace

// ---- step -------------------------------------------------------------------------------------------------

void frmmain::stepforcing() {
  steptag = "xlinks";
  scanforcingall();
  if (chainsteps >= showable) return;
  const Chain chain(forcinglength);
  const int cell = chain.start().cell, digit = chain.start().digit;
  pencilmark(cell, digit).back = red;
  foundflag = true;
  txthint.text = tell(hint, cell, digit);
  appendline(txthint.text);  // the one step that writes to the log; it keeps no board there
  if (comandocorrente.empty()) logcount += 1;
  nishioflag = false;
  chain.paint(yellow);
  if (stopped()) return;  // the colours stay

  deletecandidate(cell, digit);
  showdeletions();
  pencilmark(cell, digit).back = white;
  chain.paint(white);
}

// ---- twin -------------------------------------------------------------------------------------------------

void frmgenerazione::gradeforcing() {
  scanforcingall();
  if (chainsteps >= gradable) {  // gives up: an empty box is the only word of it
    host.message("");
    runninglevel = level;
    return;
  }
  foundflag = true;
  const Chain chain(forcinglength);
  const int cell = chain.start().cell, digit = chain.start().digit;
  headline(tell(loghead, cell, digit));
  detail(tell(logif, cell, digit));
  chain.log();
  detail(inlanguage(logcontradiction));
  detail(tell(logboth, chain.last().cell, chain.last().digit));
  detail(tell(logdeleting, cell, digit));
  deletecandidate(cell, digit);
  nishioflag = false;
  raiselevel(level);
  settledeletions();
}

// ---- explanation ------------------------------------------------------------------------------------------

void explainforcing() {
  if (chainsteps >= showable) return;  // the tag was set, but nothing was found
  const Chain chain(forcinglength);
  const int cell = chain.start().cell, digit = chain.start().digit;
  Lesson lesson;
  lesson.line(inlanguage(title)).line(ruleline);
  if (!chain.argue(lesson, tell(suppose, cell, digit))) return;
  lesson.line(inlanguage(contradiction)).line(tell(both, chain.last().cell, chain.last().digit));
  if (lesson.stopped()) return;
  lesson.line(tell(candelete, cell, digit));
  if (lesson.stopped()) return;
  closelesson();
  foundflag = true;
  clearcolours();
}

}  // namespace gradino
