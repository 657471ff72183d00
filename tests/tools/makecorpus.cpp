// Makes the puzzles of tests/data/corpus: a random full grid, then givens taken away in random order while
// one solution is left, graded, and kept when the level is in a range.
//
//   makecorpus SEED COUNT LOWEST HIGHEST > puzzles.txt
#include <algorithm>
#include <array>
#include <cstdlib>
#include <numeric>
#include <random>
#include <string>

#include <fmt/format.h>

#include "boardgrade.h"
#include "counter.h"
#include "grader.h"
#include "gradestate.h"
#include "grid.h"
#include "host.h"
#include "puzzlefile.h"
#include "startup.h"
#include "tables.h"

namespace {

using namespace gradino;

std::mt19937_64 source;

void putup(const std::string& puzzle) {
  host = {};
  startprogram();
  suppresschange = true;
  scanline(puzzle, 0);
  suppresschange = false;
}

bool unique(const std::string& puzzle) {
  for (int cell = 0; cell < cellcount; ++cell) {
    const char c = puzzle[static_cast<std::size_t>(cell)];
    givens(cell) = c == '.' ? "" : std::string(1, c);
  }
  conta();
  return numerosoluzioni == 1;
}

/// True when no cell that sees this one holds the digit.
bool fits(const std::string& puzzle, std::size_t cell, char digit) {
  for (std::size_t other = 0; other < 81; ++other) {
    const bool sees = other / 9 == cell / 9 || other % 9 == cell % 9 ||
                      (other / 27 == cell / 27 && other % 9 / 3 == cell % 9 / 3);
    if (sees && puzzle[other] == digit) return false;
  }
  return true;
}

/// A full grid: the first solution of an empty one with a dozen digits thrown in.
std::string fullgrid() {
  for (;;) {
    std::string puzzle(81, '.');
    for (int k = 0; k < 15; ++k) {
      const std::size_t cell = source() % 81;
      const char digit = static_cast<char>('1' + source() % 9);
      if (puzzle[cell] == '.' && fits(puzzle, cell, digit)) puzzle[cell] = digit;
    }
    if (unique(puzzle) || numerosoluzioni > 1) return stringhesoluzione(1);
  }
}

std::string minimal(std::string puzzle) {
  std::array<std::size_t, 81> order;
  std::iota(order.begin(), order.end(), 0);
  std::shuffle(order.begin(), order.end(), source);
  for (std::size_t cell : order) {
    const char digit = puzzle[cell];
    puzzle[cell] = '.';
    if (!unique(puzzle)) puzzle[cell] = digit;
  }
  return puzzle;
}

int gradeof(const std::string& puzzle) {
  putup(puzzle);
  conta();
  settleboard();
  try {
    SolveSudoku();
  } catch (const Fault&) {  // outgrew a table: beyond every level
    return 21;
  }
  return runninglevel;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 5) {
    fmt::print(stderr, "usage: makecorpus SEED COUNT LOWEST HIGHEST\n");
    return 2;
  }
  source.seed(std::strtoull(argv[1], nullptr, 10));
  const int lowest = std::atoi(argv[3]), highest = std::atoi(argv[4]);
  startprogram();
  for (int left = std::atoi(argv[2]); left > 0;) {
    const std::string puzzle = minimal(fullgrid());
    const int level = gradeof(puzzle);
    if (level < lowest || level > highest) continue;
    fmt::print("{}\n", puzzle);
    std::fflush(stdout);
    --left;
  }
}
