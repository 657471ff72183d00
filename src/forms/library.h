// The one record cursor of the puzzle library as the rest of the program sees it: boxes bound to fields, and
// the two acts that write them back. The store stands behind the functions.
#pragma once

#include <functional>

#include "boxes.h"

namespace gradino {

/// True while a record of the library is on show.
inline constinit bool libraryrecordopen = false;

struct Cursor {
  std::function<void()> edit = [] {};    ///< opens the current record for changes
  std::function<void()> update = [] {};  ///< writes the bound boxes into it
};
inline Cursor Data1;

namespace frmmain {
inline Box testolivello, txttotale, txtdettaglio;  ///< bound to livello, difficolta, dettaglio
}

}  // namespace gradino
