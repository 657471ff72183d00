// The library: its store, its cursor, the browser.
#include "library.h"

#include <csignal>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <set>

#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "boxes.h"
#include "browser.h"
#include "continuous.h"
#include "generator.h"
#include "gradestate.h"
#include "grid.h"
#include "host.h"
#include "librarycursor.h"
#include "light.h"
#include "menu.h"
#include "player.h"
#include "startup.h"
#include "step.h"
#include "store.h"
#include "view.h"

namespace gradino::tests {
namespace {

namespace fs = std::filesystem;
using namespace frmlivello;

constexpr std::string_view easy =
    "...6.4...9.1...6.852.1.3.4725.8.9.16....3....18.2.7.5349.3.5.616.5...3.9...9.6...";

LibraryRow row(int progressivo, std::string_view stringa, int livello, int difficolta,
               std::string_view dettaglio = "1x1 ") {
  LibraryRow made;
  made[field::progressivo] = std::to_string(progressivo);
  made[field::stringa] = stringa;
  made[field::dettaglio] = dettaglio;
  made[field::livello] = std::to_string(livello);
  made[field::numeri] = "37";
  made[field::difficolta] = std::to_string(difficolta);
  for (std::size_t f = field::f1; f < made.size(); ++f) made[f] = "0";
  return made;
}

std::string levelquery(int level) {
  return "SELECT schema.* FROM [schema] WHERE (((schema.livello)=" + std::to_string(level) +
         "))ORDER BY schema.difficolta DESC";
}

std::vector<LibraryRow> rowsof(const std::string& file) {
  std::vector<LibraryRow> all;
  Store(file).each(wholetable, [&](const Store::Record& record) { all.push_back(record.row); });
  return all;
}

class Library : public Program {
 protected:
  Library() : file_(path("schemigenerati.mdb")) {}
  ~Library() override { closelibrary(); }

  const std::string& library() const { return file_; }
  void store(const std::vector<LibraryRow>& rows) const {
    Store made(file_);
    made.together([&] {
      for (const LibraryRow& row : rows) made.insert(row);
    });
  }
  /// A level 1 of five puzzles, stored out of order, and one puzzle of level 14.
  void fivepuzzles() {
    store({row(1, easy, 1, 20), row(2, easy, 1, 50), row(3, easy, 14, 9, ""), row(4, easy, 1, 10),
           row(5, easy, 1, 40), row(6, easy, 1, 30)});
    openlibrary(file_);
  }
  void browse(int level, double chance = 0) {
    host.random = [chance] { return chance; };
    player.event(frmmain::mostralibreria);
    player.event([level] { Option1_Click(level); });
  }
  /// The messages when the library is needed.
  std::vector<std::string> told() {
    player.boxes.clear();
    player.event(frmmain::mostralibreria);
    return player.boxes;
  }
  std::set<std::string> names() const;
  std::string preview() const {
    std::string all;
    for (const Box& box : Text2) all += box.text;
    return all;
  }

