// What the tests of loops and XY-chains share: boards as they are drawn, all that is to be seen and read of a
// chain found on one of them, and the search once more.
#pragma once

#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "player.h"
#include "technique.h"

namespace gradino::tests {

/// A board as it is drawn: 81 texts, each the digit of a cell, or its candidates, or "*" for all nine. The
/// digits of a solution go into solutiontext; none: it stays empty.
struct Drawn {
  std::string_view board;
  std::string_view solution = {};
  bool nishio = false;  ///< nishioflag
};

/// One board on which a chain is the next step.
struct FoundChain {
  std::string name, tag;
  int level;
  void (*step)();
  void (*twin)();
  Drawn drawn;
  int cell, digit;      ///< what the step takes away
  bool twinendsnishio;  ///< the twin clears nishioflag, as the step does
  Said hint;
  std::vector<int> yellow;  ///< boxes
  Paint candidate;
  std::vector<Said> log;
  std::vector<Wait> lesson;  ///< the boxes stay yellow: only the pencil marks change
};

class ChainBoards : public Program {
 protected:
  void draw(const Drawn& drawn);
};

class EachChain : public ChainBoards, public testing::WithParamInterface<std::tuple<const FoundChain*, int>> {
 protected:
  EachChain();
  static const FoundChain& one() { return *std::get<const FoundChain*>(GetParam()); }
  static Frame shownframe();
  /// At the k-th wait of the explanation, from 0.
  static Frame arguedframe(std::size_t k);
  static std::vector<std::string> loglines();
  void expectdone() const;

  Board before, after;
};

#define CHAINS(family, ...)                                                                                 \
  INSTANTIATE_TEST_SUITE_P(                                                                                 \
      family, EachChain, testing::Combine(testing::Values(__VA_ARGS__), testing::Values(english, italian)), \
      [](auto& p) {                                                                                         \
        return std::get<0>(p.param)->name + (std::get<1>(p.param) == english ? "English" : "Italian");      \
      })

/// What a search finds on the board as it stands, as linksread.
std::string loopfound();
std::string xychainfound();

/// The chain in the link tables, "r7c6=6 r7c6<>5 r7c1=5", or nothing where chainlength says that there is
/// none.
std::string linksread();

/// The search once more, as literally as it can be told: paths are texts, twins are looked up one by one. It
/// reads the board's tables and shares nothing else with the search that it judges.
struct LiteralSearch {
  explicit LiteralSearch(bool xychains);
  std::string chain;                  ///< as linksread
  std::vector<std::string> boxes;     ///< shown on the way
  int fullqueues = 0, longwalks = 0;  ///< hypotheses that ended so
};

}  // namespace gradino::tests
