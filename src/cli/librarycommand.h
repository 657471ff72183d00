// The library from the console.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace gradino::cli {

/// Adds the sub-command `library` with its own. The one that was chosen runs by the function: false: there
/// was something to complain about, which standard output or error was told.
std::function<bool()> addlibrary(CLI::App& app);

/// The library's file: the one named, or the program's own when the name is empty.
std::filesystem::path librarystore(const std::string& name);

/// The query of a level, hardest first, or of the whole library.
std::string libraryquery(std::optional<int> level);

}  // namespace gradino::cli
