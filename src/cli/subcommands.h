// What each sub-command prints for one puzzle: a line of JSON, a row of a table or a text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

namespace gradino::cli {

struct Options {
  std::string language = "en";
  bool json = false;
  bool snapshots = false;       ///< grade, JSON only
  bool explain = false;         ///< walk: the help picture is clicked at the first wait of each step
  int stop = 0;                 ///< walk: the step whose first wait is answered stop; 0: none
  bool supersymmetric = false;  ///< generate: four mirror cells at once
  std::uint64_t seed = 0;       ///< generate
};

/// Grades as opening a file does.
std::string grade(const std::string& puzzle, const Options& options);
std::string gradeheading();

/// Counts as the key `conta` does.
std::string count(const std::string& puzzle, const Options& options);
std::string countheading();

/// Makes the puzzle with this number, counted from 0. It depends on seed and number alone.
std::string generate(std::size_t number, const Options& options);
std::string generateheading();

/// Lets the step solver walk the puzzle, each wait answered go.
std::string walk(const std::string& puzzle, const Options& options);

/// A line that is not a JSON object.
struct NoObject : std::invalid_argument {
  using std::invalid_argument::invalid_argument;
};

/// What each technique alone does on the board of a JSON line: {"values": 81 digits, "cands": "m0,m1,...",
/// "solution": 81 digits, "nishio": bool}. Throws std::invalid_argument with what is wrong with the line,
/// NoObject if it isn't an object.
std::string techniques(const std::string& line, const Options& options);

}  // namespace gradino::cli
