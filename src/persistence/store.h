// The library's store: an SQLite file with the one table `schema`, one row a puzzle.
//
//   index schema_livello (livello, difficolta DESC)    serves the browser's query: a record is reached by its
//                                                      place without reading the rows before it
//
// A new file appears with its table: nobody ever sees one that is empty or half made. Every change is in the
// file when the call returns: a program that is killed loses nothing. Two programs can use one file at once;
// a change waits a few seconds for the other's.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <system_error>

#include "libraryrow.h"

namespace gradino {

/// The query of all records, in table order. A query of the library begins as this one does.
inline constexpr const char* wholetable = "SELECT schema.* FROM [schema]";

/// Each member throws LibraryFailure, in words for the user: a damaged, locked, foreign or write-protected
/// file, a full disk.
class Store {
 public:
  /// Opens the file, or makes an empty store when there is none and it is not only to be read. A file that is
  /// no store is left untouched.
  explicit Store(const std::filesystem::path& file, bool onlyread = false);
  ~Store();
  Store(const Store&) = delete;
  Store& operator=(const Store&) = delete;

  struct Record {
    std::int64_t key;
    LibraryRow row;
  };

  int count(const std::string& query);
  /// The record at a place from 0 in the query's order; none there: nothing. Records that the query puts side
  /// by side stand in the order in which they were stored.
  std::optional<Record> at(const std::string& query, int place);
  std::optional<Record> withkey(std::int64_t key);
  /// The place of a record in the query's order; nothing when it isn't among its records.
  std::optional<int> placeof(const std::string& query, std::int64_t key);
  /// Hands over the records of a query, in its order: all of them, or the first ones.
  void each(const std::string& query, const std::function<void(const Record&)>& use, int most = -1);

  /// Looks through the whole file for damage.
  void check();
  /// False: it can only be read.
  bool changeable() const;
  /// Fails when it can only be read: for who would work long before it stores something.
  void needchanges() const;

  void insert(const LibraryRow& row);
  void update(const Record& record);
  /// Runs many changes as one: all of them are stored, or, when it throws, none.
  void together(const std::function<void()>& changes);

  struct Connection;

 private:
  friend void buildstore(const std::filesystem::path& made, const std::filesystem::path& file,
                         const std::function<void(Store&)>& fill);
  explicit Store(std::unique_ptr<Connection> connection);
  std::unique_ptr<Connection> connection_;
};

/// Makes a store with what `fill` inserts, and puts it in its place when it is whole. False: there is one
/// already, nothing was done. Throws LibraryFailure, or what `fill` throws, and leaves nothing behind.
bool makestore(const std::filesystem::path& file, const std::function<void(Store&)>& fill);

/// Takes a store away again that was made for records which didn't come. False: it has some, or
/// there is none.
bool removeempty(const std::filesystem::path& file);

/// True for a file of 0 bytes and for a store without the table `schema`: what isn't taken for a library
/// although it could be opened as one. What is damaged otherwise may hold puzzles, and stays where it is.
bool nolibrary(const std::filesystem::path& file);

/// Gives the file, and what belongs to it, another name. Returns that name.
std::filesystem::path putaside(const std::filesystem::path& file, std::error_code& error);

/// Puts the rows of an old library into the place of its file, as a new store. The old file is kept under
/// another name. Throws LibraryFailure, and then the old file stands where it was, with nothing beside it.
struct BroughtOver {
  int rows = 0, nopuzzle = 0;  ///< rows that hold no puzzle are brought over as they are
  std::filesystem::path kept;
};
BroughtOver bringover(const std::filesystem::path& old);

}  // namespace gradino
