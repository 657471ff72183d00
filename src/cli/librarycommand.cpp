#include "librarycommand.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <memory>
#include <optional>
#include <random>
#include <stdexcept>
#include <utility>
#include <vector>

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "continuous.h"
#include "files.h"
#include "grader.h"
#include "gradestate.h"
#include "host.h"
#include "jetfile.h"
#include "library.h"
#include "librarycursor.h"
#include "progress.h"
#include "session.h"
#include "store.h"
#include "tables.h"

namespace gradino::cli {
namespace {

namespace fs = std::filesystem;

struct LibraryOptions {
  std::string file;   ///< empty: the program's own library
  std::string input;  ///< import
  std::optional<int> level;
  int most = 20;
  int count = 100;
  std::optional<std::uint64_t> seed;
  bool json = false, csv = false, fix = false, supersymmetric = false;
};

fs::path programfolder() {
  std::error_code error;
  return fs::read_symlink("/proc/self/exe", error).parent_path();
}

fs::path storefile(const LibraryOptions& options) {
  return librarystore(options.file);
}

/// The library to look into: one that is there.
Store existing(const LibraryOptions& options) {
  const fs::path file = storefile(options);
  if (!fs::exists(file)) throw std::runtime_error(fmt::format("no library {}", file.string()));
  return Store(file);
}

long numberin(const std::string& text) {
  return std::strtol(text.c_str(), nullptr, 10);
}

// Levels with their counts and ranges.

struct LevelStatistics {
  int count = 0, supersymmetric = 0;
  long easiest = 0, hardest = 0, fewest = 0, most = 0;
};

void add(LevelStatistics& level, const LibraryRow& row) {
  const long difficulty = numberin(row[field::difficolta]), givens = numberin(row[field::numeri]);
  if (level.count == 0) level.easiest = level.hardest = difficulty, level.fewest = level.most = givens;
  level.count += 1;
  level.supersymmetric += row[field::supersimmetrico] == "s";
  level.easiest = std::min(level.easiest, difficulty);
  level.hardest = std::max(level.hardest, difficulty);
  level.fewest = std::min(level.fewest, givens);
  level.most = std::max(level.most, givens);
}

bool stats(const LibraryOptions& options) {
  Store store = existing(options);
  std::array<LevelStatistics, 22> levels{};
  int other = 0, all = 0;
  store.each(wholetable, [&](const Store::Record& record) {
    const long level = numberin(record.row[field::livello]);
    all += 1;
    if (level < 0 || level > 21) return static_cast<void>(other += 1);
    add(levels[static_cast<std::size_t>(level)], record.row);
  });
  if (!options.json) fmt::print("level  puzzles  4-fold  difficulty     givens\n");
  for (std::size_t level = 0; level < levels.size(); ++level) {
    const LevelStatistics& found = levels[level];
    if (options.json) {
      fmt::print("{}\n", Json{{"livello", level},
                              {"puzzles", found.count},
                              {"supersimmetrico", found.supersymmetric},
                              {"difficolta", {found.easiest, found.hardest}},
                              {"numeri", {found.fewest, found.most}}}
                             .dump());
    } else if (found.count == 0) {
      fmt::print("{:>5}  {:>7}\n", level, 0);
    } else {
      fmt::print("{:>5}  {:>7}  {:>6}  {:>5} to {:<5} {:>2} to {}\n", level, found.count,
                 found.supersymmetric, found.easiest, found.hardest, found.fewest, found.most);
    }
  }
  if (!options.json) fmt::print("  all  {:>7}\n", all);
  if (other > 0) complain(fmt::format("{} puzzles have no level from 0 to 21", other));
  return true;
}

bool list(const LibraryOptions& options) {
  Store store = existing(options);
  const std::string query = libraryquery(options.level);
  fmt::print("level  number  score  givens      id  puzzle{:76}steps by level\n", "");
  int number = 0;
  const auto print = [&](const Store::Record& record) {
    const LibraryRow& row = record.row;
    std::string line = fmt::format("{:>5}  {:>6}  {:>5}  {:>6}  {:>6}  {}  {}", row[field::livello], ++number,
                                   row[field::difficolta], row[field::numeri], row[field::progressivo],
                                   row[field::stringa], row[field::dettaglio]);
    while (line.ends_with(' ')) line.pop_back();
    fmt::print("{}\n", line);
  };
  store.each(query, print, options.most);
  const int count = store.count(query);
  if (count > options.most) fmt::print("{} of {} puzzles\n", options.most, count);
  return true;
}

// Rows as text.

std::string quoted(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string out = "\"";
  for (const char c : text) out += c == '"' ? "\"\"" : std::string(1, c);
  return out + "\"";
}

Json rowjson(const LibraryRow& row) {
  Json out;
  for (std::size_t f = 0; f < row.size(); ++f) out[libraryfields[f]] = row[f];
  return out;
}

bool exportrows(const LibraryOptions& options) {
  Store store = existing(options);
  if (options.csv) fmt::print("{}\n", fmt::join(libraryfields, ","));
  store.each(libraryquery(options.level), [&](const Store::Record& record) {
    if (!options.csv) return fmt::print("{}\n", rowjson(record.row).dump());
    std::array<std::string, std::tuple_size_v<LibraryRow>> cells;
    std::transform(record.row.begin(), record.row.end(), cells.begin(), quoted);
    fmt::print("{}\n", fmt::join(cells, ","));
  });
  return true;
}

// Regrading.

/// The row as this program grades its puzzle now. A puzzle beyond the techniques has a level and no more: its
/// other results stay as they are.
LibraryRow regraded(const LibraryRow& row) {
  LibraryRow now = row;
  Session session;
  startsession(session, "en");
  bool reported = false;
  runguarded(session, [&] {
    putup(row[field::stringa]);
    settleboard();
    now[field::numeri] = std::to_string(filledcount);
    SolveSudoku();
    reported = !frmmain::txtlivello.text.empty();
  });
  if (session.fault) return now;
  now[field::livello] = std::to_string(runninglevel);
  if (!reported) return now;
  now[field::difficolta] = std::to_string(difficolta);
  now[field::dettaglio] = dettaglio;
  for (int level = 1; level <= 21; ++level)
    now[field::f1 + static_cast<std::size_t>(level) - 1] = std::to_string(levelcount(level));
  return now;
}

std::vector<std::string> differences(const LibraryRow& stored, const LibraryRow& now) {
  std::vector<std::string> found;
  for (std::size_t f = 0; f < stored.size(); ++f)
    if (stored[f] != now[f])
      found.push_back(fmt::format("{} \"{}\" is \"{}\"", libraryfields[f], stored[f], now[f]));
  return found;
}

/// What is wrong with a record; `now` becomes what it should be.
std::vector<std::string> complaints(const Store::Record& record, LibraryRow& now) {
  if (!ispuzzle(record.row[field::stringa])) return {"no puzzle"};
  now = regraded(record.row);
  std::vector<std::string> found = differences(record.row, now);
  if (numerosoluzioni != 1) found.insert(found.begin(), fmt::format("{} solutions", numerosoluzioni));
  return found;
}

bool check(const LibraryOptions& options) {
  Store store = existing(options);
  Progress progress("checked", static_cast<std::size_t>(store.count(wholetable)));
  std::vector<Store::Record> corrected;
  int checked = 0, wrong = 0, beyondrepair = 0;
  store.each(wholetable, [&](const Store::Record& record) {
    LibraryRow now = record.row;
    const std::vector<std::string> found = complaints(record, now);
    checked += 1;
    progress.step();
    if (found.empty()) return;
    wrong += 1;
    // What has not one solution has it under no other grade.
    if (!ispuzzle(record.row[field::stringa]) || numerosoluzioni != 1) beyondrepair += 1;
    progress.end();
    fmt::print("row {} (id {}): {}\n", record.key, record.row[field::progressivo], fmt::join(found, "; "));
    if (now != record.row) corrected.push_back({record.key, now});
  });
  if (options.fix && !corrected.empty())
    store.together([&] {
      for (const Store::Record& record : corrected) store.update(record);
    });
  fmt::print("{} puzzles checked, {} differ{}\n", checked, wrong,
             options.fix ? fmt::format(", {} corrected", corrected.size()) : "");
  return wrong == 0 || (options.fix && beyondrepair == 0);
}

// Bringing in.

LibraryRow rowfromjson(const std::string& line) {
  const Json object = Json::parse(line);
  LibraryRow row;
  for (std::size_t f = 0; f < row.size(); ++f)
    if (const auto value = object.find(libraryfields[f]); value != object.end() && !value->is_null())
      row[f] = value->is_string() ? value->get<std::string>() : value->dump();
  return row;
}

void eachjsonrow(const std::string& path, const std::function<void(const LibraryRow&)>& use) {
  std::ifstream in(path);
  if (!in) throw std::runtime_error(fmt::format("{} can't be read", path));
  std::string line;
  for (long number = 1; std::getline(in, line); ++number) {
    if (line.empty()) continue;
    try {
      use(rowfromjson(line));
    } catch (const Json::exception&) {
      throw std::runtime_error(
          fmt::format("{}:{}: no library row as `library export` writes it", path, number));
    }
  }
}

bool import(const LibraryOptions& options) {
  std::vector<LibraryRow> rows;  // all of them before a store is opened: a bad file leaves none behind
  Progress progress("read");
  const auto take = [&](const LibraryRow& row) {
    rows.push_back(row);
    progress.step();
  };
  if (isjetfile(options.input))
    readjet(options.input, take);
  else
    eachjsonrow(options.input, take);
  progress.end();
  Store store(storefile(options));
  store.together([&] {
    for (const LibraryRow& row : rows) store.insert(row);
  });
  const auto nopuzzle = std::count_if(rows.begin(), rows.end(),
                                      [](const LibraryRow& row) { return !ispuzzle(row[field::stringa]); });
  fmt::print("{} rows brought over, {} of them without a puzzle\n", rows.size(), nopuzzle);
  return true;
}

/// The continuous generator with a clock that runs out when enough puzzles are stored.
bool fill(const LibraryOptions& options) {
  Session session;
  startsession(session, "en");
  host.random = seededrandom(options.seed.value_or(std::random_device{}()));
  openlibrary(storefile(options));
  frmmain::Check1.ticked = options.supersymmetric;
  int stored = 0;
  Progress progress("stored", static_cast<std::size_t>(options.count));
  const auto store = Data1.addnew;
  Data1.addnew = [&, begun = false]() mutable {
    // What a window's boxes begin with, or another record has left in them, is none of these puzzles'.
    if (!options.supersymmetric) frmmain::txtsuper.text.clear();
    frmmain::tempo.text.clear();
    store();
    if (begun) {
      stored += 1;
      progress.step();
    }
    begun = true;
  };
  // Read first at the run's start, later behind each puzzle that was accepted and before it is stored.
  host.clock = [&, started = false]() mutable {
    return std::exchange(started, true) && stored + 1 >= options.count ? 25001.0 : 0.0;
  };
  runguarded(session, frmmain::genera_e_conta);
  closelibrary();
  for (const std::string& box : session.boxes) complain(box);
  if (session.fault) throw std::runtime_error(*session.fault);
  return true;
}

}  // namespace

fs::path librarystore(const std::string& name) {
  return name.empty() ? libraryplace(programfolder()).file : fs::path(name);
}

std::string libraryquery(std::optional<int> level) {
  if (!level) return wholetable;
  return fmt::format("{} WHERE schema.livello = {} ORDER BY schema.difficolta DESC", wholetable, *level);
}

std::function<bool()> addlibrary(CLI::App& app) {
  auto options = std::make_shared<LibraryOptions>();
  auto chosen = std::make_shared<bool (*)(const LibraryOptions&)>(nullptr);
  CLI::App* library = app.add_subcommand("library", "The library of graded puzzles");
  library->require_subcommand(1);
  library->add_option("--file", options->file, "The library's file; else the program's own");
  library->fallthrough();
  const auto sub = [&](const char* name, const char* help, bool (*run)(const LibraryOptions&)) {
    CLI::App* command = library->add_subcommand(name, help);
    command->callback([chosen, run] { *chosen = run; });
    return command;
  };
  const auto level = [&](CLI::App* command) {
    command->add_option("--level", options->level, "Only this level, hardest first")
        ->check(CLI::Range(0, 21));
    return command;
  };

  sub("stats", "Levels with their counts and ranges", stats)
      ->add_flag("--json", options->json, "One JSON object a level");
  level(sub("list", "Puzzles in the order of the browser", list))
      ->add_option("--most", options->most, "How many")
      ->check(CLI::PositiveNumber);
  level(sub("export", "All fields of the rows: JSON lines", exportrows))
      ->add_flag("--csv", options->csv, "Comma-separated values instead");
  sub("check", "Grades each puzzle again; tells the rows whose stored values differ", check)
      ->add_flag("--fix", options->fix, "Stores what was found");
  sub("import", "Brings rows in: an old library of the Jet family, or JSON lines of an export", import)
      ->add_option("FILE", options->input, "The file; it stays as it is")
      ->required()
      ->check(CLI::ExistingFile);
  CLI::App* fillcommand =
      sub("fill", "Makes puzzles as the continuous generator does, and stores them", fill);
  fillcommand->add_option("-n", options->count, "How many")->check(CLI::Range(1, 24000));
  fillcommand->add_option("--seed", options->seed, "The same puzzles each time");
  fillcommand->add_flag("--supersimmetrico", options->supersymmetric, "Givens in four mirror cells at once");
  return [options, chosen] { return *chosen == nullptr || (*chosen)(*options); };
}

}  // namespace gradino::cli
