// Reading a cell's candidates from candstr, which may hold any text that the user typed while editing pencil
// marks: whatever is no digit reads as 0.
#pragma once

#include "tables.h"

namespace gradino {

inline int candidatecount(int cell) {
  return static_cast<int>(candstr(cell).size());
}

/// The k-th candidate, from 0; past the end 0.
inline int candidateat(int cell, int k) {
  if (k >= candidatecount(cell)) return 0;
  const char c = candstr(cell)[static_cast<std::size_t>(k)];
  return c >= '0' && c <= '9' ? c - '0' : 0;
}

inline bool bivalue(int cell) {
  return candidatecount(cell) == 2;
}

/// The other of two candidates.
inline int otherof(int cell, int digit) {
  return candidateat(cell, 0) == digit ? candidateat(cell, 1) : candidateat(cell, 0);
}

/// False when the stored solution has the digit in the cell. Without a stored solution every candidate may be
/// wrong.
inline bool maybewrong(int cell, int digit) {
  const std::string& solution = solutiontext(cell);
  return solution.size() != 1 || solution[0] != '0' + digit;
}

}  // namespace gradino
