// The library cursor Data1: the program's one way into its store, through the boxes bound to the fields.
#pragma once

#include <filesystem>

#include "libraryplace.h"

namespace gradino {

/// Opens the file for Data1 and shows its first record. A missing file: an empty store is made. An old
/// library of the Jet family: its rows are brought into a new store of the same name, and the old file is
/// kept beside it as schemigenerati-old.mdb (-old2, ... when there is one). What goes wrong, and what there
/// is to tell of the place, is told when the library is first needed.
void openlibrary(const LibraryPlace& place);
inline void openlibrary(const std::filesystem::path& file) {
  openlibrary(LibraryPlace{file, false, {}});
}

/// Without a library, as before.
void closelibrary();

}  // namespace gradino
