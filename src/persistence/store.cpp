#include "store.h"

#include <chrono>
#include <fstream>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <sqlite3.h>

#include "jetfile.h"
#include "library.h"
#include "words.h"

namespace gradino {
namespace {

namespace fs = std::filesystem;

constexpr Words damaged = {
    "La libreria \"{file}\" non può essere letta: il file è danneggiato o non è una libreria. Il file resta "
    "com'è.",
    "The library \"{file}\" can't be read: the file is damaged or is no library. The file stays as it is."};
constexpr Words locked = {
    "La libreria \"{file}\" è in uso da un altro programma. Riprovare quando avrà finito.",
    "The library \"{file}\" is in use by another program. Try again when that one is done."};
constexpr Words full = {"Il disco è pieno: la libreria \"{file}\" conserva solo gli schemi già registrati.",
                        "The disk is full: the library \"{file}\" keeps the puzzles stored so far."};
constexpr Words writeprotected = {"La libreria \"{file}\" è protetta da scrittura.",
                                  "The library \"{file}\" is write-protected."};
constexpr Words unreachable = {"La libreria \"{file}\" non può essere aperta né creata.",
                               "The library \"{file}\" can be neither opened nor made."};
constexpr Words otherfailure = {"La libreria \"{file}\" non risponde: {reason}.",
                                "The library \"{file}\" doesn't answer: {reason}."};
constexpr Words taken = {"Il file \"{file}\" esiste già.", "The file \"{file}\" exists already."};

// For another program to be done. Who only wants to look is not kept waiting at start.
constexpr int lookwaitmilliseconds = 300, changewaitmilliseconds = 5000;

constexpr const char* maketable =
    "CREATE TABLE schema (progressivo INTEGER, stringa TEXT, dettaglio TEXT, livello INTEGER, numeri INTEGER, "
    "difficolta INTEGER, supersimmetrico TEXT, tempo TEXT, f1 INTEGER, f2 INTEGER, f3 INTEGER, f4 INTEGER, "
    "f5 INTEGER, f6 INTEGER, f7 INTEGER, f8 INTEGER, f9 INTEGER, f10 INTEGER, f11 INTEGER, f12 INTEGER, "
    "f13 INTEGER, f14 INTEGER, f15 INTEGER, f16 INTEGER, f17 INTEGER, f18 INTEGER, f19 INTEGER, f20 INTEGER, "
    "f21 INTEGER)";
constexpr const char* makeindex = "CREATE INDEX schema_livello ON schema (livello, difficolta DESC)";

const Words& wordsfor(int code) {
  switch (code) {
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
    case SQLITE_ERROR:  // a table or field that isn't there
      return damaged;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return locked;
    case SQLITE_FULL:
      return full;
    case SQLITE_READONLY:
      return writeprotected;
    case SQLITE_CANTOPEN:
      return unreachable;
    default:
      return otherfailure;
  }
}

[[noreturn]] void refuse(const Words& words, const fs::path& file, const char* reason = "") {
  throw LibraryFailure(say(words, hole("file", file.string()), hole("reason", reason)));
}

/// Runs what speaks to the store, and says its failures in words for the user.
template <class Act>
auto guarded(const fs::path& file, Act act) {
  try {
    return act();
  } catch (const SQLite::Exception& error) {
    refuse(wordsfor(error.getErrorCode()), file, error.what());
  }
}

/// A file that is there must look like a store before anything opens it for changes. An empty one is as good
/// as none.
bool looksright(const fs::path& file) {
  constexpr std::string_view head("SQLite format 3\0", 16);
  std::ifstream in(file, std::ios::binary);
  std::string begin(head.size(), ' ');
  in.read(begin.data(), static_cast<std::streamsize>(begin.size()));
  return in.gcount() == 0 || begin == head;
}

/// Opens for changes where that is possible, else for reading.
SQLite::Database openfile(const fs::path& file) {
  std::error_code error;
  const bool there = fs::exists(file, error);
  if (there && (!fs::is_regular_file(file, error) || !looksright(file))) refuse(damaged, file);
  const bool writable = !there || std::ofstream(file, std::ios::binary | std::ios::app).is_open();
  const int flags = writable ? SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE : SQLite::OPEN_READONLY;
  return SQLite::Database(file.string(), flags, lookwaitmilliseconds);
}

std::string fieldlist() {
  return fmt::format("schema.{}", fmt::join(libraryfields, ", schema."));
}

/// A hole for each field.
std::string holes() {
  std::string all = "?";
  for (std::size_t f = 1; f < libraryfields.size(); ++f) all += ", ?";
  return all;
}

/// What stands behind "SELECT schema.*" in a query.
std::string_view clauses(std::string_view query) {
  return query.substr(std::string_view("SELECT schema.*").size());
}

std::string recordsof(const std::string& query) {
  return fmt::format("SELECT schema.rowid, {}{}", fieldlist(), clauses(query));
}

Store::Record recordin(SQLite::Statement& select) {
  Store::Record record{select.getColumn(0).getInt64(), {}};
  for (std::size_t f = 0; f < record.row.size(); ++f)
    record.row[f] = select.getColumn(static_cast<int>(f) + 1).getString();
  return record;
}

/// Numbers are stored as such by the columns' own types; an empty text is nothing.
void bindrow(SQLite::Statement& statement, const LibraryRow& row) {
  for (std::size_t f = 0; f < row.size(); ++f) {
    const int place = static_cast<int>(f) + 1;
    if (row[f].empty())
      statement.bind(place);
    else
      statement.bind(place, row[f]);
  }
}

}  // namespace

struct Store::Connection {
  explicit Connection(const fs::path& path) : file(path), database(openfile(path)) {
    if (!database.tableExists("schema")) maketables();
    SQLite::Statement allfields(database, recordsof(wholetable) + " LIMIT 0");
  }

