#include "xmlformats.h"

#include <algorithm>
#include <cctype>

#include <fmt/format.h>
#include <pugixml.hpp>

#include "said.h"
#include "textlines.h"

namespace gradino::formats {
namespace {

constexpr std::size_t cellcount = 81;

std::string withoutblanks(std::string_view text) {
  std::string out;
  for (const char c : text)
    if (std::isspace(static_cast<unsigned char>(c)) == 0) out += c;
  return out;
}

// OpenSudoku.

/// "version: 1", then for each cell its value, its notes and whether the player may change it.
std::string serialcells(const std::string& data, long line) {
  constexpr std::string_view head = "version:";
  const std::size_t begin = data.find_first_of("0123456789", head.size());
  std::size_t end = begin == std::string::npos ? begin : data.find_first_not_of("0123456789", begin);
  const auto fail = [&]() -> std::string {
    throw Unreadable(
        line, {"data di una partita: attesi \"version: n\" e per ognuna delle 81 celle value|note|editable|",
               "data of a game: expected \"version: n\" and for each of 81 cells value|note|editable|"});
  };
  if (end == std::string::npos) return fail();
  const std::string list = withoutblanks(data.substr(end));
  const std::vector<std::string_view> fields = splitat(list, '|');
  const std::size_t each = (fields.size() - 1) / cellcount;
  if (fields.size() != each * cellcount + 1 || !fields.back().empty() || each < 3 || each > 4) return fail();
  std::string cells;
  for (std::size_t at = 0; at + each <= fields.size(); at += each) {
    const std::string_view value = fields[at], editable = fields[at + each - 1];
    if (value.size() != 1 || value[0] < '0' || value[0] > '9' || (editable != "0" && editable != "1"))
      return fail();
    cells += editable == "0" && value != "0" ? value[0] : '.';
  }
  return cells;
}

Puzzle game(const pugi::xml_node& node, long line) {
  const std::string data(trimmed(node.attribute("data").value()));
  if (data.starts_with("version:")) return {serialcells(data, line), line};
  if (data.size() != cellcount || data.find_first_not_of("0123456789") != std::string::npos)
    throw Unreadable(
        line, {"data di una partita: attese 81 cifre 0-9", "data of a game: expected 81 of the digits 0-9"});
  Puzzle puzzle{data, line};
  std::ranges::replace(puzzle.cells, '0', '.');
  return puzzle;
}

std::vector<Puzzle> opensudoku(const pugi::xml_node& root, std::string_view text, const Listener& listener) {
  const auto line = [&](const pugi::xml_node& node) {
    return lineof(text, static_cast<std::size_t>(node.offset_debug()));
  };
  const std::string_view version = root.attribute("version").value();
  if (!version.empty() && version != "1" && version != "2")
    throw Unreadable(line(root), said("<opensudoku> di versione {}: attesa 1 o 2",
                                      "<opensudoku> of version {}: expected 1 or 2", version));
  std::vector<Puzzle> puzzles;
  const auto take = [&](const pugi::xml_node& node) {
    readpart(listener, [&] { puzzles.push_back(game(node, line(node))); });
  };
  for (const pugi::xml_node& child : root.children()) {
    if (child.name() == std::string_view("game")) take(child);
    if (child.name() == std::string_view("folder"))
      for (const pugi::xml_node& inner : child.children("game")) take(inner);
  }
  if (puzzles.empty())
    throw Unreadable(line(root), {"<opensudoku> senza una partita: attesa <game data=\"...\">",
                                  "<opensudoku> without a game: expected <game data=\"...\">"});
  return puzzles;
}

// KSudoku.

/// Values are letters, and 1 is b in some files and a in others: an a or a j in the puzzle or its solution
/// decides. Digits are taken as they are.
char lettersfrom(const std::string& values, const std::string& solution, long line) {
  const std::string all = values + solution;
  const bool a = all.find('a') != std::string::npos, j = all.find('j') != std::string::npos;
  const bool letters = std::ranges::any_of(all, [](char c) { return c >= 'a' && c <= 'j'; });
  if (letters && a == j)
    throw Unreadable(
        line, {"<values> di lettere: attese da a a i o da b a j, con una tra a e j in esse o in <solution>",
               "<values> of letters: expected a to i or b to j, one of a and j among them or in <solution>"});
  return a ? 'a' : 'b';
}

std::string values(const std::string& text, const std::string& solution, long line) {
  if (text.size() != cellcount)
    throw Unreadable(line, text.size() == 1
                               ? Said{"<values> di una cella: attese 81", "<values> of 1 cell: expected 81"}
                               : said("<values> di {} celle: attese 81", "<values> of {} cells: expected 81",
                                      text.size()));
  const char one = lettersfrom(text, solution, line);
  std::string cells;
  for (const char c : text) {
    if (c == '_' || c == '.' || c == '0')
      cells += '.';
    else if (c >= '1' && c <= '9')
      cells += c;
    else if (c >= one && c < one + 9)
      cells += static_cast<char>('1' + (c - one));
    else
      throw Unreadable(line, {"<values>: attese lettere o cifre, e _ per una cella vuota",
                              "<values>: expected letters or digits, and _ for an empty cell"});
  }
  return cells;
}

/// The file is written column by column.
std::string turned(const std::string& columns) {
  std::string rows(cellcount, '.');
  for (std::size_t i = 0; i < cellcount; ++i) rows[i % 9 * 9 + i / 9] = columns[i];
  return rows;
}

void checkgraph(const pugi::xml_node& graph, long line) {
  const std::string order = graph.attribute("order").as_string("9"),
                    type = graph.attribute("type").as_string("sudoku");
  std::string lower;
  for (const char c : type) lower += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  if (order != "9" || (lower != "sudoku" && lower != "plain") || graph.child("cage"))
    throw Unreadable(line,
                     said("uno schema di tipo {} e ordine {}: attesi tipo sudoku, ordine 9",
                          "a puzzle of type {} and order {}: expected type sudoku, order 9", type, order));
}

std::vector<Puzzle> ksudoku(const pugi::xml_node& root, std::string_view text) {
  const auto line = [&](const pugi::xml_node& node) {
    return lineof(text, static_cast<std::size_t>(node.offset_debug()));
  };
  const pugi::xml_node inner = root.child("game") ? root.child("game").child("puzzle") : root.child("puzzle");
  const pugi::xml_node valuesnode = inner.child("values");
  if (!valuesnode)
    throw Unreadable(line(root), {"<ksudoku>: atteso uno schema con le sue <values>",
                                  "<ksudoku>: expected a puzzle with its <values>"});
  checkgraph(inner.child("graph"), line(inner));
  const std::string solution = withoutblanks(inner.child("solution").text().get());
  return {
      {turned(values(withoutblanks(valuesnode.text().get()), solution, line(valuesnode))), line(valuesnode)}};
}

}  // namespace

std::vector<Puzzle> readxml(std::string_view text, const Listener& listener) {
  pugi::xml_document document;
  const pugi::xml_parse_result result = document.load_buffer(
      text.data(), text.size(), pugi::parse_default | pugi::parse_fragment, pugi::encoding_utf8);
  if (!result)
    throw Unreadable(
        lineof(text, static_cast<std::size_t>(result.offset)),
        said("non è XML ({}): attesi elementi ben formati", "no XML ({}): expected well-formed elements",
             std::string_view(result.description())));
  const pugi::xml_node root = document.first_child();
  if (const pugi::xml_node other = root.next_sibling()) {
    const auto at = static_cast<std::size_t>(other.offset_debug());
    throw Unreadable(lineof(text, text.find_first_not_of(" \t\f\n", at)),
                     {"altro dopo la fine dell'XML: atteso un solo elemento",
                      "more after the end of the XML: expected one element"});
  }
  const std::string_view name = root.name();
  if (name == "opensudoku") return opensudoku(root, text, listener);
  if (name == "ksudoku") return ksudoku(root, text);
  throw Unreadable(lineof(text, static_cast<std::size_t>(root.offset_debug())),
                   said("un elemento <{}>: atteso <opensudoku> o <ksudoku>",
                        "an element <{}>: expected <opensudoku> or <ksudoku>", name));
}

}  // namespace gradino::formats
