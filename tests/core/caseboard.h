// Boards as files that a person reads and writes: tests/cases/<technique>/<case>/board.
//
//   # Rows 1 and 4 have the 5 in columns 3 and 6 alone.
//   technique: findxwing
//
//   !5   !5   *    | !5   !5   *    | !5   !5   !5
//   *    *    !5   | *    *    !5   | *    *    *
//   ...                                             nine rows of nine cells
//
//   =5     the digit 5
//   358    these candidates
//   *      all that the digits in its houses leave
//   !58    all of them but these
//   .      an empty cell without candidates
//
// Bars between cells, and lines of nothing but -, + and |, are for the eye. A line "name: value" says what
// else belongs to the board:
//
//   technique: findxwing     its record, by the name that `gradino-cli techniques` writes
//   start: key chain         what starts the step: "key" and a key of the toolbars, "menu" and the English
//                            caption of an entry; without the line the technique's own step
//   solution: 1234...        81 digits that the counter found
//   nishio: yes              a Nishio step came before
//   tag: colors              steptag as the step finds it: X-colours leave that of simple colours
//   pencil marks: off        the digit boxes cover the marks
#pragma once

#include <array>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "tables.h"

namespace gradino {
struct Technique;
}

namespace gradino::tests {

struct CaseBoard {
  const Technique* technique = nullptr;
  std::function<void()> start;  ///< empty: the technique's own step
  std::string digits;           ///< 81, "." for an empty cell
  std::array<int, cellcount> masks{};
  std::string solution;  ///< 81 digits, or nothing
  std::string tag;       ///< steptag before the step; nothing: none that a technique has
  bool nishio = false, pencilmarks = true;
};

/// What is wrong with a board file, and in which line.
struct BadBoard : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Throws BadBoard.
CaseBoard readboard(const std::filesystem::path& file);

/// Puts it up: boxes and tables as after earlier steps.
void putboard(const CaseBoard& board);

/// The folder of all cases.
std::filesystem::path casesfolder();

/// Puts up the board of a case, "xwing/rows".
void putcase(std::string_view name);

}  // namespace gradino::tests
