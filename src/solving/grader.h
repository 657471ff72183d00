// The grader: solves the puzzle on the board silently, from beginning to end, and leaves level, counters and
// log.
#pragma once

#include "checked.h"

namespace gradino {

/// True when the quick solver of the generator has finished a board; nothing else sets it.
inline constinit bool boardfinished = false;

/// Before: cellvalue filled, the rebuilds run, the solutions counted. It consumes the board: afterwards the
/// tables hold the solved or stuck state, and the caller puts the board back from givens.
/// Lets events run; throws BoardLost when one of them cleared the board.
/// Fault: more than 650 log lines, a score above 32767.
void SolveSudoku();

}  // namespace gradino
