#include "puzzles.h"

#include <algorithm>
#include <array>
#include <utility>

#include <fmt/format.h>

#include "jsonformats.h"
#include "said.h"
#include "sections.h"
#include "textgrids.h"
#include "textlines.h"
#include "xmlformats.h"

namespace gradino::formats {
namespace {

constexpr std::size_t side = 9;

/// Row, column and block of a cell as numbers among the 27 houses.
std::array<std::size_t, 3> housesof(std::size_t cell) {
  const std::size_t row = cell / side, column = cell % side;
  return {row, side + column, 2 * side + row / 3 * 3 + column / 3};
}

std::string cellname(std::size_t cell) {
  return fmt::format("r{}c{}", cell / side + 1, cell % side + 1);
}

/// Characters of UTF-16 and binary files that texts don't have.
bool iscontrol(char c) {
  return static_cast<unsigned char>(c) < ' ' && c != '\t' && c != '\n' && c != '\f';
}

/// A line with such a character is emptied if the other lines are wanted all the same; in the first line it
/// means that the file is no text.
void checktext(std::string& text, const Listener& listener) {
  long line = 1;
  for (std::size_t begin = 0; begin < text.size(); ++line) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    const auto first = text.begin() + static_cast<std::ptrdiff_t>(begin);
    const auto last = text.begin() + static_cast<std::ptrdiff_t>(end);
    if (std::any_of(first, last, iscontrol)) {
      const Unreadable error(
          line, {"un carattere di controllo: atteso un testo, in UTF-8 o a un byte per carattere",
                 "a control character: expected a text, in UTF-8 or of single bytes"});
      if (!listener.unread || line == 1) throw Unreadable(error);
      listener.unread(error);
      std::fill(first, last, ' ');
    }
    begin = end + 1;
  }
}

/// Without a UTF-8 byte order mark and without the end-of-file character of DOS, which may be on a line of
/// its own.
std::string_view unmarked(std::string_view bytes) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  constexpr char endoftext = '\x1A';
  if (bytes.starts_with(mark)) bytes.remove_prefix(mark.size());
  const std::size_t end = bytes.find_last_not_of("\r\n\x1A") + 1;
  return bytes.find(endoftext, end) == std::string_view::npos ? bytes : bytes.substr(0, end);
}

/// Every line end, CR LF or CR alone too, becomes a line feed.
std::string plainlines(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at)
    if (text[at] != '\r')
      out += text[at];
    else if (at + 1 == text.size() || text[at + 1] != '\n')
      out += '\n';
  return out;
}

}  // namespace

Puzzle checked(Puzzle puzzle) {
  constexpr std::size_t none = 81;
  std::array<std::array<std::size_t, 9>, 27> holder;
  for (auto& digits : holder) digits.fill(none);
  bool any = false;
  for (std::size_t cell = 0; cell < puzzle.cells.size(); ++cell) {
    if (puzzle.cells[cell] == '.') continue;
    any = true;
    for (const std::size_t house : housesof(cell)) {
      std::size_t& before = holder[house][static_cast<std::size_t>(puzzle.cells[cell] - '1')];
      if (before != none)
        throw Unreadable(
            puzzle.line,
            said("lo schema che comincia qui ha un {} sia in {} sia in {}: attesa nessuna cifra due volte in "
                 "una riga, colonna o riquadro",
                 "the puzzle that begins here has a {} in both {} and {}: expected no digit twice in a row, "
                 "column or block",
                 puzzle.cells[cell], cellname(before), cellname(cell)));
      before = cell;
    }
  }
  if (!any)
    throw Unreadable(puzzle.line, {"lo schema che comincia qui è vuoto: attesa almeno una cifra",
                                   "the puzzle that begins here is empty: expected a digit at least"});
  return puzzle;
}

bool isstructured(std::string_view bytes) {
  const std::string text = plainlines(unmarked(bytes));
  const std::size_t first = text.find_first_not_of(" \t\n\f");
  if (first == std::string::npos) return false;
  return text[first] == '<' || text[first] == '{' || hassections(textlines(text));
}

void readpart(const Listener& listener, const std::function<void()>& read) {
  if (!listener.unread) return read();
  try {
    read();
  } catch (const Unreadable& error) {
    listener.unread(error);
  }
}

std::vector<Puzzle> readpuzzles(std::string_view bytes, const Listener& listener) {
  std::string text = plainlines(unmarked(bytes));
  checktext(text, listener);
  const std::size_t first = text.find_first_not_of(" \t\n\f");
  if (first == std::string::npos)
    throw Unreadable(1, {"niente: atteso uno schema", "nothing there: expected a puzzle"});
  std::vector<Puzzle> puzzles;
  if (text[first] == '<') {
    puzzles = readxml(text, listener);
  } else if (text[first] == '{') {
    puzzles = readjson(text);
  } else {
    const std::vector<TextLine> lines = textlines(text);
    puzzles = hassections(lines) ? readsections(lines, listener) : readgrids(lines, listener);
  }
  std::vector<Puzzle> good;
  for (Puzzle& puzzle : puzzles) readpart(listener, [&] { good.push_back(checked(std::move(puzzle))); });
  if (good.empty())
    throw Unreadable(1, {"non resta nessuno schema: atteso uno senza errori",
                         "no puzzle left: expected one without a fault"});
  return good;
}

}  // namespace gradino::formats
