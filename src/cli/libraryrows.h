// Rows of the library as text: JSON lines, and comma-separated values under a line with the fields' names.
#pragma once

#include <functional>
#include <string>

#include "libraryrow.h"

namespace gradino::cli {

/// Texts can be written in these forms only when they are UTF-8.
bool isutf8(const LibraryRow& row);

std::string jsonline(const LibraryRow& row);
std::string csvheading();
std::string csvline(const LibraryRow& row);

/// Hands over the rows of a file of either form. False: lines of it are no rows, which standard error was
/// told, each with its number. Throws std::runtime_error when it can't be read.
bool eachrow(const std::string& path, const std::function<void(const LibraryRow&)>& use);

}  // namespace gradino::cli
