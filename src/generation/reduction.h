// The reduction: thins out a finished puzzle, group by symmetric group, as long as it keeps one solution.
#pragma once

#include <array>

namespace gradino {

/// The mirrors of a cell.
struct Mirrors {
  int point;  ///< about the centre
  int a, b;   ///< left to right, top to bottom
};
constexpr Mirrors mirrors(int cell) {
  const int r = cell / 9, c = cell % 9;
  return {80 - cell, 9 * r + 8 - c, 9 * (8 - r) + c};
}

/// Expects a finished puzzle, the same in givens and Text1, whose digits don't clash. Afterwards givens,
/// Text1 and the tables hold the reduced puzzle, graded by SolveSudoku; frmactivity lists what was done,
/// newest first.
void riduzione();

}  // namespace gradino
