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

/// Adds the sub-command `library` with its own. The one that was chosen runs by the function: false: there
/// was something to complain about, which standard output or error was told.
std::function<bool()> addlibrary(CLI::App& app);

/// The library to look into: the one named, or the program's own when the name is empty. Throws what tells
/// that there is none, or that it can't be read.
Store existinglibrary(const std::string& name);

/// The query of a level, hardest first, or of the whole library.
std::string libraryquery(std::optional<int> level);

}  // namespace gradino::cli
