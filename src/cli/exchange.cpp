#include "exchange.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>

#include <fmt/format.h>

namespace gradino::cli {
namespace {

std::optional<std::string> bytesof(const std::string& name) {
  if (name == "-") return std::string(std::istreambuf_iterator<char>(std::cin), {});
  std::error_code error;
  if (std::filesystem::is_directory(name, error)) return std::nullopt;
  std::ifstream in(name, std::ios::binary);
  if (!in) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(in), {});
}

}  // namespace

bool eachpuzzlefile(
    const std::vector<std::string>& files,
    const std::function<void(const std::string& file, const std::vector<formats::Puzzle>& puzzles)>& use) {
  bool good = true;
  const auto readone = [&](const std::string& file) {
    const std::string name = file == "-" ? "standard input" : file;
    const std::optional<std::string> bytes = bytesof(file);
    if (!bytes) {
      fmt::print(stderr, "{}: can't be read\n", name);
      good = false;
      return;
    }
    std::vector<formats::Puzzle> puzzles;
    try {
      puzzles = formats::readpuzzles(*bytes);
    } catch (const formats::Unreadable& error) {
      fmt::print(stderr, "{}:{}: {}\n", name, error.line, error.what());
      good = false;
      return;
    }
    use(file, puzzles);
  };
  if (files.empty()) readone("-");
  for (const std::string& file : files) readone(file);
  return good;
}

}  // namespace gradino::cli
