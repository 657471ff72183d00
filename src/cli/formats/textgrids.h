// Puzzles as people type and draw them.
#pragma once

#include <vector>

#include "puzzles.h"
#include "textlines.h"

namespace gradino::formats {

/// The puzzles of a text with lines of 81 cells each, or rows of nine cells each; between them there may be
/// comments (# ; //), frames, blank lines, and headings above nine rows.
///
/// An empty cell is one of . 0 x X * _ - ? or a blank, the same in the whole puzzle. A line that could be a
/// frame as well as a row without a digit (---|---|---, .........) is a row if the other rows of the puzzle
/// use its mark, else a frame. In a pencil-mark grid a cell of several digits is empty.
std::vector<Puzzle> readgrids(const std::vector<TextLine>& text, const Listener& listener);

}  // namespace gradino::formats
