#include "selftest.h"

#include <map>
#include <memory>
#include <utility>
#include <vector>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "exchange.h"
#include "jobs.h"
#include "progress.h"
#include "session.h"
#include "soundness.h"

namespace gradino::cli {
namespace {

struct SelftestOptions {
  std::vector<std::string> files;
  int jobs = 1;
};

/// What a technique did: steps, digits placed, digits deleted, contradictions.
struct Tally {
  long steps = 0, placed = 0, deleted = 0, wrong = 0;
};

// The result of one puzzle as a worker sends it: [[walk or grade, technique, steps, placed, deleted, wrong],
// ...] and the contradictions as text.
Json result(bool checked) {
  return {{"checked", checked}, {"tallies", Json::array()}, {"wrong", ""}};
}

std::string checkpuzzle(const std::string& puzzle) {
  return solutionsof(puzzle) == 1 ? checksteps(puzzle) : result(false).dump();
}

struct Summary {
  std::map<std::pair<std::string, std::string>, Tally> tallies;
  long puzzles = 0, unchecked = 0, wrong = 0;

  void add(const Json& found) {
    puzzles += 1;
    unchecked += !found["checked"].get<bool>();
    for (const Json& entry : found["tallies"]) {
      Tally& tally = tallies[{entry[0], entry[1]}];
      tally.steps += entry[2].get<long>();
      tally.placed += entry[3].get<long>();
      tally.deleted += entry[4].get<long>();
      tally.wrong += entry[5].get<long>();
      wrong += entry[5].get<long>();
    }
  }
  void print() const {
    fmt::print("{:<6} {:<32} {:>9} {:>9} {:>9} {:>14}\n", "by", "technique", "steps", "placed", "deleted",
               "contradictions");
    for (const auto& [name, tally] : tallies)
      fmt::print("{:<6} {:<32} {:>9} {:>9} {:>9} {:>14}\n", name.first, name.second, tally.steps,
                 tally.placed, tally.deleted, tally.wrong);
    fmt::print("{} {}: {} checked, {} left out for want of a single solution; {} {}\n", puzzles,
               puzzles == 1 ? "puzzle" : "puzzles", puzzles - unchecked, unchecked, wrong,
               wrong == 1 ? "contradiction" : "contradictions");
  }
};

bool selftest(const SelftestOptions& options) {
  std::vector<std::string> puzzles;
  const bool read =
      eachpuzzlefile(options.files, [&](const std::string&, const std::vector<formats::Puzzle>& some) {
        for (const formats::Puzzle& puzzle : some) puzzles.push_back(puzzle.cells);
      });
  return report(puzzles, options.jobs, checkpuzzle) && read;
}

}  // namespace

std::string checksteps(const std::string& puzzle) {
  Json out = result(true);
  std::map<std::pair<std::string, std::string>, Tally> tallies;
  std::string wrong;
  const auto use = [&](const char* who) {
    return [&, who](const CheckedStep& step) {
      Tally& tally = tallies[{who, step.technique}];
      tally.steps += 1;
      tally.placed += step.placed;
      tally.deleted += step.deleted;
      tally.wrong += static_cast<long>(step.wrong.size());
      for (const std::string& contradiction : step.wrong)
        wrong +=
            fmt::format("{}\n  {}, {}: {}\n  {}\n", puzzle, who, step.technique, contradiction, step.words);
    };
  };
  checkgrade(puzzle, use("grade"));
  checkwalk(puzzle, false, use("walk"));
  for (const auto& [name, tally] : tallies)
    out["tallies"].push_back(
        {name.first, name.second, tally.steps, tally.placed, tally.deleted, tally.wrong});
  out["wrong"] = wrong;
  return out.dump();
}

bool report(const std::vector<std::string>& puzzles, int jobs,
            const std::function<std::string(const std::string&)>& check) {
  Summary summary;
  Progress progress("checked", puzzles.size());
  const auto checkone = [&](std::size_t number) { return check(puzzles[number]); };
  const bool done = eachinorder(puzzles.size(), jobs, checkone, [&](const std::string& text) {
    const Json found = Json::parse(text);
    summary.add(found);
    if (const auto wrong = found["wrong"].get<std::string>(); !wrong.empty()) {
      progress.end();
      fmt::print("{}", wrong);
    }
    progress.step();
  });
  progress.end();
  summary.print();
  // A run that by mistake checks nothing must not pass.
  const bool nothing = done && summary.puzzles == summary.unchecked;
  if (nothing) complain("no puzzle was checked");
  return done && !nothing && summary.wrong == 0;
}

std::function<bool()> addselftest(CLI::App& app) {
  auto options = std::make_shared<SelftestOptions>();
  CLI::App* command =
      app.add_subcommand("selftest", "Checks each step of the grader and of the walk against the solution");
  command->add_option("FILE", options->files, "Files of any common form; standard input when there is none");
  command->add_option("--jobs", options->jobs, "Worker processes")->check(CLI::Range(1, 256));
  return [options, command] { return !*command || selftest(*options); };
}

}  // namespace gradino::cli
