#include "store.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <fstream>
#include <iterator>
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
#include "wholefile.h"
#include "words.h"

namespace gradino {
namespace {

namespace fs = std::filesystem;

constexpr Words damaged = {
    "La libreria \"{file}\" non può essere letta: il file è danneggiato o non è una libreria. Il file resta "
    "com'è. Rimettere al suo posto una copia intatta, o dargli un altro nome: al prossimo avvio ne viene fatta "
    "una nuova.",
    "The library \"{file}\" can't be read: the file is damaged or is no library. The file stays as it is. Put a "
    "sound copy in its place, or give it another name: the next start makes a fresh one."};
constexpr Words partlydamaged = {
    "La libreria \"{file}\" è danneggiata: una parte degli schemi non può essere letta. Il file resta com'è. "
    "Rimettere al suo posto una copia intatta, o dargli un altro nome: al prossimo avvio ne viene fatta una "
    "nuova.",
    "The library \"{file}\" is damaged: some of its puzzles can't be read. The file stays as it is. Put a sound "
    "copy in its place, or give it another name: the next start makes a fresh one."};
constexpr Words oldlibrary = {
    "\"{file}\" è una vecchia libreria, nel formato di un database da ufficio. I suoi schemi passano in una "
    "nuova con: gradino-cli library --file NUOVA.mdb import \"{file}\"",
    "\"{file}\" is an old library, in the format of a desktop database. Its puzzles go into a new one by: "
    "gradino-cli library --file NEW.mdb import \"{file}\""};
constexpr Words locked = {
    "La libreria \"{file}\" è in uso da un altro programma. Riprovare quando avrà finito.",
    "The library \"{file}\" is in use by another program. Try again when that one is done."};
constexpr Words full = {"Il disco è pieno: la libreria \"{file}\" conserva solo gli schemi già registrati.",
                        "The disk is full: the library \"{file}\" keeps the puzzles stored so far."};
constexpr Words noroom = {"Il disco è pieno: la libreria \"{file}\" non può essere creata.",
                          "The disk is full: the library \"{file}\" can't be made."};
constexpr Words writeprotected = {
    "La libreria \"{file}\" può essere solo letta: non vi si può registrare nulla.",
    "The library \"{file}\" can only be read: nothing can be stored in it."};
constexpr Words unreachable = {
    "La libreria \"{file}\" non può essere aperta né creata. Controllare la sua cartella e i suoi permessi.",
    "The library \"{file}\" can be neither opened nor made. Check its folder and its permissions."};
constexpr Words otherfailure = {"La libreria \"{file}\" non risponde: {reason}.",
                                "The library \"{file}\" doesn't answer: {reason}."};

// The wait for another program. Opening to read only doesn't wait at start.
constexpr int lookwaitmilliseconds = 300, changewaitmilliseconds = 5000;

constexpr const char* maketable =
    "CREATE TABLE schema (progressivo INTEGER, stringa TEXT, dettaglio TEXT, livello INTEGER, numeri INTEGER, "
    "difficolta INTEGER, supersimmetrico TEXT, tempo TEXT, f1 INTEGER, f2 INTEGER, f3 INTEGER, f4 INTEGER, "
    "f5 INTEGER, f6 INTEGER, f7 INTEGER, f8 INTEGER, f9 INTEGER, f10 INTEGER, f11 INTEGER, f12 INTEGER, "
    "f13 INTEGER, f14 INTEGER, f15 INTEGER, f16 INTEGER, f17 INTEGER, f18 INTEGER, f19 INTEGER, f20 INTEGER, "
    "f21 INTEGER)";
// In this order records of equal difficulty come in the order of their keys.
constexpr const char* makeindex = "CREATE INDEX schema_livello ON schema (livello, difficolta DESC)";

/// The suffixes of the files that SQLite keeps beside a store while it is changed.
constexpr std::array<const char*, 3> sides = {"-journal", "-wal", "-shm"};

const Words& wordsfor(int code, const Words& whenfull) {
  switch (code) {
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
    case SQLITE_ERROR:  // a table or field is missing
      return damaged;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return locked;
    case SQLITE_FULL:
      return whenfull;
    case SQLITE_READONLY:
      return writeprotected;
    case SQLITE_CANTOPEN:
      return unreachable;
    default:
      return otherfailure;
  }
}

[[noreturn]] void refuse(const Words& words, const fs::path& file, std::string_view reason = "") {
  throw LibraryFailure(say(words, hole("file", file.string()), hole("reason", reason)));
}

/// A file couldn't be made, or not be renamed.
[[noreturn]] void notmade(const std::error_code& error, const fs::path& file) {
  const bool nospace = error == std::errc::no_space_on_device || error.value() == EDQUOT;
  refuse(nospace ? noroom : otherfailure, file, error.message());
}

/// Runs an operation on the store, and turns its failures into words for the user.
template <class Act>
auto guarded(const fs::path& file, const Words& whenfull, Act act) {
  try {
    return act();
  } catch (const SQLite::Exception& error) {
    refuse(wordsfor(error.getErrorCode(), whenfull), file, error.what());
  }
}

/// An existing file must look like a store before it is opened for changes.
bool looksright(const fs::path& file) {
  constexpr std::string_view head("SQLite format 3\0", 16);
  std::error_code error;
  std::string begin(head.size(), ' ');
  if (!fs::is_regular_file(file, error)) return false;
  std::ifstream(file, std::ios::binary).read(begin.data(), static_cast<std::streamsize>(begin.size()));
  return begin == head;
}

bool writable(const fs::path& file) {
  return std::ofstream(file, std::ios::binary | std::ios::app).is_open();
}

SQLite::Database openfile(const fs::path& file, bool change) {
  const int flags = change ? SQLite::OPEN_READWRITE : SQLite::OPEN_READONLY;
  return {file.string(), flags, lookwaitmilliseconds};
}

void removestore(const fs::path& file) {
  std::error_code error;
  for (const char* side : sides) fs::remove(file.string() + side, error);
  fs::remove(file, error);
}

std::string fieldlist() {
  return fmt::format("schema.{}", fmt::join(libraryfields, ", schema."));
}

/// A placeholder for each field.
std::string holes() {
  std::string all = "?";
  for (std::size_t f = 1; f < libraryfields.size(); ++f) all += ", ?";
  return all;
}

/// What follows "SELECT schema.*" in a query.
std::string_view clauses(std::string_view query) {
  return query.substr(std::string_view("SELECT schema.*").size());
}

/// The clauses of the query and, after its order, that of the table.
std::string ordered(std::string_view query) {
  const bool hasorder = query.find("ORDER BY") != std::string_view::npos;
  return fmt::format("{}{} schema.rowid", clauses(query), hasorder ? "," : " ORDER BY");
}

std::string recordsof(const std::string& query) {
  return fmt::format("SELECT schema.rowid, {}{}", fieldlist(), ordered(query));
}

Store::Record recordin(SQLite::Statement& select) {
  Store::Record record{select.getColumn(0).getInt64(), {}};
  for (std::size_t f = 0; f < record.row.size(); ++f)
    record.row[f] = select.getColumn(static_cast<int>(f) + 1).getString();
  return record;
}

/// The types of the columns store numbers as such; an empty text is stored as null.
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
  Connection(const fs::path& path, bool onlyread)
      : file(path), change(!onlyread && writable(path)), database(openfile(path, change)) {
    if (!database.tableExists("schema")) refuse(damaged, file);
    SQLite::Statement allfields(database, recordsof(wholetable) + " LIMIT 0");
  }

