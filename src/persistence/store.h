// The library's store: an SQLite file with the one table `schema`, one row a puzzle.
//
//   index schema_livello (livello, difficolta DESC)    serves the browser's query: a record is reached by its
//                                                      place without reading the rows before it
//
// Every change is in the file when the call returns: a program that is killed loses nothing. Two programs can
// use one file at once; a change waits a few seconds for the other's.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "libraryrow.h"

namespace gradino {

/// The query of all records, in table order. A query of the library begins as this one does.
inline constexpr const char* wholetable = "SELECT schema.* FROM [schema]";

/// Each member throws LibraryFailure, in words for the user: a damaged, locked, foreign or write-protected
/// file, a full disk.
class Store {
 public:
  /// Opens the file, or makes an empty store when there is none. A file that is no store is left untouched.
  explicit Store(const std::filesystem::path& file);
  ~Store();
  Store(const Store&) = delete;
  Store& operator=(const Store&) = delete;

  struct Record {
    std::int64_t key;
    LibraryRow row;
  };

  int count(const std::string& query);
  /// The record at a place from 0 in the query's order; none there: nothing.
  std::optional<Record> at(const std::string& query, int place);
  /// Hands over the records of a query, in its order.
  void each(const std::string& query, const std::function<void(const Record&)>& use);

  void insert(const LibraryRow& row);
  void update(const Record& record);
  /// Runs many changes as one: all of them are stored, or, when it throws, none.
  void together(const std::function<void()>& changes);

 private:
  struct Connection;
  std::unique_ptr<Connection> connection_;
};

/// Brings the rows of an old library into a new store, which must not exist yet. Returns how many of its rows
/// hold no puzzle: they are brought over as they are. Throws LibraryFailure, and leaves no store behind.
struct BroughtOver {
  int rows = 0, nopuzzle = 0;
};
BroughtOver bringover(const std::filesystem::path& old, const std::filesystem::path& store);

}  // namespace gradino
