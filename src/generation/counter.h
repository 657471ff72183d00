// The solution counter: the exact solver. It alone decides whether a puzzle is valid, and it leaves the one
// solution in solutiontext.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "tables.h"

namespace gradino {

/// The 81 digits of cellvalue as one block of 324 bytes.
using GridRecord = std::array<std::int32_t, 81>;

/// The solutions as text, 81 digits each, from index 1, in ascending order. Entries of earlier counts stay.
inline Table<std::string, 0, 500> stringhesoluzione{"stringhesoluzione"};

/// The solutions as grid records, from index 1; made anew, 0 to 2048, by each count.
inline std::vector<GridRecord> soluzioni;

/// The command word that makes the counter count on and report.
inline constexpr const char* countcommand = "conta";

/// Counts the solutions of the puzzle in givens, which it doesn't check in any way.
///
/// While comandocorrente is "conta" it counts up to 500 and tells the number in a message box; else it stops
/// at the second solution. No solution: "Invalid Puzzle" in both modes. The count stays in numerosoluzioni;
/// when it is 1, the solution is written to solutiontext. cellvalue and usedmask hold, after a search to the
/// end, the puzzle with the digits of the first forced pass, after an early stop the last solution found; the
/// caller loads the board again.
void conta();

/// Counts the solutions of the givens, and shows a message if there is more than one.
void countgivens();

/// The counter's results as in a program just started.
void freshcounter();

}  // namespace gradino
