#include "textgrids.h"

#include <algorithm>
#include <cctype>
#include <set>

#include <fmt/format.h>

#include "cells.h"
#include "said.h"

namespace gradino::formats {
namespace {

constexpr std::size_t rowcount = 9;
constexpr std::string_view attesa =
    "attesa una linea di 81 celle, o una riga di nove, ciascuna 1-9 o, se vuota, uno di . 0 x X * _ - ? o uno "
    "spazio";
constexpr std::string_view expected =
    "expected a line of 81 cells, or a row of nine, each 1-9 or one of . 0 x X * _ - ? or blank for an empty one";

enum class Kind { blank, comment, frame, heading, row, undecided, whole, unread };

struct Line {
  Kind kind;
  long number;
  Cells cells;
};

bool isletter(char c) {
  return std::isalpha(static_cast<unsigned char>(c)) != 0 || static_cast<unsigned char>(c) >= 0x80;
}

bool iscomment(std::string_view text) {
  return text.starts_with('#') || text.starts_with(';') || text.starts_with("//");
}

/// A drawn line: only characters of frames, and not only dots.
bool isframe(std::string_view text) {
  return text.size() > 2 && text.find_first_not_of("+-=|*.:'`_,~ \t") == std::string_view::npos &&
         text.find_first_of("+-=_*~") != std::string_view::npos;
}

/// One long stroke: not a row or puzzle, though it has the length of one.
bool isstroke(std::string_view text) {
  return text.size() > rowcount && text.find_first_not_of(text.front()) == std::string_view::npos &&
         std::string_view("-=_*").find(text.front()) != std::string_view::npos;
}

/// A heading, as in "Grid 07", and not a row with a letter in it by mistake.
bool isheading(std::string_view text) {
  std::size_t all = 0, symbols = 0;
  bool word = false;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] != ' ' && text[at] != '|') {
      ++all;
      symbols += issymbol(text[at]);
    }
    word = word || (at > 0 && isletter(text[at]) && isletter(text[at - 1]));
  }
  const bool rowlike = symbols > 0 && all == rowcount && text.find(' ') == std::string_view::npos;
  return word && !rowlike && symbols * 2 < std::max<std::size_t>(all, rowcount);
}

bool couldbedrawn(const Cells& row) {
  return row.digitless() && row.marks.size() == 1 &&
         std::string_view(".-_* ").find(row.marks[0]) != std::string::npos;
}

Line linein(const TextLine& line) {
  const std::string_view text = trimmed(line.text);
  const auto is = [&](Kind kind) { return Line{kind, line.number, {}}; };
  // A row whose first field is empty may begin with a semicolon, as a comment does.
  if (!text.empty() && iscomment(text) && !(text.starts_with(';') && rowin(line.text)))
    return is(Kind::comment);
  if (text.starts_with(':'))
    if (const auto cells = libraryline(text)) return {Kind::whole, line.number, *cells};
  if (!text.empty() && isstroke(text)) return is(Kind::frame);
  if (const auto cells = puzzlein(line.text)) return {Kind::whole, line.number, *cells};
  if (const auto cells = rowin(line.text))
    return {couldbedrawn(*cells) ? Kind::undecided : Kind::row, line.number, *cells};
  if (text.empty()) return is(Kind::blank);
  if (isframe(text)) return is(Kind::frame);
  if (isheading(text)) return is(Kind::heading);
  throw Unreadable(line.number, {fmt::format("non è la linea di uno schema: {}", attesa),
                                 fmt::format("not a puzzle's line: {}", expected)});
}

void onemark(const std::string& marks, long line) {
  if (marks.size() > 1)
    throw Unreadable(
        line,
        said("le celle vuote sono sia \"{}\" sia \"{}\" nello schema che comincia qui: atteso un solo segno "
             "in tutto lo schema",
             "empty cells are \"{}\" as well as \"{}\" in the puzzle that begins here: expected one mark all "
             "over a puzzle",
             marks[0], marks[1]));
}

/// Nine rows.
Puzzle joined(const std::vector<Line>& rows, std::size_t from) {
  Puzzle puzzle{"", rows[from].number};
  std::string marks;
  for (std::size_t i = from; i < from + rowcount; ++i) {
    puzzle.cells += rows[i].cells.symbols;
    for (const char mark : rows[i].cells.marks)
      if (marks.find(mark) == std::string::npos) marks += mark;
  }
  onemark(marks, puzzle.line);
  return puzzle;
}

/// The rows between two headings, with a placeholder for each that couldn't be read, and the positions of
/// blank lines and of drawn ones: the number of rows above each.
struct Section {
  std::vector<Line> rows;
  std::set<std::size_t> gaps;
};

Section decided(const std::vector<Line>& lines) {
  std::string marks;
  for (const Line& line : lines)
    if (line.kind == Kind::row) marks += line.cells.marks;
  Section section;
  for (const Line& line : lines) {
    if (line.kind == Kind::row || line.kind == Kind::unread ||
        (line.kind == Kind::undecided && marks.find(line.cells.marks[0]) != std::string::npos))
      section.rows.push_back(line);
    else if (line.kind != Kind::comment)
      section.gaps.insert(section.rows.size());
  }
  return section;
}

/// A gap with this many rows of its puzzle above it.
Said gapbelow(std::size_t rows) {
  if (rows == 1)
    return {
        "una linea vuota o disegnata sopra questa riga e una sola riga del suo schema prima di essa: attese "
        "nove righe insieme, o fasce di tre, o ogni riga da sola",
        "a blank or drawn line above this row and 1 row of its puzzle before it: expected nine rows "
        "together, or bands of three, or each row alone"};
  return said(
      "una linea vuota o disegnata sopra questa riga e {} righe del suo schema prima di essa: attese nove "
      "righe insieme, o fasce di tre, o ogni riga da sola",
      "a blank or drawn line above this row and {} rows of its puzzle before it: expected nine rows together, "
      "or bands of three, or each row alone",
      rows);
}

