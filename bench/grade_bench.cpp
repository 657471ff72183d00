// The time of the grader for each puzzle of a file, including log and snapshots: one thread, the best of some
// runs, reported by bands of levels.
//
//   build/dev/bench/grade FILE... [--runs N]
//
// A puzzle is the first 81 characters of a line, "." or 0 for an empty cell. Timed is what follows the count:
// setting the board to the givens, and the grade.
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "boardgrade.h"
#include "counter.h"
#include "grader.h"
#include "gradestate.h"
#include "grid.h"
#include "host.h"
#include "log.h"
#include "puzzles.h"
#include "startup.h"
#include "step.h"
#include "tables.h"

namespace {

using namespace gradino;
using Clock = std::chrono::steady_clock;

struct Band {
  int low, high;
  std::vector<double> times{};
};

/// Microseconds of a grade.
double timed(const std::string& puzzle) {
  for (int cell = 0; cell < cellcount; ++cell) {
    const char c = puzzle[static_cast<std::size_t>(cell)];
    givens(cell) = c == '.' || c == '0' ? "" : std::string(1, c);
  }
  conta();
  clearlog();
  const auto begin = Clock::now();
  settleboard();
  try {
    SolveSudoku();
  } catch (const Fault&) {  // a puzzle that outgrows a table is graded up to there
  }
  return std::chrono::duration<double, std::micro>(Clock::now() - begin).count();
}

void report(Band& band) {
  std::sort(band.times.begin(), band.times.end());
  double sum = 0;
  for (const double time : band.times) sum += time;
  const auto number = static_cast<double>(band.times.size());
  fmt::print(
      "  levels {:>2} to {:>2} {:>7} puzzles {:>7.0f} a second: mean {:.1f}, median {:.1f}, slowest {:.1f} us\n",
      band.low, band.high, band.times.size(), number / sum * 1e6, sum / number,
      band.times[band.times.size() / 2], band.times.back());
}

}  // namespace

int main(int argc, char** argv) try {
  CLI::App app("Times the grader on files of puzzles.");
  std::vector<std::string> names;
  int runs = 3;
  app.add_option("FILE", names)->required()->check(CLI::ExistingFile);
  app.add_option("--runs", runs, "runs, of which a puzzle's best counts")->check(CLI::PositiveNumber);
  CLI11_PARSE(app, argc, argv);

  host = {};
  startprogram();
  for (const std::string& name : names) {
    std::array<Band, 4> bands{{{0, 2}, {3, 5}, {6, 12}, {13, 21}}};
    for (const std::string& puzzle : bench::puzzlesof(name)) {
      double best = 1e12;
      for (int run = 0; run < runs; ++run) best = std::min(best, timed(puzzle));
      for (Band& band : bands)
        if (band.low <= runninglevel && runninglevel <= band.high) band.times.push_back(best);
    }
    fmt::print("{}\n", name.substr(name.rfind('/') + 1));
    for (Band& band : bands)
      if (!band.times.empty()) report(band);
    std::fflush(stdout);
  }
} catch (const std::exception& error) {
  fmt::print(stderr, "grade_bench: {}\n", error.what());
  return 1;
}
