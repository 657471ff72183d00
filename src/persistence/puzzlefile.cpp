#include "puzzlefile.h"

#include <array>
#include <charconv>
#include <filesystem>
#include <system_error>

#include "boxes.h"
#include "grid.h"
#include "replacefile.h"
#include "tables.h"
#include "words.h"

namespace gradino {
namespace {

constexpr std::string_view rule = "=============================================================";
constexpr std::string_view rowline = "| .     .     .     | .     .     .     | .     .     .     |";

[[noreturn]] void filefault(const std::string& name) {
  throw Fault{Fault::Kind::file, name, 0, 0, 0, ""};
}

/// The file ended too early, or a field is no number.
[[noreturn]] void unreadable() {
  throw Fault{Fault::Kind::file, "fewer than 81 cells", 0, 0, 0, ""};
}

/// The next line of the file, ended by CR LF or LF. A line that is too long is read only far enough to see
/// that.
std::string takeline(std::istream& file) {
  constexpr std::size_t enough = 300;
  std::string line;
  char c = 0;
  if (!file.get(c)) unreadable();
  for (; file && c != '\n' && line.size() < enough; file.get(c)) line += c;
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

void setcell(int cell, std::string_view digit, Colour colour) {
  givens(cell) = digit;
  cellvalue(cell) = digit.empty() ? 0 : digit.front() - '0';
  writetext1(cell, digit);
  frmmain::Text1(cell).fore = colour;
}

std::string drawing() {
  std::string text;
  for (int band = 0; band < 3; ++band) {
    text.append(rule).append(newline);
    for (int row = 0; row < 3; ++row) text.append(rowline).append(newline);
  }
  return text.append(rule);
}

/// The positions of the 81 dots in the drawing, cell by cell.
std::array<std::size_t, 81> dots(const std::string& drawn) {
  std::array<std::size_t, 81> places;
  std::size_t at = 0;
  for (std::size_t& place : places) {
    place = drawn.find('.', at);
    at = place + 1;
  }
  return places;
}

/// The symbol of a cell: the text of its box, which may be anything the user typed, or "." if that is empty.
std::string symbol(int cell) {
  const std::string& text = frmmain::Text1(cell).text;
  return text.empty() ? "." : text;
}

}  // namespace

std::ifstream openpuzzlefile(const std::string& name) {
  std::error_code error;
  std::ifstream file;
  if (std::filesystem::is_regular_file(name, error)) file.open(name, std::ios::binary);
  if (!file.is_open()) filefault(name);
  return file;
}

int scanline(std::string_view line, int pos) {
  Byte length{"line length"}, at{"line position"};
  length = line.size();
  for (at = 1; at <= length; at += 1) {
    const std::string_view character = line.substr(static_cast<std::size_t>(at - 1), 1);
    const char c = character.front();
    if (c >= '1' && c <= '9')
      setcell(pos, character, red);
    else if (c == '.' || c == '0' || c == 'x' || c == 'X')
      setcell(pos, "", textcolor);
    else
      continue;
    if (++pos == cellcount) break;
  }
  return pos;
}

void scanfile(std::istream& file) {
  for (int pos = 0; pos < cellcount;) pos = scanline(takeline(file), pos);
}

void readcommas(std::istream& file) {
  const std::string line = takeline(file);
  Byte comma{"comma position"}, number{"number of the file"};
  std::size_t pos = 0;
  for (int cell = 0; cell < cellcount; ++cell) {
    const std::size_t found = line.find(',', pos);
    if (found == std::string::npos) unreadable();
    comma = found + 1;
    const std::string field = line.substr(pos, found - pos);
    const std::size_t begin = field.find_first_not_of(' '), end = field.find_last_not_of(' ') + 1;
    int value = 0;
    const char* const last = field.data() + end;
    if (begin == std::string::npos) unreadable();
    if (const auto read = std::from_chars(field.data() + begin, last, value);
        read.ec != std::errc{} || read.ptr != last)
      unreadable();
    number = value;
    writetext1(cell, std::to_string(number));
    pos = found + 1;
  }
}

std::string puzzleline() {
  std::string text;
  for (int cell = 0; cell < cellcount; ++cell) text += symbol(cell);
  return text;
}

// A digit replaces its dot one for one; a longer text overwrites what follows the dot.
std::string puzzledrawing() {
  std::string text = drawing();
  const std::array<std::size_t, 81> places = dots(text);
  for (int cell = 0; cell < cellcount; ++cell)
    if (const std::string s = symbol(cell); s != ".")
      text.replace(places[static_cast<std::size_t>(cell)], s.size(), s);
  return text;
}

void writepuzzle(const std::string& name) {
  const std::string content = name.ends_with("lgc") ? puzzledrawing() : puzzleline();
  if (!replacefile(name, content + std::string(newline))) filefault(name);
}

}  // namespace gradino
