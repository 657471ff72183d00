// Any text is either read as puzzles or refused with a line number and a sentence.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "puzzles.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace gradino::formats;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const long lines = 1 + std::count(text.begin(), text.end(), '\n');
  try {
    const std::vector<Puzzle> puzzles = readpuzzles(text);
    if (puzzles.empty()) abort();
    for (const Puzzle& puzzle : puzzles) {
      if (puzzle.line < 1 || puzzle.line > lines || puzzle.cells.size() != 81) abort();
      if (puzzle.cells.find_first_not_of(".123456789") != std::string::npos) abort();
      if (readpuzzles(puzzle.cells).front().cells != puzzle.cells) abort();
    }
  } catch (const Unreadable& error) {
    if (error.line < 1 || error.line > lines || std::string_view(error.what()).empty()) abort();
  }
  Listener goeson;
  goeson.unread = goeson.leftout = [&](const Unreadable& error) {
    if (error.line < 1 || error.line > lines) abort();
  };
  try {
    readpuzzles(text, goeson);
  } catch (const Unreadable&) {
  }
  return 0;
}