 private:
  std::string file_;
};

// ---- the store --------------------------------------------------------------------------------------------

TEST_F(Library, EveryFieldComesBack) {
  LibraryRow full;
  for (std::size_t f = 0; f < full.size(); ++f) full[f] = std::to_string(f + 1);
  full[field::stringa] = easy;
  full[field::dettaglio] = "12x1 - 3x2 - 1x20 ";
  full[field::supersimmetrico] = "s";
  full[field::tempo] = "è già tardi";
  store({full, LibraryRow{}});
  EXPECT_EQ(rowsof(library()), (std::vector<LibraryRow>{full, LibraryRow{}}));
}

TEST_F(Library, TheQueryGoesByDifficultyAsANumber) {
  store({row(1, easy, 5, 9), row(2, easy, 5, 100), row(3, easy, 4, 500), row(4, easy, 5, 20)});
  Store opened(library());
  EXPECT_EQ(opened.count(levelquery(5)), 3);
  std::vector<std::string> order;
  for (int place = 0; const auto record = opened.at(levelquery(5), place); ++place)
    order.push_back(record->row[field::progressivo]);
  EXPECT_EQ(order, (std::vector<std::string>{"2", "4", "1"}));
  EXPECT_FALSE(opened.at(levelquery(5), -1));
}

TEST_F(Library, AStoreAtRestIsOneFile) {
  store({row(1, easy, 1, 1)});
  EXPECT_TRUE(fs::exists(library()));
  EXPECT_FALSE(fs::exists(library() + "-wal"));
  EXPECT_FALSE(fs::exists(library() + "-shm"));
}

TEST_F(Library, ChangesTogetherAreAllOrNone) {
  store({row(1, easy, 1, 1)});
  {
    Store opened(library());
    EXPECT_THROW(opened.together([&] {
      opened.insert(row(2, easy, 1, 1));
      throw LibraryFailure("enough");
    }),
                 LibraryFailure);
  }
  EXPECT_EQ(rowsof(library()).size(), 1U);
}

/// As full as a disk gets for a test: files of this process can't grow beyond a size.
void limitfiles(rlim_t size) {
  std::signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{size, size};
  setrlimit(RLIMIT_FSIZE, &limit);
}

/// Runs a test in a process of its own; its failures are this test's.
void inprocess(const std::function<void()>& test) {
  const pid_t child = fork();
  if (child == 0) {
    test();
    std::fflush(stdout);
    _exit(testing::Test::HasFailure());
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
}

constexpr int programs = 3;

/// Several programs do it at the same moment, each with a number of its own, and none may fail.
void atonce(const std::function<void(int number)>& act) {
  std::vector<pid_t> children;
  for (int n = 0; n < programs; ++n) {
    children.push_back(fork());
    if (children.back() != 0) continue;
    int status = 0;
    try {
      act(n);
    } catch (const LibraryFailure& failure) {
      std::fprintf(stderr, "%s\n", failure.what());
      status = 1;
    }
    _exit(status);
  }
  for (const pid_t child : children) {
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
  }
}

TEST_F(Library, ManyProgramsMakeTheSameStoreAtOnce) {
  constexpr int rounds = 20;
  for (int round = 0; round < rounds; ++round) {
    const std::string fresh = library() + std::to_string(round);
    atonce([&](int n) { Store(fresh).insert(row(n, easy, 1, n)); });
    EXPECT_EQ(rowsof(fresh).size(), static_cast<std::size_t>(programs));
  }
}

TEST_F(Library, TwoWritersAtOnce) {
  Store one(library()), other(library());
  for (int n = 0; n < 20; ++n) {
    one.insert(row(n, easy, 1, n));
    other.insert(row(100 + n, easy, 2, n));
  }
  EXPECT_EQ(one.count(wholetable), 40);
  EXPECT_EQ(other.count(levelquery(2)), 20);
}

/// What the store says of a file with these bytes; the file must stay as it is.
class Damaged : public Library, public testing::WithParamInterface<std::string> {};

TEST_P(Damaged, IsToldOnceNeededAndLeftUntouched) {
  std::string bytes = GetParam();
  if (bytes == "cut") {
    store({row(1, easy, 1, 1)});
    bytes = Program::bytes(library()).substr(0, 5000);
  }
  file("schemigenerati.mdb", bytes);
  openlibrary(library());
  EXPECT_TRUE(player.boxes.empty()) << "not before it is needed";
  const std::vector<std::string> expected = {
      "The library \"" + library() +
      "\" can't be read: the file is damaged or is no library. The file stays as it is. Put a sound copy in its "
      "place, or give it another name: the next start makes a fresh one."};
  EXPECT_EQ(told(), expected);
  player.boxes.clear();
  player.event([] { Option1_Click(3); });
  EXPECT_EQ(player.boxes, expected) << "and nothing of an empty level";
  EXPECT_EQ(numerototale.text, "");
  open(fullboard);  // the rest of the program works
  EXPECT_EQ(values(), fullboard);
  player.boxes.clear();
  player.event(frmmain::genera_e_conta);
  EXPECT_EQ(player.boxes, expected);
  closelibrary();
  EXPECT_EQ(Program::bytes(library()), bytes);
}
INSTANTIATE_TEST_SUITE_P(Files, Damaged,
                         testing::Values("garbage", std::string(4096, '\0'), "cut",
                                         std::string("SQLite format 3\0", 16) + std::string(5000, 'x')));

/// Runs SQL on a file as another program would.
void sql(const std::string& file, const char* statement) {
  sqlite3* database = nullptr;
  ASSERT_EQ(sqlite3_open(file.c_str(), &database), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(database, statement, nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(database);
}

/// Another program that keeps the file to itself while it lives.
class Lock {
 public:
  explicit Lock(const std::string& file) {
    EXPECT_EQ(sqlite3_open(file.c_str(), &database_), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database_, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
  }
  ~Lock() { sqlite3_close(database_); }
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;

 private:
  sqlite3* database_ = nullptr;
};

/// Overwrites the pages of a file from the third on that begin with this byte: 13 a table's, 10 an index's.
void spoil(const std::string& file, char kind) {
  constexpr std::size_t page = 4096;
  std::fstream bytes(file, std::ios::in | std::ios::out | std::ios::binary);
  const std::size_t size = fs::file_size(file);
  for (std::size_t at = 2 * page; at < size; at += page) {
    bytes.seekg(static_cast<std::streamoff>(at));
    if (bytes.get() != kind) continue;
    bytes.seekp(static_cast<std::streamoff>(at));
    bytes << std::string(page, '\x55');
  }
}

TEST_F(Library, AForeignDatabaseIsNoLibrary) {
  sql(library(), "CREATE TABLE other (x)");
  EXPECT_THROW(Store{library()}, LibraryFailure);
  EXPECT_TRUE(nolibrary(library()));
}

TEST_F(Library, AnEmptyFileIsNoLibrary) {
  file("schemigenerati.mdb", "");
  EXPECT_TRUE(nolibrary(library()));
  EXPECT_THROW(Store{library()}, LibraryFailure);
  EXPECT_EQ(fs::file_size(library()), 0U);
}

TEST_F(Library, WhatIsDamagedOrLockedMayHoldPuzzles) {
  EXPECT_FALSE(nolibrary(library())) << "not even there";
  for (const char* bytes : {"garbage", "SQLite format 3"})
    EXPECT_FALSE(nolibrary(file("other", bytes))) << bytes;
  store({row(1, easy, 1, 1)});
  EXPECT_FALSE(nolibrary(library()));
  const Lock lock(library());
  EXPECT_FALSE(nolibrary(library()));
}

TEST_F(Library, AStoreThatCannotBeMadeLeavesNothing) {
  const auto fill = [](Store& made) {
    made.insert(row(1, easy, 1, 1));
    throw LibraryFailure("enough");
  };
  EXPECT_THROW(makestore(library(), fill), LibraryFailure);
  EXPECT_TRUE(fs::is_empty(path("")));
}

TEST_F(Library, ALogThatALostStoreHasLeftIsNotTakenForTheNewOnes) {
  for (const char* side : {"-wal", "-journal"}) file(std::string("schemigenerati.mdb") + side, "left");
  Store(library()).insert(row(1, easy, 1, 1));
  EXPECT_EQ(rowsof(library()).size(), 1U);
  EXPECT_EQ(Program::bytes(path("schemigenerati-aside.mdb-wal")), "left");
  EXPECT_EQ(Program::bytes(path("schemigenerati-aside.mdb-journal")), "left");
}

TEST_F(Library, RecordsOfOneDifficultyStandAsTheyWereStored) {
  std::vector<LibraryRow> rows;
  rows.reserve(50);
  for (int n = 0; n < 50; ++n) rows.push_back(row(n, easy, 5, 7));
  store(rows);
  sql(library(), "DROP INDEX schema_livello");
  sql(library(), "CREATE INDEX other ON schema (livello, difficolta DESC, progressivo DESC)");
  Store opened(library());
  for (int n = 0; n < 50; ++n)
    EXPECT_EQ(opened.at(levelquery(5), n)->row[field::progressivo], std::to_string(n));
  EXPECT_EQ(opened.placeof(levelquery(5), opened.at(levelquery(5), 31)->key), 31);
  EXPECT_EQ(opened.placeof(levelquery(4), 1), std::nullopt);
}

TEST_F(Library, AnotherProgramsLockIsSaidAndGoesAway) {
  store({row(1, easy, 1, 1)});
  const std::vector<std::string> inuse = {
      "The library \"" + library() + "\" is in use by another program. Try again when that one is done."};
  auto lock = std::make_unique<Lock>(library());
  openlibrary(library());
  EXPECT_EQ(told(), inuse);
  lock.reset();
  EXPECT_EQ(told(), std::vector<std::string>{});
  browse(1);
  EXPECT_EQ(numerototale.text, "1");
  EXPECT_EQ(preview(), easy);
  lock = std::make_unique<Lock>(library());
  browse(1);
  EXPECT_EQ(player.boxes, inuse) << "and nothing of an empty level";
  EXPECT_EQ(numerototale.text, "");
  EXPECT_EQ(numeroselezionato.text, "");
  player.boxes.clear();
  player.event(Command1_Click);
  EXPECT_EQ(player.boxes, inuse);
  lock.reset();
  player.boxes.clear();
  player.event([] { numeroselezionato_Typed("1"); });
  EXPECT_EQ(numerototale.text, "1");
  EXPECT_EQ(preview(), easy);
  EXPECT_EQ(player.boxes, std::vector<std::string>{});
}

TEST_F(Library, ALockThatComesWhenTheLibraryIsOpenIsSaidWhenItIsNeeded) {
  store({row(1, easy, 1, 1)});
  openlibrary(library());
  const Lock lock(library());
  EXPECT_EQ(told(),
            std::vector<std::string>{"The library \"" + library() +
                                     "\" is in use by another program. Try again when that one is done."});
}

TEST_F(Library, APartlyDamagedLibraryIsSaidAndWhatIsSoundIsShown) {
  {
    Store made(library());
    made.together([&] {
      for (int n = 0; n < 2000; ++n) made.insert(row(n, easy, n % 20, n));
    });
  }
  spoil(library(), 10);
  openlibrary(library());
  EXPECT_EQ(frmmain::txtprogressivo.text, "0") << "the first record can be read";
  const std::vector<std::string> damaged = {
      "The library \"" + library() +
      "\" is damaged: some of its puzzles can't be read. The file stays as it is. Put a sound copy in its place, or "
      "give it another name: the next start makes a fresh one."};
  EXPECT_EQ(told(), damaged);
  const std::string before = Program::bytes(library());
  player.boxes.clear();
  player.event(frmmain::genera_e_conta);
  EXPECT_EQ(player.boxes, damaged) << "nothing is added to it";
  player.boxes.clear();
  player.event([] { Option1_Click(3); });
  ASSERT_EQ(player.boxes.size(), 1U);
  EXPECT_EQ(player.boxes[0].substr(0, player.boxes[0].find(':')),
            "The library \"" + library() + "\" can't be read");
  EXPECT_EQ(numerototale.text, "");
  closelibrary();
  EXPECT_EQ(Program::bytes(library()), before);
}

TEST_F(Library, AProgramThatIsKilledKeepsWhatItHasStored) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  const pid_t child = fork();
  if (child == 0) {
    Store opened(library());
    for (int n = 0;; ++n) {
      opened.insert(row(n, easy, 1, n));
      [[maybe_unused]] const auto written = write(ends[1], "x", 1);
    }
  }
  char said[500];
  ASSERT_GT(read(ends[0], said, 1), 0);
  int acknowledged = 1;
  while (acknowledged < 300) acknowledged += static_cast<int>(read(ends[0], said, sizeof said));
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  close(ends[1]);
  for (ssize_t more; (more = read(ends[0], said, sizeof said)) > 0;) acknowledged += static_cast<int>(more);
  close(ends[0]);
  const std::vector<LibraryRow> rows = rowsof(library());
  ASSERT_GE(rows.size(), static_cast<std::size_t>(acknowledged));
  for (std::size_t n = 0; n < rows.size(); ++n)
    EXPECT_EQ(rows[n], row(static_cast<int>(n), easy, 1, static_cast<int>(n)));
}

TEST_F(Library, AFullDiskEndsTheRunAndKeepsWhatIsStored) {
  const pid_t child = fork();
  if (child == 0) {
    limitfiles(120'000);
    openlibrary(library());
    host.random = seededrandom(1);
    player.event(frmmain::genera_e_conta);
    const bool said =
        player.boxes.size() == 1 && player.boxes[0].find("schemigenerati.mdb") != std::string::npos;
    const std::size_t listed = static_cast<std::size_t>(std::count(frmgeneratore::Text1.text.begin(),
                                                                   frmgeneratore::Text1.text.end(), '\n')) /
                               5;
    closelibrary();
    _exit(said && listed > 10 ? static_cast<int>(std::min<std::size_t>(listed, 250)) : 0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  ASSERT_TRUE(WIFEXITED(status));
  const int listed = WEXITSTATUS(status);
  ASSERT_GT(listed, 10);
  const std::vector<LibraryRow> rows = rowsof(library());
  EXPECT_GE(static_cast<int>(rows.size()) + 1, listed) << "the one that failed is on the list alone";
  for (const LibraryRow& row : rows) EXPECT_TRUE(ispuzzle(row[field::stringa]));
}

TEST_F(Library, HundredThousandRowsAreBrowsedWithoutAPause) {
  {
    Store made(library());
    made.together([&] {
      for (int n = 0; n < 100'000; ++n) made.insert(row(n, easy, n % 22, n * 7919 % 30011));
    });
  }
  const std::clock_t begin = std::clock();  // of this program alone, however busy the machine is
  openlibrary(library());
  browse(7, 0.5);
  player.event(Command4_Click);
  player.event(Command2_Click);
  const double spent = static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
  EXPECT_EQ(numerototale.text, "4546");
  EXPECT_EQ(numeroselezionato.text, "4545");
  EXPECT_LT(spent, 0.4);
}

// ---- where it is ------------------------------------------------------------------------------------------

class Place : public Library {
 protected:
  Place() {
    setenv("XDG_DATA_HOME", path("data").c_str(), 1);
    fs::create_directories(path("prefix/bin"));
    fs::create_directories(path("prefix/share/gradino"));
  }
  ~Place() override { unsetenv("XDG_DATA_HOME"); }
  std::vector<std::string> toldatstart();

  const std::string own = path("data/gradino/schemigenerati.mdb"), bin = path("prefix/bin"),
                    beside = path("prefix/bin/schemigenerati.mdb"),
                    shared = path("prefix/share/gradino/schemigenerati.mdb");
};

TEST_F(Place, BesideTheProgramWhenItCanBeWritten) {
  EXPECT_EQ(libraryplace(bin).file, beside) << "a new one";
  Store(beside).insert(row(1, easy, 1, 1));
  Store(shared).insert(row(2, easy, 1, 1));
  EXPECT_EQ(libraryplace(bin).file, beside);
  EXPECT_EQ(rowsof(beside).at(0)[field::progressivo], "1");
}

TEST_F(Place, AnInstalledProgramsUserHasACopyOfHisOwn) {
  Store(shared).insert(row(1, easy, 1, 1));
  EXPECT_EQ(libraryplace(bin).file, own);
  EXPECT_EQ(rowsof(own).size(), 1U);
  Store(own).insert(row(2, easy, 1, 1));
  EXPECT_EQ(libraryplace(bin).file, own) << "which is not overwritten";
  EXPECT_EQ(rowsof(own).size(), 2U);
  EXPECT_EQ(rowsof(shared).size(), 1U);
}

TEST_F(Place, ManyProgramsMakeTheUsersCopyAtOnce) {
  constexpr int rounds = 20, shipped = 20000;
  {
    Store made(shared);
    made.together([&] {
      for (int n = 0; n < shipped; ++n) made.insert(row(n, easy, 1, n));
    });
  }
  for (int round = 0; round < rounds; ++round) {
    fs::remove_all(path("data"));
    atonce([&](int n) { Store(libraryplace(bin).file).insert(row(n, easy, 2, n)); });
    EXPECT_EQ(Store(own).count(wholetable), shipped + programs);
    EXPECT_EQ(std::distance(fs::directory_iterator(path("data/gradino")), {}), 1) << "nothing beside it";
  }
}

/// The messages of a program just started from the folder when its library is needed.
std::vector<std::string> Place::toldatstart() {
  openlibrary(libraryplace(bin));
  return told();
}

TEST_F(Place, WhatIsNoLibraryIsPutAsideAndToldOnce) {
  Store(shared).insert(row(1, easy, 1, 1));
  const std::string kept = path("data/gradino/schemigenerati-aside.mdb"),
                    again = path("data/gradino/schemigenerati-aside2.mdb");
  const auto notice = [&](const std::string& as) {
    return std::vector<std::string>{
        "The file \"" + own + "\" was no library and is kept as \"" + as +
        "\". In its place stands a fresh copy of the library that came with the program."};
  };
  fs::create_directories(path("data/gradino"));
  file("data/gradino/schemigenerati.mdb", "");
  EXPECT_EQ(toldatstart(), notice(kept));
  EXPECT_EQ(told(), std::vector<std::string>{}) << "once";
  EXPECT_EQ(toldatstart(), std::vector<std::string>{});
  EXPECT_EQ(rowsof(own).size(), 1U);
  EXPECT_EQ(fs::file_size(kept), 0U);
  closelibrary();
  fs::remove(own);
  sql(own, "CREATE TABLE other (x)");
  const std::string foreign = Program::bytes(own);
  speak(italian);
  EXPECT_EQ(toldatstart(),
            std::vector<std::string>{
                "Il file \"" + own + "\" non era una libreria ed è conservato come \"" + again +
                "\". Al suo posto c'è una nuova copia della libreria fornita con il programma."});
  EXPECT_EQ(rowsof(own).size(), 1U);
  EXPECT_EQ(Program::bytes(again), foreign);
}

TEST_F(Place, WithoutAShippedLibraryANewOneTakesThePlace) {
  file("prefix/bin/schemigenerati.mdb", "");
  EXPECT_EQ(toldatstart(),
            std::vector<std::string>{"The file \"" + beside + "\" was no library and is kept as \"" +
                                     path("prefix/bin/schemigenerati-aside.mdb") +
                                     "\". The first puzzle that is to be kept begins a new one."});
  EXPECT_EQ(rowsof(beside).size(), 0U);
}

TEST_F(Place, ACopyThatWasInterruptedIsMadeAnew) {
  Store(shared).insert(row(1, easy, 1, 1));
  fs::create_directories(path("data/gradino"));
  file("data/gradino/schemigenerati.mdb.new", Program::bytes(shared).substr(0, 5000));
  EXPECT_EQ(libraryplace(bin).file, own);
  EXPECT_EQ(Program::bytes(own), Program::bytes(shared));
  EXPECT_EQ(std::distance(fs::directory_iterator(path("data/gradino")), {}), 1) << "nothing beside it";
}

TEST_F(Place, WithoutAFolderOfTheUsersTheShippedLibraryIsOnlyRead) {
  Store(shared).insert(row(1, easy, 5, 20));
  file("data", "in the way");
  const std::string before = Program::bytes(shared);
  EXPECT_EQ(toldatstart(),
            std::vector<std::string>{
                "Your own copy of the library, \"" + own +
                "\", can't be made: its folder doesn't exist or can't be written to. The one that "
                "came with the program, \"" +
                shared + "\", is used, which can only be read: nothing is stored in it."});
  EXPECT_EQ(told(), std::vector<std::string>{}) << "once";
  // A puzzle is loaded; its grade differs from the record's and can't be written back: that is reported once.
  const std::vector<std::string> onlyread = {"The library \"" + shared +
                                             "\" can only be read: nothing can be stored in it."};
  for (const auto& expected : {onlyread, std::vector<std::string>{}}) {
    browse(5);
    player.boxes.clear();
    player.event(Command1_Click);
    EXPECT_EQ(player.boxes, expected);
    EXPECT_EQ(values(), easy);
    EXPECT_EQ(frmmain::txtlivello.text, "EASY - Hidden Single , unique cell that can contain a number");
  }
  // The generator doesn't run for what it couldn't keep.
  player.boxes.clear();
  host.random = [] { return ADD_FAILURE() << "a puzzle is being made", 0.0; };
  player.event(frmmain::genera_e_conta);
  EXPECT_EQ(player.boxes, onlyread);
  closelibrary();
  EXPECT_EQ(Program::bytes(shared), before);
}

TEST_F(Place, OnAFullDiskNothingIsLeftOfTheCopyAndTheShippedLibraryIsOnlyRead) {
  {
    Store made(shared);
    made.together([&] {
      for (int n = 0; n < 500; ++n) made.insert(row(n, easy, 5, n));
    });
  }
  inprocess([&] {
    limitfiles(40'000);
    const std::vector<std::string> boxes = toldatstart();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_TRUE(boxes[0].starts_with("Your own copy of the library, \"" + own + "\", can't be made: "))
        << boxes[0];
    browse(5);
    EXPECT_EQ(numerototale.text, "500");
  });
  EXPECT_TRUE(fs::is_empty(path("data/gradino")));
  EXPECT_EQ(toldatstart(), std::vector<std::string>{}) << "with room again";
  EXPECT_EQ(rowsof(own).size(), 500U);
}

TEST_F(Place, StartOpensItAndShowsTheFirstRecord) {
  Store(beside).insert(row(4711, easy, 1, 1));
  apppath = bin;
  startprogram();
  apppath.clear();
  EXPECT_EQ(frmmain::txtprogressivo.text, "4711");
  EXPECT_EQ(frmmain::liv(0).text, "0");
}

// ---- the cursor -------------------------------------------------------------------------------------------

TEST_F(Library, WithoutARecordTheBoxesShowTheirNames) {
  openlibrary(library());
  EXPECT_TRUE(fs::exists(library())) << "a missing file: an empty store is made";
  EXPECT_EQ(frmmain::txtprogressivo.text, "Text3");
  EXPECT_EQ(frmmain::txtstringa.text, "txtstringa");
  EXPECT_EQ(frmmain::txtdettaglio.text, "txtdettaglio");
  EXPECT_EQ(frmmain::testolivello.text, "testolivello");
  EXPECT_EQ(frmmain::tempo.text, "tempo");
  EXPECT_EQ(frmmain::txtnumeri.text, "txtnumeri");
  EXPECT_EQ(frmmain::txtsuper.text, "txtsuper");
  EXPECT_EQ(frmmain::txttotale.text, "txttotale");
  for (const Box& box : frmmain::liv) EXPECT_EQ(box.text, "liv");
}

TEST_F(Library, ANewRecordIsStoredByTheNextAndTheLastIsNot) {
  openlibrary(library());
  Data1.addnew();
  frmmain::txtprogressivo.text = "1";
  frmmain::txtstringa.text = easy;
  frmmain::liv(3).text = "7";
  Data1.addnew();
  frmmain::txtprogressivo.text = "2";
  closelibrary();
  const std::vector<LibraryRow> rows = rowsof(library());
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0][field::progressivo], "1");
  EXPECT_EQ(rows[0][field::f1 + 2], "7");
}

TEST_F(Library, AnOldLibraryFoundThereIsBroughtOverAndKept) {
  fs::copy_file(TESTDATA "/library/old-library-V2003.mdb", library());
  const std::string old = Program::bytes(library());
  openlibrary(library());
  const std::string kept = path("schemigenerati-old.mdb");
  EXPECT_EQ(told(), std::vector<std::string>{
                        "The old library was brought over: 108 puzzles, 2 of them without a valid "
                        "puzzle. The old file is kept as \"" +
                        kept + "\"."});
  EXPECT_EQ(told(), std::vector<std::string>{}) << "once";
  EXPECT_EQ(Program::bytes(kept), old);
  closelibrary();
  EXPECT_EQ(rowsof(library()).size(), 108U);
  EXPECT_FALSE(fs::exists(library() + ".new"));
}

TEST_F(Library, ManyProgramsMeetTheSameOldLibraryAtOnce) {
  constexpr int rounds = 5;
  const std::string kept = path("schemigenerati-old.mdb");
  for (int round = 0; round < rounds; ++round) {
    fs::copy_file(TESTDATA "/library/old-library-V2003.mdb", library());
    const std::string old = Program::bytes(library());
    atonce([&](int n) {
      openlibrary(library());
      Data1.need();
      closelibrary();
      Store(library()).insert(row(n, easy, 1, n));
    });
    EXPECT_EQ(rowsof(library()).size(), static_cast<std::size_t>(108 + programs));
    EXPECT_EQ(Program::bytes(kept), old);
    EXPECT_FALSE(fs::exists(path("schemigenerati-old2.mdb"))) << "it is brought over once";
    fs::remove(library());
    fs::remove(kept);
  }
}

/// The files beside the library.
std::set<std::string> Library::names() const {
  std::set<std::string> all;
  for (const fs::directory_entry& entry : fs::directory_iterator(path("")))
    all.insert(entry.path().filename());
  return all;
}

TEST_F(Library, OnAFullDiskTheOldLibraryStaysAndNothingIsBesideIt) {
  fs::copy_file(TESTDATA "/library/old-library-V2003.mdb", library());
  const std::string old = Program::bytes(library());
  for (const rlim_t size : {1000, 10'000, 20'000}) {
    inprocess([&] {
      limitfiles(size);
      openlibrary(library());
      const std::vector<std::string> boxes = told();
      ASSERT_EQ(boxes.size(), 1U);
      EXPECT_NE(boxes[0].find("\"" + library() + "\""), std::string::npos) << boxes[0];
      EXPECT_EQ(boxes[0].find("brought over"), std::string::npos) << boxes[0];
    });
    EXPECT_EQ(names(), std::set<std::string>{"schemigenerati.mdb"}) << size;
    EXPECT_EQ(Program::bytes(library()), old);
  }
}

TEST_F(Library, TheOldFileItselfIsKeptWithoutRoomForACopy) {
  fs::copy_file(TESTDATA "/library/old-library-V2003.mdb", library());
  const std::string old = Program::bytes(library());
  inprocess([&] {
    limitfiles(old.size() / 2);
    openlibrary(library());
    EXPECT_TRUE(told().at(0).starts_with("The old library was brought over: 108 puzzles"));
    closelibrary();
  });
  EXPECT_EQ(names(), (std::set<std::string>{"schemigenerati-old.mdb", "schemigenerati.mdb"}));
  EXPECT_EQ(Program::bytes(path("schemigenerati-old.mdb")), old);
  EXPECT_EQ(rowsof(library()).size(), 108U);
}

// The old file has its second name, and the new store waits for its place.
TEST_F(Library, AProgramThatWasKilledWhileBringingOverHasLeftNoSecondOldFile) {
  fs::copy_file(TESTDATA "/library/old-library-V2003.mdb", library());
  const std::string old = Program::bytes(library());
  fs::create_hard_link(library(), path("schemigenerati-old.mdb"));
  for (const char* side : {"", "-journal", "-wal", "-shm"})
    file(std::string("schemigenerati.mdb.new") + side, "left behind");
  openlibrary(library());
  EXPECT_EQ(told().size(), 1U);
  closelibrary();
  EXPECT_EQ(names(), (std::set<std::string>{"schemigenerati-old.mdb", "schemigenerati.mdb"}));
  EXPECT_EQ(Program::bytes(path("schemigenerati-old.mdb")), old);
  EXPECT_EQ(rowsof(library()).size(), 108U);
}

TEST_F(Library, AnotherOldFileIsNotWrittenOver) {
  fs::copy_file(TESTDATA "/library/old-library-V2003.mdb", library());
  const std::string old = Program::bytes(library());
  file("schemigenerati-old.mdb", "another");
  openlibrary(library());
  EXPECT_EQ(told().size(), 1U);
  EXPECT_EQ(Program::bytes(path("schemigenerati-old.mdb")), "another");
  EXPECT_EQ(Program::bytes(path("schemigenerati-old2.mdb")), old);
}

TEST_F(Library, ABrokenOldLibraryStaysWhereItIs) {
  fs::copy_file(TESTDATA "/library/old-library-V2003.mdb", library());
  fs::permissions(library(), fs::perms::owner_write, fs::perm_options::add);
  fs::resize_file(library(), 30'000);
  const std::string old = Program::bytes(library());
  openlibrary(library());
  EXPECT_EQ(told().size(), 1U);
  closelibrary();
  EXPECT_EQ(Program::bytes(library()), old);
  EXPECT_FALSE(fs::exists(library() + ".new"));
}

// ---- the browser ------------------------------------------------------------------------------------------

TEST_F(Library, OpensWithNothingChosenInTheLanguageOfThatMoment) {
  fivepuzzles();
  for (int level = 1; level <= 21; ++level) levelcount(level) = 3;
  player.event(frmmain::mostralibreria);
  for (int level = 1; level <= 21; ++level) EXPECT_EQ(levelcount(level), 0);
  EXPECT_TRUE(frmlivello::visible);
  EXPECT_EQ(caption, "Select Level");
  EXPECT_EQ(Label12.text, "The library contains");
  EXPECT_EQ(Label13.text, "puzzles           puzzle selected");
  EXPECT_EQ(Label15.text, "detail");
  EXPECT_EQ(Label14.text, "difficulty");
  EXPECT_EQ(Label20.text, "Puzzles ordered by decreasing difficulty");
  EXPECT_EQ(frmlivello::Label1.text, "grid  id ");
  EXPECT_EQ(LabelL(0).text, "Level 0 - VERY EASY- numbers forced by position of similar");
  EXPECT_EQ(LabelL(21).text, "Level 21 - EXTREME - Forcing Chains");
  for (const Control& option : Option1) EXPECT_FALSE(option.ticked);
  for (const Box& box : Text2) EXPECT_FALSE(box.visible);
  speak(italian);
  player.event(frmmain::mostralibreria);
  EXPECT_EQ(caption, "Select Level") << "an open window keeps its words";
  frmlivello::visible = false;
  player.event(frmmain::mostralibreria);
  EXPECT_EQ(caption, "Selezione Livello");
  EXPECT_EQ(LabelL(2).text, "Livello 2 - MEDIO - Naked Single , Unico numero possibile per la cella ");
  EXPECT_EQ(LabelL(12).text, "Level 12 - MOLTO DIFFICILE - Jellyfish");
  EXPECT_EQ(frmlivello::Label1.text, "schema nr.");
  EXPECT_EQ(Command1.caption, "carica schema");
  EXPECT_EQ(Command4.caption, "ultimo record");
}

TEST_F(Library, ALevelLandsOnAPuzzleByChance) {
  fivepuzzles();
  browse(1, 0.5);
  EXPECT_EQ(numerototale.text, "5");
  EXPECT_EQ(livelloscelto.text, "1");
  EXPECT_EQ(numeroselezionato.text, "3");
  EXPECT_EQ(id.text, "6") << "the third hardest";
  EXPECT_EQ(difftxt.text, "30");
  EXPECT_EQ(dettagliotxt.text, "1x1 ");
  EXPECT_EQ(preview(), easy);
  EXPECT_TRUE(Option1(1).ticked);
  browse(1, 0.999999);
  EXPECT_EQ(numeroselezionato.text, "5");
}

TEST_F(Library, TheButtonsStopAtTheEnds) {
  fivepuzzles();
  browse(1);
  EXPECT_EQ(numeroselezionato.text, "1");
  const auto press = [&](void (*button)()) {
    player.event(button);
    return numeroselezionato.text + " " + difftxt.text;
  };
  EXPECT_EQ(press(Command2_Click), "1 50");
  EXPECT_EQ(press(Command3_Click), "2 40");
  EXPECT_EQ(press(Command4_Click), "5 10") << "the easiest";
  EXPECT_EQ(press(Command3_Click), "5 10");
  EXPECT_EQ(press(Command2_Click), "4 20");
  EXPECT_EQ(press(Command5_Click), "1 50") << "the hardest";
  EXPECT_TRUE(player.boxes.empty());
}

TEST_F(Library, ATypedNumber) {
  fivepuzzles();
  browse(1);
  const auto type = [&](const char* text) {
    player.boxes.clear();
    player.event([text] { numeroselezionato_Typed(text); });
    return difftxt.text + (player.boxes.empty() ? "" : " " + player.boxes.at(0));
  };
  EXPECT_EQ(type("4"), "20");
  EXPECT_EQ(type("6"), "20 record fuori dal campo");
  EXPECT_EQ(type("99999999999"), "20 record fuori dal campo");
  EXPECT_EQ(type("0"), "20");
  EXPECT_EQ(type("word"), "20");
  EXPECT_EQ(type(""), "20");
  EXPECT_EQ(preview(), easy);
}

TEST_F(Library, ALevelWithoutPuzzles) {
  fivepuzzles();
  browse(1);
  const std::string before = preview();
  browse(9);
  EXPECT_EQ(numerototale.text, "0");
  EXPECT_EQ(numeroselezionato.text, "1");
  EXPECT_EQ(player.boxes, std::vector<std::string>{"record fuori dal campo"});
  EXPECT_EQ(preview(), before);
  browse(22);
  EXPECT_EQ(livelloscelto.text, "22");
  EXPECT_EQ(numerototale.text, "0");
}

TEST_F(Library, LoadingPutsThePuzzleUpAndGradesIt) {
  fivepuzzles();
  open(fullboard);
  browse(1, 0.2);
  player.event(Command1_Click);
  EXPECT_FALSE(frmlivello::visible);
  EXPECT_EQ(frmmain::filetxt.text, "Level 1, puzzle 2");
  EXPECT_EQ(values(), easy);
  EXPECT_EQ(boxtexts(), easy);
  EXPECT_EQ(giventexts(), easy);
  EXPECT_EQ(frmmain::Text1(3).fore, red);
  EXPECT_EQ(frmmain::Text1(0).fore, textcolor);
  EXPECT_EQ(frmmain::txtesposti.text, "37");
  EXPECT_EQ(frmmain::txtvuoti.text, "44");
  EXPECT_FALSE(frmmain::bkglabel.visible);
  EXPECT_FALSE(suppresschange);
  EXPECT_TRUE(libraryrecordopen);
  EXPECT_EQ(frmmain::txtlivello.text, "EASY - Hidden Single , unique cell that can contain a number");
  EXPECT_TRUE(pencilmarks()) << "as they were";
  EXPECT_EQ(visiblemarks(0), candstr(0));
  // The grader's results are written back into the record.
  closelibrary();
  for (const LibraryRow& row : rowsof(library()))
    EXPECT_EQ(row[field::difficolta], row[field::progressivo] == "5"   ? "1"
                                      : row[field::progressivo] == "1" ? "20"
                                      : row[field::progressivo] == "2" ? "50"
                                      : row[field::progressivo] == "3" ? "9"
                                      : row[field::progressivo] == "4" ? "10"
                                                                       : "30");
}

/// The puzzle with other digits, so that it can be seen which one is loaded.
std::string turned(std::string_view puzzle, int by) {
  std::string other(puzzle);
  for (char& c : other)
    if (c != '.') c = static_cast<char>('1' + (c - '1' + by) % 9);
  return other;
}

TEST_F(Library, WhatIsLoadedIsWhatIsShownWhateverHasComeSince) {
  store({row(1, easy, 5, 50), row(2, turned(easy, 1), 5, 40), row(3, turned(easy, 2), 5, 30)});
  openlibrary(library());
  browse(5, 0.5);
  EXPECT_EQ(numeroselezionato.text, "2");
  EXPECT_EQ(id.text, "2");
  Store other(library());
  for (int n = 0; n < 4; ++n) other.insert(row(10 + n, turned(easy, 5), 5, n < 2 ? 45 : 40));
  player.event(Command1_Click);
  EXPECT_EQ(boxtexts(), turned(easy, 1));
  EXPECT_EQ(frmmain::txtprogressivo.text, "2");
  EXPECT_EQ(frmmain::filetxt.text, "Level 5, puzzle 4") << "its place now: two harder ones have come";
  EXPECT_EQ(player.boxes, std::vector<std::string>{});
}

TEST_F(Library, TotalAndPlaceFollowWhatIsStored) {
  store({row(1, easy, 5, 50), row(2, turned(easy, 1), 5, 40), row(3, turned(easy, 2), 5, 30)});
  openlibrary(library());
  browse(5, 0.5);
  Store other(library());
  const auto where = [] { return numeroselezionato.text + " of " + numerototale.text + ", id " + id.text; };
  EXPECT_EQ(where(), "2 of 3, id 2");
  other.insert(row(10, turned(easy, 3), 5, 45));
  player.event(Command3_Click);
  EXPECT_EQ(where(), "4 of 4, id 3") << "the one after the one that was shown";
  other.insert(row(11, turned(easy, 4), 5, 60));
  player.event(Command2_Click);
  EXPECT_EQ(where(), "4 of 5, id 2");
  other.insert(row(12, turned(easy, 5), 5, 1));
  player.event([] { numeroselezionato_Typed("6"); });
  EXPECT_EQ(where(), "6 of 6, id 12");
  other.insert(row(13, turned(easy, 6), 5, 0));
  player.event(Command4_Click);
  EXPECT_EQ(where(), "7 of 7, id 13");
  EXPECT_EQ(player.boxes, std::vector<std::string>{});
  // A grade that another program writes moves a puzzle, and so its number.
  Store::Record moved = *other.at(levelquery(5), 6);
  moved.row[field::difficolta] = "55";
  other.update(moved);
  player.event(Command2_Click);
  EXPECT_EQ(where(), "1 of 7, id 11") << "it had become the second";
}

TEST_F(Library, ThisProgramsOwnPuzzlesAreFollowedAtOnce) {
  store({row(1, easy, 5, 50), row(2, turned(easy, 1), 5, 40)});
  openlibrary(library());
  browse(5, 0.5);
  EXPECT_EQ(numeroselezionato.text, "2");
  Data1.addnew();
  frmmain::txtprogressivo.text = "8371";
  frmmain::testolivello.text = "5";
  frmmain::txttotale.text = "45";
  frmmain::txtstringa.text = turned(easy, 4);
  Data1.addnew();
  Data1.cancelnew();
  EXPECT_EQ(numerototale.text, "3");
  EXPECT_EQ(numeroselezionato.text, "3");
  player.event(Command1_Click);
  EXPECT_EQ(boxtexts(), turned(easy, 1));
}

TEST_F(Library, ARecordThatIsGoneIsNotReplacedByAnother) {
  store({row(1, easy, 5, 50), row(2, turned(easy, 1), 5, 40), row(3, turned(easy, 2), 5, 30)});
  openlibrary(library());
  browse(5, 0.5);
  sql(library(), "DELETE FROM schema WHERE progressivo = 2");
  open(fullboard);
  player.boxes.clear();
  player.event(Command1_Click);
  EXPECT_EQ(player.boxes, std::vector<std::string>{"The library has no such puzzle."});
  EXPECT_EQ(values(), fullboard);
  EXPECT_TRUE(frmlivello::visible);
  EXPECT_EQ(numerototale.text, "2");
}

TEST_F(Library, AGradeThatIsTheSameNeedsNoPlaceInALibraryThatIsOnlyRead) {
  store({row(1, easy, 5, 50)});
  openlibrary(library());
  browse(5);
  player.event(Command1_Click);
  openlibrary(LibraryPlace{library(), true, {}});
  browse(1);
  player.event(Command1_Click);
  EXPECT_EQ(boxtexts(), easy);
  EXPECT_EQ(player.boxes, std::vector<std::string>{});
}

TEST_F(Library, ThePencilMarksStayAsTheyWere) {
  fivepuzzles();
  browse(1);
  player.event(Command1_Click);
  EXPECT_FALSE(pencilmarks());
}

TEST_F(Library, ATotalIsShownUnlessThereIsNoDetail) {
  // Beyond the techniques nothing else writes the total: the one from the record stays.
  store({row(1, emptyboard, 14, 77, ""), row(2, emptyboard, 13, 78, ""), row(3, emptyboard, 12, 79)});
  openlibrary(library());
  const auto total = [&](int level) {
    frmmain::testototale.text = "before";
    browse(level);
    player.event(Command1_Click);
    return frmmain::testototale.text;
  };
  EXPECT_EQ(total(14), " tot. 77");
  EXPECT_EQ(total(13), "before");
  EXPECT_EQ(total(12), " tot. 79");
}

TEST_F(Library, TwoSolutionsStopTheLoad) {
  store({row(1, emptyboard, 3, 5)});
  openlibrary(library());
  browse(3);
  player.event(Command1_Click);
  EXPECT_EQ(player.boxes, std::vector<std::string>{"more then 1 solution"});
  EXPECT_TRUE(frmmain::bkglabel.visible);
  EXPECT_EQ(values(), emptyboard);
}

TEST_F(Library, AShortRecordLeavesTheRestEmpty) {
  store({row(1, std::string(fullboard.substr(0, 80)), 3, 5)});
  openlibrary(library());
  browse(3);
  player.event(Command1_Click);
  EXPECT_EQ(boxtexts(), std::string(fullboard.substr(0, 80)) + ".");
  EXPECT_EQ(frmmain::Text1(80).fore, red);
}

TEST_F(Library, WithoutAChosenPuzzleTheBoardStays) {
  fivepuzzles();
  open(fullboard);
  const Board before = theboard();
  player.boxes.clear();
  player.event(frmmain::mostralibreria);
  player.event(Command1_Click);
  EXPECT_EQ(player.boxes, std::vector<std::string>{"record fuori dal campo"});
  EXPECT_EQ(theboard(), before);
  EXPECT_TRUE(frmlivello::visible);
}

TEST_F(Library, TheGradeOfAnotherPuzzleIsNotWrittenIntoTheRecord) {
  fivepuzzles();
  browse(1);
  player.event(Command1_Click);
  closelibrary();
  const std::vector<LibraryRow> before = rowsof(library());
  openlibrary(library());
  libraryrecordopen = true;
  host.random = seededrandom(3);
  player.event(frmmain::nuovoschema);
  EXPECT_FALSE(libraryrecordopen);
  closelibrary();
  EXPECT_EQ(rowsof(library()), before);
}

TEST_F(Library, WhoBrowsesDuringTheRunLosesNoPuzzle) {
  fivepuzzles();
  host.random = seededrandom(3);
  const auto listed = [] {
    return std::count(frmgeneratore::Text1.text.begin(), frmgeneratore::Text1.text.end(), '\n') / 5;
  };
  bool inside = false;
  player.onevents = [&] {
    if (inside) return;
    inside = true;
    player.event([] { Option1_Click(1); });
    if (listed() >= 9) player.now += 30000;
    inside = false;
  };
  player.event(frmmain::genera_e_conta);
  EXPECT_EQ(values(), giventexts()) << "the last puzzle stands on the board, ready to be solved";
  const auto all = 6U + static_cast<std::size_t>(listed());
  player.event(frmmain::genera_e_conta);  // begins with nothing left from the run before
  closelibrary();
  const std::vector<LibraryRow> rows = rowsof(library());
  ASSERT_GE(rows.size(), all);
  EXPECT_EQ(rows.size(), 6U + static_cast<std::size_t>(listed()));
  for (const LibraryRow& row : rows) EXPECT_TRUE(ispuzzle(row[field::stringa])) << row[field::stringa];
}

TEST_F(Library, AGradeThatCannotBeWrittenBackLeavesThePuzzleOnTheBoard) {
  fivepuzzles();
  browse(1);
  Data1.update = [] { throw LibraryFailure("no room"); };
  player.event(Command1_Click);
  EXPECT_EQ(player.boxes, std::vector<std::string>{"no room"});
  EXPECT_EQ(values(), easy);
  EXPECT_EQ(filledcount, 37);
}

TEST_F(Library, TheContinuousRunFillsIt) {
  fivepuzzles();
  browse(1);  // whatever level was browsed last
  host.random = seededrandom(3);
  player.onevents = [&] {
    if (std::count(frmgeneratore::Text1.text.begin(), frmgeneratore::Text1.text.end(), '\n') >= 5 * 9)
      player.now = 30000;
  };
  player.event(frmmain::genera_e_conta);
  closelibrary();
  const std::vector<LibraryRow> rows = rowsof(library());
  ASSERT_GE(rows.size(), 6U + 9U);
  for (std::size_t n = 6; n < rows.size(); ++n) {
    EXPECT_EQ(rows[n][field::progressivo], std::to_string(8371 + n - 6));
    EXPECT_EQ(rows[n][field::supersimmetrico], "s");
    EXPECT_TRUE(ispuzzle(rows[n][field::stringa]));
  }
}

}  // namespace
}  // namespace gradino::tests
