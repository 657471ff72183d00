// Puzzle files: each test reads and writes real ones.
#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include "captions.h"
#include "commands.h"
#include "editing.h"
#include "filecommands.h"
#include "gradestate.h"
#include "grid.h"
#include "host.h"
#include "library.h"
#include "log.h"
#include "menu.h"
#include "player.h"
#include "puzzlefile.h"
#include "step.h"
#include "view.h"

namespace gradino::tests {
namespace {

using Strings = std::vector<std::string>;

const std::string puzzle =
    "..45...6..6..94..39.......78.....67..5...219..1..4.2.....875...2..31.....89......";
const std::string severalsolutions =
    "8......464..........6..2.5.7.1...96......7....92.1...4..7..6.9894.....1.....75..2";

/// The empty box of the grader where it gives up on the chains: it comes with every board that it can't
/// finish.
const char* const chainsgaveup = "";

std::string zeros(std::string text) {
  for (char& c : text)
    if (c == '.') c = '0';
  return text;
}

const std::string drawn =
    "=============================================================\r\n"
    "| .     .     4     | 5     .     .     | .     6     .     |\r\n"
    "| .     6     .     | .     9     4     | .     .     3     |\r\n"
    "| 9     .     .     | .     .     .     | .     .     7     |\r\n"
    "=============================================================\r\n"
    "| 8     .     .     | .     .     .     | 6     7     .     |\r\n"
    "| .     5     .     | .     .     2     | 1     9     .     |\r\n"
    "| .     1     .     | .     4     .     | 2     .     .     |\r\n"
    "=============================================================\r\n"
    "| .     .     .     | 8     7     5     | .     .     .     |\r\n"
    "| 2     .     .     | 3     1     .     | .     .     .     |\r\n"
    "| .     8     9     | .     .     .     | .     .     .     |\r\n"
    "=============================================================\r\n";

/// While it lives, no file grows beyond so many bytes.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit now{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &now);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, signal_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit before_{};
  void (*signal_)(int);
};

constexpr uid_t nobodysnumber = 65534;

/// The folder of a file, made so that it can't be written, though the file can. Root can write everywhere:
/// while this lives the process runs as the user nobody.
class ClosedFolder {
 public:
  explicit ClosedFolder(const std::string& file)
      : folder_(std::filesystem::path(file).parent_path()), root_(::geteuid() == 0) {
    std::filesystem::permissions(folder_, std::filesystem::perms(0555));
    if (root_ && (::chown(file.c_str(), nobodysnumber, nobodysnumber) != 0 || ::seteuid(nobodysnumber) != 0))
      return;
    possible = std::ofstream(file, std::ios::app).is_open();
  }
  ~ClosedFolder() {
    if (root_ && ::seteuid(0) != 0) ADD_FAILURE() << "nobody stays nobody";
    std::filesystem::permissions(folder_, std::filesystem::perms(0755));
  }
  ClosedFolder(const ClosedFolder&) = delete;
  ClosedFolder& operator=(const ClosedFolder&) = delete;

  bool possible = false;

 private:
  std::string folder_;
  bool root_;
};

class Files : public Bilingual {
 protected:
  const Strings failed = {in("errore nel salvataggio", "error on saving process")};

