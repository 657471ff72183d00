// The solution counter, an exact solver. It alone decides whether a puzzle is valid, and writes the only
// solution to solutiontext.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "tables.h"

namespace gradino {

/// The 81 digits of cellvalue as one block of 324 bytes.
using GridRecord = std::array<std::int32_t, 81>;

/// The solutions as text, 81 digits each, from index 1, in ascending order. Entries of earlier counts are
/// kept.
inline Table<std::string, 0, 500> stringhesoluzione{"stringhesoluzione"};

/// The solutions as grid records, from index 1; each count makes all of them, 0 to 2048, anew.
inline std::vector<GridRecord> soluzioni;

/// The command word that makes the counter count all solutions and report.
inline constexpr const char* countcommand = "conta";

/// Counts the solutions of the puzzle in givens, which isn't checked in any way.
///
/// While comandocorrente is "conta" it counts up to 500 and shows the number in a message box; otherwise it
/// stops at the second solution. No solution: "Invalid Puzzle" in both modes. The count stays in
/// numerosoluzioni; when it is 1, the solution is written to solutiontext. Afterwards cellvalue and usedmask
/// hold the puzzle with the digits of the first forced pass, or, if the search stopped early, the last
/// solution found; the caller has to load the board again.
void conta();

/// Counts the solutions of the givens, and shows a message if there is more than one.
void countgivens();

/// The counter's results as in a program just started.
void freshcounter();

}  // namespace gradino
