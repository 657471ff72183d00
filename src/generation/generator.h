// The puzzle generator. It starts from an empty board, not from a solved one: random digits are put into
// symmetric cells until a weak solver, which knows only singles, intersections and naked pairs, can finish
// the board alone. These digits are the puzzle, and the reduction thins them out.
//
//   . . . | . . 7        chosen: r1c6 = 7                  and with Check1 ticked its other two mirrors:
//   . . . | . . .        its point mirror r9c4 = 2         r1c4, r9c6
//   ------+------
//   ...   |              All other digits follow from the chosen ones, so the finished board is the only
//   . . . | 2 . .        solution, without any search.
#pragma once

namespace gradino {

/// The command word while puzzles are made. It stays set until the board is cleared or counted, which is why
/// the log of a generated puzzle has no snapshots.
inline constexpr const char* generatecommand = "genera";

/// True when the try is given up: a cell has no candidates left, or a command has changed the tables.
inline constinit bool generationfailed = false;

namespace frmgenerazione {

/// Makes a puzzle in givens and Text1, reduced and graded, with its solution in solutiontext. The number of
/// tries is unlimited. Lets events run; throws BoardLost when one of them cleared the board, Fault when a
/// table or counter is full.
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
