// The library's store: an SQLite file with the one table `schema`, one row a puzzle.
//
//   index schema_livello (livello, difficolta DESC)    serves the browser's query: a record is reached by its
//                                                      place without reading the rows before it
//
// A new file appears complete with its table, never empty or half made. Every change is in the file when the
// call returns: a program that is killed loses nothing. Two programs can use one file at once; a change waits
// a few seconds for that of the other.
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

/// The query of all records, in table order. Every query of the library begins like this one.
inline constexpr const char* wholetable = "SELECT schema.* FROM [schema]";

/// Each member throws LibraryFailure, in words for the user: a damaged, locked, foreign or write-protected
/// file, a full disk.
class Store {
 public:
  /// Opens the file, or makes an empty store if there is none, unless it is to be read only. A file that is
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
  /// The record at a position, counted from 0, in the order of the query, if there is one. Records that the
  /// query ranks equal are in the order in which they were stored.
  std::optional<Record> at(const std::string& query, int place);
  std::optional<Record> withkey(std::int64_t key);
  /// The position of a record in the order of the query, if it is among its records.
  std::optional<int> placeof(const std::string& query, std::int64_t key);
  /// Hands over the records of a query, in its order: all of them, or the first ones.
  void each(const std::string& query, const std::function<void(const Record&)>& use, int most = -1);

  /// Checks the whole file for damage.
  void check();
  /// False: the store is read-only.
  bool changeable() const;
  /// Throws if the store is read-only: for callers that work long before they store something.
  void needchanges() const;

  void insert(const LibraryRow& row);
  void update(const Record& record);
  /// Runs many changes as one: all of them are stored, or none if it throws.
  void together(const std::function<void()>& changes);

  struct Connection;

 private:
  friend void buildstore(const std::filesystem::path& made, const std::filesystem::path& file,
                         const std::function<void(Store&)>& fill);
  explicit Store(std::unique_ptr<Connection> connection);
  std::unique_ptr<Connection> connection_;
};

/// Makes a store with what `fill` inserts, and moves it into place when it is complete. False: there is one
/// already, and nothing was done. Throws LibraryFailure, or what `fill` throws, and leaves no files behind.
bool makestore(const std::filesystem::path& file, const std::function<void(Store&)>& fill);

/// Deletes a store that was made for records, but has none. False: it has some, or there is no store.
bool removeempty(const std::filesystem::path& file);

/// True for a file of 0 bytes and for a store without the table `schema`: they could be opened, but are no
/// library. A file that is damaged in another way may hold puzzles, and stays where it is.
bool nolibrary(const std::filesystem::path& file);

/// Renames the file and the files that belong to it. Returns the new name.
std::filesystem::path putaside(const std::filesystem::path& file, std::error_code& error);

/// Replaces the file of an old library by a new store with its rows. The old file is kept under another name.
/// Throws LibraryFailure; then the old file is in its place, with nothing beside it.
struct BroughtOver {
  int rows = 0, nopuzzle = 0;  ///< rows without a puzzle are copied as they are
  std::filesystem::path kept;
};
BroughtOver bringover(const std::filesystem::path& old);

}  // namespace gradino
