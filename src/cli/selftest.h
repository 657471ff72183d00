// The techniques tested on any puzzles: no step may contradict the solution.
#pragma once

#include <functional>
#include <string>

namespace CLI {
class App;
}

namespace gradino::cli {

/// Adds the sub-command `selftest`. It runs by the function; false: a step contradicted a solution, or a file
/// wasn't read.
std::function<bool()> addselftest(CLI::App& app);

}  // namespace gradino::cli
