// Cells in a line of text.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace gradino::formats {

/// Cells as read from a line.
struct Cells {
  std::string symbols;  ///< of 1-9 and "."
  std::string marks;    ///< the different marks of its empty cells; "x" for X, too
  bool pencil = false;  ///< there were cells of several digits
  bool digitless() const { return symbols.find_first_not_of('.') == std::string::npos && !pencil; }
};

/// True for a digit 1-9 or a mark of an empty cell, other than a blank.
bool issymbol(char c);

/// A row: nine cells, with any spaces, bars or separators. None: it isn't one.
std::optional<Cells> rowin(std::string_view line);

/// A whole puzzle: 81 cells, perhaps followed by a comment. None: it isn't one.
std::optional<Cells> puzzlein(std::string_view line);

/// The givens of a library line  :tech:cand:givens:...  in which a placed digit has a + before it. None: it
/// isn't one.
std::optional<Cells> libraryline(std::string_view line);

}  // namespace gradino::formats
