// The place of the library, and what has to be done there before it can be opened.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace gradino {

/// A message to be shown once, in the language in force then.
using Notice = std::function<std::string()>;

struct LibraryPlace {
  std::filesystem::path file;
  bool onlyread = false;        ///< nothing may be stored in it, even if the disk would allow it
  std::vector<Notice> notices;  ///< what the user should know
};

/// The place of the library of a program in this folder:
///
///   1  schemigenerati.mdb beside the program, when it can be written;
///   2  else, when a shipped one is there that can't (beside the program, or in ../share/gradino), the
///      user's own copy of it in the place for application data; the shipped one stays as it is;
///   3  else beside the program, if files can be made there;
///   4  else in the place for application data.
///
/// Makes the copy and the folder if needed. A file there that is no library is renamed. If the copy can't be
/// made, the shipped library is used read-only.
LibraryPlace libraryplace(const std::filesystem::path& programfolder);

}  // namespace gradino
