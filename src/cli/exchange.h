// Files in any of the common puzzle formats, as input of the sub-commands.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "puzzles.h"

namespace gradino::cli {

/// The largest file that is read as a whole, in bytes: three million puzzles of one line each.
inline constexpr std::size_t largestfile = 256 << 20;

/// "file:line: what", in the language in force.
std::string withfile(const std::string& name, const formats::Unreadable& error);

/// The file as messages name it: "-" is standard input.
std::string shownname(const std::string& file);

using UsePuzzles = std::function<void(const std::string& file, const std::vector<formats::Puzzle>& puzzles)>;

/// Hands over the puzzles of each file ("-" or none: standard input). A file that can't be read in full is
/// left out, with its line and what was expected there on standard error; the others are read all the same.
/// With keepgoing only the unreadable parts of a file are left out, and each is reported. False: something
/// was left out.
bool eachpuzzlefile(const std::vector<std::string>& files, const UsePuzzles& use, bool keepgoing = false);

}  // namespace gradino::cli
