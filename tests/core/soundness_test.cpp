// No technique deletes a digit of the solution or places a wrong one, over corpora of our own: 2,000 puzzles
// of the middle levels and 3,000 hard ones, graded, and walked step by step.
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "explain.h"
#include "files.h"
#include "grader.h"
#include "gradestate.h"
#include "grid.h"
#include "host.h"
#include "light.h"
#include "puzzlefile.h"
#include "startup.h"
#include "step.h"
#include "stepsolver.h"
#include "tables.h"

namespace gradino::tests {
namespace {

std::vector<std::string> corpus(const std::string& name) {
  std::ifstream file(std::string(TESTDATA) + "/corpus/" + name);
  std::vector<std::string> puzzles;
  for (std::string line; std::getline(file, line);)
    if (!line.empty() && line[0] != '#') puzzles.push_back(line);
  return puzzles;
}

void putup(const std::string& puzzle) {
  host = {};
  startprogram();
  suppresschange = true;
  scanline(puzzle, 0);
  suppresschange = false;
  countgivens();
  showboard();
}

/// Every digit placed is the solution's, and every open cell still has its solution among its candidates.
bool sound() {
  for (int cell = 0; cell < cells; ++cell) {
    const int solution = solutiontext(cell)[0] - '0';
    if (cellvalue(cell) != 0 ? cellvalue(cell) != solution : !hascandidate(cell, solution)) return false;
  }
  return true;
}

bool soundgrade(const std::string& puzzle) {
  putup(puzzle);
  try {
    SolveSudoku();
  } catch (const Fault&) {  // a full table ends the grade, not the soundness
  }
  return sound();
}

/// The tag of the first step that harmed the board, or an empty text.
std::string firstunsound(const std::string& puzzle, bool explained) {
  putup(puzzle);
  bool waited = false, first = true;
  host.waitevents = [&] {
    waited = true;
    if (explained && first) {
      first = false;
      Picthelp_Click();
      if (lightresult != 0) return;
    }
    Pictgo_Click();
  };
  for (int idle = 0; idle < 3;) {
    const int before = filledcount;
    waited = false;
    first = true;
    try {
      stepsolver();
    } catch (const Fault&) {
      return sound() ? "" : steptag;
    }
    if (!sound()) return steptag;
    if (!waited) break;
    idle = filledcount == cells && before == cells ? idle + 1 : 0;
  }
  return "";
}

void expectsound(const std::string& name, std::size_t atleast) {
  const std::vector<std::string> puzzles = corpus(name);
  ASSERT_GE(puzzles.size(), atleast);
  for (const std::string& puzzle : puzzles) {
    EXPECT_TRUE(soundgrade(puzzle)) << puzzle;
    EXPECT_EQ(firstunsound(puzzle, false), "") << puzzle;
  }
}

TEST(Soundness, MiddlePuzzlesLoseNoDigitOfTheirSolution) {
  expectsound("middle.txt", 2000);
}
TEST(Soundness, HardPuzzlesLoseNoDigitOfTheirSolution) {
  expectsound("hard.txt", 3000);
}

TEST(Soundness, ExplanationsLoseNoDigitOfTheSolution) {
  const std::vector<std::string> puzzles = corpus("hard.txt");
  for (std::size_t i = 0; i < puzzles.size(); i += 10)
    EXPECT_EQ(firstunsound(puzzles[i], true), "") << puzzles[i];
}

}  // namespace
}  // namespace gradino::tests
