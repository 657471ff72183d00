// The time of the counter for each puzzle of a file: whole calls, one thread, the best of some runs.
//
//   build/dev/bench/count FILE... [--count] [--runs N]
//
// A puzzle is the first 81 characters of a line, "." or 0 for an empty cell. Without --count the counter
// stops at the second solution, as when a puzzle is opened or made; with it, it goes on as for the key count.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <map>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "counter.h"
#include "gradestate.h"
#include "host.h"
#include "puzzles.h"
#include "startup.h"
#include "step.h"
#include "tables.h"

namespace {

using namespace gradino;
using Clock = std::chrono::steady_clock;

/// Microseconds of one call.
double timed(const std::string& puzzle, const char* command) {
  for (int cell = 0; cell < cellcount; ++cell) {
    const char c = puzzle[static_cast<std::size_t>(cell)];
    givens(cell) = c == '.' || c == '0' ? "" : std::string(1, c);
  }
  comandocorrente = command;
  const auto begin = Clock::now();
  conta();
  return std::chrono::duration<double, std::micro>(Clock::now() - begin).count();
}

struct Result {
  double best;
  int solutions;
};

void report(const std::string& name, const std::vector<Result>& results) {
  std::vector<double> times;
  std::map<std::string, int> kinds;
  double sum = 0;
  for (const Result& r : results) {
    times.push_back(r.best);
    sum += r.best;
    ++kinds[r.solutions == 0 ? "none" : r.solutions == 1 ? "one" : "more"];
  }
  std::sort(times.begin(), times.end());
  fmt::print(
      "{:<24} {:>6} puzzles ({} none, {} one, {} more): mean {:.2f}, median {:.2f}, slowest {:.2f} us\n",
      name.substr(name.rfind('/') + 1), times.size(), kinds["none"], kinds["one"], kinds["more"],
      sum / static_cast<double>(times.size()), times[times.size() / 2], times.back());
}

}  // namespace

int main(int argc, char** argv) try {
  CLI::App app("Times the counter on files of puzzles.");
  std::vector<std::string> names;
  bool counting = false;
  int runs = 5;
  app.add_option("FILE", names)->required()->check(CLI::ExistingFile);
  app.add_flag("--count", counting, "count on to 500");
  app.add_option("--runs", runs, "runs, of which a puzzle's best counts")->check(CLI::PositiveNumber);
  CLI11_PARSE(app, argc, argv);

  host = {};
  startprogram();
  for (const std::string& name : names) {
    const auto puzzles = bench::puzzlesof(name);
    if (puzzles.empty()) {
      fmt::print(stderr, "{}: no puzzles\n", name);
      return 1;
    }
    std::vector<Result> results(puzzles.size(), {1e12, 0});
    for (int run = 0; run < runs; ++run)
      for (std::size_t n = 0; n < puzzles.size(); ++n)
        results[n] = {std::min(results[n].best, timed(puzzles[n], counting ? countcommand : "")),
                      numerosoluzioni};
    report(name, results);
    std::fflush(stdout);
  }
} catch (const std::exception& error) {
  fmt::print(stderr, "count_bench: {}\n", error.what());
  return 1;
}
