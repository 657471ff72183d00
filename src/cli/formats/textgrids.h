// Puzzles as people type and draw them.
#pragma once

#include <vector>

#include "puzzles.h"
#include "textlines.h"

namespace gradino::formats {

/// The puzzles of a text of lines of 81 cells each, or of rows of nine cells each, with what may stand
/// between them: comments (# ; //), frames, blank lines, and headings above nine rows.
///
/// An empty cell is one of . 0 x X * _ - ? or a blank, the same all over a puzzle. A line that could be drawn
/// as well as a row without a digit (---|---|---, .........) is the row when the puzzle's other rows use its
/// mark, else drawn. In a pencil-mark grid a cell of several digits is empty.
std::vector<Puzzle> readgrids(const std::vector<TextLine>& lines, const Listener& listener);

}  // namespace gradino::formats
