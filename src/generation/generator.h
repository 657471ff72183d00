// The puzzle generator. It starts from an empty board, not from a solved one: random digits go into symmetric
// cells until a weak solver, which knows only singles, intersections and naked pairs, can finish the board
// alone. The digits that were put in are then the puzzle, and the reduction thins them out.
//
//   . . . | . . 7        chosen: r1c6 = 7                  and with Check1 ticked its other two mirrors:
//   . . . | . . .        its point mirror r9c4 = 2         r1c4, r9c6
//   ------+------
//   ...   |              Only the quick solver's digits follow from others: the finished board is the one
//   . . . | 2 . .        solution, and nobody had to search for it.
#pragma once

namespace gradino {

/// The command word while puzzles are made. It stays until the board is cleared or counted: the log of
/// a generated puzzle has no snapshots.
inline constexpr const char* generatecommand = "genera";

/// True when a cell ran out of candidates: the try is thrown away.
inline constinit bool generationfailed = false;

namespace frmgenerazione {

/// Makes a puzzle: in givens and Text1, with its solution in solutiontext, graded, thinned out, counted once
/// more. There is no limit to the number of tries. Lets events run; throws BoardLost when one of them cleared
/// the board, Fault when a table or counter is full.
void genera();

}  // namespace frmgenerazione

namespace frmprogress {

/// Writes the seconds since midnight, as far as single precision holds them.
void timer();

}  // namespace frmprogress

namespace frmmain {

/// The generator command: a new puzzle on the board.
void nuovoschema();

}  // namespace frmmain

/// The generator as in a program just started.
void freshgenerator();

}  // namespace gradino
