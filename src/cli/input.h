// Puzzles from files or standard input.
#pragma once

#include <functional>
#include <istream>
#include <string>
#include <vector>

namespace gradino::cli {

/// Hands over each file ("-" or none: standard input) as a stream, with its name for messages. False: one
/// couldn't be read, as standard error says.
bool eachfile(const std::vector<std::string>& files,
              const std::function<void(const std::string& file, std::istream& in)>& use);

/// True when the input is typed on a terminal.
bool istyped(const std::vector<std::string>& files);

/// Hands over each puzzle: 81 of the symbols 1-9 and "." for an empty cell.
///
/// A file is read line by line, each as it arrives. Of a line the first 81 of the symbols 1-9 . 0 x X count;
/// a line without any, or one that starts with #, is skipped. When the first line with symbols has fewer than
/// 81, the file may have another format: then it is read as a whole by the strict readers.
///
/// False: a line had fewer symbols, a file had no known format or couldn't be read. Standard error says so,
/// and the others were read.
bool eachpuzzle(const std::vector<std::string>& files,
                const std::function<void(const std::string& puzzle)>& use);

}  // namespace gradino::cli
