// The singles: the first five rungs of both ladders, levels 0 to 2.
#pragma once

#include <array>
#include <string>

#include "technique.h"
#include "words.h"

namespace gradino {

// The searches. Each only looks, and returns what it found as a short string, or an empty one. All numbers in
// it are 0-based. They trust the position index blindly: rebuildpositions must have run.

std::string findOneMissing();      ///< house letter b, r or c; digit; cell (one or two characters): "r537"
std::string findSingleInBlock();   ///< digit, block, position in the block
std::string findSingleInRow();     ///< digit, row, column
std::string findSingleInColumn();  ///< digit, column, row: the column stands first
std::string findSingleInCell();    ///< digit, cell (one or two characters)

/// Digit and cell of the last single, kept for the explanation. The last digit of a house leaves them alone.
inline int stepdigit = 0, stepcell = 0;

/// A single found, as read from a search's string.
struct Single {
  char house;  ///< b, r, c, or blank for a naked single
  int number;  ///< of the house, 0-based; 0 for the last digit of a house and for a naked single
  int digit, cell;
};

/// What tells the five apart, in the order of the ladders.
struct SingleRung {
  const Technique& technique;
  std::string (*find)();
  Single (*read)(const std::string& result);
  Words hint, headline;
};
extern const std::array<SingleRung, 5> singlerungs;

namespace frmmain {
/// Shows the single, waits, and on go places the digit. False: there is none.
bool single(const SingleRung& rung);
}  // namespace frmmain

namespace frmgenerazione {
/// Logs the single, places the digit and counts its level. False: there is none.
bool single(const SingleRung& rung);
}  // namespace frmgenerazione

void explainsingleinblock();
void explainsingleinrow();
void explainsingleincolumn();
void explainsingleincell();

namespace techniques {
extern const Technique lastdigit, hiddensingleinblock, hiddensingleinrow, hiddensingleincolumn, nakedsingle;
}

}  // namespace gradino
