#include "completions.h"

#include <algorithm>
#include <bit>

#include "clash.h"
#include "deduction.h"

namespace gradino {
namespace {

Digits digitsof(const Boards& boards, const Digits& board) {
  Digits digits = board;
  for (std::size_t d = 0; d < 9; ++d)
    for (int band = 0; band < 3; ++band)
      for (std::uint32_t bits = boards.of[d][band]; bits != 0; bits &= bits - 1)
        digits[static_cast<std::size_t>(band * 27 + std::countr_zero(bits))] =
            static_cast<std::uint8_t>(d + 1);
  return digits;
}

/// The cells of houses that hold two or more of the cells, by rows, columns and blocks.
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

struct Guess {
  int cell;
  std::size_t digit;
};

Guess lowestdigit(const Boards& boards, Bands cells) {
  const int cell = firstcell(cells);
  std::size_t digit = 0;
  while (!any(boards.of[digit] & onecell(cell))) ++digit;
  return {cell, digit};
}

/// The cells with at least two, three, four digits.
struct Many {
  Bands two{}, three{}, four{};

  explicit Many(const Boards& boards) {
    Bands one{};
    for (const Bands x : boards.of) {
      four |= three & x;
      three |= two & x;
      two |= one & x;
      one |= x;
    }
  }
};

/// A cell where a guess settles most: of two digits if there is one, best where rows, columns and blocks hold
/// more such cells, which then follow. Within `first` if a cell is open there.
Guess bestguess(const Boards& boards, Bands first) {
  Many many(boards);
  if (any(many.two & first)) {
    many.two &= first;
    many.three &= first;
    many.four &= first;
  }
  const Bands pairs = many.two & ~many.three;
  if (!any(pairs)) {
    const Bands triples = many.three & ~many.four;
    return lowestdigit(boards, any(triples) ? triples : many.four);
  }
  const Crowded in = crowded(pairs);
  for (const Bands where : {in.rows & in.columns & in.blocks, twoof(in.rows, in.columns, in.blocks),
                            in.rows | in.columns | in.blocks})
    if (any(pairs & where)) return lowestdigit(boards, pairs & where);
  return lowestdigit(boards, pairs);
}

template <class Rules>
class Search {
 public:
  Search(const Digits& board, std::size_t limit, std::vector<Digits>& found)
      : board_(board), limit_(limit), found_(found) {}

  /// The next cell, its digits ascending. False: the limit is reached.
  ///
  /// Where completions lie close, walking on finds the next one soonest. But a branch may be dead and take
  /// long to say so in this order, so after some steps that led to none the order is given up for an answer:
  /// a few completions of the branch are sought in any order. If that is all of them, they are sorted and the
  /// branch is done. If not, the lowest is a witness that the branch is alive, and of the branches below the
  /// one that it lies in need not be asked.
  bool inorder(Boards boards, const Rules& rules, const Digits* witness) {
    Digits known;
    if (witness != nullptr) known = *witness;
    for (bool alive = witness != nullptr;;) {
      if (!alive && vain_ >= patience) {
        const std::size_t before = found_.size();
        const bool all = anyorder(boards, rules, before + few);
        std::sort(found_.begin() + static_cast<std::ptrdiff_t>(before), found_.end());
        if (all) {
          if (found_.size() > before) vain_ = 0;
          if (found_.size() > limit_) found_.resize(limit_);
          return found_.size() < limit_;
        }
        known = found_[before];
        found_.resize(before);
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
      const bool below = alive && known[static_cast<std::size_t>(guess.cell)] == guess.digit + 1;
      Boards lower = boards;
      lower.place(guess.cell, guess.digit);
      if (!inorder(lower, rules, below ? &known : nullptr)) return false;
      alive &= !below;
      boards.of[guess.digit] &= ~onecell(guess.cell);
    }
  }

  /// Appends completions as they come. False: there are more than `most` in all.
  bool anyorder(Boards boards, Rules rules, std::size_t most) {
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
      const Tightened tightened = rules.tighten(boards);
      if (tightened == Tightened::dead) return true;
      if (tightened == Tightened::more) continue;
      const Guess guess = bestguess(boards, rules.first());
      Boards branch = boards;
      branch.place(guess.cell, guess.digit);
      if (!anyorder(branch, rules, most)) return false;
      boards.of[guess.digit] &= ~onecell(guess.cell);
    }
  }

 private:
  // By measurement: of 1 to 64 both, on boards of two to more than 500 solutions.
  static constexpr std::size_t few = 3;
  static constexpr int patience = 16;

  const Digits& board_;
  std::size_t limit_;
  std::vector<Digits>& found_;
  int vain_ = patience;  ///< steps since the last completion; most boards have one or none, so ask at once
};

/// The givens alone.
Boards givenboards(const Digits& board) {
  Boards boards;
  for (int cell = 0; cell < 81; ++cell)
    if (const std::size_t digit = board[static_cast<std::size_t>(cell)]; digit != 0)
      boards.of[digit - 1] |= onecell(cell);
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

/// Givens as decided cells, the others with all digits: the first deductions do the rest.
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
    Search<CleanRules>(board, limit, found).inorder(cleanboards(given), {}, nullptr);
  } else {
    const ClashRules rules(board);
    Search<ClashRules>(board, limit, found).inorder(rules.start(), rules, nullptr);
  }
}

bool completesotherwise(const Digits& board, int cell, int digit) {
  static std::vector<Digits> found;
  found.clear();
  Boards boards = cleanboards(givenboards(board));
  boards.of[static_cast<std::size_t>(digit - 1)] &= ~onecell(cell);
  return !Search<CleanRules>(board, 1, found).anyorder(boards, {}, 0);
}

}  // namespace gradino
