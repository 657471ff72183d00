// What the grader counts.
#pragma once

#include <string>

#include "checked.h"

namespace gradino {

/// The highest level used so far, 0 to 21.
inline constinit Byte runninglevel{"runninglevel"};

/// Steps made at each level. Level 0 has no counter.
inline constinit Table<Byte, 1, 21> levelcount{"levelcount"};

/// The solutions of the puzzle, as far as they were counted.
inline constinit int numerosoluzioni = 0;

/// The steps by level in short form, hardest first: "12x1 - 3x2 - 1x20 ", with its blank at the end.
inline std::string dettaglio;

/// The weighted score.
inline constinit Int16 difficolta{"difficolta"};

/// Counts one step of a level, and raises the running level to it if it is lower.
void raiselevel(int level);

/// Level and counters to 0.
void cleargrade();

}  // namespace gradino
