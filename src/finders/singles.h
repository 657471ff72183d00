// The singles: the first five rungs of both ladders, levels 0 to 2.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "houses.h"
#include "technique.h"

namespace gradino {

// The searches. Each only looks, and returns what it found as a short string, an empty one for nothing. All
// numbers in it are 0-based. They trust the position index blindly: rebuildpositions must have run.

std::string findOneMissing();      ///< house letter b, r or c; digit; cell (one or two characters): "r537"
std::string findSingleInBlock();   ///< digit, block, position in the block
std::string findSingleInRow();     ///< digit, row, column
std::string findSingleInColumn();  ///< digit, column, row: the column comes first
std::string findSingleInCell();    ///< digit, cell (one or two characters)

/// A single, as read from a search's string.
struct Single {
  std::optional<HouseKind> kind;  ///< of the house that it was found in; a naked single has none
  int house;                      ///< 0-based; 0 for a naked single
  int cell, digit;
};

/// A single's technique and search, in the order of the ladders.
struct SingleRung {
  const Technique& technique;
  std::string (*find)();
  Single (*read)(const std::string& result);  ///< of what find has found

  std::optional<Single> search() const {
    const std::string result = find();
    return result.empty() ? std::nullopt : std::optional(read(result));
  }
};
extern const std::array<SingleRung, 5> singlerungs;

/// Digit and cell of the last hidden or naked single that a step has shown; the explanations here read them.
/// The searches for chains and Nishio keep theirs here too: what the last one has written counts.
inline int stepdigit = 0, stepcell = 0;

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
