// The library from the console.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "store.h"

namespace CLI {
class App;
}

namespace gradino::cli {

/// Adds the sub-command `library` with its own. The returned function runs the chosen one; false: there was
/// something to complain about, on standard output or error.
std::function<bool()> addlibrary(CLI::App& app);

/// The library to read: the one named, or the program's own when the name is empty. Throws when there is none
/// or it can't be read.
Store existinglibrary(const std::string& name);

/// The query of a level, hardest first, or of the whole library.
std::string libraryquery(std::optional<int> level);

}  // namespace gradino::cli
