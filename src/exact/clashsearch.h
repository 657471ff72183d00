// The search on boards on which given digits clash.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "clash.h"
#include "completions.h"
#include "deduction.h"
#include "guess.h"

namespace gradino {

/// Completions of one board in any order.
///
/// Two ways through such a board fail on different ones. Where few digits are to spare, deciding first which
/// house leaves out which digit ends a hopeless board at once, and guessing digits for cells loses itself in
/// it; where many are, the first leads nowhere and the second finds completions by the way. Which it is can't
/// be seen, so both are walked in turn, each time twice as far as before. A walk that is given up leaves
/// behind in which cells guesses came to nothing: the next begins there, where the trouble is.
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
  std::int64_t budget_ = 0;       ///< the guesses that are left to the walk
  std::array<int, 81> invain_{};  ///< by cell, the guesses that led to no completion
};

}  // namespace gradino
