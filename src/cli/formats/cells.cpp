#include "cells.h"

#include <array>
#include <set>
#include <vector>

#include "textlines.h"

namespace gradino::formats {
namespace {

constexpr std::size_t rowlength = 9, cellcount = 81;
constexpr std::string_view emptymarks = ".0xX*_-?";

bool isdigit(char c) {
  return c >= '1' && c <= '9';
}

bool ispencil(std::string_view field) {
  std::set<char> digits;
  for (const char c : field)
    if (!isdigit(c) || !digits.insert(c).second) return false;
  return field.size() > 1;
}

/// Takes one cell. False: it isn't one.
bool take(Cells& cells, std::string_view field, bool pencilallowed) {
  if (pencilallowed && ispencil(field)) {
    cells.symbols += '.';
    cells.pencil = true;
    return true;
  }
  if (field.size() > 1 || (!field.empty() && field[0] != ' ' && !issymbol(field[0]))) return false;
  char c = field.empty() ? ' ' : field[0];
  if (isdigit(c)) {
    cells.symbols += c;
    return true;
  }
  if (c == 'X') c = 'x';
  cells.symbols += '.';
  if (cells.marks.find(c) == std::string::npos) cells.marks += c;
  return true;
}

using Fields = std::vector<std::string_view>;

std::optional<Cells> cellsof(const Fields& fields, bool pencilallowed) {
  Cells cells;
  for (const std::string_view field : fields)
    if (!take(cells, field, pencilallowed)) return std::nullopt;
  return cells;
}

/// Every step-th character from the first on; the characters between must be blanks.
std::optional<Fields> everynth(std::string_view text, std::size_t first, std::size_t step,
                               std::size_t count) {
  Fields fields;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (at >= first && (at - first) % step == 0 && fields.size() < count)
      fields.push_back(text.substr(at, 1));
    else if (text[at] != ' ')
      return std::nullopt;
  }
  if (fields.size() != count) return std::nullopt;
  return fields;
}

/// Three cells between two bars.
std::optional<Cells> groupof(std::string_view piece) {
  const Fields tokens = words(piece);
  if (tokens.size() == 3) return cellsof(tokens, true);
  if (tokens.size() == 1 && tokens[0].size() == 3) return cellsof(*everynth(tokens[0], 0, 1, 3), false);
  // Blanks are empty cells here, so the positions of the digits matter. Two readings that differ count as
  // none.
  std::optional<Cells> found;
  const std::size_t width = piece.size();
  for (const auto& [size, first, step] :
       {std::array<std::size_t, 3>{3, 0, 1}, {5, 0, 2}, {5, 1, 1}, {7, 1, 2}}) {
    if (width != size) continue;
    const std::optional<Fields> fields = everynth(piece, first, step, 3);
    const std::optional<Cells> read = fields ? cellsof(*fields, false) : std::nullopt;
    if (read && found && read->symbols != found->symbols) return std::nullopt;
    if (read) found = read;
  }
  return found;
}

std::optional<Cells> joined(const std::vector<std::optional<Cells>>& groups) {
  Cells all;
  for (const std::optional<Cells>& group : groups) {
    if (!group) return std::nullopt;
    all.symbols += group->symbols;
    for (const char mark : group->marks)
      if (all.marks.find(mark) == std::string::npos) all.marks += mark;
    all.pencil = all.pencil || group->pencil;
  }
  return all;
}

std::optional<Cells> fencedrow(std::string_view line) {
  if (line.starts_with('|')) line.remove_prefix(1);
  if (line.ends_with('|')) line.remove_suffix(1);
  Fields pieces = splitat(line, '|');
  constexpr std::size_t doubled = rowlength + 2;  // between blocks there are two bars
  if (pieces.size() == doubled && pieces[3].empty() && pieces[7].empty()) {
    pieces.erase(pieces.begin() + 7);
    pieces.erase(pieces.begin() + 3);
  }
  if (pieces.size() == rowlength) {
    for (std::string_view& piece : pieces) piece = trimmed(piece);
    return cellsof(pieces, true);
  }
  if (pieces.size() == 3) return joined({groupof(pieces[0]), groupof(pieces[1]), groupof(pieces[2])});
  return std::nullopt;
}

/// A row or puzzle of fields, some perhaps empty, with separators between them and perhaps one at the end.
std::optional<Cells> separated(std::string_view line, std::size_t count) {
  for (const char separator : {',', ';', '\t'}) {
    Fields fields = splitat(line, separator);
    if (fields.size() == count + 1 && trimmed(fields.back()).empty()) fields.pop_back();
    if (fields.size() != count) continue;
    for (std::string_view& field : fields) {
      field = trimmed(field);
      const bool quoted = field.size() > 1 && field.front() == '"' && field.back() == '"';
      if (quoted && field.size() < 4) field = field.substr(1, field.size() - 2);
    }
    return cellsof(fields, false);
  }
  return std::nullopt;
}

}  // namespace

bool issymbol(char c) {
  return isdigit(c) || emptymarks.find(c) != std::string_view::npos;
}

std::optional<Cells> rowin(std::string_view line) {
  if (line.find_first_of(",;\t") != std::string_view::npos) {
    const std::optional<Cells> fields = separated(line, rowlength);
    const bool indented = trimmed(line).find_first_of(",;\t") == std::string_view::npos;
    return !fields && indented ? rowin(trimmed(line)) : fields;
  }
  if (line.find('|') != std::string_view::npos) return fencedrow(trimmed(line));
  const Fields tokens = words(line);
  if (tokens.size() == rowlength) return cellsof(tokens, true);
  if (tokens.size() == 1 && tokens[0].size() == rowlength)
    return cellsof(*everynth(tokens[0], 0, 1, rowlength), false);
  if (tokens.size() == 3 && tokens[0].size() == 3 && tokens[1].size() == 3 && tokens[2].size() == 3)
    return joined({groupof(tokens[0]), groupof(tokens[1]), groupof(tokens[2])});
  for (const std::size_t step : {1U, 2U})
    if (line.size() == rowlength * step - step + 1)
      if (const std::optional<Fields> fields = everynth(line, 0, step, rowlength))
        return cellsof(*fields, false);
  return std::nullopt;
}

std::optional<Cells> puzzlein(std::string_view line) {
  const std::string_view text = trimmed(line);
  std::size_t run = 0;
  while (run < text.size() && issymbol(text[run])) ++run;
  if (run == cellcount) {
    if (run < text.size() && std::string_view(" \t,;#/:|").find(text[run]) == std::string_view::npos)
      return std::nullopt;
    return cellsof(*everynth(text.substr(0, run), 0, 1, cellcount), false);
  }
  if (const Fields tokens = words(line); tokens.size() == cellcount) return cellsof(tokens, false);
  if (line.size() == cellcount && line.find_first_of(",;") == std::string_view::npos)
    return cellsof(*everynth(line, 0, 1, cellcount), false);
  return separated(line, cellcount);
}

std::optional<Cells> libraryline(std::string_view line) {
  const Fields fields = splitat(trimmed(line), ':');
  if (fields.size() < 4 || !fields[0].empty()) return std::nullopt;
  Cells cells;
  for (std::size_t at = 0; at < fields[3].size(); ++at) {
    const bool placed = fields[3][at] == '+';
    if (placed && (++at == fields[3].size() || !isdigit(fields[3][at]))) return std::nullopt;
    if (!placed && !take(cells, fields[3].substr(at, 1), false)) return std::nullopt;
    if (placed) cells.symbols += '.';
  }
  if (cells.symbols.size() != cellcount) return std::nullopt;
  return cells;
}

}  // namespace gradino::formats
