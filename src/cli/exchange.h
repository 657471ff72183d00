// Files of any form that puzzles are exchanged in, as the sub-commands take them.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "puzzles.h"

namespace gradino::cli {

/// In bytes: a file that is read as a whole may be as large, three million puzzles of one line each.
inline constexpr std::size_t largestfile = 256 << 20;

/// "file:line: what", in the language in force.
std::string told(const std::string& name, const formats::Unreadable& error);

/// The file as messages name it: "-" is standard input.
std::string shownname(const std::string& file);

using UsePuzzles = std::function<void(const std::string& file, const std::vector<formats::Puzzle>& puzzles)>;

/// Hands over the puzzles of each file ("-" or none: standard input). A file that isn't read in full is left
/// out and standard error is told its line and what was expected; the others go on. With keepgoing only what
/// isn't read is left out of a file, and all of it is told. False: there was something.
bool eachpuzzlefile(const std::vector<std::string>& files, const UsePuzzles& use, bool keepgoing = false);

}  // namespace gradino::cli
