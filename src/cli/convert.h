// From the common puzzle formats to files that the window opens.
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

/// The content of a file of the format sav, lgc, sdm, ss or sdk for these puzzles: one, for sdm any number.
/// The window's scanner reads the first puzzle back as it is.
std::string written(const std::vector<formats::Puzzle>& puzzles, std::string_view form);

/// Adds the sub-command `convert`. The returned function runs it; false: a file couldn't be read or written.
std::function<bool()> addconvert(CLI::App& app);

}  // namespace gradino::cli
