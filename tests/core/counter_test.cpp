// The solution counter.
#include "counter.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <numeric>
#include <random>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "commands.h"
#include "editing.h"
#include "filecommands.h"
#include "gradestate.h"
#include "grid.h"
#include "literalcounter.h"
#include "menu.h"
#include "player.h"
#include "step.h"
#include "stepsolver.h"
#include "technique.h"
#include "view.h"

namespace gradino::tests {
namespace {

using Strings = std::vector<std::string>;

class Counter : public Program {
 protected:
  void count(std::string_view puzzle, const std::string& command) {
    for (int cell = 0; cell < 81; ++cell) {
      const char c = puzzle.at(static_cast<std::size_t>(cell));
      givens(cell) = c == '.' ? "" : std::string(1, c);
    }
    player.boxes.clear();
    comandocorrente = command;
    player.event(conta);
  }
  static std::string solution() {
    std::string text;
    for (int cell = 0; cell < 81; ++cell) text += solutiontext(cell);
    return text;
  }
};

// ---- what it reports --------------------------------------------------------------------------------------

const char* const unique =
    "..45...6..6..94..39.......78.....67..5...219..1..4.2.....875...2..31.....89......";
const char* const five = "8......464..........6..2.5.7.1...96......7....92.1...4..7..6.9894.....1.....75..2";
const char* const impossible =
    "14729563825316847989643712536895471242971358657168239461257984398534126713482695.";  // r9c9 takes no 1

TEST_F(Counter, AnEmptyBoardHasMoreThan500SolutionsAndNoCountBox) {
  count(emptyboard, "conta");
  EXPECT_EQ(player.boxes, Strings{"More than 500 solutions"});
  EXPECT_EQ(numerosoluzioni, 501);
  EXPECT_EQ(comandocorrente, "");
  EXPECT_EQ(stringhesoluzione(1),
            "123456789456789123789123456214365897365897214897214365531642978642978531978531642");
}

TEST_F(Counter, The501stSolutionIsCountedButNotStored) {
  count(five, "conta");
  const auto second = stringhesoluzione(2);
  count(emptyboard, "conta");
  EXPECT_NE(stringhesoluzione(500), "");
  EXPECT_NE(stringhesoluzione(500), stringhesoluzione(499));
  ASSERT_EQ(soluzioni.size(), 2049u);
  EXPECT_NE(soluzioni[500], GridRecord{});
  EXPECT_EQ(soluzioni[501], GridRecord{});
  EXPECT_EQ(soluzioni[0], GridRecord{});
  EXPECT_EQ(stringhesoluzione(0), "");
  EXPECT_NE(stringhesoluzione(2), second);
}

TEST_F(Counter, OneSolutionIsNotReportedInAnyMode) {
  for (const char* command : {"conta", "", "genera"}) {
    solutiontext.clear();
    count(unique, command);
    EXPECT_EQ(player.boxes, Strings{});
    EXPECT_EQ(numerosoluzioni, 1);
    EXPECT_EQ(solution(), stringhesoluzione(1));
    EXPECT_EQ(comandocorrente, command);
  }
}

TEST_F(Counter, SeveralSolutionsAreReportedInCountModeOnlyAndLeaveSolutionTextAlone) {
  count(unique, "");
  const std::string kept = solution();
  count(five, "conta");
  EXPECT_EQ(player.boxes, Strings{"5 Solutions"});
  EXPECT_EQ(numerosoluzioni, 5);
  EXPECT_EQ(comandocorrente, "conta");
  EXPECT_EQ(solution(), kept);
  for (int n = 2; n <= 5; ++n) EXPECT_LT(stringhesoluzione(n - 1), stringhesoluzione(n)) << "ascending";

  count(five, "");
  EXPECT_EQ(player.boxes, Strings{});
  EXPECT_EQ(solution(), kept);
}

TEST_F(Counter, InOtherModesTheSearchStopsAtTheSecondSolutionWithOneRecord) {
  for (const char* command : {"", "genera"}) {
    freshcounter();
    count(five, command);
    EXPECT_EQ(numerosoluzioni, 2);
    EXPECT_NE(stringhesoluzione(1), "");
    EXPECT_NE(stringhesoluzione(2), "");
    EXPECT_EQ(stringhesoluzione(3), "");
    EXPECT_NE(soluzioni.at(1), GridRecord{});
    EXPECT_EQ(soluzioni.at(2), GridRecord{});
    EXPECT_EQ(values(), stringhesoluzione(2)) << "the board is left as the stop found it";
  }
}

TEST_F(Counter, RecordsAndStringsAreTheSameSolutions) {
  count(five, "conta");
  for (int n = 1; n <= 5; ++n) {
    std::string text;
    for (int digit : soluzioni.at(n)) text += std::to_string(digit);
    EXPECT_EQ(text, stringhesoluzione(n));
  }
  EXPECT_EQ(soluzioni.at(6), GridRecord{});
}

TEST_F(Counter, NoSolutionGivesOneBoxAndTwoInCountMode) {
  count(impossible, "");
  EXPECT_EQ(player.boxes, Strings{"Invalid Puzzle"});
  EXPECT_EQ(numerosoluzioni, 0);
  count(impossible, "conta");
  EXPECT_EQ(player.boxes, (Strings{"Invalid Puzzle", "0 Solutions"}));
  EXPECT_EQ(comandocorrente, "conta");
}

TEST_F(Counter, SpeaksEnglishInBothLanguages) {
  speak(italian);
  count(five, "conta");
  EXPECT_EQ(player.boxes, Strings{"5 Solutions"});
  count(impossible, "conta");
  EXPECT_EQ(player.boxes, (Strings{"Invalid Puzzle", "0 Solutions"}));
  count(emptyboard, "conta");
  EXPECT_EQ(player.boxes, Strings{"More than 500 solutions"});
}

TEST_F(Counter, AFullValidBoardCountsAsOne) {
  count(fullboard, "conta");
  EXPECT_EQ(numerosoluzioni, 1);
  EXPECT_EQ(solution(), fullboard);
  EXPECT_EQ(values(), fullboard);
}

TEST_F(Counter, AFullBoardWithAClashCountsAsOne) {
  std::string clash(fullboard);
  clash[0] = '4';
  count(clash, "conta");
  EXPECT_EQ(player.boxes, Strings{});
  EXPECT_EQ(numerosoluzioni, 1);
  EXPECT_EQ(solution(), clash);
}

TEST_F(Counter, ADigitTwiceInARowIsNotComplainedOfAndMayBeKept) {
  // 1 is twice in row 1, and the four open cells of other rows can be filled
  std::string puzzle = without(fullboard, {at(9, 1), at(9, 2), at(8, 5), at(5, 5)});
  puzzle[8] = '1';
  count(puzzle, "conta");
  EXPECT_EQ(numerosoluzioni, 1);
  EXPECT_EQ(solution().substr(0, 9), "147295631");
}

TEST_F(Counter, ALastCellThatIsTheOnlyEmptyOneIsFilledByTheForcedPass) {
  count(without(fullboard, {80}), "conta");
  EXPECT_EQ(numerosoluzioni, 1);
  EXPECT_EQ(solution(), fullboard);
  EXPECT_EQ(values(), fullboard) << "the forced digit stays on the board";
}

TEST_F(Counter, AfterASearchToTheEndTheBoardHoldsTheFirstForcedPass) {
  count(five, "conta");
  EXPECT_EQ(values(), "8......464..........6..2.5.7.1...96......7....92.1...4..7..6.9894.....1.....75.32")
      << "r9c8 has one digit left";
}

TEST_F(Counter, AGivenThatIsNoNumberIsAnEmptyCellAndANumberAboveNineAFault) {
  count(unique, "");
  const std::string kept = solution();
  givens(0) = "x";
  comandocorrente = "conta";
  player.event(conta);
  EXPECT_EQ(numerosoluzioni, 1);
  givens(0) = "12";
  player.boxes.clear();
  player.event(conta);
  EXPECT_EQ(
      player.boxes,
      Strings{"12 in r1c1 is not a digit from 1 to 9: delete one of the two. (table bitvalue 0 to 9, index "
              "12, in rebuildusedmask)"});
  EXPECT_EQ(solution(), kept);
}

TEST_F(Counter, ComesAnewToEveryPuzzle) {
  count(unique, "");
  const std::string first = solution();
  count(emptyboard, "");
  EXPECT_EQ(numerosoluzioni, 2);
  count(unique, "");
  EXPECT_EQ(numerosoluzioni, 1);
  EXPECT_EQ(solution(), first);
  EXPECT_EQ(soluzioni.at(2), GridRecord{});
}

// ---- the key ---------------------------------------------------------------------------------------------

class CountKey : public Bilingual {
 protected:
  void press() {
    for (const KeyRow& row : toolbar2rows())
      if (row.control == &frmmain::Toolbar2::conta) player.event([&] { Toolbar2_ButtonClick(row); });
  }
};
IN_BOTH_LANGUAGES(CountKey);

TEST_P(CountKey, CountsTheGivensAndTurnsThePencilMarksOn) {
  put(five);
  press();
  EXPECT_EQ(player.boxes, Strings{"5 Solutions"});
  EXPECT_EQ(comandocorrente, "");
  EXPECT_TRUE(pencilmarks());
}

TEST_P(CountKey, OnAFullBoardSaysThatItIsCompleteAndLeavesThePencilMarks) {
  put(fullboard);
  numerosoluzioni = 77;
  press();
  EXPECT_EQ(player.boxes, Strings{in("schema già completato", "sudoku already completed")});
  EXPECT_EQ(numerosoluzioni, 77);
  EXPECT_FALSE(pencilmarks());
}

TEST_P(CountKey, WithoutAPuzzleSaysSo) {
  press();
  EXPECT_EQ(player.boxes, Strings{in("nessun schema caricato", "no puzzle loaded")});
  EXPECT_FALSE(pencilmarks());
}

TEST_P(CountKey, ForgetsItsJobEvenWhenTheCountFaults) {
  put(five);
  givens(0) = "12";
  press();
  EXPECT_EQ(player.boxes.size(), 1u);
  EXPECT_EQ(comandocorrente, "");
}

TEST_P(CountKey, LeavesTheBoardThatTheUserWorksOnAsItStands) {
  for (const char* puzzle : {unique, five}) {
    put(puzzle);
    eliminate(1, "7");
    player.event([] { Text1_Typed(79, "3"); });
    const Board before = theboard();
    press();
    EXPECT_EQ(theboard(), before) << puzzle;
    expectmarks(before);
    EXPECT_EQ(frmmain::txtesposti.text, std::to_string(before.filledcount));
    EXPECT_EQ(frmmain::txtvuoti.text, std::to_string(81 - before.filledcount));
  }
  put(impossible);
  const Board before = theboard();
  press();
  EXPECT_EQ(theboard(), before);
  expectmarks(before);
  EXPECT_EQ(player.boxes, (Strings{"5 Solutions", "Invalid Puzzle", "0 Solutions"}));
}

TEST_P(CountKey, LeavesTheBoardAlsoWhenThereAreTooManySolutionsOrTheCountFaults) {
  put(with({{40, '5'}}));
  const Board before = theboard();
  press();
  EXPECT_EQ(player.boxes, Strings{"More than 500 solutions"});
  EXPECT_EQ(theboard(), before);
  expectmarks(before);

  givens(0) = "12";
  const Board faulty = theboard();
  player.boxes.clear();
  press();
  EXPECT_EQ(player.boxes.size(), 1u);
  EXPECT_EQ(theboard(), faulty);
  expectmarks(faulty);
}

TEST_P(CountKey, TheHintsGoOnToTheEnd) {
  open(unique);
  const std::string whole = [] {
    std::string text;
    for (int cell = 0; cell < 81; ++cell) text += solutiontext(cell);
    return text;
  }();
  press();
  for (int hints = 0; hints < 200 && values() != whole; ++hints) {
    player.script = {go, go};
    player.event(mnuposition_Click);
  }
  EXPECT_EQ(values(), whole);
  EXPECT_EQ(boxtexts(), whole);
}

// A puzzle that was typed is not in the givens.
TEST_P(CountKey, ATypedBoardKeepsItsPencilMarks) {
  mnunew_Click();
  for (int cell = 0; cell < 81; ++cell)
    if (unique[cell] != '.') player.event([&] { Text1_Typed(cell, std::string(1, unique[cell])); });
  press();
  EXPECT_EQ(player.boxes, Strings{"More than 500 solutions"});
  player.event([] { Text1_Typed(0, "1"); });
  EXPECT_EQ(values(), "1" + std::string(unique + 1));
  EXPECT_EQ(visiblemarks(1), candstr(1));
  EXPECT_NE(visiblemarks(1), "");
}

// ---- judged by the plain search --------------------------------------------------------------------------

using Engine = std::mt19937;

std::size_t below(Engine& random, std::size_t n) {
  return static_cast<std::size_t>(random() % n);
}

/// A full board changed in form only: digits renamed, bands, rows, stacks and columns shuffled, perhaps
/// mirrored.
std::string shuffled(std::string_view board, Engine& random) {
  std::array<int, 9> digits, rows, cols;
  std::iota(digits.begin(), digits.end(), 1);
  std::shuffle(digits.begin(), digits.end(), random);
  for (auto* lines : {&rows, &cols}) {
    std::array<int, 3> bands{0, 1, 2};
    std::shuffle(bands.begin(), bands.end(), random);
    for (std::size_t band = 0; band < 3; ++band) {
      std::array<int, 3> inside{0, 1, 2};
      std::shuffle(inside.begin(), inside.end(), random);
      for (std::size_t k = 0; k < 3; ++k) (*lines)[band * 3 + k] = bands[band] * 3 + inside[k];
    }
  }
  const bool mirror = below(random, 2) == 1;
  std::string result(81, '.');
  for (std::size_t cell = 0; cell < 81; ++cell) {
    const auto row = static_cast<std::size_t>(rows[cell / 9]), col = static_cast<std::size_t>(cols[cell % 9]);
    const char c = board[mirror ? col * 9 + row : row * 9 + col];
    if (c != '.') result[cell] = static_cast<char>('0' + digits[static_cast<std::size_t>(c - '1')]);
  }
  return result;
}

void empty(std::string& board, std::size_t n, std::size_t from, Engine& random) {
  for (std::size_t k = 0; k < n; ++k) board[from + below(random, 81 - from)] = '.';
}

/// A board of one of ten kinds. Where the holes are in the lower rows, the plain search gets to many
/// solutions in time.
std::string randomboard(Engine& random) {
  std::string board = shuffled(fullboard, random);
  switch (below(random, 10)) {
    case 0:  // near the end, everything given but a few
      empty(board, 1 + below(random, 30), 0, random);
      break;
    case 1:  // like a puzzle
      empty(board, 60 + below(random, 60), 0, random);
      break;
    case 2:  // many solutions
      empty(board, 40 + below(random, 80), 27, random);
      break;
    case 3:
      empty(board, 80 + below(random, 200), 36, random);
      break;
    case 4:  // one wrong digit: clashes, or none and no solution
      empty(board, 30 + below(random, 60), 0, random);
      board[below(random, 81)] = static_cast<char>('1' + below(random, 9));
      break;
    case 5:  // clashes that a completion can keep
      empty(board, 8 + below(random, 30), 0, random);
      for (int k = 0; k < 3; ++k) board[below(random, 81)] = static_cast<char>('1' + below(random, 9));
      break;
    case 6:  // full, perhaps with clashes
      for (std::size_t k = below(random, 3); k > 0; --k)
        board[below(random, 81)] = static_cast<char>('1' + below(random, 9));
      break;
    case 7:  // the last cell and a few others
      empty(board, below(random, 12), 0, random);
      if (below(random, 2)) board[below(random, 80)] = static_cast<char>('1' + below(random, 9));
      board[80] = '.';
      break;
    case 8: {  // r9c9 may be left with a second digit, as some or all that it sees are others
      const char second = static_cast<char>('1' + below(random, 9));
      for (std::size_t cell = 0; cell < 80; ++cell)
        if (board[cell] == second && (cell / 9 == 8 || cell % 9 == 8 || (cell / 27 == 2 && cell % 9 >= 6)))
          board[cell] = below(random, 4) ? static_cast<char>('1' + below(random, 9)) : '.';
      empty(board, below(random, 15), 0, random);
      board[80] = '.';
      break;
    }
    default:  // wild
      board.assign(81, '.');
      for (std::size_t k = below(random, 60); k > 0; --k)
        board[below(random, 81)] = static_cast<char>('1' + below(random, 9));
  }
  return board;
}

/// True when a digit is twice in a house.
bool clashes(const std::string& board) {
  for (int cell = 0; cell < 81; ++cell)
    for (int other = 0; other < cell; ++other)
      if (board[cell] != '.' && board[cell] == board[other] &&
          (cellrow(cell) == cellrow(other) || cellcol(cell) == cellcol(other) ||
           cellblock(cell) == cellblock(other)))
        return true;
  return false;
}

class Judged : public Counter {
 protected:
  /// Counts a board both ways, in one mode. False: the plain search takes too long.
  bool judge(const std::string& board, const std::string& command) {
    std::array<std::string, 81> puzzle;
    for (std::size_t cell = 0; cell < 81; ++cell)
      puzzle[cell] = board[cell] == '.' ? "" : board.substr(cell, 1);
    plain.comandocorrente = command;
    try {
      plain.conta(puzzle);
    } catch (const TooLong&) {  // which may have left some strings
      stringhesoluzione.clear();
      plain.stringhesoluzione.fill("");
      return false;
    }
    count(board, command);
    compare(board);
    return true;
  }

