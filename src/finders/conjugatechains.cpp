// Breadth first over statements. What follows from one:
//
//   the digit is in the cell       every other candidate is not in it; the digit is nowhere else in the
//   cell's
//                                  row, column and block; a cell that loses its second last candidate that
//                                  way has its last
//   the digit is not in the cell   the other of two candidates is; the other of two places in a house is the
//                                  digit's
//
// When the hypothesis's own negation is reached, the chain is closed. Every chain found lowers the limit for
// the next ones, so what stays is the shortest of the board.
#include "conjugatechains.h"

#include <string>

#include "candidatetext.h"
#include "host.h"
#include "houses.h"
#include "nodequeue.h"
#include "singles.h"
#include "step.h"

namespace gradino {
namespace {

constexpr int walklimit = 250;  ///< nodes; above it the walk ends
constexpr int nodigit = 81, nocell = 81;

class Search {
 public:
  explicit Search(ChainRules rules) : xy_(rules == ChainRules::xychains) {}

  void alldigits() {
    for (int digit = 1; digit <= 9; ++digit) {
      startcell_ = nocell;
      for (HouseKind kind : {HouseKind::row, HouseKind::block, HouseKind::column})
        for (int house = 0; house < 9; ++house) pairin(kind, house, digit);
    }
  }

  int bestcell() const { return bestcell_; }

 private:
  void pairin(HouseKind kind, int house, int digit) {
    const Positions places = housepos(kind, digit, house);
    if (places.length() != 2) return;
    const int c1 = housecell(kind, house, places.first()), c2 = housecell(kind, house, places.last());
    if (pairdone_(c1, c2)) return;
    pairdone_(c1, c2) = pairdone_(c2, c1) = true;
    if (xy_ ? !bivalue(c1) || !bivalue(c2) : candidatecount(c1) >= 4 || candidatecount(c2) >= 4) return;

    const bool firstisfalse = maybewrong(c1, digit);
    startcell_ = firstisfalse ? c1 : c2;
    const int other = firstisfalse ? c2 : c1;
    if (xy_ || !nishioflag)
      trial(startcell_, digit);
    else
      widened(other, digit);
  }

  /// Behind a Nishio step: the start cell's candidates but its solution, then the other cell's but the pair's
  /// digit. Which cell a digit starts from goes by whether it is one of the first, and a change stays.
  void widened(int other, int digit) {
    const auto without = [](int cell, const std::string& left) {
      std::string rest = candstr(cell);
      if (const std::size_t at = rest.find(left); !left.empty() && at != std::string::npos) rest.erase(at, 1);
      return rest;
    };
    const std::string first = without(startcell_, solutiontext(startcell_));
    for (char c : first + without(other, std::to_string(digit))) {
      if (first.find(c) == std::string::npos) startcell_ = other;
      const int e = c >= '0' && c <= '9' ? c - '0' : 0;
      if (e == 0) host.message("");
      trial(startcell_, e);
    }
  }

  /// Supposes the digit in the cell, once.
  void trial(int cell, int digit) {
    if (startdone_(cell, digit)) return;
    startdone_(cell, digit) = true;
    hypothesiscell_ = cell;
    hypothesisdigit_ = digit;
    clearqueue();
    addhypothesis(cell, digit, 0);
    for (int node = 0; node < nodecount() && nodecount() <= walklimit; ++node)
      if (chainpath(node) < 3 * chainlength && !expand(node)) return;
  }

  /// Adds all that follows from a node. False: the queue is full.
  bool expand(int node) {
    const int cell = chaincell(node), digit = chaindigit(node);
    const bool istrue = chainflag(node);
    if (istrue) {
      for (int k = 0; k < candidatecount(cell); ++k)
        if (const int y = candidateat(cell, k); y != digit && !add(cell, y, false, node)) return false;
    } else if (bivalue(cell)) {
      if (!add(cell, otherof(cell, digit), true, node)) return false;
    }
    for (HouseKind kind : {HouseKind::row, HouseKind::column, HouseKind::block}) {
      const int house = houseof(kind, cell);
      const Positions places = housepos(kind, digit, house);
      if (places.length() < 2) continue;
      if (!istrue && places.length() != 2) continue;
      for (int p : places) {
        const int q = housecell(kind, house, p);
        if (q == cell || (xy_ && !bivalue(q))) continue;
        if (istrue ? !seen(q, digit, node) : !add(q, digit, true, node)) return false;
      }
    }
    return true;
  }

  /// A place q that sees the digit: it is not there, and the other of two candidates is.
  bool seen(int q, int digit, int node) {
    if (q == hypothesiscell_ && digit == hypothesisdigit_) closed(node);
    if (!add(q, digit, false, node)) return false;
    return !bivalue(q) || add(q, otherof(q, digit), true, node);
  }

  static bool add(int cell, int digit, bool flag, int parent) {
    return addnode(cell, digit, flag, parent, chainpath(parent) + tokenlength(parent)) != Added::full;
  }

  /// The negation follows from the node: its path and itself are a chain.
  void closed(int node) {
    const int length = depthof(node);
    if (length >= chainlength) return;
    chainlength = length;
    for (int k = length, n = node; k >= 0; --k, n = chainparent(n)) {
      linkcell(k) = chaincell(n);
      linkdigit(k) = chaindigit(n);
      linkflag(k) = chainflag(n);
    }
    stepdigit = hypothesisdigit_;
    bestcell_ = hypothesiscell_;
  }

  bool xy_;
  int startcell_ = nocell, bestcell_ = nocell;
  int hypothesiscell_ = nocell, hypothesisdigit_ = 0;
  Grid<bool, 80, 80> pairdone_{"linkpair"};
  Grid<bool, 81, 9> startdone_{"linkseen"};
};

}  // namespace

void scanchain(ChainRules rules, int& startdigit, int& startcell) {
  linkcell.clear();
  linkdigit.clear();
  linkflag.clear();
  chainlength = nochain;
  stepdigit = nodigit;
  Search search(rules);
  search.alldigits();
  if (chainlength >= nochain) return;
  startdigit = stepdigit;
  startcell = search.bestcell();
}

}  // namespace gradino
