// The generator, its reduction and the continuous run.
#include <algorithm>
#include <deque>
#include <map>
#include <set>
#include <utility>

#include "boardgrade.h"
#include "boxes.h"
#include "captions.h"
#include "commands.h"
#include "continuous.h"
#include "editing.h"
#include "filecommands.h"
#include "generator.h"
#include "grader.h"
#include "gradestate.h"
#include "grid.h"
#include "host.h"
#include "library.h"
#include "light.h"
#include "literalcounter.h"
#include "log.h"
#include "menu.h"
#include "pairs.h"
#include "player.h"
#include "reduction.h"
#include "replay.h"
#include "step.h"
#include "stepsolver.h"
#include "view.h"

namespace gradino::tests {
namespace {

/// The draws are over.
struct NoMoreDraws {};

class Generation : public Program {
 protected:
  /// Lets the generator draw these and no more, and leaves its board as it is then.
  void draw(std::deque<double> draws) {
    host.random = [draws]() mutable {
      if (draws.empty()) throw NoMoreDraws{};
      const double next = draws.front();
      draws.pop_front();
      return next;
    };
    EXPECT_THROW(frmgenerazione::genera(), NoMoreDraws);
  }
  static void supersymmetric(bool ticked) { frmmain::Check1.ticked = ticked; }
  /// The puzzle in the boxes.
  static std::string puzzle() { return boxtexts(); }
  static std::string solution() {
    std::string all;
    for (int cell = 0; cell < cellcount; ++cell) all += solutiontext(cell);
    return all;
  }
};

/// The cells that hold a digit.
std::set<int> filled(const std::string& board) {
  std::set<int> found;
  for (int cell = 0; cell < cellcount; ++cell)
    if (board[static_cast<std::size_t>(cell)] != '.') found.insert(cell);
  return found;
}

std::string emptied(std::string puzzle, const std::set<int>& group) {
  for (const int cell : group) puzzle[static_cast<std::size_t>(cell)] = '.';
  return puzzle;
}

std::set<int> group(int cell, bool four) {
  const int r = cell / 9, c = cell % 9;
  if (!four) return {cell, 80 - cell};
  return {cell, 80 - cell, 9 * r + 8 - c, 9 * (8 - r) + c};
}

/// What a reduction must leave, how many groups it looks at and takes, and the solutions, at most two,
/// without the last group that it looks at.
struct Reduced {
  std::string puzzle;
  int groups = 0, reductions = 0, lastcount = 0;
};
Reduced reducedby(std::string puzzle, bool four) {
  Reduced result;
  for (int cell = 0; cell <= 40; ++cell) {
    if (puzzle[static_cast<std::size_t>(cell)] == '.') continue;
    result.groups += 1;
    const std::string less = emptied(puzzle, group(cell, four));
    result.lastcount = exactcovercount(less, 2);
    if (result.lastcount != 1) continue;
    puzzle = less;
    result.reductions += 1;
  }
  result.puzzle = puzzle;
  return result;
}

std::vector<std::string> lines(const std::string& text) {
  std::vector<std::string> all;
  for (std::size_t begin = 0, end; (end = text.find(newline, begin)) != std::string::npos; begin = end + 2)
    all.push_back(text.substr(begin, end - begin));
  return all;
}

/// A finished puzzle on the board, as the generator hands it over.
void handover(std::string_view puzzle) {
  suppresschange = true;
  for (int cell = 0; cell < cellcount; ++cell) {
    const char sign = puzzle[static_cast<std::size_t>(cell)];
    givens(cell) = sign == '.' ? "" : std::string(1, sign);
    writetext1(cell, givens(cell));
  }
  filledcount = cellcount;
}

TEST_F(Generation, TheCentreIsEnteredTwiceAndPlacedOnce) {
  supersymmetric(false);
  // Among 81 free cells the 41st, its first candidate; then the first of the other 80 with its first one, and
  // the same in its mirror. 1 in r1c1 and in r9c9 see neither each other nor the centre.
  draw({40 / 81.0 + 1e-9, 0, 0, 0, 0});
  EXPECT_EQ(values(), with({{0, '1'}, {40, '1'}, {80, '1'}}));
  EXPECT_EQ(boxtexts(), values());
  EXPECT_EQ(filledcount, 3);
  for (const int cell : {0, 40, 80}) {
    EXPECT_TRUE(frmmain::Text1(cell).locked) << cell;
    EXPECT_EQ(frmmain::Text1(cell).fore, red) << cell;
  }
  EXPECT_FALSE(frmmain::Text1(1).locked);
  EXPECT_EQ(candstr(1), "23456789") << "the tables follow each digit";
}

TEST_F(Generation, TheDrawPicksTheLastCandidateToo) {
  supersymmetric(false);
  draw({0, 0.999999, 0.999999});
  EXPECT_EQ(values(), with({{0, '9'}, {80, '9'}}));
}

TEST_F(Generation, FourMirrorsInTheirOrder) {
  supersymmetric(true);
  // r1c2: its digit, then r9c8, r1c8, r9c2, each the first that is still open there.
  draw({1 / 81.0 + 1e-9, 0, 0, 0, 0});
  EXPECT_EQ(values(), with({{1, '1'}, {79, '1'}, {7, '2'}, {73, '2'}}));
}

TEST_F(Generation, AMirrorThatIsThePointMirrorIsNotPlacedAgain) {
  supersymmetric(true);
  // r5c1: its left-right mirror r5c9 is its point mirror, its top-bottom mirror is itself.
  draw({36 / 81.0 + 1e-9, 0, 0});
  EXPECT_EQ(values(), with({{36, '1'}, {44, '2'}}));
}

TEST_F(Generation, ThousandPuzzles) {
  std::map<int, int> levels;
  for (int number = 0; number < 1000; ++number) {
    const bool four = number % 2 == 1;
    supersymmetric(four);
    host.random = seededrandom(42, static_cast<std::uint32_t>(number));
    player.event(frmmain::nuovoschema);
    ASSERT_TRUE(player.boxes.empty()) << player.boxes.front();
    const std::string made = puzzle();
    SCOPED_TRACE(made);
    ASSERT_EQ(made, giventexts());
    ASSERT_EQ(made, values());
    ASSERT_EQ(exactcovercount(made, 2), 1);
    const std::set<int> givencells = filled(made);
    ASSERT_EQ(filledcount, static_cast<int>(givencells.size()));
    for (const int cell : givencells)
      for (const int mirror : group(cell, four)) ASSERT_TRUE(givencells.contains(mirror)) << cell;
    const std::string solved = solution();
    ASSERT_EQ(exactcovercount(solved, 2), 1);
    for (const int cell : givencells)
      ASSERT_EQ(made[static_cast<std::size_t>(cell)], solved[static_cast<std::size_t>(cell)]);

    // Graded afresh, as opening a file of it does.
    const int level = runninglevel, score = difficolta;
    const std::string steps = dettaglio;
    gradeboard();
    ASSERT_EQ(runninglevel, level);
    ASSERT_EQ(difficolta, score);
    ASSERT_EQ(dettaglio, steps);
    levels[level] += 1;
  }
  EXPECT_GT(levels.size(), 8U) << "hardly a source of chance";
}

TEST_F(Generation, TheSameSeedTheSamePuzzleAnotherSeedAnother) {
  const auto made = [&](std::uint64_t seed) {
    host.random = seededrandom(seed);
    player.event(frmmain::nuovoschema);
    return puzzle();
  };
  const std::string first = made(1);
  EXPECT_NE(made(2), first);
  EXPECT_EQ(made(1), first);
}

TEST_F(Generation, TheCommandShowsThePuzzleReadyToBeSolved) {
  host.random = seededrandom(5);
  mnupencil_Click();
  player.event(frmmain::nuovoschema);
  EXPECT_EQ(frmmain::filetxt.text, "new puzzle");
  EXPECT_EQ(frmmain::txtesposti.text, std::to_string(filled(puzzle()).size()));
  EXPECT_EQ(frmmain::txtvuoti.text, std::to_string(81 - filled(puzzle()).size()));
  EXPECT_FALSE(frmmain::txtlivello.text.empty());
  EXPECT_EQ(frmmain::txtlivello1.text, dettaglio);
  EXPECT_EQ(comandocorrente, "genera");
  EXPECT_TRUE(pencilmarks());
  EXPECT_FALSE(suppresschange);
  EXPECT_FALSE(waiting());
  for (int cell = 0; cell < cellcount; ++cell) {
    const bool given = !givens(cell).empty();
    EXPECT_EQ(frmmain::Text1(cell).fore, given ? red : textcolor) << cell;
    EXPECT_EQ(frmmain::Text1(cell).locked, given) << cell;
    EXPECT_EQ(frmmain::Text1(cell).visible, given) << cell;
    EXPECT_EQ(frmmain::Text2(cell).text, "") << cell;
    if (!given) {
      EXPECT_EQ(visiblemarks(cell), candstr(cell)) << cell;
    }
  }
  mnupencil_Click();
  player.event(frmmain::nuovoschema);
  EXPECT_FALSE(pencilmarks()) << "flipped twice";
  for (const Box& box : frmmain::Text1) EXPECT_TRUE(box.visible);
}

TEST_F(Generation, TheLogOfAGeneratedPuzzleHasLinesButNoSnapshots) {
  open(fullboard);  // the snapshots of its log must not come back
  host.random = seededrandom(5);
  player.event(frmmain::nuovoschema);
  ASSERT_FALSE(Frmlog::Text3.text.empty());
  for (const std::string& snapshot : logvalues) EXPECT_EQ(snapshot, "");
  player.event([] { Text3_DblClick(2); });
  EXPECT_EQ(values(), emptyboard);
}

TEST_F(Generation, ReturnInItsLogDoesNotLeadToThePuzzleBefore) {
  open("..45...6..6..94..39.......78.....67..5...219..1..4.2.....875...2..31.....89......");
  ASSERT_EQ(logvalues(5).size(), 81U);
  host.random = seededrandom(5);
  player.event(frmmain::nuovoschema);
  const Board made = theboard();
  std::size_t line = 0;
  for (int n = 0; n < 5; ++n) line = Frmlog::Text3.text.find("\r\n", line) + 2;
  player.event([&] { Text3_Return(line); });
  EXPECT_EQ(player.boxes,
            std::vector<std::string>{"no board was kept for this line: there is nothing to go back to"});
  EXPECT_EQ(theboard(), made);
}

TEST_F(Generation, NewClearsWhatTheGeneratorLocked) {
  host.random = seededrandom(5);
  player.event(frmmain::nuovoschema);
  player.event(mnunew_Click);
  for (const Box& box : frmmain::Text1) EXPECT_FALSE(box.locked);
}

TEST_F(Generation, ACommandThatClearsTheBoardEndsIt) {
  host.random = seededrandom(5);
  player.onevents = [&] {
    player.onevents = nullptr;
    player.event(mnunew_Click);
  };
  player.event(frmmain::nuovoschema);
  EXPECT_EQ(values(), emptyboard);
  EXPECT_EQ(boxtexts(), emptyboard);
  EXPECT_EQ(frmmain::filetxt.text, "nuovo schema");
  EXPECT_FALSE(pencilmarks());
  EXPECT_TRUE(player.boxes.empty());
}

TEST_F(Generation, AnotherGenerationInTheMiddleReplacesTheFirst) {
  host.random = seededrandom(5);
  std::string inner;
  player.onevents = [&] {
    player.onevents = nullptr;
    player.event(frmmain::nuovoschema);
    inner = puzzle();
  };
  player.event(frmmain::nuovoschema);
  EXPECT_EQ(puzzle(), inner);
  EXPECT_EQ(exactcovercount(inner, 2), 1);
}

TEST_F(Generation, AWaitingStepLosesItsBoard) {
  open(without(fullboard, {0, 1, 2}));
  host.random = seededrandom(5);
  player.script = {frmmain::nuovoschema};
  const std::size_t waits = player.frames.size();
  player.event(mnuposition_Click);
  EXPECT_EQ(player.frames.size(), waits + 1);
  EXPECT_EQ(frmmain::filetxt.text, "new puzzle");
  EXPECT_EQ(values(), giventexts());
  EXPECT_FALSE(waiting());
}

// Clicks and keys that come in between must not get into the puzzle.
TEST_F(Generation, WhatTheUserDoesMeanwhileSpoilsNoPuzzle) {
  const std::vector<std::function<void()>> deeds = {
      [] { Text1_Typed(0, "5"); },  [] { restoregivens(); },     [] { mnusolve_Click(); },
      [] { mnurefresh_Click(); },   [] { mnupencil_Click(); },   [] { cmdlan_Click(); },
      [] { frmmain::nakedpair(); }, [] { candidate_Click(13); }, [] { Picture1_Click(7); },
      [] { showgivens(); },         [] { mnuactivity_Click(); },
  };
  for (std::size_t deed = 0; deed < deeds.size(); ++deed)
    for (const int turn : {1, 7, 40}) {
      SCOPED_TRACE(std::to_string(deed) + " at turn " + std::to_string(turn));
      supersymmetric(turn == 7);
      host.random = seededrandom(deed, static_cast<std::uint32_t>(turn));
      player.script = {stop};
      int turns = 0;
      player.onevents = [&] {
        if (++turns == turn) player.event(deeds[deed]);
      };
      player.event(frmmain::nuovoschema);
      EXPECT_EQ(exactcovercount(puzzle(), 2), 1) << puzzle();
      EXPECT_EQ(puzzle(), values());
      EXPECT_EQ(filledcount, static_cast<int>(filled(puzzle()).size()));
      EXPECT_FALSE(suppresschange);
      player.onevents = nullptr;
      player.script.clear();
    }
}

/// Which pencil marks are to be seen, cell by cell.
std::string marks() {
  std::string all;
  for (int cell = 0; cell < cellcount; ++cell) {
    for (int digit = 1; digit <= 9; ++digit)
      if (frmmain::candidate(cell * 10 + digit).visible) all += static_cast<char>('0' + digit);
    all += ' ';
  }
  return all;
}

std::string candidates() {
  std::string all;
  for (int cell = 0; cell < cellcount; ++cell) all += candstr(cell) + ' ';
  return all;
}

// A digit that is put in repaints them. What the quick solver finds isn't shown, nor is the reduction.
TEST_F(Generation, PencilMarksAreThoseOfTheLastDigitPutIn) {
  for (const bool four : {false, true}) {
    supersymmetric(four);
    host.random = seededrandom(8, four ? 1 : 0);
    std::string boxes = boxtexts(), shown = marks();
    int placements = 0, quiet = 0, reduced = 0;
    player.onevents = [&] {
      const bool placed = boxtexts() != boxes && frmactivity::Text3.text.empty();
      if (placed) shown = candidates();
      EXPECT_EQ(marks(), shown) << boxtexts();
      (placed ? placements : frmactivity::Text3.text.empty() ? quiet : reduced) += 1;
      boxes = boxtexts();
    };
    player.event(frmmain::nuovoschema);
    EXPECT_GT(std::min({placements, quiet, reduced}), 3);
    EXPECT_EQ(marks(), candidates()) << "shown for the puzzle once it stands";
    player.onevents = nullptr;
  }
}

TEST_F(Generation, ReductionTakesTheGroupsFromTheTopLeftInOnePass) {
  for (const bool four : {false, true}) {
    supersymmetric(four);
    const Reduced expected = reducedby(std::string(fullboard), four);
    comandocorrente = generatecommand;
    handover(fullboard);
    riduzione();
    EXPECT_EQ(puzzle(), expected.puzzle);
    EXPECT_EQ(giventexts(), expected.puzzle);
    EXPECT_GT(expected.reductions, 5);

    std::vector<std::string> told = lines(frmactivity::Text3.text);
    ASSERT_EQ(told.size(), static_cast<std::size_t>(expected.groups + expected.reductions + 2));
    EXPECT_EQ(told[0], "beginning =  end = 81") << "the board's filled cells";
    EXPECT_EQ(told[1], "executed " + std::to_string(expected.reductions) + " reductions");
    std::reverse(told.begin(), told.end());
    int groups = 0, reductions = 0;
    for (std::size_t n = 0; n + 2 < told.size(); ++n)
      if (told[n] == "1 RIDUZIONE ESEGUITA ")
        reductions += 1;
      else
        EXPECT_EQ(told[n], "coppia analizzata " + std::to_string(++groups));
    EXPECT_EQ(groups, expected.groups);
    EXPECT_EQ(reductions, expected.reductions);
    frmactivity::Text3.text.clear();
  }
}

TEST_F(Generation, WhatIsReducedCannotBeReducedAgain) {
  supersymmetric(true);
  const std::string minimal = reducedby(std::string(fullboard), true).puzzle;
  comandocorrente = generatecommand;
  handover(minimal);
  riduzione();
  EXPECT_EQ(puzzle(), minimal) << "a group that has to stay is put back whole";
  const std::vector<std::string> told = lines(frmactivity::Text3.text);
  EXPECT_EQ(told.at(0), "beginning =  end = ");
  EXPECT_EQ(told.at(1), "executed 0 reductions");
}

// The grader reports a puzzle beyond the techniques only when this count is one.
TEST_F(Generation, ReductionLeavesTheCountOfTheLastGroupItTried) {
  const std::string minimal = reducedby(std::string(fullboard), true).puzzle;
  std::string spare = minimal;  // the centre comes last
  spare[40] = std::string(fullboard)[40];
  supersymmetric(true);
  comandocorrente = generatecommand;
  std::set<int> counts;
  for (const std::string& board : {minimal, spare}) {
    const int lastcount = reducedby(board, true).lastcount;
    counts.insert(lastcount);
    handover(board);
    riduzione();
    EXPECT_EQ(numerosoluzioni, lastcount) << board;
  }
  EXPECT_EQ(counts, (std::set{1, 2})) << "a group that has to stay, and one that falls";
}

TEST_F(Generation, TheProgressWindowOnlyTellsTheTime) {
  player.now = 3661.5;
  frmprogress::visible = true;
  frmprogress::timer();
  EXPECT_EQ(frmprogress::Text1.text, "3661.5");
  host.random = seededrandom(5);
  player.event(frmmain::nuovoschema);
  EXPECT_FALSE(frmprogress::visible);
}

/// The continuous run over a store that only notes what it is given.
class Continuous : public Generation {
 protected:
  struct Stored {
    std::string progressivo, livello, stringa, numeri, difficolta, dettaglio, super;
  };