  // A store at rest is one file: the log that changes go through is taken back.
  ~Connection() {
    inserting.reset();
    if (logged) database.tryExec("PRAGMA journal_mode = DELETE");
  }

  /// From the first change on they go through a log beside the file: a change costs no wait for the disk, and
  /// who reads is never in the way.
  void logchanges() {
    if (logged) return;
    database.setBusyTimeout(changewaitmilliseconds);
    // The change of mode doesn't wait by itself for another program that changes it.
    constexpr int pause = 10;
    for (int waited = 0; database.tryExec("PRAGMA journal_mode = WAL") == SQLITE_BUSY; waited += pause) {
      if (waited >= changewaitmilliseconds) refuse(locked, file);
      std::this_thread::sleep_for(std::chrono::milliseconds(pause));
    }
    database.exec("PRAGMA synchronous = NORMAL");
    logged = true;
  }

  /// Another program may be doing the same: whoever comes second finds the tables made.
  void maketables() {
    const auto bare = [this] {
      return database.execAndGet("SELECT count(*) FROM sqlite_master").getInt() == 0;
    };
    if (!bare() && !database.tableExists("schema")) refuse(damaged, file);
    database.setBusyTimeout(changewaitmilliseconds);
    SQLite::Transaction whole(database, SQLite::TransactionBehavior::IMMEDIATE);
    if (bare()) {
      database.exec(maketable);
      database.exec(makeindex);
    }
    whole.commit();
    database.setBusyTimeout(lookwaitmilliseconds);
  }

  fs::path file;
  SQLite::Database database;
  std::optional<SQLite::Statement> inserting;  ///< prepared once: thousands of rows come by it
  bool logged = false;
};

Store::Store(const fs::path& file)
    : connection_(guarded(file, [&] { return std::make_unique<Connection>(file); })) {}
Store::~Store() = default;

int Store::count(const std::string& query) {
  return guarded(connection_->file, [&] {
    SQLite::Statement select(connection_->database, fmt::format("SELECT count(*){}", clauses(query)));
    select.executeStep();
    return select.getColumn(0).getInt();
  });
}

std::optional<Store::Record> Store::at(const std::string& query, int place) {
  if (place < 0) return std::nullopt;
  return guarded(connection_->file, [&]() -> std::optional<Record> {
    SQLite::Statement select(connection_->database, recordsof(query) + " LIMIT 1 OFFSET ?");
    select.bind(1, place);
    if (!select.executeStep()) return std::nullopt;
    return recordin(select);
  });
}

void Store::each(const std::string& query, const std::function<void(const Record&)>& use) {
  guarded(connection_->file, [&] {
    SQLite::Statement select(connection_->database, recordsof(query));
    while (select.executeStep()) use(recordin(select));
  });
}

void Store::insert(const LibraryRow& row) {
  guarded(connection_->file, [&] {
    connection_->logchanges();
    std::optional<SQLite::Statement>& insert = connection_->inserting;
    if (!insert)
      insert.emplace(connection_->database, fmt::format("INSERT INTO schema ({}) VALUES ({})",
                                                        fmt::join(libraryfields, ", "), holes()));
    insert->tryReset();  // it may have failed the last time
    bindrow(*insert, row);
    insert->exec();
    insert->reset();
  });
}

void Store::update(const Record& record) {
  guarded(connection_->file, [&] {
    connection_->logchanges();
    SQLite::Statement update(connection_->database, fmt::format("UPDATE schema SET {} = ? WHERE rowid = ?",
                                                                fmt::join(libraryfields, " = ?, ")));
    bindrow(update, record.row);
    update.bind(static_cast<int>(record.row.size()) + 1, record.key);
    update.exec();
  });
}

void Store::together(const std::function<void()>& changes) {
  guarded(connection_->file, [&] {
    connection_->logchanges();
    SQLite::Transaction whole(connection_->database, SQLite::TransactionBehavior::IMMEDIATE);
    changes();
    whole.commit();
  });
}

BroughtOver bringover(const fs::path& old, const fs::path& store) {
  std::error_code error;
  if (fs::exists(store, error)) refuse(taken, store);
  BroughtOver done;
  try {
    Store made(store);
    made.together([&] {
      readjet(old.string(), [&](const LibraryRow& row) {
        made.insert(row);
        done.rows += 1;
        done.nopuzzle += !ispuzzle(row[field::stringa]);
      });
    });
  } catch (const LibraryFailure&) {
    fs::remove(store, error);
    throw;
  }
  return done;
}

}  // namespace gradino
