#include "librarycommand.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <limits>
#include <memory>
#include <optional>
#include <random>
#include <stdexcept>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <fmt/ranges.h>

#include "boardgrade.h"
#include "continuous.h"
#include "grader.h"
#include "gradestate.h"
#include "host.h"
#include "jetfile.h"
#include "library.h"
#include "librarycursor.h"
#include "libraryplace.h"
#include "libraryrows.h"
#include "progress.h"
#include "session.h"
#include "tables.h"
#include "words.h"

namespace gradino::cli {
namespace {

namespace fs = std::filesystem;

constexpr Words nothere = {"nessuna libreria {file}", "no library {file}"};
constexpr Counted nolevel = {
    {"{n} schema non ha un livello da 0 a 21", "{n} puzzle has no level from 0 to 21"},
    {"{n} schemi non hanno un livello da 0 a 21", "{n} puzzles have no level from 0 to 21"}};
constexpr Words someof = {"{most} di {all} schemi", "{most} of {all} puzzles"};
constexpr Words notext = {"riga {row} (id {id}): tralasciata, il suo testo non è UTF-8",
                          "row {row} (id {id}): left out, its text is not UTF-8"};
constexpr Words wrongrow = {"riga {row} (id {id}): {what}", "row {row} (id {id}): {what}"};
constexpr Words nopuzzle = {"nessuno schema", "no puzzle"};
constexpr Counted solutions = {{"{n} soluzione", "{n} solution"}, {"{n} soluzioni", "{n} solutions"}};
constexpr Words difference = {R"({field} "{stored}" è "{now}")", R"({field} "{stored}" is "{now}")"};
constexpr Counted checkedrows = {{"{n} schema controllato", "{n} puzzle checked"},
                                 {"{n} schemi controllati", "{n} puzzles checked"}};
constexpr Counted differing = {{", {n} diverso", ", {n} differs"}, {", {n} diversi", ", {n} differ"}};
constexpr Counted correctedrows = {{", {n} corretto", ", {n} corrected"},
                                   {", {n} corretti", ", {n} corrected"}};
constexpr Words nothing = {"{file}: nessuna riga è stata aggiunta", "{file}: no row was brought over"};
constexpr Counted broughtover = {{"{n} riga aggiunta", "{n} row brought over"},
                                 {"{n} righe aggiunte", "{n} rows brought over"}};
constexpr Words without = {", {n} senza uno schema", ", {n} of them without a puzzle"};
constexpr Counted passedover = {
    {"{n} schema c'era già ed è stato tralasciato; con --all viene aggiunto anch'esso",
     "{n} puzzle was there already and was passed over; --all brings it over too"},
    {"{n} schemi c'erano già e sono stati tralasciati; con --all vengono aggiunti anch'essi",
     "{n} puzzles were there already and were passed over; --all brings them over too"}};
constexpr Words howmany = {"library fill: quanti schemi? Aggiungere -n e un numero da 1 a 24000",
                           "library fill: how many puzzles? Add -n and a number from 1 to 24000"};

constexpr Words takenaway = {"{file}: nessuno schema è stato registrato, e la libreria vuota non resta",
                             "{file}: no puzzle was stored, and the empty library doesn't stay"};
constexpr Words checkeddone = {"controllati", "checked"}, readdone = {"letti", "read"},
                storeddone = {"registrati", "stored"};

struct LibraryOptions {
  std::string file;   ///< empty: the program's own library
  std::string input;  ///< import
  std::string language = "en";
  std::optional<int> level, count;
  int most = 20;
  std::optional<std::uint64_t> seed;
  bool json = false, csv = false, fix = false, supersymmetric = false, all = false;
};

fs::path programfolder() {
  std::error_code error;
  return fs::read_symlink("/proc/self/exe", error).parent_path();
}

/// The named library, or the program's own if the name is empty, with a message on what had to be done to it.
LibraryPlace placeof(const std::string& name) {
  if (!name.empty()) return {name, false, {}};
  LibraryPlace place = libraryplace(programfolder());
  for (const Notice& notice : std::exchange(place.notices, {})) complain(notice());
  return place;
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
  Store store = existinglibrary(options.file);
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
  if (other > 0) complain(say(nolevel, other));
  return true;
}

bool list(const LibraryOptions& options) {
  Store store = existinglibrary(options.file);
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
  if (count > options.most) fmt::print("{}\n", say(someof, hole("most", options.most), hole("all", count)));
  return true;
}

std::string sayrow(const Words& words, const Store::Record& record, std::string_view what = "") {
  return say(words, hole("row", record.key), hole("id", record.row[field::progressivo]), hole("what", what));
}

bool exportrows(const LibraryOptions& options) {
  Store store = existinglibrary(options.file);
  bool good = true;
  if (options.csv) fmt::print("{}\n", csvheading());
  store.each(libraryquery(options.level), [&](const Store::Record& record) {
    if (isutf8(record.row))
      return fmt::print("{}\n", options.csv ? csvline(record.row) : jsonline(record.row));
    complain(sayrow(notext, record));
    good = false;
  });
  return good;
}

// Regrading.

/// The row as this program grades its puzzle now. A puzzle beyond the techniques has a level and no more: its
/// other results stay as they are.
LibraryRow regraded(const LibraryRow& row, const std::string& language) {
  LibraryRow now = row;
  Session session;
  startsession(session, language);
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
      found.push_back(
          say(difference, hole("field", libraryfields[f]), hole("stored", stored[f]), hole("now", now[f])));
  return found;
}

/// What is wrong with a record; `now` becomes what it should be.
std::vector<std::string> complaints(const Store::Record& record, const std::string& language,
                                    LibraryRow& now) {
  if (!ispuzzle(record.row[field::stringa])) return {std::string(inlanguage(nopuzzle))};
  now = regraded(record.row, language);
  std::vector<std::string> found = differences(record.row, now);
  if (numerosoluzioni != 1) found.insert(found.begin(), say(solutions, numerosoluzioni));
  return found;
}

bool check(const LibraryOptions& options) {
  Store store = existinglibrary(options.file);
  if (options.fix) store.needchanges();
  Progress progress(inlanguage(checkeddone), static_cast<std::size_t>(store.count(wholetable)));
  std::vector<Store::Record> corrected;
  int checked = 0, wrong = 0, beyondrepair = 0;
  store.each(wholetable, [&](const Store::Record& record) {
    LibraryRow now = record.row;
    const std::vector<std::string> found = complaints(record, options.language, now);
    checked += 1;
    progress.step();
    if (found.empty()) return;
    wrong += 1;
    // Without exactly one solution, no stored grade is right.
    if (!ispuzzle(record.row[field::stringa]) || numerosoluzioni != 1) beyondrepair += 1;
    progress.end();
    fmt::print("{}\n", sayrow(wrongrow, record, fmt::format("{}", fmt::join(found, "; "))));
    if (now != record.row) corrected.push_back({record.key, now});
  });
  if (options.fix && !corrected.empty())
    store.together([&] {
      for (const Store::Record& record : corrected) store.update(record);
    });
  fmt::print("{}{}{}\n", say(checkedrows, checked), say(differing, wrong),
             options.fix ? say(correctedrows, corrected.size()) : "");
  return wrong == 0 || (options.fix && beyondrepair == 0);
}

// Import.

/// The key by which two rows have the same puzzle. A row without a puzzle equals only itself.
std::string identity(const LibraryRow& row) {
  const std::string& stringa = row[field::stringa];
  return ispuzzle(stringa) ? stringa.substr(0, cellcount)
                           : fmt::format("{}", fmt::join(row, std::string_view("\0", 1)));
}

struct BroughtIn {
  int rows = 0, nopuzzle = 0, known = 0;
};

BroughtIn bringin(const std::vector<LibraryRow>& rows, bool all, Store& store) {
  BroughtIn done;
  std::unordered_set<std::string> there;
  if (!all) store.each(wholetable, [&](const Store::Record& record) { there.insert(identity(record.row)); });
  for (const LibraryRow& row : rows) {
    if (!all && !there.insert(identity(row)).second) {
      done.known += 1;
      continue;
    }
    store.insert(row);
    done.rows += 1;
    done.nopuzzle += !ispuzzle(row[field::stringa]);
  }
  return done;
}

bool import(const LibraryOptions& options) {
  std::vector<LibraryRow> rows;  // read in full before a store is opened: a bad file must not make one
  Progress progress(inlanguage(readdone));
  const auto take = [&](const LibraryRow& row) {
    rows.push_back(row);
    progress.step();
  };
  bool good = true;
  if (isjetfile(options.input))
    readjet(options.input, take);
  else
    good = eachrow(options.input, take);
  progress.end();
  if (!good) throw std::runtime_error(say(nothing, hole("file", options.input)));
  const LibraryPlace place = placeof(options.file);
  BroughtIn done;
  const auto bring = [&](Store& store) { done = bringin(rows, options.all, store); };
  if (!makestore(place.file, bring)) {
    Store store(place.file, place.onlyread);
    store.together([&] { bring(store); });
  }
  fmt::print("{}{}\n", say(broughtover, done.rows), say(without, hole("n", done.nopuzzle)));
  if (done.known > 0) fmt::print("{}\n", say(passedover, done.known));
  return true;
}

/// The continuous generator, with a clock that jumps to its time limit once enough puzzles are stored.
bool fill(const LibraryOptions& options) {
  if (!options.count) throw std::runtime_error(std::string(inlanguage(howmany)));
  if (isjetfile(options.file))
    Store(options.file, true);  // refuses an old library: only the one in its own place is converted
  Session session;
  startsession(session, options.language);
  host.message = [](const std::string& text) { complain(text); };
  host.random = seededrandom(options.seed.value_or(std::random_device{}()));
  const LibraryPlace place = placeof(options.file);
  std::error_code error;
  const bool wasthere = fs::exists(place.file, error);
  openlibrary(place);
  frmmain::Check1.ticked = options.supersymmetric;
  int stored = 0;
  Progress progress(inlanguage(storeddone), static_cast<std::size_t>(*options.count));
  const auto store = Data1.addnew;
  Data1.addnew = [&, begun = false]() mutable {
    // The initial texts of the boxes, or those left by another record, belong to none of these puzzles.
    if (!options.supersymmetric) frmmain::txtsuper.text.clear();
    frmmain::tempo.text.clear();
    store();
    if (begun) {
      stored += 1;
      progress.step();
    }
    begun = true;
  };
  // Read first when the run starts, then after each accepted puzzle, before it is stored.
  host.clock = [&, started = false]() mutable {
    return std::exchange(started, true) && stored + 1 >= *options.count ? 25001.0 : 0.0;
  };
  try {
    runguarded(session, frmmain::genera_e_conta);
  } catch (const LibraryFailure& failure) {
    session.fault = failure.what();
  }
  closelibrary();
  if (!session.fault) return true;
  if (!wasthere && stored == 0 && removeempty(place.file))
    complain(say(takenaway, hole("file", place.file.string())));
  throw std::runtime_error(*session.fault);
}

}  // namespace

Store existinglibrary(const std::string& name) {
  const LibraryPlace place = placeof(name);
  std::error_code error;
  if (!fs::exists(place.file, error))
    throw std::runtime_error(say(nothere, hole("file", place.file.string())));
  return Store(place.file, place.onlyread);
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
  library->add_option("--lang", options->language, "Language of the messages")
      ->check(CLI::IsMember({"en", "it"}));
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
      ->check(CLI::Range(1, std::numeric_limits<int>::max(), "POSITIVE"));
  level(sub("export", "All fields of the rows: JSON lines", exportrows))
      ->add_flag("--csv", options->csv, "Comma-separated values instead");
  sub("check", "Grades each puzzle again; tells the rows whose stored values differ", check)
      ->add_flag("--fix", options->fix, "Stores what was found");
  CLI::App* importcommand =
      sub("import", "Brings rows in: an old library of the Jet family, or an export", import);
  importcommand->add_option("FILE", options->input, "The file; it stays as it is")
      ->required()
      ->check(CLI::ExistingFile);
  importcommand->add_flag("--all", options->all, "Puzzles too that the library has already");
  CLI::App* fillcommand =
      sub("fill", "Makes puzzles as the continuous generator does, and stores them", fill);
  fillcommand->add_option("-n", options->count, "How many")->check(CLI::Range(1, 24000));
  fillcommand->add_option("--seed", options->seed, "The same puzzles each time");
  fillcommand->add_flag("--supersimmetrico", options->supersymmetric, "Givens in four mirror cells at once");
  return [options, chosen] {
    if (*chosen == nullptr) return true;
    speak(options->language);
    return (*chosen)(*options);
  };
}

}  // namespace gradino::cli
