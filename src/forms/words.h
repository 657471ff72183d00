// Sentences. Each stands once, whole, Italian above English, with named holes, at the head of the file that
// says it:
//
//   constexpr Words headline = {"naked single nella cella r{row}c{col}",
//                               "naked single in cell r{row}c{col}"};
//   txthint.text = say(headline, hole("row", 3), hole("col", 4));
//
// The language is read at the moment of speaking.
#pragma once

#include <concepts>
#include <string>
#include <string_view>

#include <fmt/format.h>

#include "checked.h"

namespace gradino {

inline constexpr int english = 1, italian = 2;

/// The language in force, english or italian.
inline constinit int lingua = english;

struct Words {
  std::string_view it, en;
};

/// A named hole of a sentence and what fills it: a number or a text.
template <class T>
struct Hole {
  const char* name;
  T value;
};
inline Hole<int> hole(const char* name, std::convertible_to<int> auto const& number) {
  return {name, number};
}
inline Hole<std::string_view> hole(const char* name, std::string_view text) {
  return {name, text};
}

/// The words in the language in force.
inline std::string_view inlanguage(const Words& words) {
  return lingua == italian ? words.it : words.en;
}

/// The sentence in the language in force, its holes filled.
template <class... T>
std::string say(const Words& words, const Hole<T>&... holes) {
  return fmt::format(fmt::runtime(inlanguage(words)), fmt::arg(holes.name, holes.value)...);
}

/// What a fault was, for the user.
std::string faulttext(const Fault& fault);

/// The break between two lines of a text box.
inline constexpr std::string_view newline = "\r\n";

}  // namespace gradino
