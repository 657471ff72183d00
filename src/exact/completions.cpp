#include "completions.h"

#include <algorithm>

#include "clash.h"
#include "clashsearch.h"
#include "deduction.h"
#include "guess.h"

namespace gradino {
namespace {

/// All cells of the rows, columns and blocks that hold two or more of the given cells.
struct Crowded {
  Bands rows, columns, blocks;
};

Crowded crowded(Bands cells) {
  const Bands second = cells >> 1, third = cells >> 2;
  const Bands lying = (cells | second | third) & eachband(Lying::places);
  const Bands pairs = twoof(cells, second, third) & eachband(Lying::places);
  const Bands standing = (cells | cells >> 9 | cells >> 18) & eachband(Standing::places);
  const Bands columnpairs = twoof(cells, cells >> 9, cells >> 18) & eachband(Standing::places);

  const Bands rows = (pairs | pairs >> 3 | pairs >> 6 | twoof(lying, lying >> 3, lying >> 6)) &
                     eachband(0b000000001'000000001'000000001);
  const Bands blocks =
      (pairs | pairs >> 9 | pairs >> 18 | twoof(lying, lying >> 9, lying >> 18)) & eachband(0b001001001);
  const Bands columns = columnpairs | bandbelow(columnpairs) | bandabove(columnpairs) |
                        twoof(standing, bandbelow(standing), bandabove(standing));
  return {(rows << 9) - rows, Standing::spread(columns), Standing::spread(Lying::spread(blocks))};
}

/// A cell where a guess settles most: one with two digits if there is any, preferably with other such cells
/// in its row, column and block, which a guess then settles as well.
Guess bestguess(const Boards& boards) {
  const Many many(boards);
  const Bands pairs = many.two & ~many.three;
  if (!any(pairs)) return lowestdigit(boards, many.fewest());
  const Crowded in = crowded(pairs);
  for (const Bands where : {in.rows & in.columns & in.blocks, twoof(in.rows, in.columns, in.blocks),
                            in.rows | in.columns | in.blocks})
    if (any(pairs & where)) return lowestdigit(boards, pairs & where);
  return lowestdigit(boards, pairs);
}

/// Completions of a board without a clash, in any order.
class CleanSearch {
 public:
  CleanSearch(const Digits& board, std::vector<Digits>& found) : board_(board), found_(found) {}

  /// Appends completions as they come. False: there are more than make up `most` with those found before.
  bool some(Boards boards, CleanRules rules, std::size_t most) {
    for (;;) {
      switch (settle(boards, rules)) {
        case Outcome::dead:
          return true;
        case Outcome::complete:
          found_.push_back(digitsof(boards, board_));
          return found_.size() <= most;
        case Outcome::open:
          break;
      }
      const Guess guess = bestguess(boards);
      Boards branch = boards;
      branch.place(guess.cell, guess.digit);
      if (!some(branch, rules, most)) return false;
      boards.of[guess.digit] &= ~onecell(guess.cell);
    }
  }

 private:
  const Digits& board_;
  std::vector<Digits>& found_;
};

/// The first completions in ascending order.
template <class Rules, class Inanyorder>
class Search {
 public:
  Search(const Digits& board, std::size_t limit, std::vector<Digits>& found)
      : board_(board), limit_(limit), found_(found), inanyorder_(board, found) {}

  /// The completions of a branch: its first open cell, the digits of the cell ascending. False: the limit is
  /// reached.
  ///
  /// Where completions lie close together, walking on finds the next one soonest. But a branch may be dead,
  /// and the walk in this order may take long to find that out. So after some steps without a completion the
  /// branch is searched in any order (exhausted). While a completion that lies ahead in the branch is known,
  /// its witness, that isn't needed.
  bool inorder(Boards boards, const Rules& rules, const Digits* witness) {
    Digits known;
    if (witness != nullptr) known = *witness;
    for (bool alive = witness != nullptr;;) {
      if (!alive && vain_ >= patience) {
        if (exhausted(boards, rules, known)) return found_.size() < limit_;
        alive = true;
      }
      switch (settle(boards, rules)) {
        case Outcome::dead:
          ++vain_;
          return true;
        case Outcome::complete:
          vain_ = 0;
          found_.push_back(digitsof(boards, board_));
          return found_.size() < limit_;
        case Outcome::open:
          ++vain_;
      }
      const Guess guess = lowestdigit(boards, Many(boards).two);
      const bool below = alive && known[guess.cell] == guess.digit + 1;
      Boards lower = boards;
      lower.place(guess.cell, guess.digit);
      if (!inorder(lower, rules, below ? &known : nullptr)) return false;
      alive &= !below;
      boards.of[guess.digit] &= ~onecell(guess.cell);
    }
  }

 private:
  /// Looks for a few completions of a branch in any order. True: it has no more, and they have been added in
  /// ascending order, up to the limit. False: there are more, none is added, and `known` is one of them.
  bool exhausted(const Boards& boards, const Rules& rules, Digits& known) {
    const std::size_t before = found_.size();
    const bool all = inanyorder_.some(boards, rules, before + few);
    std::sort(found_.begin() + static_cast<std::ptrdiff_t>(before), found_.end());
    if (!all) {
      known = found_[before];
      found_.resize(before);
      return false;
    }
    if (found_.size() > before) vain_ = 0;
    if (found_.size() > limit_) found_.resize(limit_);
    return true;
  }

  // The fastest of the values from 1 to 64, measured on boards with two to more than 500 solutions.
  static constexpr std::size_t few = 3;
  static constexpr int patience = 16;

  const Digits& board_;
  std::size_t limit_;
  std::vector<Digits>& found_;
  Inanyorder inanyorder_;
  /// Steps since the last completion. Most boards have at most one, so the first branch is searched in any
  /// order at once.
  int vain_ = patience;
};

/// The givens alone.
Boards givenboards(const Digits& board) {
  Boards boards;
  for (int cell = 0; cell < cellcount; ++cell)
    if (const std::size_t digit = board[cell]; digit != 0) boards.of[digit - 1] |= onecell(cell);
  return boards;
}

bool clash(const Boards& givens) {
  Bands twice{};
  for (const Bands x : givens.of) {
    const Crowded in = crowded(x);
    twice |= in.rows | in.columns | in.blocks;
  }
  return any(twice);
}

/// The givens as decided cells, all digits in the others: the first deductions do the rest.
Boards cleanboards(Boards givens) {
  Bands filled{};
  for (const Bands x : givens.of) filled |= x;
  for (Bands& x : givens.of) x |= eachband(wholeband) & ~filled;
  return givens;
}

}  // namespace

void firstcompletions(const Digits& board, std::size_t limit, std::vector<Digits>& found) {
  found.clear();
  if (const Boards given = givenboards(board); !clash(given)) {
    Search<CleanRules, CleanSearch>(board, limit, found).inorder(cleanboards(given), {}, nullptr);
  } else {
    const ClashRules rules(board);
    Search<ClashRules, ClashSearch>(board, limit, found).inorder(rules.start(), rules, nullptr);
  }
}

bool completesotherwise(const Digits& board, int cell, int digit) {
  static std::vector<Digits> found;
  found.clear();
  Boards boards = cleanboards(givenboards(board));
  boards.of[static_cast<std::size_t>(digit - 1)] &= ~onecell(cell);
  return !CleanSearch(board, found).some(boards, {}, 0);
}

}  // namespace gradino
