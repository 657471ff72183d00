// Every step of a puzzle checked against its solution.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace gradino::cli {

/// What one step did to the board.
struct CheckedStep {
  std::string technique;
  std::string words;               ///< the hint, or the last lines of the log
  int placed = 0, deleted = 0;     ///< digits; those that a placement removes from its houses aren't counted
  std::vector<std::string> wrong;  ///< "places 5 in r3c4, which is 7", "deletes 7 from r3c4"
};

using OnStep = std::function<void(const CheckedStep& step)>;

/// The number of solutions of the puzzle, counted in a freshly started program.
int solutionsof(const std::string& puzzle);

/// Grades the puzzle, which must have one solution, and hands over each step.
void checkgrade(const std::string& puzzle, const OnStep& use);

/// Lets the step solver walk the puzzle, each wait answered go, and hands over each step; explained: the help
/// picture is clicked at the first wait of each.
void checkwalk(const std::string& puzzle, bool explained, const OnStep& use);

}  // namespace gradino::cli
