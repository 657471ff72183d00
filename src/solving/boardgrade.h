// Grading the puzzle on the board and putting the board back afterwards. The parts can be called one by one
// too, by callers that look at the board in between.
#pragma once

#include <functional>

namespace gradino {

/// Runs `grade`, which consumes the board as SolveSudoku does, and then `restore`. A failure of the grade,
/// such as a full table or a library that can't be written, is passed on once the board is restored. After
/// BoardLost nothing is restored: the board that is there now belongs to another command.
void gradeandrestore(const std::function<void()>& grade, const std::function<void()>& restore);

/// The same for a puzzle that was just loaded, graded by SolveSudoku: bkglabel, which is seen while a puzzle
/// is being loaded, is hidden at the end. A failed grade leaves it visible, a board that was cleared doesn't.
void gradeloaded(const std::function<void()>& restore);

/// Reads the tables from the givens again, eliminations forgotten. The boxes stay.
void settleboard();

/// Settles the board and repaints its pencil marks.
void repaintboard();

/// The empty boxes show entries in the plain text colour from here on.
void plainempty();

/// Repaints the board, with its empty boxes in the plain text colour, and hides bkglabel.
void showboard();

/// Settles the board, toggles the pencil marks, grades, and shows the board again.
void gradeboard();

}  // namespace gradino
