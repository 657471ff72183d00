// From what puzzles are exchanged in to files that the window opens as they are.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "puzzles.h"

namespace CLI {
class App;
}

namespace gradino::cli {

/// What a file of the form (sav, lgc, sdm, ss or sdk) holds for the puzzles: one, for sdm any number. The
/// window's scanner reads the first puzzle back as it is.
std::string written(const std::vector<formats::Puzzle>& puzzles, std::string_view form);

/// Adds the sub-command `convert`. It runs by the function; false: a file wasn't read or written.
std::function<bool()> addconvert(CLI::App& app);

}  // namespace gradino::cli
