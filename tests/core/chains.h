// What the tests of loops and XY-chains share: what a search finds, and a second, plain search.
#pragma once

#include <string>
#include <vector>

namespace gradino::tests {

/// What a search finds on the present board, as linksread has it.
std::string loopfound();
std::string xychainfound();

/// The chain in the link tables, "r7c6=6 r7c6<>5 r7c1=5", or nothing where chainlength says that there is
/// none.
std::string linksread();

/// The same search, written as literally as possible: paths are texts, equal nodes are looked up one by one.
/// It reads the board's tables and shares nothing else with the search that it checks.
struct LiteralSearch {
  explicit LiteralSearch(bool xychains);
  std::string chain;                  ///< as linksread
  std::vector<std::string> boxes;     ///< shown on the way
  int fullqueues = 0, longwalks = 0;  ///< hypotheses that ended so
};

}  // namespace gradino::tests
