// A command line that isn't understood.
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
class ParseError;
}  // namespace CLI

namespace gradino::cli {

/// The name that was meant by a word, as far as its slips can tell; empty: none is near.
std::string nearest(const std::string& word, const std::vector<std::string>& names);

/// Answers a parse that ended: with help or version where they were asked for, else with what is wrong, on
/// standard error. Returns the exit status.
int answer(const CLI::App& app, const CLI::ParseError& error);

}  // namespace gradino::cli
