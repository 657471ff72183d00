#include "input.h"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <sstream>

#include <unistd.h>

#include "exchange.h"
#include "progress.h"
#include "puzzles.h"
#include "words.h"

namespace gradino::cli {
namespace {

constexpr Words readingfailed = {"{file}: lettura interrotta", "{file}: reading failed"};
constexpr Words notread = {"{file}: impossibile leggere", "{file}: can't be read"};
constexpr Words tooshort = {"{file}:{line}: {n} celle su 81", "{file}:{line}: {n} of 81 cells"};
constexpr std::size_t cellcount = 81;

using UsePuzzle = std::function<void(const std::string&)>;

/// The symbols of the line. Empty: it is no line of a puzzle.
std::string symbols(const std::string& line) {
  std::string puzzle;
  if (line.starts_with('#')) return puzzle;
  for (char c : line) {
    if (puzzle.size() == cellcount) break;
    if (c >= '1' && c <= '9')
      puzzle += c;
    else if (c == '.' || c == '0' || c == 'x' || c == 'X')
      puzzle += '.';
  }
  return puzzle;
}

/// The reading of one file.
class Reading {
 public:
  Reading(const std::string& name, const UsePuzzle& use) : name_(name), use_(use) {}

  /// False: something couldn't be read.
  bool all(std::istream& in) {
    long number = 0;
    std::string line;
    while (open_ && std::getline(in, line)) {
      gather(line, in);
      ++number;
    }
    if (open_)
      readforms();
    else
      aslines(in, number + 1);
    return good_;
  }

 private:
  /// Takes a line while the format of the file is still unknown. A line of 81 symbols means a file with a
  /// puzzle on each line, unless it is part of a structured format, which may be written on a single line
  /// too.
  void gather(const std::string& line, std::istream& in) {
    text_.append(line).append("\n");
    const std::size_t count = symbols(line).size();
    if (count == 0) return;
    whole_ = whole_ || count == cellcount;
    short_ += count < cellcount;
    if (count == cellcount && !structured_)
      structured_ =
          formats::isstructured(text_) && (short_ > 0 || in.peek() == std::istream::traits_type::eof());
    open_ = (!whole_ || structured_) && text_.size() < largestfile;
    if (!open_) gatheredaslines();
  }

  void gatheredaslines() {
    std::istringstream gathered(std::move(text_));
    aslines(gathered, 1);
  }

  void aslines(std::istream& in, long number) {
    std::string line;
    for (; std::getline(in, line); ++number) {
      const std::string puzzle = symbols(line);
      if (puzzle.size() == cellcount)
        use_(puzzle);
      else if (!puzzle.empty())
        refuse(say(tooshort, hole("file", name_), hole("line", number), hole("n", puzzle.size())));
    }
  }

  /// The file has ended and may have any format.
  void readforms() {
    if (!whole_ && short_ == 0) return;
    std::vector<formats::Puzzle> puzzles;
    try {
      formats::Listener listener;
      listener.leftout = [&](const formats::Unreadable& part) { complain(withfile(name_, part)); };
      puzzles = formats::readpuzzles(text_, listener);
    } catch (const formats::Unreadable& error) {
      // A single short line is a puzzle with a mistake rather than another format.
      if (whole_ || short_ == 1) return gatheredaslines();
      return refuse(withfile(name_, error));
    }
    for (const formats::Puzzle& puzzle : puzzles) use_(puzzle.cells);
  }

  void refuse(const std::string& message) {
    complain(message);
    good_ = false;
  }

  const std::string& name_;
  const UsePuzzle& use_;
  std::string text_;  ///< the text collected so far
  long short_ = 0;    ///< its lines with fewer than 81 symbols
  bool whole_ = false, structured_ = false, open_ = true, good_ = true;
};

}  // namespace

bool eachfile(const std::vector<std::string>& files,
              const std::function<void(const std::string&, std::istream&)>& use) {
  bool good = true;
  const auto readall = [&](const std::string& name, std::istream& in) {
    use(name, in);
    if (in.bad()) {
      complain(say(readingfailed, hole("file", name)));
      good = false;
    }
  };
  if (files.empty()) readall(shownname("-"), std::cin);
  for (const std::string& name : files) {
    if (name == "-") {
      readall(shownname("-"), std::cin);
      continue;
    }
    std::ifstream in(name);
    if (in && in.peek() != std::ifstream::traits_type::eof())
      readall(name, in);
    else if (!in.eof()) {
      complain(say(notread, hole("file", name)));
      good = false;
    }
  }
  return good;
}

bool istyped(const std::vector<std::string>& files) {
  return isatty(STDIN_FILENO) == 1 && (files.empty() || std::ranges::find(files, "-") != files.end());
}

bool eachpuzzle(const std::vector<std::string>& files, const UsePuzzle& use) {
  bool good = true;
  const bool read = eachfile(
      files, [&](const std::string& name, std::istream& in) { good = Reading(name, use).all(in) && good; });
  return read && good;
}

}  // namespace gradino::cli
