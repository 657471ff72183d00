// Puzzles drawn on pages of a PDF.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace gradino::cli {

/// Whether a puzzle has a single solution, or why its grade means nothing.
enum class Standing { single, several, none, full };

/// A puzzle to be drawn.
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

/// The words that replace the grade, in the language in force. Empty: the puzzle has a single solution.
std::string_view ingradesplace(Standing standing);

/// Throws std::runtime_error when the file can't be written; then it is unchanged. The words are in the
/// language in force.
void drawpages(const std::string& file, const std::vector<Printed>& puzzles, const PageOptions& options);

}  // namespace gradino::cli
