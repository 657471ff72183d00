#include "input.h"

#include <algorithm>
#include <fstream>
#include <iostream>

#include <fmt/format.h>
#include <unistd.h>

#include "progress.h"

namespace gradino::cli {
namespace {

constexpr std::size_t cellcount = 81;

std::string symbols(const std::string& line) {
  std::string puzzle;
  for (char c : line) {
    if (puzzle.size() == cellcount) break;
    if (c >= '1' && c <= '9')
      puzzle += c;
    else if (c == '.' || c == '0' || c == 'x' || c == 'X')
      puzzle += '.';
  }
  return puzzle;
}

}  // namespace

bool eachline(const std::vector<std::string>& files,
              const std::function<void(const std::string&, long, const std::string&)>& use) {
  bool good = true;
  const auto readall = [&](const std::string& name, std::istream& in) {
    std::string line;
    for (long number = 1; std::getline(in, line); ++number) use(name, number, line);
    if (in.bad()) {
      complain(fmt::format("{}: reading failed", name));
      good = false;
    }
  };
  if (files.empty()) readall("standard input", std::cin);
  for (const std::string& name : files) {
    if (name == "-") {
      readall("standard input", std::cin);
      continue;
    }
    std::ifstream in(name);
    if (in && in.peek() != std::ifstream::traits_type::eof())
      readall(name, in);
    else if (!in.eof()) {
      complain(fmt::format("{}: can't be read", name));
      good = false;
    }
  }
  return good;
}

bool istyped(const std::vector<std::string>& files) {
  return isatty(STDIN_FILENO) == 1 && (files.empty() || std::ranges::find(files, "-") != files.end());
}

bool eachpuzzle(const std::vector<std::string>& files, const std::function<void(const std::string&)>& use) {
  bool good = true;
  const bool read = eachline(files, [&](const std::string& file, long number, const std::string& line) {
    if (line.starts_with('#')) return;
    const std::string puzzle = symbols(line);
    if (puzzle.empty()) return;
    if (puzzle.size() == cellcount) return use(puzzle);
    complain(fmt::format("{}:{}: {} of 81 cells", file, number, puzzle.size()));
    good = false;
  });
  return read && good;
}

}  // namespace gradino::cli
