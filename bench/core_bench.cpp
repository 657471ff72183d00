// What a user waits for: opening, counting, grading, and a search that finds nothing.
//
//   build/dev/bench/core_bench [--benchmark_filter=...]
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "boardgrade.h"
#include "boxes.h"
#include "counter.h"
#include "filecommands.h"
#include "fish.h"
#include "grader.h"
#include "gradestate.h"
#include "grid.h"
#include "host.h"
#include "intersections.h"
#include "log.h"
#include "puzzlefile.h"
#include "puzzles.h"
#include "simplecolours.h"
#include "startup.h"
#include "subsets.h"
#include "tables.h"
#include "wings.h"
#include "xcolours.h"

namespace {

using namespace gradino;

std::vector<std::string> corpus() {
  return bench::puzzlesof(CORPUS);
}

void putup(const std::string& puzzle) {
  host = {};
  startprogram();
  suppresschange = true;
  scanline(puzzle, 0);
  suppresschange = false;
}

/// From the name chosen in the dialog to the finished grade, every puzzle of the corpus once; the slowest as
/// a counter.
void openfile(benchmark::State& state) {
  const auto puzzles = corpus();
  const std::string name = (std::filesystem::temp_directory_path() / "gradino-bench.sav").string();
  double slowest = 0;
  for (auto _ : state) {
    for (const std::string& puzzle : puzzles) {
      state.PauseTiming();
      std::ofstream(name, std::ios::binary) << puzzle << "\r\n";
      host = {};
      startprogram();
      host.showopen = [&](CommonDialog& dialog) { dialog.filename = name; };
      state.ResumeTiming();
      const auto begin = std::chrono::steady_clock::now();
      mnuopen_Click();
      slowest =
          std::max(slowest, std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
    }
  }
  std::filesystem::remove(name);
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(puzzles.size()));
  state.counters["slowest_ms"] = slowest * 1000;
}
BENCHMARK(openfile)->Unit(benchmark::kMillisecond);

void grade(benchmark::State& state) {
  const auto puzzles = corpus();
  for (auto _ : state)
    for (const std::string& puzzle : puzzles) {
      state.PauseTiming();
      putup(puzzle);
      conta();
      settleboard();
      state.ResumeTiming();
      try {
        SolveSudoku();
      } catch (const Fault&) {  // a puzzle that outgrows a table is graded up to there
      }
    }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(puzzles.size()));
}
BENCHMARK(grade)->Unit(benchmark::kMillisecond);

void countcorpus(benchmark::State& state) {
  const auto puzzles = corpus();
  for (auto _ : state)
    for (const std::string& puzzle : puzzles) {
      state.PauseTiming();
      putup(puzzle);
      state.ResumeTiming();
      conta();
    }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(puzzles.size()));
}
BENCHMARK(countcorpus)->Unit(benchmark::kMillisecond);

// A board on which no technique finds anything but the last rung.
constexpr const char* quietvalues =
    "020683947904527800000419002300764000040801003006002000000076009007205000600008270";
constexpr int quietmasks[] = {
    34,  0,   34, 0,   0,   0, 0,   0,   0,   0,   72,  0,   0,   0,   0,   0,   10, 66,  384, 456, 264,
    0,   0,   0,  104, 104, 0, 0,   802, 806, 0,   0,   0,   34,  548, 290, 164, 0,  548, 0,   544, 0,
    224, 612, 0,  418, 418, 0, 520, 552, 0,   178, 802, 306, 310, 298, 302, 10,  0,  0,   58,  298, 0,
    274, 778, 0,  0,   536, 0, 90,  266, 338, 0,   554, 554, 522, 536, 0,   0,   0,  50};

void putquiet() {
  host = {};
  startprogram();
  for (int cell = 0; cell < cellcount; ++cell) {
    cellvalue(cell) = quietvalues[cell] - '0';
    candmask(cell) = quietmasks[cell];
  }
  rebuildusedmask();
  rebuildcandstr();
  rebuildpositions();
}

/// One search that finds nothing.
void nothingfound(benchmark::State& state, void (*twin)()) {
  putquiet();
  for (auto _ : state) {
    twin();
    benchmark::DoNotOptimize(candmask(0));
  }
  if (logcount != 0) state.SkipWithError("the board was not quiet");
}
#define QUIET(twin) BENCHMARK_CAPTURE(nothingfound, twin, frmgenerazione::twin)
QUIET(intersections);
QUIET(findtriple);
QUIET(findquad);
QUIET(findxywing);
QUIET(findxyzwing);
QUIET(findxwing);
QUIET(findswordfish);
QUIET(findjellyfish);
QUIET(gradecolors);
QUIET(gradexcolors);

}  // namespace
