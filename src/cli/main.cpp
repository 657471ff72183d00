// gradino-cli: the grader, the counter, the step solver and the generator for batches.
#include <cstdio>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "commandline.h"
#include "convert.h"
#include "input.h"
#include "jobs.h"
#include "librarycommand.h"
#include "progress.h"
#include "selftest.h"
#include "session.h"
#include "sheet.h"
#include "subcommands.h"
#include "words.h"

namespace {

using namespace gradino::cli;
using gradino::hole, gradino::inlanguage, gradino::say, gradino::Words;

constexpr Words gradeddone = {"valutati", "graded"}, counteddone = {"contati", "counted"},
                walkeddone = {"percorsi", "walked"}, boardsdone = {"posizioni", "boards"};
constexpr Words noboards = {
    "{file}: {n} linee e tra esse nessuna posizione: techniques vuole oggetti JSON con values e "
    "cands; gli schemi sono per grade, count e walk",
    "{file}: {n} lines and no board among them: techniques takes JSON "
    "objects with values and cands; puzzles are for grade, count and walk"};

using Work = std::string (*)(const std::string& puzzle, const Options& options);

/// With one worker each puzzle is done as soon as it is read; with more, all are read first.
bool batch(const std::vector<std::string>& files, int jobs, const Words& done, Work work,
           const Options& options) {
  if (jobs == 1) {
    Progress progress(inlanguage(done), 0, !istyped(files));
    return eachpuzzle(files, [&](const std::string& puzzle) {
      printrow(work(puzzle, options));
      progress.step();
    });
  }
  std::vector<std::string> puzzles;
  const bool read = eachpuzzle(files, [&](const std::string& puzzle) { puzzles.push_back(puzzle); });
  return printinorder(puzzles.size(), jobs, inlanguage(done),
                      [&](std::size_t number) { return work(puzzles[number], options); }) &&
         read;
}

/// New puzzles, each made by its number.
bool make(std::size_t count, int jobs, const Options& options) {
  if (!options.json) fmt::print("{}", generateheading());
  if (jobs > 1)
    return printinorder(count, jobs, "made", [&](std::size_t number) { return generate(number, options); });
  Progress progress("made", count);
  for (std::size_t number = 0; number < count; ++number) {
    printrow(generate(number, options));
    progress.step();
  }
  return true;
}

/// A file of boards, one JSON object a line.
class Boards {
 public:
  Boards(const std::string& file, const Options& options, Progress& progress)
      : file_(file), options_(options), progress_(progress) {}

  /// False: some line is no board. If none of the lines is a board, one message says so for all.
  bool all(std::istream& in) {
    std::string line;
    for (long number = 1; std::getline(in, line); ++number)
      if (!line.empty()) board(number, line);
    if (none_.size() < 2) {
      tellnone();
      return good_;
    }
    complain(say(noboards, hole("file", file_), hole("n", none_.size())));
    return false;
  }

 private:
  void board(long number, const std::string& line) {
    try {
      const std::string result = techniques(line, options_);
      tellnone();
      printrow(result);
    } catch (const NoObject& error) {
      none_.emplace_back(number, error.what());
      if (any_) tellnone();
    } catch (const std::invalid_argument& error) {
      tellnone();
      refuse(number, error.what());
    }
    progress_.step();
  }

  /// The file does hold boards, so each line that is none is reported.
  void tellnone() {
    for (const auto& [number, what] : none_) refuse(number, what);
    none_.clear();
    any_ = true;
  }

  void refuse(long number, const std::string& what) {
    complain(fmt::format("{}:{}: {}", file_, number, what));
    good_ = false;
  }

