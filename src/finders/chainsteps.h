// What forcing chains and Nishio share: both suppose one candidate after another and keep the shortest
// argument against one of them.
#pragma once

#include <algorithm>

#include "candidatetext.h"
#include "checked.h"
#include "houses.h"
#include "light.h"

namespace gradino {

/// Steps of the best forcing chain, or placings of the best Nishio trial. Each search begins by setting it to
/// more than any of its own can have. The explanations of both read what the last search has left, be it the
/// other's.
inline constinit Byte chainsteps{"chainsteps"};

/// Calls suppose(cell, digit) for each candidate of a cell that may be wrong, until one call returns true.
template <class Suppose>
bool supposeeach(int cell, int candidates, Suppose suppose) {
  for (int k = 0; k < candidates; ++k)
    if (const int digit = candidateat(cell, k); digit != 0 && maybewrong(cell, digit) && suppose(cell, digit))
      return true;
  return false;
}

/// Goes through the candidates of the board that may be wrong: those of the cells with two candidates, then
/// of those with three, and so on; each of these groups is a band. Waiting events run after each band, and a
/// command may change the board, so Board, the search's copy of it, is made anew for the next band. Returns
/// true as soon as suppose(board, cell, digit) does.
template <class Board, class Suppose>
bool supposeall(Suppose suppose) {
  int candidates = 2, longest = 0;
  do {
    const Board board;
    for (int cell = 0; cell < cellcount; ++cell) {
      const int count = candidatecount(cell);
      longest = std::max(longest, count);
      if (count != candidates) continue;
      if (supposeeach(cell, count, [&](int c, int digit) { return suppose(board, c, digit); })) return true;
    }
    letevents();
  } while (++candidates <= longest + 1);
  return false;
}

}  // namespace gradino
