// Puzzles from files or standard input, one a line.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace gradino::cli {

/// Hands over each line of the files ("-" or none: standard input), with the name of its file and its number
/// from 1. False: a file couldn't be read, which standard error was told.
bool eachline(const std::vector<std::string>& files,
              const std::function<void(const std::string& file, long number, const std::string& line)>& use);

/// True when what is read is typed in on a terminal meanwhile.
bool istyped(const std::vector<std::string>& files);

/// Hands over each puzzle: 81 of the symbols 1-9 and "." for an empty cell. Of a line the symbols 1-9 . 0 x X
/// are taken, the first 81 of them; a line without any, or that starts with #, is skipped. False: a line had
/// fewer than 81, or a file couldn't be read; standard error was told, and the others went on.
bool eachpuzzle(const std::vector<std::string>& files,
                const std::function<void(const std::string& puzzle)>& use);

}  // namespace gradino::cli
