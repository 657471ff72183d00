// How long the hardest grades take: one thread, processor time of each grade over the hard corpus.
//
//   build/dev/bench/hard_bench
#include <algorithm>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include <fmt/format.h>
#include <time.h>

#include "counter.h"
#include "files.h"
#include "grader.h"
#include "gradestate.h"
#include "grid.h"
#include "host.h"
#include "puzzlefile.h"
#include "startup.h"

namespace {

using namespace gradino;

double processorms() {
  timespec now;
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

/// Milliseconds of counting and of grading.
std::pair<double, double> timed(const std::string& puzzle) {
  host = {};
  startprogram();
  suppresschange = true;
  scanline(puzzle, 0);
  suppresschange = false;
  const double begin = processorms();
  conta();
  const double counted = processorms();
  settleboard();
  try {
    SolveSudoku();
  } catch (const Fault&) {  // a puzzle that outgrows a table is graded up to there
  }
  return {counted - begin, processorms() - counted};
}

void report(const char* what, std::vector<double>& times) {
  std::sort(times.begin(), times.end());
  const auto at = [&](double part) {
    return times[static_cast<std::size_t>(part * static_cast<double>(times.size() - 1))];
  };
  fmt::print("{:<6} median {:.3f} ms, 90% {:.3f} ms, 99% {:.3f} ms, slowest {:.3f} ms\n", what, at(0.5),
             at(0.9), at(0.99), at(1));
}

}  // namespace

int main(int argc, char** argv) {
  std::ifstream file(argc > 1 ? argv[1] : HARDCORPUS);
  std::vector<double> counts, grades;
  for (std::string line; std::getline(file, line);) {
    if (line.size() < 81) continue;
    const auto [count, grade] = timed(line);
    counts.push_back(count);
    grades.push_back(grade);
  }
  if (grades.empty()) {
    fmt::print(stderr, "no puzzles\n");
    return 1;
  }
  fmt::print("{} puzzles\n", grades.size());
  report("count", counts);
  report("grade", grades);
}
