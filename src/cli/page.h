// Puzzles drawn on pages of a PDF.
#pragma once

#include <string>
#include <vector>

namespace gradino::cli {

/// What is drawn for one puzzle.
struct Printed {
  std::string puzzle, solution;    ///< 81 symbols each; solution empty: there isn't one
  int level = 0, difficulty = -1;  ///< difficulty -1: the techniques don't solve it
};

struct PageOptions {
  double width = 595.276, height = 841.89;  ///< in points; A4
  int perpage = 2;                          ///< 1, 2, 4 or 6
  bool solutions = false;                   ///< on pages of their own at the end
};

/// Throws std::runtime_error when the file can't be written; it is as it was then. The words are in the
/// language in force.
void drawpages(const std::string& file, const std::vector<Printed>& puzzles, const PageOptions& options);

}  // namespace gradino::cli
