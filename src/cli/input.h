// Puzzles from files or standard input.
#pragma once

#include <functional>
#include <istream>
#include <string>
#include <vector>

namespace gradino::cli {

/// Hands over each file ("-" or none: standard input) as a stream, with the name that messages give it.
/// False: one couldn't be read, which standard error was told.
bool eachfile(const std::vector<std::string>& files,
              const std::function<void(const std::string& file, std::istream& in)>& use);

/// True when what is read is typed in on a terminal meanwhile.
bool istyped(const std::vector<std::string>& files);

/// Hands over each puzzle: 81 of the symbols 1-9 and "." for an empty cell.
///
/// A file is read line by line, each as it comes. The symbols 1-9 . 0 x X are taken of it, the first 81 of
/// them; a line without any, or that starts with #, is skipped. When the first line of symbols is short of
/// 81, the file may be of another form: then it is read as a whole as the strict readers do.
///
/// False: a line had fewer symbols, a file was of no form, or it couldn't be read. Standard error was told,
/// and the others went on.
bool eachpuzzle(const std::vector<std::string>& files,
                const std::function<void(const std::string& puzzle)>& use);

}  // namespace gradino::cli