  void opentext(std::string_view text, const std::string& name = "puzzle.txt") {
    opennamed(file(name, text));
  }
  /// Forgets what earlier loads of the same test showed.
  void startafresh() {
    player.boxes.clear();
    frmmain::filetxt.text.clear();
  }
  /// The names in the test's folder, hidden files too.
  Strings listing() const {
    Strings names;
    for (const auto& entry : std::filesystem::directory_iterator(path("")))
      names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
  }
  void savenamed(const std::string& name) {
    player.names.emplace_back(name);
    player.event(mnusave_Click);
  }
  void expectpuzzle(const std::string& expected = puzzle) {
    EXPECT_EQ(player.boxes, Strings{});
    EXPECT_EQ(values(), expected);
    EXPECT_EQ(giventexts(), expected);
    EXPECT_EQ(boxtexts(), expected);
    EXPECT_FALSE(frmmain::bkglabel.visible);
    EXPECT_FALSE(suppresschange);
  }
  /// The load failed with the first `read` cells on the board.
  void expectbroken(const std::string& cells) {
    EXPECT_EQ(player.boxes, failed);
    EXPECT_EQ(boxtexts(), cells + std::string(81 - cells.size(), '.'));
    EXPECT_TRUE(frmmain::bkglabel.visible);
    EXPECT_TRUE(suppresschange);
  }
};
IN_BOTH_LANGUAGES(Files);

// ---- reading ---------------------------------------------------------------------------------------------

TEST_P(Files, AOneLineFileIsReadWhateverItsExtension) {
  for (const char* name : {"a.sav", "a.txt", "a.sdk", "a.lgc", "a.SAS", "a.Sas", "noextension", "a.doc"}) {
    opentext(puzzle + "\r\n", name);
    expectpuzzle();
    EXPECT_EQ(frmmain::filetxt.text, path(name));
  }
}

TEST_P(Files, LineEndsMayBeCrLfOrLfOrMissing) {
  for (const char* end : {"\r\n", "\n", ""}) {
    opentext(puzzle + end);
    expectpuzzle();
    std::string rows;
    for (std::size_t row = 0; row < 9; ++row) rows += puzzle.substr(row * 9, 9) + (*end ? end : "\n");
    opentext(rows);
    expectpuzzle();
  }
}

TEST_P(Files, EmptyCellsMayBeDotsZerosAndXes) {
  std::string mixed = puzzle;
  const char symbols[] = {'.', '0', 'x', 'X'};
  int n = 0;
  for (char& c : mixed)
    if (c == '.') c = symbols[n++ % 4];
  opentext(mixed);
  expectpuzzle();
}

TEST_P(Files, OtherCharactersAreSkippedAndLinesCanHaveAnyShape) {
  opentext("My puzzle!\r\n\r\n" + drawn);
  expectpuzzle();
  std::string spread;
  for (char c : puzzle) spread += std::string(1, c) + " |\t-\xe9";
  std::string lines;
  for (std::size_t at = 0; at < spread.size(); at += 60) lines += spread.substr(at, 60) + "\n";
  opentext(lines);
  expectpuzzle();
}

TEST_P(Files, AHeadingWithDigitsFeedsThemIntoTheFirstCells) {
  opentext("Puzzle 42, level 7\n" + std::string(81, '.') + "\n");
  EXPECT_EQ(boxtexts(), "427" + std::string(78, '.'));
  EXPECT_EQ(giventexts(), boxtexts());
}

TEST_P(Files, AnXInAHeadingIsAnEmptyCell) {
  opentext("example 9\n" + std::string(81, '.') + "\n");
  EXPECT_EQ(boxtexts(), ".9" + std::string(79, '.'));
}

TEST_P(Files, WhatFollowsThe81stSymbolIsNeverLookedAt) {
  opentext(puzzle + "7");
  expectpuzzle();
  opentext(puzzle + "\n" + std::string(5000, '1'));
  expectpuzzle();
  opentext(puzzle + std::string(174, '5'));  // 255 characters, but the reading stops at the 81st
  expectpuzzle();
}

TEST_P(Files, AFileThatEndsTooEarlyKeepsTheCellsReadSoFar) {
  opentext(puzzle.substr(0, 80) + "\r\n");
  expectbroken(puzzle.substr(0, 80));
  player.boxes.clear();
  opentext("");
  expectbroken("");
  player.boxes.clear();
  opentext("12\n");
  expectbroken("12");
  EXPECT_EQ(givens(0), "1");
}

TEST_P(Files, ALineOf254CharactersIsReadAndOneOf255Not) {
  const std::string first = puzzle.substr(0, 40), second = puzzle.substr(40);
  opentext(first + std::string(214, '-') + "\r\n" + second + "\r\n");
  expectpuzzle();
  opentext(first + std::string(214, '-') + "\n" + second + "\n");
  expectpuzzle();

  opentext(first + std::string(215, '-') + "\r\n" + second + "\r\n");
  expectbroken(first);  // the counter overflows after the last character
  player.boxes.clear();
  opentext(first + std::string(216, '-') + "\r\n" + second + "\r\n");
  expectbroken("");  // the length overflows before the first character
  player.boxes.clear();
  opentext(first + std::string(5000, '-') + "\r\n" + second + "\r\n");
  expectbroken("");
  player.boxes.clear();
  opentext(std::string(174, '-') + puzzle + "\n");  // the 81st symbol is the 255th character
  expectpuzzle();
}

TEST_P(Files, AMissingOrUnreadableFileIsAFailure) {
  opennamed(path("missing.sav"));
  expectbroken("");
  player.boxes.clear();
  opennamed(path("."));
  EXPECT_EQ(player.boxes, failed);
}

TEST_P(Files, GivensAreRedAndEmptyCellsTakePlainEntries) {
  opentext(puzzle);
  for (int cell = 0; cell < 81; ++cell)
    EXPECT_EQ(frmmain::Text1(cell).fore, puzzle[cell] == '.' ? textcolor : red) << cell;
}

// ---- opening ---------------------------------------------------------------------------------------------

TEST_P(Files, OpeningOffersItsFilterAndKeepsTheNameOfItsLastUse) {
  opentext(puzzle, "first.sav");
  opentext(puzzle, "second.sav");
  EXPECT_EQ(
      player.filters,
      (Strings(2,
               "Puzzle salvati (*.sav)|*.sav|File di testo (*.txt)|*.txt|schemi (*.sas)|*.sas|sudokusol "
               "(*.sdk;*.txt)|*.sdk;*.txt|Tutti i formati "
               "(*.sav;*.sdk;*.txt;*.lgc)|*.sav;*.sdk;*.txt;*.lgc")));
  EXPECT_EQ(player.suggestions, (Strings{"", path("first.sav")}));
}

TEST_P(Files, OpeningClearsTheBoardBeforeTheDialog) {
  opentext(puzzle);
  std::string during;
  player.names = {path("puzzle.txt")};
  libraryrecordopen = true;
  const auto dialog = host.showopen;
  host.showopen = [&](CommonDialog& box) {
    during = boxtexts();
    EXPECT_TRUE(frmmain::bkglabel.visible);
    EXPECT_TRUE(suppresschange);
    EXPECT_FALSE(libraryrecordopen);
    EXPECT_FALSE(pencilmarks());
    for (const Box& cell : frmmain::Text1) EXPECT_TRUE(cell.visible && cell.fore == red);
    dialog(box);
  };
  player.event(mnuopen_Click);
  EXPECT_EQ(during, emptyboard);
  expectpuzzle();
}

TEST_P(Files, CancellingAtAFreshStartLeavesAnEmptyBoardSilently) {
  player.names = {cancelled};
  player.event(mnuopen_Click);
  EXPECT_EQ(player.boxes, Strings{});
  EXPECT_EQ(boxtexts(), emptyboard);
  EXPECT_TRUE(frmmain::bkglabel.visible);
  EXPECT_EQ(frmmain::filetxt.text, "");
}

TEST_P(Files, CancellingLaterOpensTheLastFileAgain) {
  opentext(puzzle);
  Text1_Typed(0, "1");
  player.names = {cancelled};
  player.event(mnuopen_Click);
  expectpuzzle();
}

TEST_P(Files, AnOpenedPuzzleIsCountedGradedAndPutBack) {
  opentext(puzzle);
  expectpuzzle();
  EXPECT_EQ(numerosoluzioni, 1);
  EXPECT_EQ(solutiontext(0), "1");
  EXPECT_EQ(runninglevel, 1);
  EXPECT_EQ(filledcount, 27);
  EXPECT_EQ(frmmain::txtesposti.text, "27");
  EXPECT_EQ(frmmain::txtvuoti.text, "54");
  EXPECT_TRUE(pencilmarks());
  EXPECT_EQ(player.repaints, 1);
  const Board opened = theboard();
  rebuildwhole();
  EXPECT_EQ(theboard(), opened) << "all candidates are back after grading";
  for (int cell = 0; cell < 81; ++cell) {
    EXPECT_EQ(visiblemarks(cell), candstr(cell));
    EXPECT_EQ(frmmain::Text1(cell).visible, puzzle[cell] != '.');
  }
}

TEST_P(Files, PencilMarksAreOnAfterOpeningWhateverTheyWere) {
  opentext(puzzle);
  EXPECT_TRUE(pencilmarks());
  opentext(puzzle);
  EXPECT_TRUE(pencilmarks());
  mnupencil_Click();
  opentext(puzzle);
  EXPECT_TRUE(pencilmarks());
}

TEST_P(Files, SeveralSolutionsAreToldAndThePuzzleStays) {
  opentext(severalsolutions);
  EXPECT_EQ(player.boxes, (Strings{"More than one solution ", chainsgaveup}));
  EXPECT_EQ(boxtexts(), severalsolutions);
  EXPECT_TRUE(pencilmarks());
  EXPECT_FALSE(frmmain::bkglabel.visible);
}

TEST_P(Files, AConflictIsOnlyTheCountersComplaint) {
  std::string conflict = puzzle;
  conflict[0] = '4';
  opentext(conflict);
  EXPECT_EQ(player.boxes, (Strings{"Invalid Puzzle", chainsgaveup}));
  EXPECT_EQ(boxtexts(), conflict);
  EXPECT_EQ(giventexts(), conflict);
}

TEST_P(Files, TheLoadsOwnWritesDoNotReachTheChangeHandling) {
  opentext(puzzle);
  opentext(severalsolutions);
  EXPECT_EQ(filledcount, 81 - std::count(severalsolutions.begin(), severalsolutions.end(), '.'));
}

// Nothing is left to find on it, and it has one solution.
TEST_P(Files, AFullBoardIsToldAsBeyondTheTechniques) {
  opentext(fullboard);
  EXPECT_EQ(
      player.boxes,
      (Strings{chainsgaveup,
               in("                 Schema con 1 soluzione\r\n Non riesco a risolvere il sudoku con gli "
                  "algoritmi dosponibili",
                  "                 Puzzle with 1 solution\r\n I can't solve the sudoku with available "
                  "algorithms")}));
  EXPECT_EQ(runninglevel, 21);
  EXPECT_EQ(boxtexts(), fullboard);
}

TEST_P(Files, EditingPencilMarksSurvivesOpening) {
  modifica_Click();
  opentext(puzzle);
  EXPECT_TRUE(modificacandidati);
  EXPECT_EQ(visiblemarks(0), candstr(0));
}

// ---- the comma form --------------------------------------------------------------------------------------

std::string commas(const std::string& text) {
  std::string line;
  for (char c : text) line += std::string(1, c) + ",";
  return line;
}

TEST_P(Files, TheCommaFormFillsTheBoxesAndAlwaysEndsInTheFailureMessage) {
  opentext(puzzle);
  const std::string solution = solutiontext(0);
  opentext(commas(zeros(puzzle)) + "\r\nnot looked at", "a.sas");
  EXPECT_EQ(player.boxes, failed);
  EXPECT_EQ(boxtexts(), zeros(puzzle));
  EXPECT_EQ(frmmain::filetxt.text, path("a.sas"));
  EXPECT_EQ(values(), emptyboard);
  EXPECT_EQ(giventexts(), emptyboard);
  EXPECT_EQ(filledcount, 0);
  EXPECT_EQ(runninglevel, 0);
  EXPECT_EQ(numerosoluzioni, 0);
  EXPECT_EQ(frmmain::txtlivello.text, "");
  EXPECT_EQ(Frmlog::Text3.text, "");
  EXPECT_FALSE(pencilmarks());
  EXPECT_TRUE(frmmain::bkglabel.visible);
  EXPECT_TRUE(suppresschange);
  EXPECT_EQ(solutiontext(0), solution);
  Text1_Typed(0, "5");
  EXPECT_EQ(cellvalue(0), 0) << "typing no longer reaches the tables";
}

TEST_P(Files, CommaFieldsAreNumbersFrom0To255) {
  std::string line = commas(std::string(81, '0'));
  line.replace(0, 1, " 7");
  line.replace(line.size() - 2, 1, "255");
  opentext(line + "\n", "a.sas");
  EXPECT_EQ(player.boxes, failed);
  EXPECT_EQ(frmmain::Text1(0).text, "7");
  EXPECT_EQ(frmmain::Text1(80).text, "255");
}

TEST_P(Files, ABadCommaLineKeepsTheBoxesReadSoFarAndTheOldName) {
  const std::string good = commas(std::string(80, '3'));
  for (const std::string last : {"3", "256,", "x,", ",", "-1,", "3 3,", ""}) {
    startafresh();
    opentext(good + last + "\r\n", "a.sas");
    EXPECT_EQ(player.boxes, failed) << last;
    EXPECT_EQ(boxtexts(), std::string(80, '3') + ".") << last;
    EXPECT_EQ(frmmain::filetxt.text, "") << last;
  }
}

TEST_P(Files, ACommaBeyondCharacter255IsAFailure) {
  // three characters a field until character 243, so the 81st comma is at 255 or later
  std::string line;
  for (int cell = 0; cell < 80; ++cell) line += " 5,";
  startafresh();
  opentext(line + std::string(14, ' ') + "5,\r\n", "a.sas");
  EXPECT_EQ(frmmain::Text1(80).text, "") << "comma at 256";
  startafresh();
  opentext(line + std::string(13, ' ') + "5,\r\n", "a.sas");
  EXPECT_EQ(frmmain::Text1(80).text, "5") << "comma at 255";
}

// ---- saving ----------------------------------------------------------------------------------------------

TEST_P(Files, SavingWritesOneLineOf83Bytes) {
  opentext(zeros(puzzle));
  for (const char* name : {"b.sav", "b.txt", "b.sdk", "b", "b.LGC", "b.sas"}) {
    savenamed(path(name));
    EXPECT_EQ(bytes(path(name)), puzzle + "\r\n") << name;
    EXPECT_EQ(frmmain::filetxt.text, path(name));
  }
  EXPECT_EQ(player.filters.back(),
            "Puzzle salvati (*.sav)|*.sav|File di testo (*.txt)|*.txt|sudokusol (*.sdk)|*.sdk|logicando "
            "(*.lgc)|*.lgc");
}

TEST_P(Files, TheDrawingComesBackByteForByte) {
  opentext(drawn, "a.lgc");
  expectpuzzle();
  savenamed(path("b.lgc"));
  EXPECT_EQ(bytes(path("b.lgc")), drawn);
  opennamed(path("b.lgc"));
  expectpuzzle();
}

TEST_P(Files, XesAreNeverWritten) {
  std::string xes = puzzle;
  for (char& c : xes)
    if (c == '.') c = 'x';
  opentext(xes);
  savenamed(path("b.sav"));
  EXPECT_EQ(bytes(path("b.sav")), puzzle + "\r\n");
}

TEST_P(Files, SavingSuggestsTheDetailAndReplacesTheFile) {
  opentext(puzzle);
  file("b.sav", std::string(1000, '-'));
  savenamed(path("b.sav"));
  EXPECT_EQ(player.suggestions.back(), "1x1 ");
  EXPECT_EQ(bytes(path("b.sav")), puzzle + "\r\n");
}

TEST_P(Files, CancellingASaveWritesUnderTheSuggestedName) {
  opentext(puzzle);
  const auto back = std::filesystem::current_path();
  std::filesystem::current_path(path("."));
  player.names = {cancelled};
  player.event(mnusave_Click);
  std::filesystem::current_path(back);
  EXPECT_EQ(player.boxes, Strings{});
  EXPECT_EQ(bytes(path("1x1 ")), puzzle + "\r\n");
  EXPECT_EQ(frmmain::filetxt.text, "1x1 ");
}

TEST_P(Files, SavingMakesEverythingOnTheBoardAGiven) {
  opentext(puzzle);
  Text1_Typed(0, "1");
  ASSERT_EQ(frmmain::Text1(0).fore, textcolor);
  savenamed(path("b.sav"));
  std::string entered = puzzle;
  entered[0] = '1';
  expectpuzzle(entered);
  EXPECT_EQ(filledcount, 28);
  EXPECT_EQ(frmmain::txtesposti.text, "28");
  EXPECT_EQ(frmmain::Text1(0).fore, textcolor) << "boxes with digits keep their colours";
  EXPECT_EQ(frmmain::Text1(2).fore, red);
  restoregivens();
  EXPECT_EQ(boxtexts(), entered);
}

TEST_P(Files, SavingFlipsThePencilMarks) {
  opentext(puzzle);
  EXPECT_TRUE(pencilmarks());
  savenamed(path("b.sav"));
  EXPECT_FALSE(pencilmarks());
  savenamed(path("b.sav"));
  EXPECT_TRUE(pencilmarks());
}

TEST_P(Files, SavingGivesEmptyBoxesThePlainColourAndGrades) {
  mnunew_Click();
  for (int cell = 0; cell < 81; ++cell)
    if (puzzle[cell] != '.') Text1_Typed(cell, puzzle.substr(cell, 1));
  EXPECT_EQ(frmmain::Text1(0).fore, red);
  savenamed(path("b.sav"));
  expectpuzzle();
  for (int cell = 0; cell < 81; ++cell)
    EXPECT_EQ(frmmain::Text1(cell).fore, puzzle[cell] == '.' ? textcolor : red);
  EXPECT_EQ(runninglevel, 1);
  EXPECT_EQ(dettaglio, "1x1 ");
  EXPECT_EQ(numerosoluzioni, 1);
}

TEST_P(Files, SavingTellsOfSeveralSolutions) {
  opentext(severalsolutions);
  player.boxes.clear();
  savenamed(path("b.sav"));
  EXPECT_EQ(player.boxes, (Strings{"More than one solution ", chainsgaveup}));
}

TEST_P(Files, WhatIsNoDigitIsSavedAsItStandsAndCountsAsFilled) {
  opentext(puzzle);
  Text1_Typed(0, "a");
  savenamed(path("b.sav"));
  EXPECT_EQ(bytes(path("b.sav")), "a" + puzzle.substr(1) + "\r\n");
  EXPECT_EQ(givens(0), "a");
  EXPECT_EQ(cellvalue(0), 0);
  EXPECT_EQ(filledcount, 28);
}

// The log goes on from save to save.
TEST_P(Files, ALogThatIsFullIsToldWithTheFileThatWasWritten) {
  opentext(puzzle);
  logcount = 640;
  savenamed(path("b.sav"));
  EXPECT_EQ(
      player.boxes,
      Strings{
          in("Il log è pieno: contiene 650 linee. Aprire uno schema ne comincia uno nuovo. Lo schema resta, "
             "ma non è stato possibile valutarlo. Il file \"" +
                 path("b.sav") +
                 "\" è stato scritto comunque. (tabella logvalues da 0 a 650, indice 651, in logsnapshot)",
             "The log is full: it holds 650 lines. Opening a puzzle begins a new one. The board stays, but "
             "the puzzle could not be graded. The file \"" +
                 path("b.sav") +
                 "\" was written all the same. (table logvalues 0 to 650, index 651, in logsnapshot)")});
  EXPECT_EQ(bytes(path("b.sav")), puzzle + "\r\n");
  EXPECT_EQ(values(), puzzle);
  EXPECT_EQ(boxtexts(), puzzle);
  player.boxes.clear();
  opennamed(path("b.sav"));
  expectpuzzle();
  EXPECT_EQ(dettaglio, "1x1 ");
}

TEST_P(Files, ACellWithTwoDigitsIsNamedAndTheFileIsWritten) {
  opentext(puzzle);
  player.event([] { Text1_Typed(1, "12"); });
  player.boxes.clear();
  savenamed(path("b.sav"));
  EXPECT_EQ(player.boxes,
            Strings{in(
                "12 in r1c2 non è una cifra da 1 a 9: cancellare una delle due. Il file \"" + path("b.sav") +
                    "\" è stato scritto comunque. (tabella bitvalue da 0 a 9, indice 12, in rebuildusedmask)",
                "12 in r1c2 is not a digit from 1 to 9: delete one of the two. The file \"" + path("b.sav") +
                    "\" was written all the same. (table bitvalue 0 to 9, index 12, in rebuildusedmask)")});
  EXPECT_EQ(bytes(path("b.sav")), "." + std::string("12") + puzzle.substr(2) + "\r\n");
}

TEST_P(Files, AFileThatCannotBeWrittenIsAFaultThatLeavesTheBoard) {
  opentext(puzzle);
  const Board before = theboard();
  const bool marks = pencilmarks();
  for (const std::string& name : {path("nowhere/b.sav"), path("."), std::string()}) {
    player.boxes.clear();
    savenamed(name);
    ASSERT_EQ(player.boxes.size(), 1u) << name;
    EXPECT_NE(player.boxes[0].find(in("Impossibile leggere o scrivere", "can't be read or written")),
              std::string::npos);
    EXPECT_EQ(theboard(), before);
    EXPECT_EQ(pencilmarks(), marks);
    EXPECT_EQ(frmmain::filetxt.text, path("puzzle.txt"));
  }
}

TEST_P(Files, AFailedSaveLeavesTheFolderAsItWas) {
  opentext(puzzle);
  file("old.sav", "the old file");
  file("old.sav.new", "somebody's");
  const Strings before = listing();
  for (const char* name : {"old.sav", "new.sav"}) {
    player.boxes.clear();
    const FullDisk full(10);
    savenamed(path(name));
    EXPECT_EQ(player.boxes.size(), 1u) << name;
    EXPECT_EQ(frmmain::filetxt.text, path("puzzle.txt"));
  }
  EXPECT_EQ(listing(), before);
  EXPECT_EQ(bytes(path("old.sav")), "the old file");
  EXPECT_EQ(bytes(path("old.sav.new")), "somebody's");
}

TEST_P(Files, ASaveLeavesNothingBesideItsFile) {
  opentext(puzzle);
  file("old.sav", "the old file");
  file("old.sav.new", "somebody's");
  savenamed(path("old.sav"));
  savenamed(path("new.sav"));
  EXPECT_EQ(listing(), (Strings{"new.sav", "old.sav", "old.sav.new", "puzzle.txt"}));
  EXPECT_EQ(bytes(path("old.sav")), puzzle + "\r\n");
  EXPECT_EQ(bytes(path("new.sav")), puzzle + "\r\n");
  EXPECT_EQ(bytes(path("old.sav.new")), "somebody's");
}

// There the file itself is written over. Its old content is longer than a puzzle, or shorter.
TEST_P(Files, InAFolderThatCannotBeWrittenAFileIsReplacedOrStays) {
  for (const std::string& old : {std::string("short"), std::string(500, 'l')}) {
    opentext(puzzle);
    player.boxes.clear();
    file("b.sav", old);
    const ClosedFolder closed(path("b.sav"));
    if (!closed.possible) GTEST_SKIP() << "a folder above is closed to nobody";
    {
      const FullDisk full(10);
      savenamed(path("b.sav"));
    }
    EXPECT_EQ(player.boxes.size(), 1u);
    EXPECT_EQ(bytes(path("b.sav")), old);
    savenamed(path("b.sav"));
    EXPECT_EQ(player.boxes.size(), 1u);
    EXPECT_EQ(bytes(path("b.sav")), puzzle + "\r\n");
    savenamed(path("c.sav"));
    EXPECT_EQ(player.boxes.size(), 2u);
    EXPECT_EQ(listing(), (Strings{"b.sav", "puzzle.txt"}));
  }
}

TEST_P(Files, ASavedFileKeepsItsPermissionsAndItsLinks) {
  namespace fs = std::filesystem;
  opentext(puzzle);
  file("old.sav", "the old file");
  fs::permissions(path("old.sav"), fs::perms::owner_read | fs::perms::owner_write);
  fs::create_hard_link(file("twice.sav", "twice"), path("twin.sav"));
  fs::create_symlink("old.sav", path("link.sav"));
  fs::create_symlink("made.sav", path("ahead.sav"));
  fs::create_symlink("circle.sav", path("circle.sav"));
  for (const char* name : {"link.sav", "twice.sav", "ahead.sav"}) savenamed(path(name));
  EXPECT_EQ(player.boxes, Strings{});
  for (const char* name : {"old.sav", "twin.sav", "made.sav"})
    EXPECT_EQ(bytes(path(name)), puzzle + "\r\n") << name;
  EXPECT_EQ(fs::read_symlink(path("link.sav")), "old.sav");
  EXPECT_EQ(fs::read_symlink(path("ahead.sav")), "made.sav");
  EXPECT_EQ(fs::hard_link_count(path("twin.sav")), 2u);
  EXPECT_EQ(fs::status(path("old.sav")).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  savenamed(path("circle.sav"));
  EXPECT_EQ(player.boxes.size(), 1u);
  EXPECT_EQ(fs::read_symlink(path("circle.sav")), "circle.sav");
}

TEST_P(Files, EverythingOnTheBoardComesBackByOpening) {
  for (const char* name : {"r.sav", "r.lgc"}) {
    opentext(puzzle);
    Text1_Typed(0, "1");
    savenamed(path(name));
    const std::string saved = bytes(path(name)), board = boxtexts();
    opennamed(path(name));
    EXPECT_EQ(boxtexts(), board);
    savenamed(path(name));
    EXPECT_EQ(bytes(path(name)), saved);
  }
}

// ---- the key save -----------------------------------------------------------------------------------------

TEST_P(Files, TheSaveKeyOnAFullBoardWritesTheGivensAndTheMenuTheSolution) {
  const auto key = [this] {
    for (const KeyRow& row : toolbar2rows())
      if (row.control == &frmmain::Toolbar2::save) player.event([&] { Toolbar2_ButtonClick(row); });
  };
  opentext(puzzle);
  mnusolve_Click();
  ASSERT_EQ(filledcount, 81);
  player.names = {path("menu.sav")};
  player.event(mnusave_Click);
  EXPECT_EQ(bytes(path("menu.sav")).find('.'), std::string::npos);
  player.boxes.clear();

  opentext(puzzle);
  mnusolve_Click();
  player.names = {path("key.sav")};
  key();
  EXPECT_EQ(bytes(path("key.sav")), puzzle + "\r\n");
  expectpuzzle();
  EXPECT_TRUE(pencilmarks());

  Text1_Typed(0, "1");
  player.names = {path("notfull.sav")};
  key();
  EXPECT_EQ(bytes(path("notfull.sav")).front(), '1') << "on a board that isn't full the entries are saved";
}

}  // namespace
}  // namespace gradino::tests
