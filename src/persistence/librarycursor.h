// The library cursor Data1: the only access of the program to its store, through the boxes bound to the
// fields.
#pragma once

#include <filesystem>

#include "libraryplace.h"

namespace gradino {

/// Opens the file for Data1 and shows its first record. A missing file is made as an empty store. The rows of
/// an old library of the Jet family are copied to a new store of the same name, and the old file is kept
/// beside it as schemigenerati-old.mdb (-old2, ... if that exists). Failures and notices are shown when the
/// library is first needed.
void openlibrary(const LibraryPlace& where);
inline void openlibrary(const std::filesystem::path& file) {
  openlibrary(LibraryPlace{file, false, {}});
}

/// Closes the library: the cursor does nothing, as before it was opened.
void closelibrary();

}  // namespace gradino
