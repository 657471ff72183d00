#include "sheet.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "boardgrade.h"
#include "boxes.h"
#include "exchange.h"
#include "grader.h"
#include "gradestate.h"
#include "librarycommand.h"
#include "page.h"
#include "progress.h"
#include "session.h"
#include "store.h"
#include "tables.h"
#include "words.h"

namespace gradino::cli {
namespace {

constexpr Words libraryrow = {"riga {row} della libreria", "row {row} of the library"};
constexpr Words ungraded = {"{from}: {what} (Sudoku {number})", "{from}: {what} (Sudoku {number})"};

constexpr Words levelexpected = {"--from-library {text}: atteso un livello da 0 a 21, o LIVELLO:N",
                                 "--from-library {text}: expected a level 0 to 21, or LEVEL:N"};
constexpr Words onlyone = {"la libreria ha {n} schema di livello {level}",
                           "the library has {n} puzzle of level {level}"};
constexpr Words onlysome = {"la libreria ha {n} schemi di livello {level}",
                            "the library has {n} puzzles of level {level}"};
constexpr Words rowwithout = {"la riga {row} della libreria non ha uno schema",
                              "row {row} of the library has no puzzle"};
constexpr Words readitself = {"{file}: viene letto, e non può essere il foglio",
                              "{file}: is read, and can't be the sheet"};
constexpr Words nopuzzle = {"nessuno schema per il foglio", "no puzzle for the sheet"};
constexpr Words fetched = {"presi", "fetched"}, gradedsofar = {"valutati", "graded"};

struct SheetOptions {
  std::vector<std::string> files, levels;
  std::string output, language = "en", paper = "A4", library;
  PageOptions page;
};

/// After a count.
Standing standing(const std::string& puzzle) {
  if (puzzle.find('.') == std::string::npos) return Standing::full;
  if (numerosoluzioni == 1) return Standing::single;
  return numerosoluzioni == 0 ? Standing::none : Standing::several;
}

/// The puzzle with its solution, level and difficulty, as opening its file grades it.
Printed graded(const std::string& puzzle, const SheetOptions& options) {
  Session session;
  startsession(session, options.language);
  Printed printed{puzzle, "", 0, -1, Standing::single};
  runguarded(session, [&] {
    putup(puzzle);
    printed.standing = standing(puzzle);
    if (numerosoluzioni == 1)
      for (int cell = 0; cell < cellcount; ++cell) printed.solution += solutiontext(cell);
    settleboard();
    SolveSudoku();
    if (!frmmain::txtlivello.text.empty()) printed.difficulty = difficolta;
  });
  printed.level = runninglevel;
  return printed;
}

/// Adds a puzzle to the sheet. One without a grade is reported with its origin.
void add(std::vector<Printed>& puzzles, const Printed& printed, const std::string& from) {
  puzzles.push_back(printed);
  if (printed.standing == Standing::single) return;
  complain(say(ungraded, hole("from", from), hole("what", ingradesplace(printed.standing)),
               hole("number", puzzles.size())));
}

/// "5" or "5:12".
std::pair<int, int> levelandcount(const std::string& text, int count) {
  int level = -1;
  const char* const end = text.data() + text.size();
  auto read = std::from_chars(text.data(), end, level);
  if (read.ec == std::errc{} && read.ptr != end && *read.ptr == ':')
    read = std::from_chars(read.ptr + 1, end, count);
  if (read.ec != std::errc{} || read.ptr != end || level < 0 || level > 21 || count < 1)
    throw std::runtime_error(say(levelexpected, hole("text", text)));
  return {level, count};
}

/// A row can hold any number, or none.
int difficultyin(const std::string& text) {
  return static_cast<int>(std::clamp(std::strtol(text.c_str(), nullptr, 10), 0L, long{INT_MAX}));
}

/// All are read before the first is graded, so that the store is not locked meanwhile.
std::vector<Store::Record> hardest(Store& store, int level, int count) {
  std::vector<Store::Record> records;
  store.each(
      libraryquery(level), [&](const Store::Record& record) { records.push_back(record); }, count);
  if (records.size() < static_cast<std::size_t>(count))
    throw std::runtime_error(
        say(records.size() == 1 ? onlyone : onlysome, hole("n", records.size()), hole("level", level)));
  return records;
}

void fromlibrary(const SheetOptions& options, std::vector<Printed>& puzzles) {
  if (options.levels.empty()) return;
  Store store = existinglibrary(options.library);
  Progress progress(inlanguage(fetched));
  for (const std::string& text : options.levels) {
    const auto [level, count] = levelandcount(text, options.page.perpage);
    for (const Store::Record& record : hardest(store, level, count)) {
      const std::string& stringa = record.row[field::stringa];
      if (!ispuzzle(stringa)) throw std::runtime_error(say(rowwithout, hole("row", record.key)));
      Printed printed = graded(stringa.substr(0, cellcount), options);
      printed.level = level;
      printed.difficulty = difficultyin(record.row[field::difficolta]);
      add(puzzles, printed, say(libraryrow, hole("row", record.key)));
      progress.step();
    }
  }
}

bool sheet(SheetOptions options) {
  speak(options.language);
  std::error_code error;
  for (const std::string& file : options.files)
    if (std::filesystem::equivalent(file, options.output, error))
      throw std::runtime_error(say(readitself, hole("file", options.output)));
  std::vector<Printed> puzzles;
  fromlibrary(options, puzzles);
  bool good = true;
  if (!options.files.empty() || options.levels.empty()) {
    std::vector<std::pair<std::string, formats::Puzzle>> read;
    good =
        eachpuzzlefile(options.files, [&](const std::string& file, const std::vector<formats::Puzzle>& some) {
          for (const formats::Puzzle& puzzle : some) read.emplace_back(file, puzzle);
        });
    Progress progress(inlanguage(gradedsofar), read.size());
    for (const auto& [file, puzzle] : read) {
      add(puzzles, graded(puzzle.cells, options), fmt::format("{}:{}", shownname(file), puzzle.line));
      progress.step();
    }
  }
  if (puzzles.empty()) throw std::runtime_error(std::string(inlanguage(nopuzzle)));
  if (options.paper == "Letter") options.page.width = 612, options.page.height = 792;
  drawpages(options.output, puzzles, options.page);
  return good;
}

}  // namespace

std::function<bool()> addsheet(CLI::App& app) {
  auto options = std::make_shared<SheetOptions>();
  CLI::App* command = app.add_subcommand("sheet", "Puzzles on pages of a PDF");
  command->add_option("FILE", options->files,
                      "Files of any common form; standard input when there is nothing else");
  command->add_option("--per-page", options->page.perpage, "Puzzles a page")
      ->check(CLI::IsMember({1, 2, 4, 6}))
      ->capture_default_str();
  command->add_flag("--solutions", options->page.solutions, "With the solutions, on pages at the end");
  command->add_option("--lang", options->language, "Language of the sheet")
      ->check(CLI::IsMember({"en", "it"}));
  command->add_option("--paper", options->paper, "Size of the pages")
      ->check(CLI::IsMember({"A4", "Letter"}))
      ->capture_default_str();
  command
      ->add_option("--from-library", options->levels,
                   "LEVEL or LEVEL:N: the N hardest of a level, or a page of them; may stand several times")
      ->expected(1)
      ->allow_extra_args(false)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  command->add_option("--library", options->library, "The library's file; else the program's own");
  command->add_option("-o,--output", options->output, "The PDF to write")->required();
  return [options, command] { return !*command || sheet(*options); };
}

}  // namespace gradino::cli
