// The commands open, save and new: from the file dialog to the board, the counter and the grader.
#pragma once

namespace gradino {

/// Asks for a name, loads the puzzle, counts and grades it. Any failure ends with a message; opening an empty
/// name (a dialog cancelled at first use) is silent. Nothing is rolled back.
void mnuopen_Click();

/// Asks for a name, writes what the boxes hold, and takes it as a freshly entered puzzle: everything on
/// the board becomes a given, counted and graded. Fault: the file can't be written; the board is untouched.
void mnusave_Click();

/// New blank: an empty board ready to be typed in.
void mnunew_Click();

}  // namespace gradino
