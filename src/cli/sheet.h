// Sheets of puzzles to be solved on paper.
#pragma once

#include <functional>

namespace CLI {
class App;
}

namespace gradino::cli {

/// Adds the sub-command `sheet`. The returned function runs it; false: a file couldn't be read, and the sheet
/// lacks its puzzles.
std::function<bool()> addsheet(CLI::App& app);

}  // namespace gradino::cli
