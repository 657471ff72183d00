// Rows of the library as text: JSON lines, and comma-separated values under a heading with the names of the
// fields.
#pragma once

#include <functional>
#include <string>

#include "libraryrow.h"

namespace gradino::cli {

/// Only UTF-8 texts can be written in these formats.
bool isutf8(const LibraryRow& row);

std::string jsonline(const LibraryRow& row);
std::string csvheading();
std::string csvline(const LibraryRow& row);

/// Hands over the rows of a file of either format. False: some of its lines are no rows; standard error names
/// each by its number. Throws std::runtime_error when the file can't be read.
bool eachrow(const std::string& path, const std::function<void(const LibraryRow&)>& use);

}  // namespace gradino::cli
