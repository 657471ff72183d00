// The 22 levels of the grader's scale: what each is called, and what a step of it weighs.
#pragma once

#include <array>

#include "words.h"

namespace gradino {

struct Level {
  int weight;       ///< points of one step
  Words name;       ///< in the report of a grade
  Words inlibrary;  ///< in the library's list of levels
  Words brief;      ///< on printed pages and in summaries
};

/// By level, 0 to 21.
extern const std::array<Level, 22> levels;

inline const Level& levelof(int level) {
  return levels.at(static_cast<std::size_t>(level));
}

}  // namespace gradino
