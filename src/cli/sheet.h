// Sheets of puzzles to be solved on paper.
#pragma once

#include <functional>

namespace CLI {
class App;
}

namespace gradino::cli {

/// Adds the sub-command `sheet`. It runs by the function; false: a file wasn't read, and the sheet lacks it.
std::function<bool()> addsheet(CLI::App& app);

}  // namespace gradino::cli
