// The search on boards on which given digits clash.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "clash.h"
#include "completions.h"
#include "deduction.h"
#include "guess.h"
#include "houses.h"

namespace gradino {

/// Completions of one board in any order.
///
/// There are two ways to search such a board, and each fails where the other does well. When the houses have
/// few digits to spare, deciding first which house leaves out which digit ends a hopeless board at once,
/// while guesses in cells get lost in it. When they have many, those decisions lead nowhere, and guesses find
/// completions quickly. Which kind a board is can't be seen beforehand, so both ways are tried in turn, each
/// twice as far as the one before. A walk that is given up leaves for each cell the number of guesses in
/// vain: the next walk begins where there were most.
class ClashSearch {
 public:
  ClashSearch(const Digits& board, std::vector<Digits>& found) : board_(board), found_(found) {}

  /// Appends completions as they come. False: there are more than make up `most` with those found before.
  bool some(const Boards& boards, const ClashRules& rules, std::size_t most);

 private:
  enum class Walked { all, more, givenup };
  Walked walk(Boards boards, ClashRules rules, std::size_t most);
  Guess guess(const Boards& boards) const;

  const Digits& board_;
  std::vector<Digits>& found_;
  bool housesfirst_ = false;
  std::int64_t budget_ = 0;  ///< the guesses that are left to the walk
  ByCell<int> invain_{};     ///< the guesses that led to no completion
};

}  // namespace gradino
