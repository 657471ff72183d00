// No technique deletes a digit of the solution or places a wrong one, over corpora of our own: 2,000 puzzles
// of the middle levels and 3,000 hard ones, graded, and walked step by step.
#include "soundness.h"

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <unistd.h>

#include "selftest.h"
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

/// Collects what contradicts the solution, and counts the steps.
struct Witness {
  std::vector<std::string> wrong;
  long steps = 0, placed = 0;

  cli::OnStep hear() {
    return [this](const cli::CheckedStep& step) {
      steps += 1;
      placed += step.placed;
      for (const std::string& contradiction : step.wrong)
        wrong.push_back(step.technique + " " + contradiction);
    };
  }
};

const std::vector<std::string> nothing;

void expectsound(const std::string& name, std::size_t atleast) {
  const std::vector<std::string> puzzles = corpus(name);
  ASSERT_GE(puzzles.size(), atleast);
  for (const std::string& puzzle : puzzles) {
    Witness witness;
    cli::checkgrade(puzzle, witness.hear());
    cli::checkwalk(puzzle, false, witness.hear());
    EXPECT_EQ(witness.wrong, nothing) << puzzle;
    EXPECT_GT(witness.steps, 0) << puzzle;
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
  for (std::size_t i = 0; i < puzzles.size(); i += 10) {
    Witness witness;
    cli::checkwalk(puzzles[i], true, witness.hear());
    EXPECT_EQ(witness.wrong, nothing) << puzzles[i];
  }
}

TEST(Soundness, EveryCellIsSeenToBePlaced) {
  const std::string puzzle = corpus("middle.txt").front();
  ASSERT_EQ(cli::solutionsof(puzzle), 1);
  Witness graded, walked;
  cli::checkgrade(puzzle, graded.hear());
  EXPECT_EQ(filledcount, cellcount);
  cli::checkwalk(puzzle, false, walked.hear());
  const long open = static_cast<long>(std::ranges::count(puzzle, '.'));
  EXPECT_EQ(graded.placed, open);
  EXPECT_EQ(walked.placed, open);
}

TEST(Soundness, AStepAgainstTheSolutionIsTold) {
  // A puzzle with several solutions has no stored solution: whatever is placed contradicts it.
  Witness witness;
  cli::checkgrade("8......464..........6..2.5.7.1...96......7....92.1...4..7..6.9894.....1.....75..2",
                  witness.hear());
  EXPECT_NE(witness.wrong, nothing);
}

TEST(Soundness, TheSelftestFailsByAContradictionAndSaysWhere) {
  const std::string several =
      "8......464..........6..2.5.7.1...96......7....92.1...4..7..6.9894.....1.....75..2";
  testing::internal::CaptureStdout();
  const bool good = cli::report({several, several}, 2, cli::checksteps);
  const std::string text = testing::internal::GetCapturedStdout();
  EXPECT_FALSE(good);
  EXPECT_EQ(text.find(several + "\n  grade, "), 0U) << text;
  EXPECT_NE(text.find(": places "), std::string::npos) << text;
  EXPECT_NE(text.find(", which is 0\n"), std::string::npos) << text;
  EXPECT_EQ(text.find(" 0 contradictions\n"), std::string::npos) << text;
}

TEST(Soundness, TheSelftestFailsWhenAWorkerEnds) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  const bool good = cli::report({"one"}, 1, [](const std::string&) -> std::string { _exit(1); });
  testing::internal::GetCapturedStdout();
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "a worker ended before puzzle 1 was done\n");
  EXPECT_FALSE(good);
}

}  // namespace
}  // namespace gradino::tests
