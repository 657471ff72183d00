// Where the library of a program is kept, and what has to happen there before it can be opened.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace gradino {

/// Something to be told once, in the language that is in force then.
using Notice = std::function<std::string()>;

struct LibraryPlace {
  std::filesystem::path file;
  bool onlyread = false;        ///< nothing may be stored in it, whatever the disk would allow
  std::vector<Notice> notices;  ///< what was done here that its user should know
};

/// Where the library of a program that stands in this folder is kept:
///
///   1  schemigenerati.mdb beside the program, when it can be written;
///   2  else, when a shipped one is there that can't (beside the program, or in ../share/gradino), the
///      user's own copy of it in the place for application data; the shipped one stays as it is;
///   3  else beside the program, if files can be made there;
///   4  else in the place for application data.
///
/// Makes the copy and the folder if need be. What stands there and is no library is put aside under another
/// name. Where the copy can't be made, the shipped one is the library, only to be read.
LibraryPlace libraryplace(const std::filesystem::path& programfolder);

}  // namespace gradino
