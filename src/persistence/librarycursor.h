// The library cursor Data1: the program's one way into its store, through the boxes bound to the fields.
#pragma once

#include <filesystem>

namespace gradino {

/// Where the library of a program that stands in this folder is kept:
///
///   1  schemigenerati.mdb beside the program, when it can be written;
///   2  else, when a shipped one is there that can't (beside the program, or in ../share/gradino), the
///      user's own copy of it in the place for application data; the shipped one stays as it is;
///   3  else beside the program, if files can be made there;
///   4  else in the place for application data.
///
/// Makes the copy and the folder if need be.
std::filesystem::path libraryplace(const std::filesystem::path& programfolder);

/// Opens the file for Data1 and shows its first record. A missing file: an empty store is made. An old
/// library of the Jet family: its rows are brought into a new store of the same name, and the old file is
/// kept beside it as schemigenerati-old.mdb (-old2, ... when there is one). What goes wrong is told when the
/// library is first needed.
void openlibrary(const std::filesystem::path& file);

/// Without a library, as before.
void closelibrary();

}  // namespace gradino
