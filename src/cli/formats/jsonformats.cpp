#include "jsonformats.h"

#include <cstddef>
#include <iterator>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "textlines.h"

namespace gradino::formats {
namespace {

using Json = nlohmann::json;

constexpr long firstline = 1;

/// The text as an iterator for the parser that knows how far the parser has got.
class Cursor {
 public:
  using iterator_category = std::input_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = const char*;
  using reference = const char&;

  Cursor(const char* at, long& line) : at_(at), line_(&line) {}
  reference operator*() const { return *at_; }
  Cursor& operator++() {
    *line_ += *at_++ == '\n';
    return *this;
  }
  bool operator==(const Cursor& other) const { return at_ == other.at_; }

 private:
  const char* at_;
  long* line_;
};

/// The game, and the line in which each entry of "cells" begins, which a parsed value doesn't know.
struct Game {  // NOLINT(bugprone-exception-escape): what the library has as noexcept
  Json json;
  std::vector<long> lines;
};

Game parsed(std::string_view text) {
  constexpr int listdepth = 1, entrydepth = 2;
  Game game;
  long line = firstline;
  bool incells = false;
  const auto heed = [&](int depth, Json::parse_event_t event, const Json& value) {
    using Event = Json::parse_event_t;
    if (event == Event::key && depth == listdepth) {
      incells = value == "cells";
      if (incells) game.lines.clear();
    }
    if (incells && depth == entrydepth &&
        (event == Event::object_start || event == Event::array_start || event == Event::value))
      game.lines.push_back(line);
    return true;
  };
  try {
    const char* const end = text.data() + text.size();
    game.json = Json::parse(Cursor(text.data(), line), Cursor(end, line), heed);
  } catch (const Json::parse_error&) {
    throw Unreadable(line, {"non è JSON: attesa una partita come la conserva GNOME Sudoku",
                            "no JSON: expected a game as GNOME Sudoku keeps it"});
  } catch (const Json::out_of_range&) {
    throw Unreadable(line, {"un numero troppo grande: attesa una partita come la conserva GNOME Sudoku",
                            "a number out of range: expected a game as GNOME Sudoku keeps it"});
  }
  return game;
}

/// An entry of "cells".
struct Entry {
  const Json& json;
  std::size_t number;
  long line;

  [[noreturn]] void fail(const Said& what) const {
    throw Unreadable(line, {fmt::format("voce {} di \"cells\": {}", number, what.it),
                            fmt::format("entry {} of \"cells\": expected {}", number, what.en)});
  }
  /// A whole number in a range.
  long numberin(const Json& value, long low, long high, const Said& what) const {
    if (!value.is_number_integer() || value < low || value > high) fail(what);
    return value.get<long>();
  }
};

void takecell(const Entry& entry, std::string& cells) {
  const Said where = {R"(attesa "position": [riga, colonna], ciascuna da 0 a 8)",
                      R"("position": [row, column], each 0 to 8)"};
  const Json& cell = entry.json;
  if (!cell.is_object() || !cell.contains("position") || !cell.contains("value") || !cell.contains("fixed"))
    entry.fail({R"(atteso un oggetto con "position", "value" e "fixed")",
                R"(an object with "position", "value" and "fixed")"});
  const Json& position = cell["position"];
  if (!position.is_array() || position.size() != 2) entry.fail(where);
  if (!cell["fixed"].is_boolean()) entry.fail({"atteso \"fixed\": true o false", "\"fixed\": true or false"});
  const long row = entry.numberin(position[0], 0, 8, where),
             column = entry.numberin(position[1], 0, 8, where);
  const long value = entry.numberin(cell["value"], 0, 9, {"atteso \"value\": da 0 a 9", "\"value\": 0 to 9"});
  if (!cell["fixed"].get<bool>()) return;
  if (value == 0) entry.fail({"attesa una cifra in una cella fissa", "a digit in a cell that is fixed"});
  char& place = cells[static_cast<std::size_t>(row * 9 + column)];
  if (place != '.') entry.fail({"attesa ogni cella una volta sola", "each cell once"});
  place = static_cast<char>('0' + value);
}

}  // namespace

std::vector<Puzzle> readjson(std::string_view text) {
  const Game game = parsed(text);
  const auto cells = game.json.find("cells");
  if (cells == game.json.end() || !cells->is_array())
    throw Unreadable(firstline, {"attesa una partita come la conserva GNOME Sudoku, con una lista \"cells\"",
                                 "expected a game as GNOME Sudoku keeps it, with a list \"cells\""});
  Puzzle puzzle{std::string(81, '.'), firstline};
  for (std::size_t i = 0; i < cells->size(); ++i) takecell({(*cells)[i], i + 1, game.lines[i]}, puzzle.cells);
  return {puzzle};
}

}  // namespace gradino::formats
