// The scripted player: a host that answers waits and dialogs from a script and records what was to be seen.
//
//   Player player;                              // the fixture Program has one
//   player.script = {help, go};                 // the first wait: help picture; the next one: green light
//   player.names = {path, cancelled};           // file dialogs
//   player.event(mnuposition_Click);            // as the window would run it
//   EXPECT_EQ(player.frames.at(0).hint, ...);   // what was on show when the player was asked
//
// If the script has no answer left, it throws: an unexpected wait fails the test instead of hanging it.
#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "boxes.h"
#include "tables.h"
#include "words.h"

namespace gradino::tests {

/// The player was asked and had no answer.
struct Unscripted : std::logic_error {
  using std::logic_error::logic_error;
};

/// Boxes whose background is not white, by index.
using Paint = std::map<int, std::string>;

/// What was to be seen when the player was asked.
struct Frame {
  std::string tag, hint, number;
  std::optional<std::string> activity;  ///< the text of the explanation window, while it is shown
  Paint Text1, Text2, candidate;
  bool operator==(const Frame&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Frame& frame);

/// What is painted now.
Frame look();

// Acts of the player at a wait.
using Act = std::function<void()>;
extern const Act go, stop, help;

inline const std::optional<std::string> cancelled = std::nullopt;

class Player {
 public:
  /// Takes over as the program's host.
  void play();

  /// Runs an event as the window does: with the guard that reports faults.
  void event(const std::function<void()>& body);

  std::deque<Act> script;                        ///< one act for each time that a wait asks
  std::deque<std::optional<std::string>> names;  ///< one answer for each file dialog
  double now = 0;                                ///< seconds since midnight

  std::vector<Frame> frames;                      ///< one for each time that a wait asked
  std::vector<std::string> boxes;                 ///< message boxes, in order
  std::vector<std::string> filters, suggestions;  ///< of the file dialogs
  std::function<void(const std::string&)> onbox;  ///< looks on while a message box is open
  std::function<void()> onevents;                 ///< what comes in when a long routine lets events run
  int repaints = 0, turns = 0;
};

/// All tables of the board, to compare whole boards.
struct Board {
  std::string values, givens, text1;  ///< 81 characters, "." for empty
  std::vector<int> candmask, usedmask;
  std::vector<std::string> candstr, rowpos, colpos, blockpos;
  int filledcount = 0;
  bool operator==(const Board&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Board& board);

Board theboard();
std::string values();                ///< cellvalue, "." for empty
std::string boxtexts();              ///< the texts of Text1 joined, "." for an empty one
std::string giventexts();            ///< the givens in the same way
std::vector<int> masks();            ///< candmask of the 81 cells
std::string visiblemarks(int cell);  ///< the pencil marks to be seen when nothing covers them: "1379"

/// Puts a board up without counting and grading it: boxes and tables as after the scanner, all candidates.
void putpuzzle(std::string_view puzzle);

/// Cell at 1-based row and column, as it is read to the user.
constexpr int at(int row, int col) {
  return (row - 1) * 9 + col - 1;
}

/// A program just started, with a player.
class Program : public testing::Test {
 protected:
  Program();
  ~Program() override;

  /// A path in a folder of this test's own.
  std::string path(const std::string& name) const { return (folder_ / name).string(); }
  /// Writes a file there, byte for byte.
  std::string file(const std::string& name, std::string_view bytes) const;
  static std::string bytes(const std::string& name);

  /// Puts a puzzle up as a user does: opens a file of it.
  void open(std::string_view puzzle);
  void opennamed(const std::string& name);

  /// putpuzzle, in short.
  static void put(std::string_view puzzle) { putpuzzle(puzzle); }
  /// Deletes candidates of a cell as a technique does.
  void eliminate(int cell, std::string_view digits);

  void speak(int language);

  Player player;

 private:
  std::filesystem::path folder_;
};

/// A program that speaks each language in turn.
class Bilingual : public Program, public testing::WithParamInterface<int> {
 protected:
  Bilingual() { speak(GetParam()); }
  /// Of two texts the one in the language of the test.
  static std::string in(std::string_view it, std::string_view en) {
    return std::string(GetParam() == italian ? it : en);
  }
};
#define IN_BOTH_LANGUAGES(suite)                                               \
  INSTANTIATE_TEST_SUITE_P(Language, suite, testing::Values(english, italian), \
                           [](auto& p) { return p.param == english ? "english" : "italian"; })

/// A full valid board.
inline constexpr std::string_view fullboard =
    "147295638253168479896437125368954712429713586571682394612579843985341267734826951";

/// The same with some cells emptied.
std::string without(std::string_view puzzle, std::initializer_list<int> holes);
/// An empty board with some digits.
std::string with(std::initializer_list<std::pair<int, char>> digits);

inline const std::string emptyboard(81, '.');

}  // namespace gradino::tests