  const std::string& file_;
  const Options& options_;
  Progress& progress_;
  std::vector<std::pair<long, std::string>> none_;
  bool any_ = false, good_ = true;
};

bool boards(const std::vector<std::string>& files, const Options& options) {
  bool good = true;
  Progress progress(inlanguage(boardsdone), 0, !istyped(files));
  const bool read = eachfile(files, [&](const std::string& file, std::istream& in) {
    good = Boards(file, options, progress).all(in) && good;
  });
  return read && good;
}

/// What the command line asks of the commands of this file.
struct Asked {
  Options options;
  std::vector<std::string> files;
  int jobs = 1;
  std::size_t number = 1;
};

struct Commands {
  CLI::App *grade, *count, *walk, *generate, *techniques;
  CLI::Option* seed;
};

Commands addcommands(CLI::App& app, Asked& asked) {
  Options& options = asked.options;
  const auto sub = [&](const char* name, const char* help) {
    CLI::App* command = app.add_subcommand(name, help);
    command->add_option("FILE", asked.files, "Files; standard input when there is none");
    command->add_option("--lang", options.language, "Language of the texts")
        ->check(CLI::IsMember({"en", "it"}));
    return command;
  };
  const auto json = [&](CLI::App* command) {
    command->add_flag("--json", options.json, "One JSON object a line");
    return command;
  };

  const auto addjobs = [&](CLI::App* command) {
    command->add_option("--jobs", asked.jobs, "Worker processes")->check(CLI::Range(1, 256));
  };

  Commands commands = {};
  commands.grade = json(sub("grade", "Level, score and log of each puzzle"));
  addjobs(commands.grade);
  commands.grade->add_flag("--snapshots", options.snapshots,
                           "With the board after each line of the log (JSON)");
  commands.count = json(sub("count", "The number of solutions, up to 500"));
  commands.walk = json(sub("walk", "Each step that the hint shows, to the end"));
  commands.walk->add_flag("--explain", options.explain, "With the explanation of each step");
  commands.walk->add_option("--stop", options.stop, "Answer stop at the first wait of this step")
      ->check(CLI::Range(1, std::numeric_limits<int>::max(), "POSITIVE"));
  commands.generate = json(app.add_subcommand("generate", "New puzzles, graded"));
  commands.generate->add_option("-n", asked.number, "How many")->check(CLI::Range(1, 100'000'000));
  commands.generate->add_flag("--supersimmetrico", options.supersymmetric,
                              "Givens in four mirror cells at once, not only in two");
  commands.seed =
      commands.generate->add_option("--seed", options.seed, "The same puzzles each time, whatever the jobs");
  addjobs(commands.generate);
  commands.techniques = sub("techniques", "What each technique alone does on boards given as JSON lines");
  commands.techniques->add_flag("--json", options.json,
                                "One JSON object a line, which is what it always prints");
  return commands;
}

bool run(const Commands& commands, Asked& asked) {
  bool good = true;
  if (*commands.techniques) good = boards(asked.files, asked.options);
  if (*commands.grade) {
    if (!asked.options.json) fmt::print("{}", gradeheading());
    good = batch(asked.files, asked.jobs, gradeddone, grade, asked.options);
  }
  if (*commands.generate) {
    if (commands.seed->empty()) asked.options.seed = std::random_device{}();
    good = make(asked.number, asked.jobs, asked.options);
  }
  if (*commands.count) {
    if (!asked.options.json) fmt::print("{}", countheading());
    good = batch(asked.files, 1, counteddone, count, asked.options);
  }
  if (*commands.walk) good = batch(asked.files, 1, walkeddone, walk, asked.options);
  return good;
}

}  // namespace

int main(int argc, char** argv) try {
  Asked asked;
  CLI::App app(
      "Grades, counts, walks and makes sudoku puzzles: one puzzle a line, 81 of the symbols 1-9 . 0 x X.");
  app.set_version_flag("--version", "gradino-cli " GRADINO_VERSION);
  app.require_subcommand(1);
  const Commands commands = addcommands(app, asked);
  const auto runlibrary = addlibrary(app), runconvert = addconvert(app), runselftest = addselftest(app),
             runsheet = addsheet(app);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return answer(app, error);
  }
  speak(asked.options.language);

  const bool good = runlibrary() && runconvert() && runselftest() && runsheet() && run(commands, asked);
  if (std::fflush(stdout) != 0) {
    std::perror("standard output");
    return 1;
  }
  return good ? 0 : 1;
} catch (const std::exception& error) {
  fmt::print(stderr, "gradino-cli: {}\n", error.what());
  return 1;
}
