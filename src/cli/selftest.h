// Tests the techniques on any puzzles: no step may contradict the solution.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace gradino::cli {

/// Grades and walks a puzzle with one solution. Returns, as text for `report`, what the steps of each
/// technique did, and what was wrong with them.
std::string checksteps(const std::string& puzzle);

/// Prints what `check` found wrong with the puzzles, and the summary by technique. False: something was
/// wrong, or nothing was checked.
bool report(const std::vector<std::string>& puzzles, int jobs,
            const std::function<std::string(const std::string& puzzle)>& check);

/// Adds the sub-command `selftest`. The returned function runs it; false: a step contradicted a solution, a
/// file couldn't be read, or no puzzle was checked.
std::function<bool()> addselftest(CLI::App& app);

}  // namespace gradino::cli
