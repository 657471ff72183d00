// The board: the tables that every finder, the solvers and the generator read and write directly, and the
// rebuilds that keep the derived ones true. Cells, houses and positions are numbered in houses.h.
//
//   digit     1 to 9, 0 for an empty cell
//   mask      a digit set: bit d for digit d, so the full set is 1022
//
// There is one board. A routine that changes candmask ends with rebuildcandstr and rebuildpositions, as the
// finders trust candstr and the positions blindly.
#pragma once

#include <bit>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "checked.h"
#include "colours.h"
#include "houses.h"
#include "positions.h"

namespace gradino {

inline constexpr int fullmask = 1022;

// Constants, filled by buildtables. Row, column and block are 1-based here, as they are read to the user.
inline constinit Table<int, 0, 81> cellrow{"cellrow"}, cellcol{"cellcol"}, cellblock{"cellblock"};
inline constinit Grid<std::uint8_t, 8, 8> blockcells{"blockcells"};  ///< [block, position] -> cell
inline constinit Table<std::int32_t, 0, 9> bitvalue{"bitvalue"};     ///< digit -> its bit; 0 -> 0

// The state. Slots beyond 80 exist for the routines that use them as work space.
inline constinit Table<std::int32_t, 0, 81> cellvalue{"cellvalue"};  ///< the digit itself, 0 when empty
inline constinit Table<std::int32_t, 0, 107> candmask{"candmask"};   ///< candidates still open; 0 when filled
inline Table<std::string, 0, 81> candstr{"candstr"};                 ///< the same as text, "1379"
/// Digits placed: 0 to 80 what a cell sees, 81 to 89 rows, 90 to 98 columns, 99 to 107 blocks.
inline constinit Table<std::int32_t, 0, 107> usedmask{"usedmask"};
inline constinit Byte filledcount{"filledcount"};   ///< filled cells; drifts when boxes are overwritten
inline Table<std::string, 0, 81> givens{"givens"};  ///< the starting puzzle, a digit or empty
inline Table<std::string, 0, 81> solutiontext{"solutiontext"};  ///< the solution's digits, by the counter

/// Where a digit can still go in a house, [digit 0 to 9, house 0 to 9]; digit 0 and house 9 stay empty.
inline constinit Grid<Positions, 9, 9> rowpos{"rowpos"}, colpos{"colpos"}, blockpos{"blockpos"};

/// The same by kind.
inline Positions housepos(HouseKind kind, int digit, int house) {
  return kind == HouseKind::row      ? rowpos(digit, house)
         : kind == HouseKind::column ? colpos(digit, house)
                                     : blockpos(digit, house);
}

inline constexpr int rowslot = 81, columnslot = 90, blockslot = 99;  ///< the slots of the houses in usedmask

/// Fills the constant tables. Once, at start.
void buildtables();

/// Every table of the state as in a program just started.
void freshboard();

/// All 108 slots of usedmask from cellvalue. A digit twice in a house simply sets its bit once.
/// Fault, with its cell: a cellvalue outside 0 to 9.
void rebuildusedmask();

/// Narrows candmask to what usedmask allows and rewrites candstr. Never brings a candidate back.
void rebuildcandstr();

/// Resets candmask to all that usedmask allows: eliminations are forgotten. Leaves candstr to rebuildcandstr.
void refreshcandidates();

/// The position index, whole, from candmask.
void rebuildpositions();

/// Puts a digit into a cell without touching any box: value, mask, count, and the three rebuilds.
void placesilently(int cell, int digit);

/// The same where the tables agree with each other and nothing was deleted since their last rebuilds: only
/// what the digit touches is brought up to date, the 20 cells that see it and the houses around them.
void placequickly(int cell, int digit);

/// placequickly without counting the cell as filled: for a trial.
void placeuncounted(int cell, int digit);

/// After candidates were deleted: candstr and positions. The main window has showdeletions instead.
void settledeletions();

/// The digit of a mask that holds just one; otherwise 0.
constexpr int onlydigit(std::int32_t mask) {
  const auto bits = static_cast<unsigned>(mask);
  return issingle(bits) && (bits & fullmask) != 0 ? std::countr_zero(bits) : 0;
}

/// Takes a candidate out of the cell's mask. False: the cell didn't have it.
bool deletecandidate(int cell, int digit);

/// True when the cell has the digit as a candidate.
inline bool hascandidate(int cell, int digit) {
  return (candmask(cell) & bitvalue(digit)) != 0;
}

/// The number at the front of a text: leading blanks skipped, digits taken, anything else gives 0.
/// Fault: a number beyond 32 bits; it names `cell`, if the text is that of a cell's box.
std::int32_t leadingnumber(std::string_view text, std::optional<int> cell = {});

}  // namespace gradino
