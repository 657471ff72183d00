// The only record cursor of the puzzle library, as the rest of the program sees it: boxes bound to fields,
// and the few operations that move the cursor and write the boxes back. The store installs the functions;
// without one they do nothing, and no record is found.
#pragma once

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>

#include "boxes.h"

namespace gradino {

/// The store can't do what was asked; what() is the message for the user, in the language in force.
struct LibraryFailure : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// True while a record of the library is on show.
inline constinit bool libraryrecordopen = false;

/// Identifies a record, whatever its position in a query.
struct Bookmark {
  std::int64_t key = 0;
  std::string stringa;
};

/// Each operation throws LibraryFailure when the store fails.
struct Cursor {
  /// Makes sure that the library can be used, and shows, once, the messages of its opening.
  std::function<void()> need = [] {};
  /// Runs a query: its records, in its order, become the records of the cursor, and the first is shown.
  std::function<void(const std::string& sql)> query = [](const std::string&) {};
  std::function<void()> movelast = [] {};
  /// The number of records that the query has now.
  std::function<int()> recordcount = [] { return 0; };
  /// Shows the record at a position, counted from 0, in the bound boxes.
  std::function<void(int position)> moveto = [](int) {};
  /// The record on show.
  std::function<Bookmark()> bookmark = [] { return Bookmark{}; };
  /// Shows this record, with its current content.
  std::function<void(const Bookmark&)> movetobookmark = [](const Bookmark&) {};
  /// Its current position in the query; -1: it isn't among the records.
  std::function<int(const Bookmark&)> position = [](const Bookmark&) { return -1; };
  std::function<void()> edit = [] {};    ///< opens the current record for changes
  std::function<void()> update = [] {};  ///< writes the bound boxes into it
  /// Stores the new record that the boxes show, if one was begun, and begins the next.
  std::function<void()> addnew = [] {};
  std::function<void()> cancelnew = [] {};  ///< forgets the new record, if one was begun
};
inline Cursor Data1;

/// Called when this program has stored something: what is shown of the records may be out of date.
inline std::function<void()> listchanged = [] {};

namespace frmmain {
// Bound, in this order, to the fields livello, difficolta, dettaglio, stringa, numeri, supersimmetrico,
// tempo. None of them is ever visible. txtprogressivo and liv(0) to liv(21) are bound too: to progressivo,
// and to f1 (twice) to f21.
inline Box testolivello, txttotale, txtdettaglio, txtstringa, txtnumeri, txtsuper, tempo;
}  // namespace frmmain

}  // namespace gradino
