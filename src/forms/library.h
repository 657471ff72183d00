// The one record cursor of the puzzle library as the rest of the program sees it: boxes bound to fields, and
// the few acts that move the cursor and write the boxes back. The store stands behind the functions; without
// one they do nothing, and no record is found.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>

#include "boxes.h"

namespace gradino {

/// The store can't do what was asked; what() tells the user, in the language in force.
struct LibraryFailure : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// True while a record of the library is on show.
inline constinit bool libraryrecordopen = false;

/// Each act throws LibraryFailure when the store can't do it.
struct Cursor {
  /// Makes sure that the library can be used, and tells once what its opening has to tell.
  std::function<void()> need = [] {};
  /// Makes the records of a query, in its order, the cursor's records, and shows the first.
  std::function<void(const std::string& sql)> query = [](const std::string&) {};
  std::function<void()> movelast = [] {};
  /// How many records there are. To be trusted only behind movelast.
  std::function<int()> recordcount = [] { return 0; };
  /// Shows the record at a position from 0 in the bound boxes.
  std::function<void(int position)> moveto = [](int) {};
  std::function<void()> edit = [] {};    ///< opens the current record for changes
  std::function<void()> update = [] {};  ///< writes the bound boxes into it
  /// Stores the new record that the boxes show, if one was begun, and begins the next.
  std::function<void()> addnew = [] {};
  std::function<void()> cancelnew = [] {};  ///< forgets the new record, if one was begun
};
inline Cursor Data1;

namespace frmmain {
// What they are bound to: livello, difficolta, dettaglio, stringa, numeri, supersimmetrico, tempo. None is
// ever visible. txtprogressivo and liv(0) to liv(21) are bound too: to progressivo, and to f1 (twice) to f21.
inline Box testolivello, txttotale, txtdettaglio, txtstringa, txtnumeri, txtsuper, tempo;
}  // namespace frmmain

}  // namespace gradino