  /// A new store that no other program knows yet: if making it fails, it is deleted, so that no journal is
  /// needed.
  Connection(fs::path path, SQLite::Database made)
      : file(std::move(path)), change(true), whenfull(noroom), database(std::move(made)) {
    database.exec("PRAGMA journal_mode = OFF");
    database.exec("PRAGMA synchronous = OFF");
    logged = true;
    database.exec(maketable);
    database.exec(makeindex);
  }

  // A store at rest is a single file: the write-ahead log is switched off again.
  ~Connection() {
    inserting.reset();
    if (logged) database.tryExec("PRAGMA journal_mode = DELETE");
  }

  /// From the first change on, changes go through a write-ahead log beside the file: they don't wait for the
  /// disk, and readers are never in the way.
  void logchanges() {
    if (!change) refuse(writeprotected, file);
    if (logged) return;
    database.setBusyTimeout(changewaitmilliseconds);
    // The change of mode doesn't itself wait for another program that is changing it.
    constexpr int pause = 10;
    for (int waited = 0; database.tryExec("PRAGMA journal_mode = WAL") == SQLITE_BUSY; waited += pause) {
      if (waited >= changewaitmilliseconds) refuse(locked, file);
      std::this_thread::sleep_for(std::chrono::milliseconds(pause));
    }
    database.exec("PRAGMA synchronous = NORMAL");
    logged = true;
  }

