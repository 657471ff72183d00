// Sentences. Each is written once, whole, Italian above English, with named holes, at the head of the file
// that uses it:
//
//   constexpr Words headline = {"naked single nella cella {cell}", "naked single in cell {cell}"};
//   txthint.text = say(headline, incell(cell));
//
// The language is the one in force when a sentence is used.
#pragma once

#include <concepts>
#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>

#include "houses.h"

namespace gradino {

inline constexpr int english = 1, italian = 2;

/// The language in force, english or italian.
inline constinit int lingua = english;

struct Words {
  std::string_view it, en;
};

/// A named hole of a sentence and what fills it: a number or a text.
struct Hole {
  std::string_view name;
  std::variant<long long, std::string_view> value;
};
inline Hole hole(std::string_view name, std::convertible_to<long long> auto const& number) {
  return {name, static_cast<long long>(number)};
}
inline Hole hole(std::string_view name, std::string_view text) {
  return {name, text};
}

/// The two holes that most sentences of a step have: {cell}, read as "r4c5", and {digit}.
inline Hole incell(int cell) {
  return hole("cell", cellname(cell));
}
inline Hole ofdigit(int digit) {
  return hole("digit", digit);
}

/// The words in the language in force.
inline std::string_view inlanguage(const Words& words) {
  return lingua == italian ? words.it : words.en;
}

/// A sentence with its holes filled. Throws std::logic_error if a hole is left open, which is a programming
/// error.
std::string filled(std::string_view sentence, std::initializer_list<Hole> holes);

/// The sentence in the language in force, its holes filled.
std::string say(const Words& words, std::same_as<Hole> auto const&... holes) {
  return filled(inlanguage(words), {holes...});
}

/// A sentence of a number of things, each form with the hole {n}: "{n} schema", "{n} puzzle" for one of them,
/// "{n} schemi", "{n} puzzles" for any other number.
struct Counted {
  Words one, many;
};
inline std::string say(const Counted& sentence, std::convertible_to<long long> auto const& n) {
  return say(n == 1 ? sentence.one : sentence.many, hole("n", n));
}

/// The break between two lines of a text box.
inline constexpr std::string_view newline = "\r\n";

}  // namespace gradino