/// Blank lines separate puzzles, or bands, or all rows. Anything else means that a puzzle lacks a row, and
/// would take the first row of the next one.
void checkgaps(const Section& section) {
  for (std::size_t first = 0; first < section.rows.size(); first += rowcount) {
    std::vector<std::size_t> inside, bands, all;
    for (std::size_t above = 1; above < std::min(rowcount, section.rows.size() - first); ++above) {
      all.push_back(above);
      if (above % 3 == 0) bands.push_back(above);
      if (section.gaps.contains(first + above)) inside.push_back(above);
    }
    if (inside.empty() || inside == bands || inside == all) continue;
    const auto odd = std::ranges::find_if(inside, [](std::size_t above) { return above % 3 != 0; });
    const std::size_t above = odd != inside.end() ? *odd : inside.front();
    throw Unreadable(section.rows[first + above].number, gapbelow(above));
  }
}

[[noreturn]] void notnine(const std::vector<Line>& rows, std::size_t from, std::size_t count) {
  if (count == 1)
    throw Unreadable(rows[from].number, {"una riga da sola: attese nove per schema",
                                         "1 row by itself: expected nine to a puzzle"});
  throw Unreadable(rows[from].number, said("{} righe da qui alla linea {}: attese nove per schema",
                                           "{} rows from here to line {}: expected nine to a puzzle", count,
                                           rows[from + count - 1].number));
}

void checkrows(const Section& section) {
  checkgaps(section);
  const std::size_t count = section.rows.size(), over = count % rowcount;
  if (over != 0) notnine(section.rows, count - over, over);
}

bool isread(const Line& line) {
  return line.kind != Kind::unread;
}

/// Nine rows, unless one of them couldn't be read and was reported.
void takepuzzle(const std::vector<Line>& rows, std::size_t from, std::vector<Puzzle>& puzzles,
                const Listener& listener) {
  const auto begin = rows.begin() + static_cast<std::ptrdiff_t>(from);
  if (!std::all_of(begin, begin + rowcount, isread)) return;
  readpart(listener, [&] { puzzles.push_back(joined(rows, from)); });
}

/// Rows that don't make whole puzzles: those are taken that come in groups of nine.
void taketogether(const Section& section, const Unreadable& fault, std::vector<Puzzle>& puzzles,
                  const Listener& listener) {
  std::set<std::size_t> ends = section.gaps;
  ends.insert(section.rows.size());
  ends.erase(0);
  const std::size_t before = puzzles.size();
  std::vector<Unreadable> others;
  for (std::size_t from = 0; const std::size_t end : ends) {
    if (end - from == rowcount)
      takepuzzle(section.rows, from, puzzles, listener);
    else
      try {
        notnine(section.rows, from, end - from);
      } catch (const Unreadable& error) {
        others.push_back(error);
      }
    from = end;
  }
  if (puzzles.size() == before) others = {fault};
  for (const Unreadable& error : others) listener.unread(error);
}

void readrows(const std::vector<Line>& lines, std::vector<Puzzle>& puzzles, const Listener& listener) {
  const Section section = decided(lines);
  const std::vector<Line>& rows = section.rows;
  if (std::ranges::none_of(rows, isread)) return;
  try {
    checkrows(section);
  } catch (const Unreadable& fault) {
    if (!listener.unread) throw;
    return taketogether(section, fault, puzzles, listener);
  }
  for (std::size_t from = 0; from < rows.size(); from += rowcount) takepuzzle(rows, from, puzzles, listener);
}

void refuse(const Line& line, const Said& found) {
  throw Unreadable(
      line.number,
      {fmt::format("{} tra schemi di una linea ciascuno: attese 81 celle in ogni linea", found.it),
       fmt::format("{} among puzzles of one line each: expected 81 cells in each line", found.en)});
}

void takeline(const Line& line, std::vector<Puzzle>& puzzles) {
  if (line.kind == Kind::row || (line.kind == Kind::undecided && line.cells.marks == "."))
    refuse(line, {"una riga di nove celle", "a row of nine cells"});
  if (line.kind == Kind::heading) refuse(line, {"altre parole", "other words"});
  if (line.kind != Kind::whole) return;
  onemark(line.cells.marks, line.number);
  puzzles.push_back({line.cells.symbols, line.number});
}

std::vector<Puzzle> readcollection(const std::vector<Line>& lines, const Listener& listener) {
  std::vector<Puzzle> puzzles;
  for (const Line& line : lines) readpart(listener, [&] { takeline(line, puzzles); });
  return puzzles;
}

}  // namespace

std::vector<Puzzle> readgrids(const std::vector<TextLine>& text, const Listener& listener) {
  std::vector<Line> lines;
  for (const TextLine& line : text) {
    lines.push_back({Kind::unread, line.number, {}});
    readpart(listener, [&] { lines.back() = linein(line); });
    listener.line();
  }
  if (std::ranges::find(lines, Kind::whole, &Line::kind) != lines.end())
    return readcollection(lines, listener);

  std::vector<Puzzle> puzzles;
  std::vector<Line> section;
  for (const Line& line : lines) {
    if (line.kind == Kind::heading) {
      readrows(section, puzzles, listener);
      section.clear();
    } else {
      section.push_back(line);
    }
  }
  readrows(section, puzzles, listener);
  if (puzzles.empty())
    throw Unreadable(text.front().number,
                     {fmt::format("nessuno schema: {}", attesa), fmt::format("no puzzle: {}", expected)});
  return puzzles;
}

}  // namespace gradino::formats