  void compare(const std::string& board) {
    SCOPED_TRACE(board);
    EXPECT_EQ(numerosoluzioni, plain.numerosoluzioni);
    EXPECT_EQ(player.boxes, plain.boxes);
    EXPECT_EQ(comandocorrente, plain.comandocorrente);
    EXPECT_TRUE(std::equal(stringhesoluzione.begin(), stringhesoluzione.end(),
                           plain.stringhesoluzione.begin(), plain.stringhesoluzione.end()));
    EXPECT_TRUE(soluzioni == plain.soluzioni);
    EXPECT_TRUE(std::equal(plain.solutiontext.begin(), plain.solutiontext.end(), solutiontext.begin()));
    EXPECT_TRUE(std::equal(plain.cellvalue.begin(), plain.cellvalue.end(), cellvalue.begin()));
    EXPECT_TRUE(std::equal(plain.usedmask.begin(), plain.usedmask.end(), usedmask.begin(), usedmask.end()));
  }

  LiteralCounter plain;
};

const std::pair<const char*, int> aroundlimit[] = {
    {"14729563825316847989643712536895.7..4..............3.4........3...3....7.....6...", 499},
    {"1472956382531684798964371253689547........5...7...2....1..7......................", 500},
    {"14729563825316847989643712536.9.........13.......8..9.....79.......4.2........9..", 501}};

/// What a random board turned out to be.
void tally(std::map<std::string, int>& met, const std::string& board, int found) {
  ++met[found == 0 ? "none" : found == 1 ? "one" : found == 501 ? "501" : "several"];
  const bool clash = clashes(board);
  if (clash && found == 0) ++met["clash, none"];
  if (clash && found > 0) ++met["clash kept"];
  if (clash && found > 1) ++met["clash kept, several"];
  if (board.find('.') == std::string::npos) ++met["full"];
  if (board.find('.') == 80) ++met["only r9c9 empty"];
}

constexpr const char* kinds[] = {"none",        "one",        "several",
                                 "501",         "clash kept", "clash kept, several",
                                 "clash, none", "full",       "only r9c9 empty"};

constexpr const char* commands[] = {"conta", "", "genera"};

TEST_F(Judged, RandomBoardsOfAllKindsGiveTheSameResultsAsThePlainSearch) {
  Engine random(20240229);
  plain.nodelimit = 1200;
  std::map<std::string, int> met;
  for (int n = 0; n < 3000; ++n) {
    const std::string board = randomboard(random);
    const std::string command = commands[below(random, 3)];
    if (!judge(board, command)) {
      ++met["skipped"];
      continue;
    }
    ASSERT_FALSE(HasFailure()) << "board " << n << ' ' << board << ' ' << command;
    tally(met, board, plain.numerosoluzioni);
  }
  for (const auto& [kind, times] : met) RecordProperty(kind, times);
  for (const char* kind : kinds) EXPECT_GE(met[kind], 5) << kind;
  EXPECT_LT(met["skipped"], 2000);
}

// Boards on which the plain search is short, so that there can be many. GRADINO_SOAK=N asks for N of them and
// a longer patience.
TEST_F(Judged, AHundredThousandRandomBoardsGiveTheSameResultsAsThePlainSearch) {
  const char* const soak = std::getenv("GRADINO_SOAK");
  const int boards = soak != nullptr ? std::atoi(soak) : 100000;
  Engine random(soak != nullptr ? std::random_device{}() : 20240302u);
  std::map<std::string, int> met;
  for (int judged = 0; judged < boards;) {
    plain.nodelimit = judged % 100 == 0 || soak != nullptr ? 1500 : 60;
    const std::string board = randomboard(random);
    const std::string command = commands[below(random, 3)];
    if (!judge(board, command)) {
      ++met["skipped"];
      continue;
    }
    ++judged;
    ASSERT_FALSE(HasFailure()) << board << ' ' << command;
    tally(met, board, plain.numerosoluzioni);
  }
  for (const auto& [kind, times] : met) RecordProperty(kind, times);
  for (const char* kind : kinds) EXPECT_GE(met[kind], 5) << kind;
}

TEST_F(Judged, AroundTheLimitSeenOtherwise) {
  Engine random(20240303);
  plain.nodelimit = 5000;
  int judged = 0;
  for (int n = 0; n < 60; ++n)
    for (const auto& [board, solutions] : aroundlimit) {
      if (!judge(shuffled(board, random), n % 6 == 5 ? "" : "conta")) continue;
      ASSERT_FALSE(HasFailure()) << board;
      EXPECT_EQ(numerosoluzioni, n % 6 == 5 ? 2 : solutions);
      ++judged;
    }
  EXPECT_GE(judged, 50);
}

TEST_F(Judged, RandomPuzzlesCountAsByExactCover) {
  Engine random(20240301);
  std::map<std::string, int> met;
  for (int n = 0; n < 300; ++n) {
    std::string board = shuffled(fullboard, random);
    empty(board, 60 + below(random, 45), 0, random);
    if (n % 4 == 0) board[below(random, 81)] = static_cast<char>('1' + below(random, 9));
    const int expected = exactcovercount(board, 501);
    if (clashes(board)) continue;  // the counter may keep the clash
    ++met[expected == 0 ? "none" : expected == 1 ? "one" : expected == 501 ? "501" : "several"];
    count(board, "conta");
    ASSERT_EQ(numerosoluzioni, expected) << board;
    for (int k = 1; k <= std::min(expected, 500); ++k) {
      ASSERT_FALSE(clashes(stringhesoluzione(k)));
      for (std::size_t cell = 0; cell < 81; ++cell)
        ASSERT_TRUE(board[cell] == '.' || stringhesoluzione(k)[cell] == board[cell]);
      ASSERT_LT(k > 1 ? stringhesoluzione(k - 1) : "", stringhesoluzione(k));
    }
  }
  for (const char* kind : {"none", "one", "several", "501"}) EXPECT_GE(met[kind], 3) << kind;
}

TEST_F(Judged, TheLimitIsExact) {
  plain.nodelimit = 1000000;
  const auto compared = [this](const char* board, int solutions, const std::string& box) {
    EXPECT_EQ(exactcovercount(board, 600), solutions);
    EXPECT_TRUE(judge(board, "conta"));
    EXPECT_EQ(numerosoluzioni, solutions);
    EXPECT_EQ(player.boxes, Strings{box});
  };
  const std::string box[] = {"499 Solutions", "500 Solutions", "More than 500 solutions"};
  for (std::size_t n = 0; n < 3; ++n) {
    compared(aroundlimit[n].first, aroundlimit[n].second, box[n]);
    EXPECT_EQ(comandocorrente, n < 2 ? "conta" : "");
  }
}

// Boards on which plainer searches take seconds, or forever.
TEST_F(Counter, IsQuickWhereASearchWouldWander) {
  // no solution, which only the rule about the three digits of a triad shows
  count(".....5.8....6.1.43..........1.5........1.6...3.......553.....61........4.........", "conta");
  EXPECT_EQ(numerosoluzioni, 0);
  // a digit doubled in all three houses of r9c9, so that r9c9 has two digits left however the rest is filled
  count("..4...7.........5...6..91......9...4..........95..2......8.7...6.......4....4.43.", "conta");
  EXPECT_EQ(numerosoluzioni, 0);
  // two and three digits to spare there
  count(".....4...8.......2.......4..................2..46......9..4.27..8...2.52.2.1..22.", "conta");
  EXPECT_EQ(numerosoluzioni, 0);
  // clashes with many completions
  count("..1........4...2........5.1..6.6..5...89..1.....4.4...........7..915.35..4...19.1", "conta");
  EXPECT_EQ(numerosoluzioni, 501);
  // one solution of 17 givens
  count(".......1.4.........2...........5.4.7..8...3....1.9....3..4..2...5.1........8.6...", "");
  EXPECT_EQ(solution(), "693784512487512936125963874932651487568247391741398625319475268856129743274836159");
}

// ---- judged by recorded results --------------------------------------------------------------------------

TEST_F(Counter, CountsAsTheReferenceLinesSay) {
  std::ifstream lines(TESTDATA "/reference/count.jsonl");
  int n = 0;
  for (std::string text; std::getline(lines, text); ++n) {
    const auto expected = nlohmann::json::parse(text);
    freshcounter();
    count(expected["puzzle"].get<std::string>(), "conta");
    SCOPED_TRACE(expected["puzzle"].get<std::string>());
    EXPECT_EQ(numerosoluzioni, expected["count"].get<int>());
    EXPECT_EQ(player.boxes, expected["boxes"].get<Strings>());
    std::string board;
    for (int cell = 0; cell < 81; ++cell) board += std::to_string(cellvalue(cell));
    EXPECT_EQ(board, expected["values"].get<std::string>());
    for (const auto& [key, index] : {std::pair("first", 1), std::pair("second", 2)})
      EXPECT_EQ(stringhesoluzione(index), expected[key].is_null() ? "" : expected[key].get<std::string>());
  }
  EXPECT_EQ(n, 20);
}

}  // namespace
}  // namespace gradino::tests
