// The grader, the level report, the log and the replay.
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "boardgrade.h"
#include "captions.h"
#include "clearboard.h"
#include "commands.h"
#include "grader.h"
#include "gradestate.h"
#include "grid.h"
#include "levelreport.h"
#include "library.h"
#include "light.h"
#include "log.h"
#include "menu.h"
#include "player.h"
#include "replay.h"
#include "startup.h"
#include "step.h"
#include "stepsolver.h"
#include "view.h"

namespace gradino::tests {
namespace {

using Strings = std::vector<std::string>;

// Solved by last digits and hidden singles in blocks alone; by those and one hidden single in a row or
// column; by those and naked singles.
const char* const veryeasy =
    "18.3......5....9.19.28...3...59....6.9.....1.3....54...2...13.78.1....4......3.28";
const char* const easy = "..45...6..6..94..39.......78.....67..5...219..1..4.2.....875...2..31.....89......";

Strings loglines() {
  Strings lines;
  const std::string& text = Frmlog::Text3.text;
  for (std::size_t begin = 0;;) {
    const std::size_t end = text.find("\r\n", begin);
    lines.push_back(text.substr(begin, end - begin));
    if (end == std::string::npos) return lines;
    begin = end + 2;
  }
}

std::size_t caretof(int line) {
  std::size_t at = 0;
  for (; line > 0; --line) at = Frmlog::Text3.text.find("\r\n", at) + 2;
  return at;
}

// ---- the grader -------------------------------------------------------------------------------------------

TEST_F(Program, APuzzleWithoutLineSinglesAndNakedSinglesIsLevel0WithAllCountersAt0) {
  open(veryeasy);
  EXPECT_EQ(runninglevel, 0);
  for (int level = 1; level <= 21; ++level) EXPECT_EQ(levelcount(level), 0);
  EXPECT_EQ(dettaglio, "");
  EXPECT_EQ(difficolta, 0);
  EXPECT_EQ(frmmain::testototale.text, " tot. 0");
  EXPECT_EQ(frmmain::txtlivello1.text, "");
  EXPECT_EQ(frmmain::txtlivello.text, "VERY EASY- numbers forced by position of similar");
  EXPECT_TRUE(player.boxes.empty());
}

TEST_F(Program, OneHiddenSingleInALineIsLevel1WithOnePoint) {
  open(easy);
  EXPECT_EQ(runninglevel, 1);
  EXPECT_EQ(levelcount(1), 1);
  EXPECT_EQ(dettaglio, "1x1 ");
  EXPECT_EQ(difficolta, 1);
  EXPECT_EQ(frmmain::testototale.text, " tot. 1");
  EXPECT_EQ(frmmain::txtlivello1.text, "1x1 ");
  EXPECT_EQ(frmmain::liv(1).text, "1");
  for (int level = 2; level <= 21; ++level) EXPECT_EQ(frmmain::liv(level).text, "0");
}

TEST_F(Program, TheLogHasALineForEveryDigitAndASnapshotBehindEach) {
  open(veryeasy);
  const Strings lines = loglines();
  const int empty = static_cast<int>(std::count(veryeasy, veryeasy + 81, '.'));
  ASSERT_EQ(static_cast<int>(lines.size()), empty + 1);
  EXPECT_EQ(lines[0], "");
  EXPECT_EQ(logcount, empty);
  for (int line = 1; line <= empty; ++line) {
    EXPECT_EQ(std::count(logvalues(line).begin(), logvalues(line).end(), '0'), empty - line + 1) << line;
    EXPECT_EQ(std::count(logcands(line).begin(), logcands(line).end(), ','), 81);
    EXPECT_EQ(logcands(line).back(), ',');
    EXPECT_FALSE(logflags(line));
  }
  EXPECT_EQ(logvalues(0), "");
  EXPECT_EQ(logvalues(empty + 1), "");
}

TEST_F(Program, TheGraderConsumesTheBoardAndTouchesNoBox) {
  put(veryeasy);
  const std::string boxes = boxtexts();
  SolveSudoku();
  EXPECT_EQ(boxtexts(), boxes);
  EXPECT_EQ(filledcount, 81);
  EXPECT_EQ(values().find('.'), std::string::npos);
  EXPECT_EQ(giventexts(), veryeasy);
  EXPECT_TRUE(player.frames.empty());
}

TEST_F(Program, TheGraderLetsEventsRunOncePerTurn) {
  put(without(fullboard, {0, 40, 80}));
  SolveSudoku();
  EXPECT_EQ(player.turns, 3);
}

TEST_F(Program, ALevelNeverGoesDownAndStartsAt0) {
  runninglevel = 5;
  levelcount(5) = 2;
  boardfinished = true;
  put(without(fullboard, {0}));
  player.onevents = [] {
    EXPECT_EQ(runninglevel, 0);
    EXPECT_EQ(levelcount(5), 0);
    EXPECT_FALSE(boardfinished);
  };
  SolveSudoku();
  raiselevel(2);
  raiselevel(1);
  EXPECT_EQ(runninglevel, 2);
  EXPECT_EQ(levelcount(1), 1);
  EXPECT_EQ(levelcount(2), 1);
}

TEST_F(Program, TheGraderBeginsWithFreshPositions) {
  put(without(fullboard, {0, 1}));
  rowpos.clear();
  colpos.clear();
  blockpos.clear();
  SolveSudoku();
  EXPECT_EQ(filledcount, 81);
}

TEST_F(Program, AByteCounterAbove255IsAFault) {
  for (int n = 0; n < 255; ++n) raiselevel(3);
  try {
    raiselevel(3);
    FAIL();
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.kind, Fault::Kind::overflow);
    EXPECT_EQ(fault.name, "levelcount");
    EXPECT_EQ(fault.value, 256);
  }
  EXPECT_EQ(levelcount(3), 255);
}

TEST_F(Program, DuringAJobTheLogGetsItsLinesButNoNumbersAndNoSnapshots) {
  for (const char* job : {"genera", "conta"}) {
    startprogram();
    put(veryeasy);
    comandocorrente = job;
    SolveSudoku();
    EXPECT_EQ(loglines().size(), 54u) << "an empty line and 53 headlines";
    EXPECT_EQ(logcount, 0);
    for (int line = 0; line <= 650; ++line) EXPECT_EQ(logvalues(line), "");
    EXPECT_EQ(runninglevel, 0);
  }
}

TEST_F(Program, TheReportComesOnlyFromALastDigitThatFillsTheBoard) {
  // A full board has no last digit: nothing is found, and the level boxes keep the words they had.
  put(fullboard);
  frmmain::txtlivello.text = "the puzzle before";
  numerosoluzioni = 2;
  SolveSudoku();
  EXPECT_EQ(frmmain::txtlivello.text, "the puzzle before");
  EXPECT_EQ(Frmlog::Text3.text, "");
}

class Grading : public Bilingual {
 protected:
  /// The empty box of the rung that gives up on the chains; it also sets the level, to 21.
  const char* const chainsgaveup = "";
  const std::string beyond =
      in("                 Schema con 1 soluzione\r\n Non riesco a risolvere il sudoku con gli algoritmi "
         "dosponibili",
         "                 Puzzle with 1 solution\r\n I can't solve the sudoku with available algorithms");
};
IN_BOTH_LANGUAGES(Grading);

TEST_P(Grading, APuzzleBeyondTheTechniquesIsToldInLogAndBox) {
  put(emptyboard);
  frmmain::txtlivello.text = "the puzzle before";
  numerosoluzioni = 1;
  SolveSudoku();
  EXPECT_EQ(player.boxes, (Strings{chainsgaveup, beyond}));
  EXPECT_EQ(Frmlog::Text3.text, "\r\n" + beyond);
  EXPECT_EQ(logcount, 1) << "one entry, though it is two lines";
  EXPECT_EQ(logvalues(1), "");
  EXPECT_EQ(runninglevel, 21);
  for (int level = 1; level <= 21; ++level) EXPECT_EQ(levelcount(level), 0);
  EXPECT_EQ(frmmain::txtlivello.text, "the puzzle before");
}

TEST_P(Grading, DuringAJobNoBoxTellsIt) {
  put(emptyboard);
  numerosoluzioni = 1;
  comandocorrente = "genera";
  SolveSudoku();
  EXPECT_EQ(player.boxes, Strings{chainsgaveup});
  EXPECT_EQ(Frmlog::Text3.text, "\r\n" + beyond);
  EXPECT_EQ(runninglevel, 21);
  EXPECT_EQ(logcount, 1);
}

TEST_P(Grading, WithoutExactlyOneSolutionItEndsWithoutAWord) {
  for (int solutions : {0, 2, 501}) {
    put(emptyboard);
    numerosoluzioni = solutions;
    player.boxes.clear();
    SolveSudoku();
    EXPECT_EQ(player.boxes, Strings{chainsgaveup});
    EXPECT_EQ(Frmlog::Text3.text, "");
    EXPECT_EQ(logcount, 0);
  }
}

TEST_P(Grading, AFinishedBoardEndsWithoutAWord) {
  put(emptyboard);
  numerosoluzioni = 1;
  player.onevents = [] { boardfinished = true; };
  SolveSudoku();
  EXPECT_EQ(player.boxes, Strings{chainsgaveup});
  EXPECT_EQ(Frmlog::Text3.text, "");
  EXPECT_EQ(logcount, 0);
}

TEST_P(Grading, ThePuzzlesCountIsLookedAtOnlyOnFailure) {
  put(veryeasy);
  numerosoluzioni = 7;
  SolveSudoku();
  EXPECT_EQ(frmmain::txtlivello.text, in(" BANALE - numeri obbligati dalla posizione dei simili",
                                         "VERY EASY- numbers forced by position of similar"));
}

// ---- the level report -------------------------------------------------------------------------------------

struct LevelName {
  int level;
  const char *it, *en;
  int weight;
};
const LevelName levelnames[] = {
    {0, " BANALE - numeri obbligati dalla posizione dei simili",
     "VERY EASY- numbers forced by position of similar", 0},
    {1, " FACILE - Hidden Single , Unica cella che può contenere un numero",
     "EASY - Hidden Single , unique cell that can contain a number", 1},
    {2, " MEDIO - Naked Single , Unico numero possibile per la cella",
     "MEDIUM - Naked Single , unique number possible for the cell", 2},
    {3, " AVANZATO-Intersezioni settori-righe-colonne ", "ADVANCED-Intersections blocks-rows-columns", 4},
    {4, " AVANZATO - coppia nuda", "ADVANCED - naked pair", 6},
    {5, " DIFFICILE - coppia nascosta", "HARD - hidden pair", 9},
    {6, " DIFFICILE - tripla nuda / nascosta", "HARD - hidden / naked triple", 30},
    {7, " MOLTO DIFFICILE - quadrupla nuda / nascosta", "VERY HARD - hidden / naked quad", 40},
    {8, "VERY HARD - XY Wing", "VERY HARD - XY Wing", 60},
    {9, "VERY HARD - XYZ Wing", "VERY HARD - XYZ Wing", 90},
    {10, "VERY HARD - X Wing", "VERY HARD - X Wing", 50},
    {11, "VERY HARD - Sfordfish", "VERY HARD - Sfordfish", 100},
    {12, "VERY HARD - Jellyfish", "VERY HARD - Jellyfish", 200},
    {13, "EXTREME - SIMPLE COLORS ", "EXTREME - SIMPLE COLORS ", 300},
    {14, "EXTREME - SIMPLE COLORS Contradiction", "EXTREME - SIMPLE COLORS Contradiction", 300},
    {15, "EXTREME - X-COLORS", "EXTREME - X-COLORS", 400},
    {16, "EXTREME - X-COLORS Contradiction", "EXTREME - X-COLORS Contradiction", 400},
    {17, "EXTREME - UNIQUE RECTANGLE", "EXTREME - UNIQUE RECTANGLE", 400},
    {18, "EXTREME - BUGS", "EXTREME - BUGS", 400},
    {19, "EXTREME - XY-CHAINS", "EXTREME - XY-CHAINS", 500},
    {20, "EXTREME - LOOPS", "EXTREME - LOOPS", 1000},
    {21, "EXTREME - FORCING CHAIN", "EXTREME - FORCING CHAIN", 500},
};

class Level : public Bilingual {};
IN_BOTH_LANGUAGES(Level);

TEST_P(Level, HasItsNameAndItsWeight) {
  for (const LevelName& row : levelnames) {
    cleargrade();
    if (row.level > 0) raiselevel(row.level);
    messaggiolivello();
    const std::string level = std::to_string(row.level);
    EXPECT_EQ(frmmain::txtlivello.text, in(row.it, row.en));
    EXPECT_EQ(difficolta, row.weight) << level;
    EXPECT_EQ(frmmain::testototale.text, " tot. " + std::to_string(row.weight));
    EXPECT_EQ(dettaglio, row.level == 0 ? "" : level + "x1 ");
    EXPECT_EQ(frmmain::txtlivello1.text, dettaglio);
    for (int other = 1; other <= 21; ++other)
      EXPECT_EQ(frmmain::liv(other).text, other == row.level ? "1" : "0");
  }
}

TEST_F(Program, TheDetailHasTheHardestLevelFirstAndABlankAtItsEnd) {
  levelcount(12) = 1;
  levelcount(3) = 2;
  levelcount(1) = 20;
  runninglevel = 12;
  messaggiolivello();
  EXPECT_EQ(dettaglio, "12x1 - 3x2 - 1x20 ");
  EXPECT_EQ(frmmain::txtlivello1.text, "12x1 - 3x2 - 1x20 ");
  EXPECT_EQ(difficolta, 200 + 8 + 20);
  EXPECT_EQ(frmmain::testototale.text, " tot. 228");
}

TEST_F(Program, TheReportForgetsANishioStep) {
  nishioflag = true;
  messaggiolivello();
  EXPECT_FALSE(nishioflag);
}

void overflowing(int level, int count, int level2, int count2) {
  cleargrade();
  levelcount(level) = count;
  levelcount(level2) = count2;
  runninglevel = level;
  for (Box* box : {&frmmain::testototale, &frmmain::txtlivello, &frmmain::txtlivello1}) box->text = "before";
  difficolta = 7;
  EXPECT_THROW(messaggiolivello(), Fault) << level << ' ' << count;
  for (Box* box : {&frmmain::testototale, &frmmain::txtlivello, &frmmain::txtlivello1})
    EXPECT_EQ(box->text, "before");
  EXPECT_EQ(frmmain::liv(level).text, std::to_string(count)) << "the boxes are written ahead of the score";
}

TEST_F(Program, AScoreAbove32767EndsTheReportBeforeAnythingIsShown) {
  overflowing(20, 33, 1, 0);     // a product
  overflowing(21, 60, 19, 6);    // a sum: 30000 + 3000
  overflowing(20, 32, 12, 255);  // another product
}

TEST_F(Program, AScoreOf32767IsShown) {
  levelcount(20) = 32;
  levelcount(19) = 1;
  levelcount(12) = 1;
  levelcount(6) = 2;
  levelcount(2) = 3;
  levelcount(1) = 1;
  messaggiolivello();
  EXPECT_EQ(difficolta, 32767);
  EXPECT_EQ(frmmain::testototale.text, " tot. 32767");
}

TEST_F(Program, TheReportIsWrittenIntoTheLibraryRecordOnShowAndIntoNoOther) {
  std::vector<std::string> acts;
  const auto bound = [] {
    return frmmain::testolivello.text + "|" + frmmain::txttotale.text + "|" + frmmain::txtdettaglio.text;
  };
  Data1.edit = [&] { acts.push_back("edit " + bound()); };
  Data1.update = [&] { acts.push_back("update " + bound()); };
  levelcount(12) = 1;
  runninglevel = 12;
  messaggiolivello();
  EXPECT_EQ(acts, Strings{});
  libraryrecordopen = true;
  frmmain::txtstringa.text = with({{3, '7'}});
  messaggiolivello();
  EXPECT_EQ(acts, Strings{}) << "another puzzle is on the board";
  givens(3) = "7";
  messaggiolivello();
  EXPECT_EQ(acts, (Strings{"edit testolivello|txttotale|txtdettaglio", "update 12|200|12x1 "}));
}

class Overflows : public Bilingual {
 protected:
  /// The messages when a puzzle is opened from the library or saved and something happens while it is graded.
  std::string told(const std::function<void()>& meanwhile) {
    open(easy);
    player.boxes.clear();
    const std::string puzzle = giventexts();
    player.onevents = [&, first = true]() mutable {
      if (std::exchange(first, false)) meanwhile();
    };
    player.event(gradeboard);
    player.onevents = nullptr;
    EXPECT_EQ(values(), puzzle);
    EXPECT_EQ(player.boxes.size(), 1u);
    return player.boxes.empty() ? "" : player.boxes[0];
  }
};
IN_BOTH_LANGUAGES(Overflows);

TEST_P(Overflows, AScoreThatIsTooHigh) {
  EXPECT_EQ(
      told([] { levelcount(20) = 33; }),
      in("Il punteggio di questo schema supera 32767, il massimo che si può contare. Lo schema resta, ma non è "
         "stato possibile valutarlo. (contatore difficolta da -32768 a 32767, valore 33000, in "
         "messaggiolivello)",
         "The score of this puzzle is above 32767, the highest that can be counted. The board stays, but the "
         "puzzle could not be graded. (counter difficolta -32768 to 32767, value 33000, in "
         "messaggiolivello)"));
}

TEST_P(Overflows, TooManyStepsOfALevel) {
  EXPECT_EQ(
      told([] { levelcount(1) = 255; }),
      in("Questo schema richiede più di 255 passi di uno stesso livello, più di quanti se ne possano contare. Lo "
         "schema resta, ma non è stato possibile valutarlo. (contatore levelcount da 0 a 255, valore 256, in "
         "raiselevel)",
         "This puzzle takes more than 255 steps of one level, more than can be counted. The board stays, but "
         "the puzzle could not be graded. (counter levelcount 0 to 255, value 256, in raiselevel)"));
}

TEST_P(Overflows, ALogThatIsFull) {
  EXPECT_EQ(
      told([] { logcount = 650; }),
      in("Il log è pieno: contiene 650 linee. Aprire uno schema ne comincia uno nuovo. Lo schema resta, ma non è "
         "stato possibile valutarlo. (tabella logvalues da 0 a 650, indice 651, in logsnapshot)",
         "The log is full: it holds 650 lines. Opening a puzzle begins a new one. The board stays, but the "
         "puzzle could not be graded. (table logvalues 0 to 650, index 651, in logsnapshot)"));
}

TEST_P(Overflows, ATechniqueThatFindsTooMuch) {
  EXPECT_EQ(
      told([] { throw Fault{Fault::Kind::bounds, "xdeletecell", 61, 0, 60, "recorddeletions"}; }),
      in("I colori X trovano qui più di 61 eliminazioni, più di quante se ne possano annotare. Lo schema resta, "
         "ma non è stato possibile valutarlo. (tabella xdeletecell da 0 a 60, indice 61, in recorddeletions)",
         "X-colors find more than 61 deletions here, more than can be noted. The board stays, but the puzzle "
         "could not be graded. (table xdeletecell 0 to 60, index 61, in recorddeletions)"));
}

TEST_P(Overflows, TheLogOfManyGeneratedPuzzles) {
  comandocorrente = "genera";
  logcount = 32767;
  player.event([] { detail(" * x"); });
  EXPECT_EQ(
      player.boxes,
      Strings{in(
          "Il log non può contare più di 32767 linee. Aprire uno schema ne comincia uno nuovo. Il comando è "
          "stato interrotto; lo schema resta e il programma continua. (contatore logcount da -32768 a "
          "32767, valore 32768, in detail)",
          "The log can't count more than 32767 lines. Opening a puzzle begins a new one. The command was "
          "ended; the board stays, and the program goes on. (counter logcount -32768 to 32767, value "
          "32768, in detail)")});
}

/// The messages for faults that would take too long to bring about in a test.
TEST_P(Overflows, TheOthersHaveWordsOfTheirOwn) {
  const auto telling = [this](const Fault& fault) {
    player.boxes.clear();
    player.event([&] { throw fault; });
    return player.boxes;
  };
  EXPECT_EQ(
      telling({Fault::Kind::overflow, "progressivo", 32768, -32768, 32767, "run"}),
      Strings{in(
          "Il generatore continuo è arrivato al suo ultimo numero, 32767, e si è fermato. Tutti gli schemi "
          "che ha tenuto sono nella libreria. Riavviato, ricomincia a numerare da capo. (contatore "
          "progressivo da -32768 a 32767, valore 32768, in run)",
          "The continuous generator has reached its last number, 32767, and has stopped. All puzzles that "
          "it kept are in the library. Started again, it numbers from the beginning. (counter progressivo "
          "-32768 to 32767, value 32768, in run)")});
  EXPECT_EQ(
      telling({Fault::Kind::bounds, "cellescelte", 81, 0, 80, "enter"}),
      Strings{in(
          "Il generatore ha scelto più di 81 celle, più di quante se ne possano annotare. Il comando è "
          "stato interrotto: ripetuto, crea un altro schema. (tabella cellescelte da 0 a 80, indice 81, in "
          "enter)",
          "The generator has chosen more than 81 cells, more than can be noted. The command was ended: "
          "started again, it makes another puzzle. (table cellescelte 0 to 80, index 81, in enter)")});
  EXPECT_EQ(
      telling({Fault::Kind::bounds, "linkcell", 41, 0, 40, "closed"}),
      Strings{
          in("La catena trovata qui ha più di 41 passi, più di quanti se ne possano annotare. Il comando è "
             "stato interrotto e lo schema resta com'era: un'altra tecnica può andare avanti. (tabella "
             "linkcell da 0 a 40, indice 41, in closed)",
             "The chain found here has more than 41 steps, more than can be noted. The command was ended and "
             "the board stays as it was: another technique may go on. (table linkcell 0 to 40, index 41, in "
             "closed)")});
  EXPECT_EQ(
      telling({Fault::Kind::bounds, "groupcells", 21, 0, 20, "gather"}),
      Strings{
          in("I colori X trovano qui più di 21 celle di un gruppo, più di quante se ne possano annotare. Il "
             "comando è stato interrotto e lo schema resta com'era: un'altra tecnica può andare avanti. "
             "(tabella groupcells da 0 a 20, indice 21, in gather)",
             "X-colors find more than 21 cells of one group here, more than can be noted. The command was "
             "ended and the board stays as it was: another technique may go on. (table groupcells 0 to 20, "
             "index 21, in gather)")});
  EXPECT_EQ(
      telling({Fault::Kind::bounds, "commoncell", 11, 0, 10, "recordcommon"}),
      Strings{
          in("I colori X trovano qui più di 11 celle comuni ai due gruppi, più di quante se ne possano "
             "annotare. Il comando è stato interrotto e lo schema resta com'era: un'altra tecnica può andare "
             "avanti. (tabella commoncell da 0 a 10, indice 11, in recordcommon)",
             "X-colors find more than 11 cells common to both groups here, more than can be noted. The "
             "command was ended and the board stays as it was: another technique may go on. (table "
             "commoncell 0 to 10, index 11, in recordcommon)")});
}

// ---- the log ----------------------------------------------------------------------------------------------

TEST_F(Program, ALineIsAppendedBehindALineBreakSoTheFirstLineIsEmpty) {
  headline("a headline");
  detail(" * a detail");
  EXPECT_EQ(Frmlog::Text3.text, "\r\na headline\r\n * a detail");
  EXPECT_EQ(logcount, 2);
  EXPECT_EQ(logvalues(1).size(), 81u);
  EXPECT_EQ(logvalues(2), "");
  EXPECT_EQ(logcands(2), "");
}

TEST_F(Program, DuringAJobHeadlinesDoNotCountAndDetailsDo) {
  comandocorrente = "genera";
  headline("a headline");
  EXPECT_EQ(logcount, 0);
  detail(" * a detail");
  EXPECT_EQ(logcount, 1);
  EXPECT_EQ(logvalues(1), "");
}

TEST_F(Program, ASnapshotHoldsDigitsMasksAndTheNishioFlag) {
  put(with({{0, '5'}, {80, '9'}}));
  eliminate(1, "12");
  nishioflag = true;
  headline("x");
  EXPECT_EQ(logvalues(1), "5" + std::string(79, '0') + "9");
  std::string masktext;
  for (int mask : masks()) masktext += std::to_string(mask) + ",";
  EXPECT_EQ(logcands(1), masktext);
  EXPECT_TRUE(masktext.starts_with("0,984,"));
  EXPECT_TRUE(logflags(1));
}

// No board should hold such numbers; if one does, they are written as they are, wherever they are.
TEST_F(Program, ASnapshotOfNumbersThatAreNoDigitsAndNoSetsHoldsThemAsTheyStand) {
  for (const int odd : {10, 16, -1}) {
    for (const int cell : {0, 40, 80}) {
      put(emptyboard);
      std::vector<std::string> values(81, "0"), cands(81, "1022,");
      cellvalue(cell) = odd;
      values[static_cast<std::size_t>(cell)] = std::to_string(odd);
      logcount = 1;
      logsnapshot();
      EXPECT_EQ(logvalues(1), fmt::format("{}", fmt::join(values, ""))) << odd << ' ' << cell;
      EXPECT_EQ(logcands(1), fmt::format("{}", fmt::join(cands, ""))) << odd << ' ' << cell;
      const int set = odd > 0 ? 1024 + odd : odd;
      cellvalue(cell) = 0;
      candmask(cell) = set;
      cands[static_cast<std::size_t>(cell)] = std::to_string(set) + ",";
      logsnapshot();
      EXPECT_EQ(logvalues(1), std::string(81, '0')) << odd << ' ' << cell;
      EXPECT_EQ(logcands(1), fmt::format("{}", fmt::join(cands, ""))) << set << ' ' << cell;
    }
  }
}

TEST_F(Program, MoreThan650LinesAreAFault) {
  logcount = 649;
  headline("the last");
  EXPECT_EQ(logvalues(650).size(), 81u);
  EXPECT_THROW(headline("one more"), Fault);
}

TEST_P(Grading, TheLogWindowKeepsTheCaptionOfTheLanguageItWasLoadedIn) {
  mnuactivity_Click();
  const std::string caption = in("Log - DOPPIO CLICK su una linea per il dettaglio dell'evento",
                                 "Log - DOUBLE CLICK on one line to explain the technique ");
  EXPECT_EQ(Frmlog::caption, caption);
  EXPECT_TRUE(Frmlog::visible);
  EXPECT_TRUE(frmmain::mnuactivity.ticked);
  cmdlan_Click();
  mnuactivity_Click();
  EXPECT_FALSE(Frmlog::visible);
  EXPECT_FALSE(frmmain::mnuactivity.ticked);
  mnuactivity_Click();
  EXPECT_EQ(Frmlog::caption, caption);
}

// ---- the replay -------------------------------------------------------------------------------------------

TEST_F(Program, ADoubleClickOnALaterHeadlinePutsTheBoardBackToJustBeforeThatStep) {
  open(easy);
  const int line = 9;
  const std::string kept = logvalues(line), keptmasks = logcands(line);
  const std::string headline = loglines().at(line);
  player.script = {stop};
  player.event([&] { Text3_DblClick(caretof(line) + 3); });
  EXPECT_EQ(logline, line);
  std::string now, nowmasks;
  for (int cell = 0; cell < 81; ++cell) {
    now += std::to_string(cellvalue(cell));
    nowmasks += std::to_string(candmask(cell)) + ",";
    const std::string& text = frmmain::Text1(cell).text;
    EXPECT_EQ(text, kept[cell] == '0' ? "" : kept.substr(cell, 1));
    EXPECT_EQ(frmmain::Text1(cell).visible, kept[cell] != '0');
  }
  EXPECT_EQ(now, kept);
  EXPECT_EQ(nowmasks, keptmasks);
  EXPECT_EQ(filledcount, 81 - std::count(kept.begin(), kept.end(), '0'));
  EXPECT_EQ(frmmain::txtesposti.text, std::to_string(filledcount));
  EXPECT_EQ(frmmain::txtvuoti.text, std::to_string(81 - filledcount));
  EXPECT_TRUE(pencilmarks());
  EXPECT_FALSE(suppresschange);
  ASSERT_EQ(player.frames.size(), 1u);
  EXPECT_TRUE(headline.ends_with(player.frames[0].hint)) << "the step on show is the line's: " << headline;
  EXPECT_TRUE(headline.starts_with(player.frames[0].number));
}

TEST_F(Program, AReplayRestoresEliminationsAndTheNishioFlag) {
  put(with({{at(2, 5), '5'}, {at(3, 8), '5'}, {at(5, 2), '5'}, {at(1, 3), '2'}}));
  eliminate(at(9, 1), "12");
  nishioflag = true;
  headline("x");
  nishioflag = false;
  restoregivens();
  player.script = {stop};
  logline = 1;
  player.event(ritrova);
  EXPECT_TRUE(nishioflag);
  EXPECT_EQ(candstr(at(9, 1)), "3456789");
  EXPECT_EQ(visiblemarks(at(9, 1)), "3456789");
  EXPECT_EQ(rowpos(1, 8).text().front(), '1');
}

TEST_F(Program, AReplayTurnsPencilMarksOnAndLeavesThemOnIfTheyWere) {
  open(easy);
  EXPECT_TRUE(pencilmarks());
  player.script = {stop, stop};
  player.event([] { Text3_DblClick(3); });
  EXPECT_TRUE(pencilmarks());
  mnupencil_Click();
  clearcolours();
  player.event([] { Text3_DblClick(3); });
  EXPECT_TRUE(pencilmarks());
}

TEST_F(Program, AReplayWithoutAPuzzleNameShowsNoStep) {
  put(without(fullboard, {0}));
  headline("x");
  frmmain::filetxt.text.clear();
  logline = 1;
  player.event(ritrova);
  EXPECT_EQ(player.boxes, Strings{"no puzzle loaded"});
  EXPECT_TRUE(player.frames.empty());
}

TEST_F(Program, EveryPlaceOfALineBelongsToIt) {
  Frmlog::Text3.text = "\r\nfirst\r\n * second\r\nthird";
  frmmain::filetxt.text = "x";
  const auto lineof = [this](std::size_t caret) {
    logline = -1;
    player.boxes.clear();
    player.event([&] { Text3_DblClick(caret); });
    return int(logline);
  };
  EXPECT_EQ(lineof(0), 0);
  EXPECT_EQ(lineof(2), 1);  // before "first"
  EXPECT_EQ(lineof(5), 1);  // inside
  EXPECT_EQ(lineof(7), 1);  // at its end, before the line break
  EXPECT_EQ(lineof(9), 2);  // before " * second"
  EXPECT_EQ(player.boxes, Strings{"select a line without initial asterisk"});
  EXPECT_EQ(lineof(18), 2);  // at its end
  EXPECT_EQ(player.boxes, Strings{"select a line without initial asterisk"});
  EXPECT_EQ(lineof(20), 3);
  EXPECT_EQ(lineof(25), 3);  // the end of the text
}

TEST_P(Grading, ADetailLineIsRefused) {
  put(fullboard);
  const Board before = theboard();
  Frmlog::Text3.text = "\r\nhead\r\n * detail\r\n* no detail";
  player.event([] { Text3_DblClick(10); });
  EXPECT_EQ(player.boxes, Strings{in("selezionare una linea senza l'asterisco iniziale",
                                     "select a line without initial asterisk")});
  EXPECT_EQ(theboard(), before);
  player.boxes.clear();
  player.event([] { Text3_DblClick(22); });
  EXPECT_EQ(player.boxes, Strings{}) << "the asterisk counts only behind a blank";
  EXPECT_EQ(logline, 3);
}

TEST_F(Program, ALineWithoutSnapshotEmptiesAllCells) {
  put(fullboard);
  Frmlog::Text3.text = "\r\nwritten during a job";
  for (std::size_t caret : {0u, 5u}) {
    put(fullboard);
    player.event([&] { Text3_DblClick(caret); });
    EXPECT_EQ(boxtexts(), emptyboard);
    EXPECT_EQ(values(), emptyboard);
    EXPECT_EQ(filledcount, 0);
    EXPECT_EQ(masks(), std::vector<int>(81, 0));
    EXPECT_TRUE(player.boxes.empty());
  }
}

// As many lines as the snapshots have places and one more, no board kept for any but the lines 2 and 650.
TEST_P(Grading, ReturnOnALineWithoutSnapshotSaysSoAndChangesNothing) {
  frmmain::filetxt.text = "x";
  for (int n = 0; n < 651; ++n) Frmlog::Text3.text += "\r\nx";
  put(without(fullboard, {0, 40}));
  for (const int kept : {2, 650}) {
    logcount = kept;
    logsnapshot();
  }
  put(fullboard);
  const Board before = theboard();
  for (const int line : {0, 1, 3, 649, 651}) {
    player.boxes.clear();
    player.event([&] { Text3_Return(caretof(line)); });
    EXPECT_EQ(player.boxes,
              Strings{in("per questa linea non è stato conservato lo schema: non c'è nulla a cui tornare",
                         "no board was kept for this line: there is nothing to go back to")})
        << line;
    EXPECT_EQ(theboard(), before) << line;
    EXPECT_TRUE(player.frames.empty()) << line;
  }
  player.boxes.clear();
  for (const int line : {2, 650}) {
    put(fullboard);
    player.script = {stop};
    player.event([&] { Text3_Return(caretof(line)); });
    EXPECT_EQ(values(), without(fullboard, {0, 40})) << line;
    EXPECT_EQ(logline, line);
  }
  EXPECT_EQ(player.frames.size(), 2u);
  EXPECT_EQ(player.boxes, Strings{});
}

TEST_P(Grading, ReturnOnALineOfAnEarlierLogGoesNowhere) {
  for (const bool generated : {false, true}) {
    put(without(fullboard, {0, 40}));
    logcount = 200;
    logsnapshot();
    generated ? emptylogtext() : clearlog();  // neither clears that entry
    for (int n = 0; n < 200; ++n) appendline("x");
    put(fullboard);
    const Board before = theboard();
    player.boxes.clear();
    player.event([] { Text3_Return(caretof(200)); });
    EXPECT_EQ(player.boxes,
              Strings{in("per questa linea non è stato conservato lo schema: non c'è nulla a cui tornare",
                         "no board was kept for this line: there is nothing to go back to")});
    EXPECT_EQ(theboard(), before);
  }
}

TEST_P(Grading, ReturnIsRefusedWhereADoubleClickIs) {
  open(easy);
  const std::string text = Frmlog::Text3.text;
  player.script = {[&] {
                     Text3_Return(3);
                     EXPECT_EQ(player.boxes, Strings{in("per continuare click sul semaforo verde",
                                                        "to proceed, click on green traffic light")});
                     EXPECT_TRUE(waiting());
                   },
                   stop};
  player.event(mnuposition_Click);
  player.boxes.clear();
  Frmlog::Text3.text = "\r\nhead\r\n * detail";
  const Board before = theboard();
  player.event([] { Text3_Return(10); });
  EXPECT_EQ(player.boxes, Strings{in("selezionare una linea senza l'asterisco iniziale",
                                     "select a line without initial asterisk")});
  EXPECT_EQ(theboard(), before);
}

TEST_P(Grading, ALineBeyondTheTablesIsAFaultThatLeavesChangeHandlingWorking) {
  for (int n = 0; n < 651; ++n) Frmlog::Text3.text += "\r\nx";
  frmmain::filetxt.text = "x";
  put(emptyboard);
  player.event([] { Text3_DblClick(Frmlog::Text3.text.size()); });
  EXPECT_EQ(
      player.boxes,
      Strings{in("Il log conserva lo schema solo per le prime 650 linee: alla linea 651 non si può tornare. "
                 "Scegliere una linea più in alto. (tabella logvalues da 0 a 650, indice 651, in ritrova)",
                 "The log keeps the board for its first 650 lines only: there is no going back to line 651. "
                 "Choose a line further up. (table logvalues 0 to 650, index 651, in ritrova)")});
  EXPECT_FALSE(suppresschange);
}

// ---- a new board ------------------------------------------------------------------------------------------

TEST_F(Program, AClearedBoardIsEmptyRedAndWithoutGradeOrLog) {
  open(easy);
  frmmain::Pictgo.visible = frmmain::Pictalt.visible = frmmain::Picthelp.visible = true;
  colorescelto = yellow;
  comandocorrente = "genera";
  nishioflag = true;
  for (int cell = 0; cell < 81; ++cell) frmmain::Text1(cell).fore = textcolor;
  const std::string solution = solutiontext(0);
  for (int line : {0, 150, 151, 650}) {
    logvalues(line) = "old";
    logcands(line) = "old";
  }
  clearboard();
  EXPECT_EQ(boxtexts(), emptyboard);
  for (const Box& box : frmmain::Text1) EXPECT_EQ(box.fore, red);
  for (const Box& box : frmmain::Text2) EXPECT_EQ(box.text, "");
  EXPECT_EQ(numerosoluzioni, 0);
  EXPECT_EQ(filledcount, 0);
  EXPECT_EQ(logcount, 0);
  EXPECT_FALSE(nishioflag);
  EXPECT_EQ(Frmlog::Text3.text, "");
  EXPECT_EQ(comandocorrente, "");
  EXPECT_EQ(frmmain::txtlivello.text, "");
  EXPECT_EQ(frmmain::txtlivello1.text, "");
  EXPECT_EQ(colorescelto, 0);
  EXPECT_FALSE(frmmain::Pictgo.visible || frmmain::Pictalt.visible || frmmain::Picthelp.visible);
  EXPECT_EQ(runninglevel, 0);
  for (int level = 1; level <= 21; ++level) EXPECT_EQ(levelcount(level), 0);
  EXPECT_FALSE(suppresschange);
  for (int line : {0, 150}) EXPECT_EQ(logvalues(line) + logcands(line), "");
  for (int line : {151, 650})
    EXPECT_EQ(logvalues(line) + logcands(line), "oldold") << "kept: overwritten later";
  EXPECT_EQ(solutiontext(0), solution);
  EXPECT_EQ(frmmain::testototale.text, " tot. 1") << "nobody clears the score";
}

TEST_F(Program, AfterAClearedBoardThePencilMarksAreThoseOfAnEmptyOne) {
  open(easy);
  clearboard();
  EXPECT_EQ(values(), emptyboard);
  EXPECT_EQ(giventexts(), emptyboard);
  EXPECT_EQ(visiblemarks(40), "123456789");
  EXPECT_EQ(frmmain::txtesposti.text, "0");
  EXPECT_EQ(frmmain::txtvuoti.text, "81");
}

}  // namespace
}  // namespace gradino::tests
