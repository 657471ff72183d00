// The formats in which puzzles are exchanged, read strictly: a text is recognised as one of the formats
// below, or it is refused with the line and what was expected there. Nothing is guessed.
//
//   textgrids   one line of 81; nine lines; drawn grids; comma separated rows; pencil-mark grids; .sas; .ss
//               collections of one puzzle a line, and library lines  :tech:cand:givens:...
//   sections    .sdk with its sections and header lines
//   xmlformats  OpenSudoku of both versions, KSudoku
//   jsonformats GNOME Sudoku
//
// Everything but the givens (entries of a player, pencil marks of a game, times) is ignored.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace gradino::formats {

struct Puzzle {
  std::string cells;  ///< 81 of 1-9 and "."
  long line;          ///< its first line, counted from 1
};

/// A sentence in Italian and in English: the readers don't know the user's language.
struct Said {
  std::string it, en;
};

/// A text that can't be read: the line, and what was expected there.
struct Unreadable : std::runtime_error {
  Unreadable(long at, const Said& said) : std::runtime_error(said.en), line(at), italian(said.it) {}
  long line;
  std::string italian;
};

/// Callbacks during the reading of a text.
struct Listener {
  /// Called for each line of grids, since a long file has many.
  std::function<void()> line = [] {};
  /// Called for a part that is left out though it may have been meant as a puzzle; the reading goes on.
  std::function<void(const Unreadable&)> leftout = [](const Unreadable&) {};
  /// If set: called for each part that can't be read, and the rest is read. If not, the error is thrown.
  std::function<void(const Unreadable&)> unread;
};

/// Reads one part; if it fails and the listener has `unread`, the reading goes on without it.
void readpart(const Listener& listener, const std::function<void()>& read);

/// All puzzles of a text, at least one, in their order; lines end with LF, CR LF or CR. Throws Unreadable:
/// then nothing of the text is to be used.
std::vector<Puzzle> readpuzzles(std::string_view bytes, const Listener& listener = {});

/// True when a text begins like a format in which no line is a puzzle by itself: XML, JSON or sections.
bool isstructured(std::string_view bytes);

/// The puzzle, if it has at least one digit, and none twice in a house. Else throws Unreadable.
Puzzle checked(Puzzle puzzle);

}  // namespace gradino::formats
