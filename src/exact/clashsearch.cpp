#include "clashsearch.h"

#include <bit>
#include <cstdint>

namespace gradino {

bool ClashSearch::some(const Boards& boards, const ClashRules& rules, std::size_t most) {
  const std::size_t before = found_.size();
  for (std::int64_t guesses = 30;; guesses *= 2) {  // the fastest start of 10 to 100, by measurement
    housesfirst_ = !housesfirst_;
    budget_ = guesses;
    const Walked walked = walk(boards, rules, most);
    if (walked != Walked::givenup) return walked == Walked::all;
    found_.resize(before);
  }
}

ClashSearch::Walked ClashSearch::walk(Boards boards, ClashRules rules, std::size_t most) {
  for (;;) {
    switch (settle(boards, rules)) {
      case Outcome::dead:
        return Walked::all;
      case Outcome::complete:
        found_.push_back(digitsof(boards, board_));
        return found_.size() <= most ? Walked::all : Walked::more;
      case Outcome::open:
        break;
    }
    const Tightened tightened = rules.tighten(boards);
    if (tightened == Tightened::dead) return Walked::all;
    if (tightened == Tightened::more) continue;
    if (budget_-- == 0) return Walked::givenup;

    if (const auto need = housesfirst_ ? rules.openneed() : std::nullopt) {
      ClashRules needed = rules;
      needed.insist(*need);
      if (const Walked walked = walk(boards, needed, most); walked != Walked::all) return walked;
      rules.leaveout(boards, *need);
      continue;
    }
    const Guess tried = guess(boards);
    Boards branch = boards;
    branch.place(tried.cell, tried.digit);
    const std::size_t before = found_.size();
    if (const Walked walked = walk(branch, rules, most); walked != Walked::all) return walked;
    if (found_.size() == before) ++invain_[tried.cell];
    boards.of[tried.digit] &= ~onecell(tried.cell);
  }
}

/// Of the cells with the fewest digits, the one in which the most guesses were in vain.
Guess ClashSearch::guess(const Boards& boards) const {
  const Bands among = Many(boards).fewest();
  int best = firstcell(among);
  for (int band = 0; band < 3; ++band)
    for (std::uint32_t bits = among[band]; bits != 0; bits &= bits - 1) {
      const int cell = band * 27 + std::countr_zero(bits);
      if (invain_[cell] > invain_[best]) best = cell;
    }
  return lowestdigit(boards, onecell(best));
}

}  // namespace gradino
