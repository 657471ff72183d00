// Opening and saving: between the file dialog, the board, the counter and the grader.
#pragma once

namespace gradino {

/// Asks for a name, loads the puzzle, counts and grades it. Any failure is told in a message; opening an
/// empty name (a dialog cancelled at first use) is silent. Nothing is rolled back.
void mnuopen_Click();

/// Asks for a name, writes what stands in the boxes, and takes it as a freshly entered puzzle: everything on
/// the board becomes a given, counted and graded. Fault: the file can't be written; the board is untouched.
void mnusave_Click();

/// New blank: an empty board ready to be typed in.
void mnunew_Click();

// What opening and saving do once the file is read or written. Each act stands alone, so that a watcher can
// look at the board between two of them.

/// Counts the solutions of the givens and tells if there is more than one.
void countgivens();

/// Puts the board's tables to the givens, eliminations forgotten; the boxes stay.
void settleboard();

/// Settles the board and shows it: pencil marks repainted, empty boxes in the plain text colour.
void showboard();

/// Settles the board, toggles the pencil marks, grades, and shows the board again, since the grader has
/// consumed it.
void gradeboard();

}  // namespace gradino
