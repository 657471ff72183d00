// What other programs and people exchange puzzles in, read strictly: a text is recognised as one of the forms
// below, or it is refused with the line and with what was expected there. Nothing is guessed.
//
//   textgrids   one line of 81; nine lines; drawn grids; comma separated rows; pencil-mark grids; .sas; .ss
//               collections of one puzzle a line, and library lines  :tech:cand:givens:...
//   sections    .sdk with its sections and header lines
//   xmlformats  OpenSudoku of both versions, KSudoku
//   jsonformats GNOME Sudoku
//
// What a form holds besides the givens (entries of a player, pencil marks of a game, times) is left behind.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace gradino::formats {

struct Puzzle {
  std::string cells;  ///< 81 of 1-9 and "."
  long line;          ///< where it begins, from 1
};

/// A sentence in Italian and in English: who reads a text doesn't know its user's language.
struct Said {
  std::string it, en;
};

/// The text isn't read: which line, and what was expected.
struct Unreadable : std::runtime_error {
  Unreadable(long at, const Said& said) : std::runtime_error(said.en), line(at), italian(said.it) {}
  long line;
  std::string italian;
};

/// Who hears how a reading goes.
struct Listener {
  /// Each line of grids, which a long file has many of.
  std::function<void()> line = [] {};
  /// What is left out though it may have been meant as a puzzle; the reading goes on.
  std::function<void(const Unreadable&)> leftout = [](const Unreadable&) {};
  /// When there is one: what can't be read is told here, and the rest is read. Else it is thrown.
  std::function<void(const Unreadable&)> unread;
};

/// A part of a reading, which the rest can do without when the listener goes on.
void readpart(const Listener& listener, const std::function<void()>& read);

/// All puzzles of a text, at least one, in their order; its lines end at LF, CR LF or CR. Throws Unreadable;
/// then none of it is to be used.
std::vector<Puzzle> readpuzzles(std::string_view bytes, const Listener& listener = {});

/// True when a text begins as a form of which no line is a puzzle by itself: XML, JSON or sections.
bool isstructured(std::string_view bytes);

/// The puzzle, if it is one: a digit at least, and none twice in a house. Throws Unreadable.
Puzzle checked(Puzzle puzzle);

}  // namespace gradino::formats
