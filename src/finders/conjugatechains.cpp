// Breadth first over statements. What follows from one:
//
//   the digit is in the cell       no other candidate is; the digit is nowhere else in its row, column and
//                                  block; a cell there with two candidates holds the other one
//   the digit is not in the cell   of two candidates the other is; of two places in a house the digit has the
//                                  other
//
// When the negation of the hypothesis is reached, the chain is closed. Every chain found lowers the limit for
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
constexpr int nodigit = 81;     ///< in stepdigit, while there is no chain

/// The candidates of a cell without this one, which may be none.
std::string candidateswithout(int cell, const std::string& candidate) {
  std::string rest = candstr(cell);
  if (const std::size_t at = rest.find(candidate); !candidate.empty() && at != std::string::npos)
    rest.erase(at, 1);
  return rest;
}

class Search {
 public:
  explicit Search(ChainRules rules) : xy_(rules == ChainRules::xychains) {}

  void alldigits() {
    for (int digit = 1; digit <= 9; ++digit)
      for (HouseKind kind : {HouseKind::row, HouseKind::block, HouseKind::column})
        for (int house = 0; house < 9; ++house) pairin(kind, house, digit);
  }

 private:
  void pairin(HouseKind kind, int house, int digit) {
    const Positions places = housepos(kind, digit, house);
    if (places.length() != 2) return;
    const int c1 = housecell(kind, house, places.first()), c2 = housecell(kind, house, places.last());
    if (pairdone_(c1, c2)) return;
    pairdone_(c1, c2) = pairdone_(c2, c1) = true;
    if (xy_ ? !bivalue(c1) || !bivalue(c2) : candidatecount(c1) >= 4 || candidatecount(c2) >= 4) return;

    const bool firstisfalse = maybewrong(c1, digit);
    const int startcell = firstisfalse ? c1 : c2;
    if (xy_ || !nishioflag)
      trial(startcell, digit);
    else
      widened(startcell, firstisfalse ? c2 : c1, digit);
  }

  /// After a Nishio step: supposes the start cell's candidates except its solution, then the other cell's
  /// except the pair's digit. A digit of both lists is supposed in the start cell, until one comes that is in
  /// the second list only: from there on all are supposed in the other cell.
  void widened(int startcell, int other, int digit) {
    const std::string first = candidateswithout(startcell, solutiontext(startcell));
    for (char c : first + candidateswithout(other, std::to_string(digit))) {
      if (first.find(c) == std::string::npos) startcell = other;
      const int e = c >= '0' && c <= '9' ? c - '0' : 0;
      if (e == 0) host.message("");
      trial(startcell, e);
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
    for (HouseKind kind : housekinds) {
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

  /// What follows for a place q that sees the digit: it doesn't have the digit, and of two candidates it has
  /// the other.
  bool seen(int q, int digit, int node) {
    if (q == hypothesiscell_ && digit == hypothesisdigit_) closed(node);
    if (!add(q, digit, false, node)) return false;
    return !bivalue(q) || add(q, otherof(q, digit), true, node);
  }

  static bool add(int cell, int digit, bool flag, int parent) {
    return addnode(cell, digit, flag, parent, chainpath(parent) + tokenlength(parent)) != Added::full;
  }

  /// The negation of the hypothesis follows from the node: the way to the node is a chain.
  void closed(int node) const {
    const int length = depthof(node);
    if (length >= chainlength) return;
    chainlength = length;
    for (int k = length, n = node; k >= 0; --k, n = chainparent(n)) {
      linkcell(k) = chaincell(n);
      linkdigit(k) = chaindigit(n);
      linkflag(k) = chainflag(n);
    }
    stepdigit = hypothesisdigit_;
  }

  bool xy_;
  int hypothesiscell_ = 0, hypothesisdigit_ = 0;
  Grid<bool, 80, 80> pairdone_{"linkpair"};
  Grid<bool, 81, 9> startdone_{"linkseen"};
};

}  // namespace

void forgetchain() {
  chainlength = nochain;
}

std::optional<Chain> chainonshow() {
  if (chainlength >= nochain) return std::nullopt;
  return Chain(chainlength);
}

std::optional<Chain> scanchain(ChainRules rules) {
  clearlinks();
  chainlength = nochain;
  stepdigit = nodigit;
  Search(rules).alldigits();
  return chainonshow();
}

}  // namespace gradino
