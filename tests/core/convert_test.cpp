// Reading what puzzles are exchanged in: each sample is the same puzzle in another form.
#include "convert.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <utility>

#include <gtest/gtest.h>

#include "grid.h"
#include "player.h"
#include "puzzlefile.h"
#include "puzzles.h"

namespace gradino::tests {
namespace {

using formats::Puzzle;

const std::string puzzle =
    "..45...6..6..94..39.......78.....67..5...219..1..4.2.....875...2..31.....89......";

std::string sample(const std::string& name) {
  std::ifstream in(TESTDATA "/formats/" + name, std::ios::binary);
  EXPECT_TRUE(in) << name;
  return {std::istreambuf_iterator<char>(in), {}};
}

/// "line: what" of the refusal.
std::string refusal(const std::string& text) {
  try {
    return formats::readpuzzles(text).front().cells + " was read";
  } catch (const formats::Unreadable& error) {
    EXPECT_FALSE(error.italian.empty()) << error.what();
    EXPECT_NE(error.italian, error.what());
    return std::to_string(error.line) + ": " + error.what();
  }
}

class Samples : public testing::TestWithParam<const char*> {};

TEST_P(Samples, AreRead) {
  const std::vector<Puzzle> puzzles = formats::readpuzzles(sample(GetParam()));
  EXPECT_EQ(puzzles.front().cells, puzzle);
}

INSTANTIATE_TEST_SUITE_P(Formats, Samples,
                         testing::Values("line.txt", "blanks.txt", "headings.txt", "dottedframe.txt",
                                         "dashes.txt", "rows.csv", "collection.sdm", "letterheaders.sdk",
                                         "nameheaders.sdk", "simple.ss", "bare.ss", "numbers.sas",
                                         "first.opensudoku", "second.opensudoku", "letters.ksudoku",
                                         "savefile.json", "linecharacters.txt"));

TEST(Convert, ADigitPlacedInALibraryLineIsNoGiven) {
  const std::string line = sample("library.txt");
  ASSERT_NE(line.find("+5"), std::string::npos);
  EXPECT_EQ(formats::readpuzzles(line).front().cells, puzzle);
}

TEST(Convert, ACellOfOnePencilMarkIsFilled) {
  std::string expected = puzzle;
  expected[77] = '6';
  EXPECT_EQ(formats::readpuzzles(sample("pencilmarks.txt")).front().cells, expected);
}

TEST(Convert, FilesOfSeveralPuzzlesGiveThemAll) {
  const std::string turned(puzzle.rbegin(), puzzle.rend());
  for (const auto& [name, line] : {std::pair{"collection.sdm", 4L}, std::pair{"first.opensudoku", 5L}}) {
    const std::vector<Puzzle> puzzles = formats::readpuzzles(sample(name));
    ASSERT_EQ(puzzles.size(), 2U) << name;
    EXPECT_EQ(puzzles[1].cells, turned);
    EXPECT_EQ(puzzles[1].line, line);
  }
  EXPECT_EQ(formats::readpuzzles(sample("headings.txt")).size(), 2U);
}

TEST(Convert, EveryMarkOfAnEmptyCellIsRead) {
  for (const char mark : std::string(".0xX*_-? ")) {
    std::string line = puzzle, rows;
    for (char& c : line)
      if (c == '.') c = mark;
    for (std::size_t row = 0; row < 9; ++row) rows += line.substr(row * 9, 9) + "\n";
    EXPECT_EQ(formats::readpuzzles(line).front().cells, puzzle) << mark;
    EXPECT_EQ(formats::readpuzzles(rows).front().cells, puzzle) << mark;
  }
}

class ConvertedFiles : public Program {};

TEST_F(ConvertedFiles, AreReadBackByTheWindow) {
  suppresschange = true;  // as when the window opens a file
  const std::vector<Puzzle> puzzles = {{puzzle, 1}};
  for (const char* form : {"sav", "lgc", "sdm", "ss", "sdk"}) {
    const std::string text = cli::written(puzzles, form);
    EXPECT_EQ(formats::readpuzzles(text).front().cells, puzzle) << form;
    std::istringstream in(text);
    scanfile(in);
    EXPECT_EQ(giventexts(), puzzle) << form;
  }
}

TEST(Convert, WhatIsNoPuzzleIsRefusedWithItsLine) {
  std::string mixed = puzzle, shortened = puzzle, conflict = puzzle;
  mixed[0] = '?';
  shortened.pop_back();
  conflict[0] = '4';
  std::string eight, wrong;
  for (std::size_t row = 0; row < 8; ++row) eight += puzzle.substr(row * 9, 9) + "\n";
  wrong = eight + "o89oooooo\n";
  const auto starts = [](const std::string& text, const std::string& with) {
    EXPECT_EQ(refusal(text).substr(0, with.size()), with);
  };
  starts("", "1: nothing there: expected a puzzle");
  starts("# words\n" + mixed, R"(2: empty cells are "?" as well as ".")");
  starts(puzzle + "\n" + shortened + "\n", "2: not a puzzle's line: expected a line of 81 cells");
  starts(conflict, "1: the puzzle that begins here has a 4 in both r1c1 and r1c3");
  starts(std::string(81, '.'), "1: the puzzle that begins here is empty");
  starts(eight, "1: 8 rows from here to line 8: expected nine");
  starts(wrong, "9: not a puzzle's line");
  starts(eight + "\n" + eight, "10: a blank or drawn line above this row and 8 rows of its puzzle before it");
  starts(puzzle + "\n.........", "2: a row of nine cells among puzzles of one line each");
  starts(puzzle + "\nGrid 2\n" + puzzle, "2: other words among puzzles of one line each");
  starts("[Game]\n" + puzzle, "1: no section [Puzzle]");
  starts("\n[Puzzle]\n\n[State]\n" + puzzle, "3: no puzzle");
  starts("[Puzzle]\n" + puzzle + "\n" + puzzle, "1: a section [Puzzle] of 2 puzzles");
  starts("<opensudoku>\n<game data=\"12\"/></opensudoku>", "2: data of a game: expected 81");
  starts("<opensudoku version=\"9\"/>", "1: <opensudoku> of version 9");
  starts("<other/>", "1: an element <other>");
  starts("<opensudoku>\n\n<game", "3: no XML");
  starts("<opensudoku/>\n\n<opensudoku/>", "3: more after the end of the XML");
  starts("{\n\"cells\": [5]}", "2: entry 1 of \"cells\"");
  starts("{\"cells\": [],\n\"cells\": [\n5]}", "3: entry 1 of \"cells\"");
  starts("{\n\"other\": [1e999]}", "2: a number out of range");
  starts("{\n\"cells\": [5\n}", "3: no JSON");
  starts(std::string("1\0", 2), "1: a control character");
}

/// The puzzle's rows, each after `fence`.
std::string rowsof(const std::string& cells, const std::string& fence) {
  std::string text;
  for (std::size_t row = 0; row < 9; ++row) text += fence + cells.substr(row * 9, 9) + "\n";
  return text;
}

TEST(Convert, RowsStandTogetherOrInBandsOrAlone) {
  const std::string rows = rowsof(puzzle, "");
  std::string bands = rows;
  bands.insert(60, "\n").insert(30, "=========\n");
  EXPECT_EQ(formats::readpuzzles(rows + bands + rowsof(puzzle, "---------\n")).size(), 3U);
  // Six rows of a puzzle, another, and three rows: none lends the other any.
  EXPECT_EQ(refusal(rows.substr(0, 60) + "\n" + rows + "\n" + rows.substr(60)).substr(0, 15),
            "8: a blank or d");
  std::string parted = rows;
  EXPECT_EQ(refusal(parted.insert(20, "=========\n") + rows).substr(0, 15), "4: a blank or d");
}

TEST(Convert, AFieldOfTwoQuotesIsAnEmptyCell) {
  std::string text;
  for (std::size_t i = 0; i < puzzle.size(); ++i) {
    text += puzzle[i] == '.' ? "\"\"" : std::string("\"") + puzzle[i] + "\"";
    text += i % 9 == 8 ? '\n' : ',';
  }
  EXPECT_EQ(formats::readpuzzles(text).front().cells, puzzle);
  for (char& c : text)
    if (c == '\n') c = ',';
  EXPECT_EQ(formats::readpuzzles(text).front().cells, puzzle);
  EXPECT_EQ(refusal("\"\"\"" + text.substr(2)).substr(0, 24), "1: not a puzzle's line: ");
}

TEST(Convert, AFileOfDosMayEndInControlZ) {
  const std::string rows = rowsof(puzzle, "");
  for (const std::string end : {"\x1A", "\x1A\x1A\x1A"}) {
    EXPECT_EQ(formats::readpuzzles(puzzle + end).front().cells, puzzle);
    EXPECT_EQ(formats::readpuzzles(rows + end).front().cells, puzzle);
  }
  EXPECT_EQ(refusal("\x1A"), "1: nothing there: expected a puzzle");
  EXPECT_EQ(refusal("\x1A\n" + rows).substr(0, 22), "1: a control character");
}

TEST(Convert, LineEndsOfAllSystemsAreRead) {
  for (const std::string end : {"\n", "\r\n", "\r"}) {
    std::string text = "# one" + end;
    for (std::size_t row = 0; row < 9; ++row) text += puzzle.substr(row * 9, 9) + end;
    const Puzzle read = formats::readpuzzles(text).front();
    EXPECT_EQ(read.cells, puzzle);
    EXPECT_EQ(read.line, 2);
    text += "12" + end;
    EXPECT_EQ(refusal(text).substr(0, 4), "11: ");
  }
}

TEST(Convert, ASemicolonBeginsARowOrAComment) {
  std::string text = "; five; nine;;\n";
  for (std::size_t i = 0; i < puzzle.size(); ++i) {
    if (puzzle[i] != '.') text += puzzle[i];
    text += i % 9 == 8 ? '\n' : ';';
  }
  EXPECT_EQ(formats::readpuzzles(text).front().cells, puzzle);
}

TEST(Convert, RowsMayBeIndentedByATab) {
  EXPECT_EQ(formats::readpuzzles(rowsof(puzzle, "\t")).front().cells, puzzle);
}

TEST(Convert, LettersThatCouldBeEitherAreRefused) {
  std::string text =
      "<ksudoku><game><puzzle><values>" + std::string(80, '_') + "c</values></puzzle></game></ksudoku>";
  EXPECT_EQ(refusal(text).substr(0, 24), "1: <values> of letters: ");
}

TEST(Convert, AFrameThatLooksLikeARowIsARowWhereItsMarkIsUsed) {
  std::string rows = puzzle;
  rows.replace(27, 9, ".........");
  std::string dots, dashes;
  for (std::size_t row = 0; row < 9; ++row) {
    dots += rows.substr(row * 9, 9) + (row % 3 == 2 ? "\n---------\n" : "\n");
    dashes += rows.substr(row * 9, 9) + "\n";
  }
  for (char& c : dashes)
    if (c == '.') c = '-';
  EXPECT_EQ(formats::readpuzzles(dots).front().cells, rows);
  EXPECT_EQ(formats::readpuzzles(dashes).front().cells, rows);
}

}  // namespace
}  // namespace gradino::tests
