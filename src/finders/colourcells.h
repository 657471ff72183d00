// What simple colours and x-colours share: the houses that they start from, the cells that see two cells, the
// short lists in which both record their finds, and the words that both say.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "colours.h"
#include "grid.h"
#include "houses.h"
#include "lesson.h"
#include "log.h"
#include "tables.h"
#include "words.h"

namespace gradino {

/// Cells in the order in which they were recorded, repeats too, in the slots `low` to `high` of a table of
/// that name. Fault: no slot is left.
class Recorded {
 public:
  Recorded(const char* name, int low, int high) : name_(name), low_(low), high_(high) {}

  void add(int cell, const char* place = __builtin_FUNCTION());
  void clear() { cells_.clear(); }

  bool empty() const { return cells_.empty(); }
  int first() const { return cells_.empty() ? 0 : cells_.front(); }
  auto begin() const { return cells_.begin(); }
  auto end() const { return cells_.end(); }
  std::span<const int> cells() const { return cells_; }

 private:
  const char* name_;
  int low_, high_;
  std::vector<int> cells_;
};

// ---- geometry ---------------------------------------------------------------------------------------------

/// The cells that see both of two cells in different rows and columns, for act(cell): where the lines cross,
/// and where the line of one runs through the block of the other.
template <class Act>
void seenbyboth(int one, int other, Act act) {
  const int row1 = rowof(one), row2 = rowof(other), col1 = columnof(one), col2 = columnof(other);
  if (row1 == row2 || col1 == col2) return;
  act(cellat(row1, col2));
  act(cellat(row2, col1));
  if (blockof(one) == blockof(other)) return;
  if (row1 / 3 == row2 / 3) {
    for (int k = 0; k < 3; ++k) act(cellat(row1, col2 / 3 * 3 + k));
    for (int k = 0; k < 3; ++k) act(cellat(row2, col1 / 3 * 3 + k));
  }
  if (col1 / 3 == col2 / 3) {
    for (int k = 0; k < 3; ++k) act(cellat(row2 / 3 * 3 + k, col1));
    for (int k = 0; k < 3; ++k) act(cellat(row1 / 3 * 3 + k, col2));
  }
}

/// Calls act(first cell, second cell) for each house with exactly two places for the digit, kind by kind,
/// until act returns true: the search is over.
template <class Act>
bool seeds(int digit, const std::array<HouseKind, 3>& kinds, Act act) {
  for (HouseKind kind : kinds)
    for (int house = 0; house < 9; ++house) {
      const Positions places = housepos(kind, digit, house);
      if (places.length() == 2 &&
          act(housecell(kind, house, places.first()), housecell(kind, house, places.last())))
        return true;
    }
  return false;
}

// ---- words ------------------------------------------------------------------------------------------------

/// What a step or the log adds for each cell that loses or gets the digit.
inline constexpr Words andcell = {"  {cell} , ", "  {cell} , "};

/// In the log of both, and in the hint line after the step of an x-colours clash.
inline constexpr Words logentered = {" * inserito {digit} in ", " * entered {digit} in "};

/// The cells of a colour as hints name them.
std::string_view cellsof(Colour colour);

/// The two lists after each headline of the log, of colour or group 0 and 1, and how the headline names them.
std::string listline(int which, std::span<const int> cells);
std::string_view listname(int which);

/// An explanation that begins with its rule and the digit.
Lesson ruleof(const Words& rule, int digit);

// ---- acts -------------------------------------------------------------------------------------------------

void paintmarks(const auto& cells, int digit, Colour colour) {
  for (int cell : cells) pencilmark(cell, digit).back = colour;
}

/// Takes the digit out of the cells that still have it; each is added to the log.
void logdeletions(const auto& cells, int digit, const Words& words) {
  for (int cell : cells)
    if (deletecandidate(cell, digit)) appendwords(say(words, incell(cell)));
}

/// Writes the digit into the cell's box.
void enterdigit(int cell, int digit);

/// The same for a twin, with the cell added to the log.
void logentering(int cell, int digit);

/// Explains the step on show, of whichever of the two searched last, as both have the same tag; nullptr:
/// there is none. Only explaincolors reads it.
using ColourLesson = void (*)();
inline constinit ColourLesson colourlesson = nullptr;

/// The explanation of both.
void explaincolors();

}  // namespace gradino
