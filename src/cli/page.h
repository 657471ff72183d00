// Puzzles drawn on pages of a PDF.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace gradino::cli {

/// What a puzzle is: one with a single solution, or what has no grade that says anything.
enum class Standing { single, several, none, full };

/// What is drawn for one puzzle.
struct Printed {
  std::string puzzle, solution;    ///< 81 symbols each; solution empty: there isn't one
  int level = 0, difficulty = -1;  ///< difficulty -1: the techniques don't solve it
  Standing standing = Standing::single;
};

struct PageOptions {
  double width = 595.276, height = 841.89;  ///< in points; A4
  int perpage = 2;                          ///< 1, 2, 4 or 6
  bool solutions = false;                   ///< on pages of their own at the end
};

/// What the puzzle is in place of a grade, in the language in force; empty: it has a single solution.
std::string_view ingradesplace(Standing standing);

/// Throws std::runtime_error when the file can't be written; it is as it was then. The words are in the
/// language in force.
void drawpages(const std::string& file, const std::vector<Printed>& puzzles, const PageOptions& options);

}  // namespace gradino::cli
