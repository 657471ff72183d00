// What the benchmarks on files share.
#pragma once

#include <fstream>
#include <string>
#include <vector>

namespace gradino::bench {

/// The first 81 characters of each line that has so many, "." or 0 for an empty cell.
inline std::vector<std::string> puzzlesof(const std::string& name) {
  std::ifstream file(name);
  std::vector<std::string> puzzles;
  for (std::string line; std::getline(file, line);)
    if (line.size() >= 81) puzzles.push_back(line.substr(0, 81));
  return puzzles;
}

}  // namespace gradino::bench
