// A command line that isn't understood.
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
class ParseError;
}  // namespace CLI

namespace gradino::cli {

/// The name that a misspelt word probably stands for. Empty: none is close enough.
std::string nearest(const std::string& word, const std::vector<std::string>& names);

/// Answers a parse that ended early: help or version on request, else the error, on standard error. Returns
/// the exit status.
int answer(const CLI::App& app, const CLI::ParseError& error);

}  // namespace gradino::cli