  template <class Act>
  auto guard(Act act) {
    return guarded(file, whenfull, act);
  }

  fs::path file;  ///< as the user knows it
  bool change;
  const Words& whenfull = full;
  SQLite::Database database;
  std::optional<SQLite::Statement> inserting;  ///< prepared once, for thousands of rows
  bool logged = false;
};

Store::Store(const fs::path& file, bool onlyread) {
  std::error_code error;
  if (!onlyread && !fs::exists(file, error)) makestore(file, [](Store&) {});
  if (isjetfile(file.string())) refuse(oldlibrary, file);
  if (fs::exists(file, error) && !looksright(file)) refuse(damaged, file);
  connection_ = guarded(file, full, [&] { return std::make_unique<Connection>(file, onlyread); });
}
Store::Store(std::unique_ptr<Connection> connection) : connection_(std::move(connection)) {}
Store::~Store() = default;

int Store::count(const std::string& query) {
  return connection_->guard([&] {
    SQLite::Statement select(connection_->database, fmt::format("SELECT count(*){}", clauses(query)));
    select.executeStep();
    return select.getColumn(0).getInt();
  });
}

std::optional<Store::Record> Store::at(const std::string& query, int place) {
  if (place < 0) return std::nullopt;
  return connection_->guard([&]() -> std::optional<Record> {
    SQLite::Statement select(connection_->database, recordsof(query) + " LIMIT 1 OFFSET ?");
    select.bind(1, place);
    if (!select.executeStep()) return std::nullopt;
    return recordin(select);
  });
}

std::optional<Store::Record> Store::withkey(std::int64_t key) {
  return at(fmt::format("{} WHERE schema.rowid = {}", wholetable, key), 0);
}

std::optional<int> Store::placeof(const std::string& query, std::int64_t key) {
  return connection_->guard([&]() -> std::optional<int> {
    SQLite::Statement select(connection_->database, "SELECT schema.rowid" + ordered(query));
    for (int place = 0; select.executeStep(); ++place)
      if (select.getColumn(0).getInt64() == key) return place;
    return std::nullopt;
  });
}

void Store::each(const std::string& query, const std::function<void(const Record&)>& use, int most) {
  connection_->guard([&] {
    SQLite::Statement select(connection_->database, recordsof(query) + " LIMIT ?");
    select.bind(1, most);
    while (select.executeStep()) use(recordin(select));
  });
}

void Store::check() {
  connection_->guard([&] {
    SQLite::Statement look(connection_->database, "PRAGMA quick_check(1)");
    look.executeStep();
    if (look.getColumn(0).getString() != "ok") refuse(partlydamaged, connection_->file);
  });
}

bool Store::changeable() const {
  return connection_->change;
}

void Store::needchanges() const {
  if (!changeable()) refuse(writeprotected, connection_->file);
}

void Store::insert(const LibraryRow& row) {
  connection_->guard([&] {
    connection_->logchanges();
    std::optional<SQLite::Statement>& insert = connection_->inserting;
    if (!insert)
      insert.emplace(connection_->database, fmt::format("INSERT INTO schema ({}) VALUES ({})",
                                                        fmt::join(libraryfields, ", "), holes()));
    insert->tryReset();  // the last insert may have failed
    bindrow(*insert, row);
    insert->exec();
    insert->reset();
  });
}

void Store::update(const Record& record) {
  connection_->guard([&] {
    connection_->logchanges();
    SQLite::Statement update(connection_->database, fmt::format("UPDATE schema SET {} = ? WHERE rowid = ?",
                                                                fmt::join(libraryfields, " = ?, ")));
    bindrow(update, record.row);
    update.bind(static_cast<int>(record.row.size()) + 1, record.key);
    update.exec();
  });
}

void Store::together(const std::function<void()>& changes) {
  connection_->guard([&] {
    connection_->logchanges();
    SQLite::Transaction whole(connection_->database, SQLite::TransactionBehavior::IMMEDIATE);
    changes();
    whole.commit();
  });
}

// ---- new stores -----------------------------------------------------------------------------------------

/// Made under a temporary name and flushed to the disk; a failure names the final file.
void buildstore(const fs::path& made, const fs::path& file, const std::function<void(Store&)>& fill) {
  removestore(made);
  try {
    {
      Store fresh(guarded(file, noroom, [&] {
        return std::make_unique<Store::Connection>(
            file, SQLite::Database(made.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE));
      }));
      fresh.together([&] { fill(fresh); });
    }
    const std::error_code error = flush(made);
    if (error) notmade(error, file);
  } catch (...) {
    removestore(made);
    throw;
  }
}

bool makestore(const fs::path& file, const std::function<void(Store&)>& fill) {
  const FolderClaim claim(file);
  std::error_code error;
  if (fs::exists(file, error)) return false;  // another program was faster
  const fs::path made = madename(file);
  buildstore(made, file, fill);
  putaside(file, error);  // files left beside a deleted store would be taken for those of the new one
  error = putinplace(made, file);
  if (!error) return true;
  removestore(made);
  notmade(error, file);
}

// On a full disk there is no room for the files that SQLite keeps beside a store, not even to read; a record
// could be in its log.
bool removeempty(const fs::path& file) {
  std::error_code error;
  if (!fs::exists(file, error)) return false;
  try {
    if (Store(file, true).count(wholetable) > 0) return false;
  } catch (const LibraryFailure&) {
    const std::uintmax_t logged = fs::file_size(file.string() + "-wal", error);
    if (!error && logged > 0) return false;
  }
  removestore(file);
  return true;
}

bool nolibrary(const fs::path& file) {
  std::error_code error;
  if (!fs::is_regular_file(file, error)) return false;
  if (fs::is_empty(file, error)) return true;
  if (!looksright(file)) return false;
  try {
    return !openfile(file, writable(file)).tableExists("schema");
  } catch (const SQLite::Exception&) {  // locked or damaged, which is reported when the library is needed
    return false;
  }
}

// The files beside it go first: beside a new file they would be taken for its own.
fs::path putaside(const fs::path& file, std::error_code& error) {
  fs::path kept = freename(file, "aside");
  const auto rename = [&error](const fs::path& from, const fs::path& to) {
    std::error_code missing;
    if (!error && fs::exists(from, missing)) fs::rename(from, to, error);
  };
  error.clear();
  for (const char* side : sides) rename(file.string() + side, kept.string() + side);
  rename(file, kept);
  flushnames(file);
  return kept;
}

namespace {

bool samecontent(const fs::path& one, const fs::path& other) {
  std::error_code error;
  if (fs::equivalent(one, other, error)) return true;
  if (fs::file_size(one, error) != fs::file_size(other, error) || error) return false;
  std::ifstream first(one, std::ios::binary), second(other, std::ios::binary);
  using Bytes = std::istreambuf_iterator<char>;
  return first && second && std::equal(Bytes(first), Bytes(), Bytes(second));
}

/// The old file gets a second name before the new store takes the first, so that it always has one. If the
/// program was killed in between, it already has that second name.
class SecondName {
 public:
  explicit SecondName(const fs::path& old) : name(freename(old, "old")) {
    const fs::path first = old.parent_path() / (old.stem().string() + "-old" + old.extension().string());
    if (samecontent(first, old)) {
      name = first;
      return;
    }
    std::error_code error;
    fs::create_hard_link(old, name, error);
    if (error) error = copywhole(old, name);  // a disk without hard links
    if (error) notmade(error, name);
    given_ = true;
    flushnames(name);
  }
  ~SecondName() {
    std::error_code error;
    if (given_) fs::remove(name, error);
  }
  SecondName(const SecondName&) = delete;
  SecondName& operator=(const SecondName&) = delete;
  void keep() { given_ = false; }

  fs::path name;

 private:
  bool given_ = false;  ///< to be undone
};

}  // namespace

BroughtOver bringover(const fs::path& old) {
  BroughtOver done;
  const fs::path made = madename(old);
  buildstore(made, old, [&](Store& store) {
    readjet(old.string(), [&](const LibraryRow& row) {
      store.insert(row);
      done.rows += 1;
      done.nopuzzle += !ispuzzle(row[field::stringa]);
    });
  });
  try {
    SecondName kept(old);
    const std::error_code error = putinplace(made, old);
    if (error) notmade(error, old);
    kept.keep();
    done.kept = kept.name;
  } catch (const LibraryFailure&) {
    removestore(made);
    throw;
  }
  return done;
}

}  // namespace gradino