  Continuous() {
    Data1.movelast = [this] { acts += "last "; };
    Data1.addnew = [this] {
      if (building_)
        stored.push_back({frmmain::txtprogressivo.text, frmmain::testolivello.text, frmmain::txtstringa.text,
                          frmmain::txtnumeri.text, frmmain::txttotale.text, frmmain::txtdettaglio.text,
                          frmmain::txtsuper.text});
      building_ = true;
      acts += "new ";
      if (atnew) atnew();
    };
    host.random = seededrandom(9);
  }

  /// Ends the run after its n-th puzzle, each of which takes a second.
  void run(std::size_t n) {
    atnew = [this] { player.now += 1; };
    player.onevents = [this, n] {
      if (stored.size() == n - 1) player.now = 30000;
    };
    player.event(frmmain::genera_e_conta);
  }

  std::vector<Stored> stored;
  std::string acts;
  std::function<void()> atnew;

 private:
  bool building_ = false;
};

TEST_F(Continuous, StoresWhatIsHardOrSparseUnderNumbersFrom8371) {
  supersymmetric(false);
  run(40);
  ASSERT_EQ(stored.size(), 40U);
  EXPECT_TRUE(acts.starts_with("last new new "));
  EXPECT_TRUE(player.boxes.empty());
  EXPECT_TRUE(frmgeneratore::visible);
  EXPECT_TRUE(frmactivity::visible);
  EXPECT_EQ(comandocorrente, "genera");
  EXPECT_FALSE(unattended);
  bool sparse = false, dense = false;
  for (std::size_t n = 0; n < stored.size(); ++n) {
    const Stored& row = stored[n];
    SCOPED_TRACE(row.stringa);
    EXPECT_EQ(row.progressivo, std::to_string(8371 + n));
    EXPECT_EQ(row.stringa.size(), 81U);
    EXPECT_EQ(exactcovercount(row.stringa, 2), 1);
    const int count = static_cast<int>(filled(row.stringa).size()), level = std::stoi(row.livello);
    EXPECT_EQ(row.numeri, std::to_string(count));
    EXPECT_TRUE(level >= 4 || count < 27);
    (level < 4 ? sparse : dense) = true;
    EXPECT_EQ(row.super, "txtsuper") << "what the box held";
  }
  EXPECT_TRUE(sparse && dense);

  const std::vector<std::string> list = lines(frmgeneratore::Text1.text);
  ASSERT_EQ(list.size(), 5 * stored.size());
  const auto& last = stored.back();
  EXPECT_EQ(list[4], " schema " + std::to_string(8371 + stored.size())) << "one more than it is stored under";
  EXPECT_EQ(list[3], " LIVELLO " + last.livello);
  EXPECT_EQ(list[2], " numeri " + last.numeri);
  EXPECT_TRUE(list[1].starts_with(" tempo, secondi ")) << list[1];
  EXPECT_EQ(list[0], " tempo totale, secondi 30000");
}

TEST_F(Continuous, TimesAreThoseOfThePuzzleAndOfTheRun) {
  supersymmetric(false);
  player.now = 100;
  player.onevents = [&] { player.now += 0.25; };
  int accepted = 0;
  atnew = [&] {
    if (++accepted == 3) throw NoMoreDraws{};
  };
  EXPECT_THROW(frmmain::genera_e_conta(), NoMoreDraws);
  const std::vector<std::string> list = lines(frmgeneratore::Text1.text);
  ASSERT_EQ(list.size(), 10U);
  const auto seconds = [&](std::size_t line) { return std::stod(list[line].substr(list[line].rfind(' '))); };
  EXPECT_GT(seconds(1), 0);
  EXPECT_LE(seconds(1) + seconds(6), seconds(0)) << "two puzzles are no longer than the run";
}

TEST_F(Continuous, TimesAreToldInHundredthsHoweverLongItHasRun) {
  struct Row {
    double seconds;
    const char* told;
  };
  // The sequence's first puzzle is kept.
  for (const auto& [seconds, told] :
       {Row{25000.25, "25000.25"}, Row{1234567.89, "1234567.89"}, Row{100000, "100000"},
        Row{24999.5, "24999.5"}, Row{0.254, "0.25"}, Row{0.004, "0"}, Row{12.999, "13"}, Row{0, "0"},
        Row{-0.004, "0"}, Row{-86390.5, "-86390.5"}}) {
    supersymmetric(false);
    host.random = seededrandom(9);
    frmgeneratore::Text1.text.clear();
    player.now = 86399;
    player.onevents = [&, later = 86399 + seconds] { player.now = later; };
    bool kept = false;
    atnew = [&] {
      if (std::exchange(kept, true)) throw NoMoreDraws{};
    };
    EXPECT_THROW(frmmain::genera_e_conta(), NoMoreDraws);
    const std::vector<std::string> list = lines(frmgeneratore::Text1.text);
    ASSERT_EQ(list.size(), 5U);
    EXPECT_EQ(list[0], std::string(" tempo totale, secondi ") + told);
    EXPECT_EQ(list[1], std::string(" tempo, secondi ") + told);
  }
}

TEST_F(Continuous, AClockThatPassesMidnightDoesNotEndIt) {
  player.now = 86399;
  std::size_t rows = 0;
  atnew = [&] {
    if (stored.size() == 1) player.now = 10;  // the difference goes negative
    if (stored.size() == 3) player.now = 86399 + 25000.5;
    rows = stored.size();
  };
  player.event(frmmain::genera_e_conta);
  EXPECT_EQ(rows, 4U);
}

TEST_F(Continuous, TheCheckBoxWritesS) {
  supersymmetric(true);
  run(2);
  ASSERT_EQ(stored.size(), 2U);
  EXPECT_EQ(stored[0].super, "s");
}

TEST_F(Continuous, AStoreThatFailsEndsItWithItsWords) {
  Data1.need = [] { throw LibraryFailure("no library"); };
  player.event(frmmain::genera_e_conta);
  EXPECT_EQ(player.boxes, std::vector<std::string>{"no library"});
  EXPECT_TRUE(stored.empty());
  EXPECT_FALSE(unattended);
}

TEST_F(Continuous, APuzzleThatCannotBeMadeIsPassedOver) {
  host.random = [] {
    throw Fault{Fault::Kind::bounds, "cellescelte", 81, 0, 80, "enter"};
    return 0.0;
  };
  int tries = 0;
  player.onevents = [&] {
    if (++tries == 3) throw NoMoreDraws{};
  };
  EXPECT_THROW(frmmain::genera_e_conta(), NoMoreDraws) << "a puzzle that can't be made is passed over";
  EXPECT_TRUE(stored.empty());
}

TEST_F(Continuous, AMessageWaitsForNobody) {
  bool seen = false;
  Data1.addnew = [&] {
    seen = unattended;
    throw NoMoreDraws{};
  };
  EXPECT_THROW(frmmain::genera_e_conta(), NoMoreDraws);
  EXPECT_TRUE(seen);
}

}  // namespace
}  // namespace gradino::tests
