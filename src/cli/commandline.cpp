#include "commandline.h"

#include <algorithm>
#include <array>

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <fmt/ranges.h>

namespace gradino::cli {
namespace {

/// The edit distance of two words: a letter too many, a missing or a wrong one, or two neighbours swapped
/// count one each.
std::size_t slips(const std::string& from, const std::string& to) {
  std::array<std::vector<std::size_t>, 3> rows;  // for the last three prefixes of `from`
  for (std::size_t i = 0; i <= from.size(); ++i) {
    std::vector<std::size_t>&row = rows[i % 3], &above = rows[(i + 2) % 3], &third = rows[(i + 1) % 3];
    row.assign(to.size() + 1, i);
    for (std::size_t j = 0; j <= to.size(); ++j) {
      if (i == 0 || j == 0) {
        row[j] = i + j;
        continue;
      }
      const bool same = from[i - 1] == to[j - 1];
      row[j] = std::min({above[j] + 1, row[j - 1] + 1, above[j - 1] + (same ? 0 : 1)});
      if (i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1])
        row[j] = std::min(row[j], third[j - 2] + 1);
    }
  }
  return rows[from.size() % 3].back();
}

std::vector<std::string> subcommandsof(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::App* command : app.get_subcommands({})) names.push_back(command->get_name());
  return names;
}

/// The message for a missing subcommand. Empty: the error is another one.
std::string missing(const CLI::App& app) {
  const CLI::App* at = &app;
  while (!at->get_subcommands().empty()) at = at->get_subcommands().front();
  const std::vector<std::string> names = subcommandsof(*at), words = app.remaining(true);
  if (names.empty() || words.empty()) return {};
  const std::string& word = words.front();
  if (word.starts_with('-')) return fmt::format("{}: no such option", word);
  const std::string meant = nearest(word, names);
  if (!meant.empty()) return fmt::format("{}: no such subcommand; the nearest one is {}", word, meant);
  return fmt::format("{}: no such subcommand; there are {}", word, fmt::join(names, ", "));
}

}  // namespace

// The prefix of a name counts as the name, but at most half of the letters may be wrong.
std::string nearest(const std::string& word, const std::vector<std::string>& names) {
  const auto begun = [&](const std::string& name) { return name.starts_with(word); };
  if (std::ranges::count_if(names, begun) == 1) return *std::ranges::find_if(names, begun);
  const auto near =
      std::ranges::min_element(names, {}, [&](const std::string& name) { return slips(word, name); });
  if (near == names.end() || slips(word, *near) * 2 > std::min(word.size(), near->size())) return {};
  return *near;
}

int answer(const CLI::App& app, const CLI::ParseError& error) {
  const bool required = error.get_exit_code() == static_cast<int>(CLI::ExitCodes::RequiredError);
  const std::string message = required ? missing(app) : std::string();
  if (message.empty()) return app.exit(error);
  fmt::print(stderr, "{}\nRun with --help for more information.\n", message);
  return error.get_exit_code();
}

}  // namespace gradino::cli
