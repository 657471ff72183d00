#include "jsonformats.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "textlines.h"

namespace gradino::formats {
namespace {

using Json = nlohmann::json;

constexpr long firstline = 1;  // a parsed value doesn't know its line

/// A whole number in a range; none there: the default, which is out of it.
long numberin(const Json& object, long low, long high, std::size_t number, const char* what) {
  if (object.is_number_integer())
    if (const auto value = object.get<long>(); value >= low && value <= high) return value;
  throw Unreadable(firstline, fmt::format("entry {} of \"cells\": expected {}", number, what));
}

void takecell(const Json& cell, std::size_t number, std::string& cells) {
  constexpr const char* where = "\"position\": [row, column], each 0 to 8";
  constexpr const char* form = "an object with \"position\", \"value\" and \"fixed\"";
  const auto fail = [&](const char* what) {
    throw Unreadable(firstline, fmt::format("entry {} of \"cells\": expected {}", number, what));
  };
  if (!cell.is_object() || !cell.contains("position") || !cell.contains("value") || !cell.contains("fixed"))
    fail(form);
  const Json& position = cell["position"];
  if (!position.is_array() || position.size() != 2) fail(where);
  if (!cell["fixed"].is_boolean()) fail("\"fixed\": true or false");
  const long row = numberin(position[0], 0, 8, number, where),
             column = numberin(position[1], 0, 8, number, where);
  const long value = numberin(cell["value"], 0, 9, number, "\"value\": 0 to 9");
  if (!cell["fixed"].get<bool>()) return;
  if (value == 0) fail("a digit in a cell that is fixed");
  char& place = cells[static_cast<std::size_t>(row * 9 + column)];
  if (place != '.') fail("each cell once");
  place = static_cast<char>('0' + value);
}

}  // namespace

std::vector<Puzzle> readjson(std::string_view text) {
  Json game;
  try {
    game = Json::parse(text);
  } catch (const Json::parse_error& error) {
    throw Unreadable(lineof(text, error.byte), "no JSON: expected a game as GNOME Sudoku keeps it");
  }
  const auto cells = game.find("cells");
  if (cells == game.end() || !cells->is_array())
    throw Unreadable(firstline, "expected a game as GNOME Sudoku keeps it, with a list \"cells\"");
  Puzzle puzzle{std::string(81, '.'), firstline};
  for (std::size_t i = 0; i < cells->size(); ++i) takecell((*cells)[i], i + 1, puzzle.cells);
  return {puzzle};
}

}  // namespace gradino::formats
