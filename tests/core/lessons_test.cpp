// The explanations of the singles: every word and every colour.
#include <gtest/gtest.h>

#include "captions.h"
#include "clearboard.h"
#include "editing.h"
#include "explain.h"
#include "filecommands.h"
#include "generator.h"
#include "grid.h"
#include "light.h"
#include "menu.h"
#include "player.h"
#include "replay.h"
#include "singles.h"
#include "step.h"
#include "stepsolver.h"
#include "view.h"

namespace gradino::tests {
namespace {

const std::string crossit =
    "HIDDEN SINGLE nel settore\r\n"
    "la maggior parte delle volte coincide con\r\n"
    "NUMERI OBBLIGATI DALLA POSIZIONE DEI SIMILI - LIVELLO 0\r\n"
    "E' la tecnica più semplice del Sudoku. Per definizione, in un gruppo (settore riga o cella), ogni "
    "candidato deve essere contenuto una ed una sola volta.\r\n"
    "La posizione dei suoi simili può quindi determinare il collocamento di un candidato in una detrminata "
    "cella.\r\n"
    "==============================================\r\n";
const std::string crossen =
    " HIDDEN SINGLE in the block\r\n"
    "most of the times is coincidimg with \r\n"
    "CROSS-HATCHING - number forced by the position of similar-LEVEL 0\r\n"
    "Is the simplest technique of Sudoku. By definition, inside a house (block, row, column), all number from "
    "1 to 9  must be contained .\r\n"
    "The position of similar can therefore force the position of a number in a particular cell.\r\n"
    "==============================================\r\n";
const std::string hiddenit =
    "HIDDEN SINGLE - LIVELLO 1\r\n"
    "Si tratta di trovare un candidato in un gruppo (settore riga o cella), che non possa essere attribuito a "
    "nessuna altra cella della stesso gruppo.\r\n"
    "==============================================\r\n";
const std::string hiddenen =
    "HIDDEN SINGLE - LEVEL 1\r\n"
    "We must find a candidate in a house (block, row, column), that can not be placed in any other cell of "
    "the same house.\r\n"
    "==============================================\r\n";
const std::string nakedit =
    "NAKED SINGLE - LIVELLO 2\r\n"
    "Si tratta di trovare una cella dove è possibile solo un candidato.\r\n"
    "==============================================\r\n";
const std::string nakeden =
    "NAKED SINGLE - LEVELL 2\r\n"
    "We must find a cell where only one candidate is possible.\r\n"
    "==============================================\r\n";

// Rows 2 and 3 and column 2 leave the 5 of block 1 to r1c1.
const std::string crossedboard = with({{at(2, 5), '5'}, {at(3, 8), '5'}, {at(5, 2), '5'}, {at(1, 3), '2'}});

class Explanation : public Bilingual {
 protected:
  /// Runs a step, asks for help, answers `answer`, and gives what was to be seen inside the explanation.
  Frame explained(const Act& answer = go) {
    player.script = {help, answer};
    player.event(mnuposition_Click);
    EXPECT_EQ(player.frames.size(), 2u);
    EXPECT_TRUE(player.boxes.empty());
    return player.frames.size() == 2 ? player.frames[1] : Frame{};
  }
  static void paint(Paint& paint, std::initializer_list<int> cells, const char* colour) {
    for (int cell : cells) paint[cell] = colour;
  }
};
IN_BOTH_LANGUAGES(Explanation);

// 5 in block 1: rows 2 and 3 and column 2 hold it; r1c3 was ruled out by an earlier step; r1c1 is left.
TEST_P(Explanation, OfCrossHatching) {
  put(with({{at(2, 5), '5'}, {at(3, 8), '5'}, {at(5, 2), '5'}}));
  eliminate(at(1, 3), "5");
  const Frame frame = explained();
  EXPECT_EQ(frame.tag, "findSingleInBlock");
  EXPECT_EQ(frame.activity, in(crossit + "il numero 5 è già presente nella riga 2, riga 3, colonna 2, \r\n"
                                         "in r1c3 già eliminato da tecniche precedenti\r\n"
                                         "quindi nel settore 1 l'unica cella che può occupare5\r\n"
                                         "è la cella gialla r1c1",
                               crossen + "the number 5 is already placed in the row 2, row 3, column 2, \r\n"
                                         "in r1c3 already deleted by previous steps\r\n"
                                         "therefore in the block 1 the only possible position\r\n"
                                         "is the yellow cell r1c1"));
  Paint expected;
  for (int p = 1; p <= 9; ++p) expected[at(2, p)] = expected[at(3, p)] = expected[at(p, 2)] = "red";
  paint(expected, {at(2, 5), at(3, 8), at(5, 2)}, "green");
  expected[at(1, 1)] = "yellow";
  expected[at(1, 3)] = "magenta";
  EXPECT_EQ(frame.Text1, expected);
  EXPECT_EQ(frame.Text2, Paint{});
  EXPECT_EQ(frame.candidate, (Paint{{at(1, 1) * 10 + 5, "green"}}));
}

// 7 in block 9: row 7, and columns 7 and 8, hold it; r8c9 is filled; the target is r9c9.
TEST_P(Explanation, OfCrossHatchingInTheLastBlock) {
  put(with({{at(7, 1), '7'}, {at(1, 7), '7'}, {at(4, 8), '7'}, {at(8, 9), '2'}}));
  const Frame frame = explained();
  EXPECT_EQ(frame.activity,
            in(crossit + "il numero 7 è già presente nella riga 7, colonna 7, colonna 8, \r\n"
                         "quindi nel settore 9 l'unica cella che può occupare7\r\n"
                         "è la cella gialla r9c9",
               crossen + "the number 7 is already placed in the row 7, column 7, column 8, \r\n"
                         "therefore in the block 9 the only possible position\r\n"
                         "is the yellow cell r9c9"));
  Paint expected;
  for (int p = 1; p <= 9; ++p) expected[at(7, p)] = expected[at(p, 7)] = expected[at(p, 8)] = "red";
  paint(expected, {at(7, 1), at(1, 7), at(4, 8)}, "green");
  expected[at(9, 9)] = "yellow";
  EXPECT_EQ(frame.Text1, expected);
}

// A filled cell of the block that no line crosses stays white, an empty one goes magenta, one behind another.
TEST_P(Explanation, OfCrossHatchingByEliminationsAlone) {
  put(with({{at(5, 5), '9'}}));
  for (int cell : {at(4, 4), at(4, 5), at(4, 6), at(5, 4), at(5, 6), at(6, 4), at(6, 5)})
    eliminate(cell, "3");
  const Frame frame = explained();
  const auto ruledout = [](const char* cell) {
    return in("in " + std::string(cell) + " già eliminato da tecniche precedenti\r\n",
              "in " + std::string(cell) + " already deleted by previous steps\r\n");
  };
  EXPECT_EQ(frame.activity,
            in(crossit, crossen) +
                in("il numero 3 è già presente nella \r\n", "the number 3 is already placed in the \r\n") +
                ruledout("r4c4") + ruledout("r4c5") + ruledout("r4c6") + ruledout("r5c4") + ruledout("r5c6") +
                ruledout("r6c4") + ruledout("r6c5") +
                in("quindi nel settore 5 l'unica cella che può occupare3\r\nè la cella gialla r6c6",
                   "therefore in the block 5 the only possible position\r\nis the yellow cell r6c6"));
  Paint expected;
  paint(expected, {at(4, 4), at(4, 5), at(4, 6), at(5, 4), at(5, 6), at(6, 4), at(6, 5)}, "magenta");
  expected[at(6, 6)] = "yellow";
  EXPECT_EQ(frame.Text1, expected);
}

// 5 in row 1: block 2 holds it, column 7 holds it, r1c3 was ruled out; r1c2, r1c8, r1c9 are filled.
TEST_P(Explanation, OfAHiddenSingleInARow) {
  put(with({{at(2, 4), '5'}, {at(5, 7), '5'}, {at(1, 2), '2'}, {at(1, 8), '3'}, {at(1, 9), '1'}}));
  eliminate(at(1, 3), "5");
  const Frame frame = explained();
  EXPECT_EQ(frame.tag, "findSingleInRow");
  EXPECT_EQ(frame.activity, in(hiddenit + "nella riga 1 il numero 5\r\n"
                                          "non può stare nella cella r1c3\r\n"
                                          "perchè già eliminato da tecniche precedenti \r\n"
                                          "non può stare nella cella r1c4\r\n"
                                          "perchè già presente nel settore 2\r\n"
                                          "non può stare nella cella r1c5\r\n"
                                          "perchè già presente nel settore 2\r\n"
                                          "non può stare nella cella r1c6\r\n"
                                          "perchè già presente nel settore 2\r\n"
                                          "non può stare nella cella r1c7\r\n"
                                          "perchè già presente nella colonna 7\r\n"
                                          "quindi nella riga 1 l'unica cella che può occupare5\r\n"
                                          "è la cella gialla r1c1",
                               hiddenen + "in the row 1 the number 5\r\n"
                                          "is impossible in r1c3\r\n"
                                          "because already deleted by previous steps \r\n"
                                          "is impossible in r1c4\r\n"
                                          "because already present in the block 2\r\n"
                                          "is impossible in r1c5\r\n"
                                          "because already present in the block 2\r\n"
                                          "is impossible in r1c6\r\n"
                                          "because already present in the block 2\r\n"
                                          "is impossible in r1c7\r\n"
                                          "because already present in the column 7\r\n"
                                          "therefore in the row 1 the only possible position\r\n"
                                          "is the yellow cell r1c1"));
  Paint expected = {{at(1, 1), "yellow"}, {at(1, 3), "magenta"}};
  paint(expected, {3, 4, 5, 12, 13, 14, 21, 22, 23}, "red");
  for (int row = 1; row <= 9; ++row) expected[at(row, 7)] = "red";
  paint(expected, {at(2, 4), at(5, 7)}, "green");
  EXPECT_EQ(frame.Text1, expected);
  EXPECT_EQ(frame.candidate, (Paint{{at(1, 1) * 10 + 5, "green"}}));
}

// The mirror image: 5 in column 1.
TEST_P(Explanation, OfAHiddenSingleInAColumn) {
  put(with({{at(4, 2), '5'}, {at(7, 5), '5'}, {at(2, 1), '2'}, {at(8, 1), '3'}, {at(9, 1), '1'}}));
  eliminate(at(3, 1), "5");
  const Frame frame = explained();
  EXPECT_EQ(frame.tag, "findSingleInColumn");
  EXPECT_EQ(frame.activity, in(hiddenit + "nella colonna 1 il numero 5\r\n"
                                          "non può stare nella cella r3c1\r\n"
                                          "perchè già eliminato da tecniche precedenti \r\n"
                                          "non può stare nella cella r4c1\r\n"
                                          "perchè già presente nel settore 4\r\n"
                                          "non può stare nella cella r5c1\r\n"
                                          "perchè già presente nel settore 4\r\n"
                                          "non può stare nella cella r6c1\r\n"
                                          "perchè già presente nel settore 4\r\n"
                                          "non può stare nella cella r7c1\r\n"
                                          "perchè già presente nella riga 7\r\n"
                                          "quindi nella colonna 1 l'unica cella che può occupare5\r\n"
                                          "è la cella gialla r1c1",
                               hiddenen + "in the column 1 the number 5\r\n"
                                          "is impossible in r3c1\r\n"
                                          "because already deleted by previous steps \r\n"
                                          "is impossible in r4c1\r\n"
                                          "because already present in the block 4\r\n"
                                          "is impossible in r5c1\r\n"
                                          "because already present in the block 4\r\n"
                                          "is impossible in r6c1\r\n"
                                          "because already present in the block 4\r\n"
                                          "is impossible in r7c1\r\n"
                                          "because already present in the row 7\r\n"
                                          "therefore in the column 1 the only possible position\r\n"
                                          "is the yellow cell r1c1"));
  Paint expected = {{at(1, 1), "yellow"}, {at(3, 1), "magenta"}};
  paint(expected, {27, 28, 29, 36, 37, 38, 45, 46, 47}, "red");
  for (int col = 1; col <= 9; ++col) expected[at(7, col)] = "red";
  paint(expected, {at(4, 2), at(7, 5)}, "green");
  EXPECT_EQ(frame.Text1, expected);
}

// r5c5 sees 1 in block and row, 3 in row and column, the others once; 6 was ruled out. The houses are walked
// block, row, column, and only the first cell found with a digit is painted.
TEST_P(Explanation, OfANakedSingle) {
  put(with({{at(4, 4), '1'},
            {at(6, 6), '2'},
            {at(5, 1), '1'},
            {at(5, 9), '3'},
            {at(5, 2), '8'},
            {at(1, 5), '3'},
            {at(2, 5), '4'},
            {at(8, 5), '9'},
            {at(9, 5), '7'}}));
  eliminate(at(5, 5), "6");
  const Frame frame = explained();
  EXPECT_EQ(frame.tag, "findSingleInCell");
  EXPECT_EQ(frame.activity, in(nakedit + "nella cella r5c5\r\n"
                                         "il numero 1 non può stare perchè già presente in r4c4\r\n"
                                         "il numero 2 non può stare perchè già presente in r6c6\r\n"
                                         "il numero 3 non può stare perchè già presente in r5c9\r\n"
                                         "il numero 4 non può stare perchè già presente in r2c5\r\n"
                                         "il numero 6 già eliminato da tecniche precedenti\r\n"
                                         "il numero 7 non può stare perchè già presente in r9c5\r\n"
                                         "il numero 8 non può stare perchè già presente in r5c2\r\n"
                                         "il numero 9 non può stare perchè già presente in r8c5\r\n"
                                         "quindi l'unico numero possibile per la cella r5c5\r\n"
                                         "è il numero 5",
                               nakeden + "in the cell r5c5\r\n"
                                         "the number 1 is impossible because already present in r4c4\r\n"
                                         "the number 2 is impossible because already present in r6c6\r\n"
                                         "the number 3 is impossible because already present in r5c9\r\n"
                                         "the number 4 is impossible because already present in r2c5\r\n"
                                         "the number 6 because already deleted by previous steps \r\n"
                                         "the number 7 is impossible because already present in r9c5\r\n"
                                         "the number 8 is impossible because already present in r5c2\r\n"
                                         "the number 9 is impossible because already present in r8c5\r\n"
                                         "therefore the only possible number for the cell r5c5\r\n"
                                         "is the number 5"));
  Paint expected = {{at(5, 5), "yellow"}};
  paint(expected, {at(4, 4), at(6, 6), at(5, 9), at(2, 5), at(9, 5), at(5, 2), at(8, 5)}, "green");
  EXPECT_EQ(frame.Text1, expected);
  EXPECT_EQ(frame.candidate, (Paint{{at(5, 5) * 10 + 5, "green"}}));
}

// ---- the frame around them --------------------------------------------------------------------------------

TEST_P(Explanation, GoCarriesTheStepOutAndClearsWindowAndDigitBoxes) {
  put(crossedboard);
  frmmain::Text2(70).back = cyan;  // painted by hand: not the explanation's to clear
  explained(go);
  EXPECT_EQ(cellvalue(0), 5);
  EXPECT_FALSE(frmactivity::visible);
  EXPECT_EQ(look().Text1, Paint{});
  EXPECT_EQ(look().candidate, Paint{});
  EXPECT_EQ(look().Text2, (Paint{{70, "cyan"}}));
  EXPECT_FALSE(waiting());
}

TEST_P(Explanation, StopStopsTheStepTooAndLeavesWindowAndColours) {
  put(crossedboard);
  const Board before = theboard();
  const Frame frame = explained(stop);
  EXPECT_EQ(theboard(), before);
  EXPECT_TRUE(frmactivity::visible);
  EXPECT_EQ(look(), frame);
  EXPECT_FALSE(waiting());
}

TEST_P(Explanation, ABoardClearedInItsWaitClosesItsWindow) {
  const std::vector<std::function<void()>> commands = {mnunew_Click, clearboard, frmmain::nuovoschema};
  for (const auto& command : commands) {
    put(crossedboard);
    player.script = {help, [&] {
                       EXPECT_TRUE(frmactivity::visible);
                       command();
                       EXPECT_FALSE(frmactivity::visible) << "at once";
                     }};
    player.event(mnuposition_Click);
    EXPECT_FALSE(frmactivity::visible);
    EXPECT_FALSE(waiting());
  }
}

TEST_P(Explanation, ABoardClearedInAnotherWaitLeavesTheWindowThatWasStopped) {
  put(crossedboard);
  explained(stop);
  player.script = {mnunew_Click};
  player.event(mnuposition_Click);
  EXPECT_TRUE(frmactivity::visible);
  mnunew_Click();
  EXPECT_TRUE(frmactivity::visible);
}

TEST_P(Explanation, ABoardClearedAfterItsWaitLeavesItsWindow) {
  put(crossedboard);
  player.script = {help, [] {
                     clearboard();
                     frmactivity::visible = true;  // shown by something else
                     clearboard();
                   }};
  player.event(mnuposition_Click);
  EXPECT_TRUE(frmactivity::visible);
}

TEST_P(Explanation, TheNextOneRewritesTheTextAndItsGoHidesTheWindow) {
  put(crossedboard);
  const Frame first = explained(stop);
  player.frames.clear();
  clearcolours();
  const Frame second = explained(go);
  EXPECT_EQ(first.activity, second.activity);
  EXPECT_FALSE(frmactivity::visible);
}

TEST_P(Explanation, CanBeAskedForAgainInsideItself) {
  put(crossedboard);
  player.script = {help, help, go};
  player.event(mnuposition_Click);
  EXPECT_EQ(player.frames.size(), 3u);
  EXPECT_EQ(cellvalue(0), 5);
}

TEST_P(Explanation, TurnsThePencilMarksOffAndLeavesThemOff) {
  using Kind = std::pair<std::string, std::string>;
  for (const auto& [tag, board] : {Kind("findSingleInBlock", crossedboard),
                                   Kind("findSingleInRow", with({{at(2, 4), '5'},
                                                                 {at(5, 7), '5'},
                                                                 {at(1, 2), '2'},
                                                                 {at(1, 3), '4'},
                                                                 {at(1, 8), '3'},
                                                                 {at(1, 9), '1'}})),
                                   Kind("findSingleInColumn", with({{at(4, 2), '5'},
                                                                    {at(7, 5), '5'},
                                                                    {at(2, 1), '2'},
                                                                    {at(3, 1), '4'},
                                                                    {at(8, 1), '3'},
                                                                    {at(9, 1), '1'}})),
                                   Kind("findSingleInCell", with({{at(4, 4), '1'},
                                                                  {at(6, 6), '2'},
                                                                  {at(5, 1), '3'},
                                                                  {at(5, 9), '4'},
                                                                  {at(1, 5), '6'},
                                                                  {at(9, 5), '7'},
                                                                  {at(5, 2), '8'},
                                                                  {at(2, 5), '9'}}))})
    for (const Act& answer : {go, stop}) {
      put(board);
      if (!pencilmarks()) mnupencil_Click();
      EXPECT_FALSE(frmmain::Text1(44).visible && board[44] == '.');
      player.frames.clear();
      EXPECT_EQ(explained(answer).tag, tag);
      EXPECT_FALSE(pencilmarks()) << tag;
      EXPECT_TRUE(frmmain::Text1(44).visible) << tag;
      clearcolours();
    }
}

TEST_P(Explanation, LeavesPencilMarksThatAreOffAlone) {
  put(crossedboard);
  explained(go);
  EXPECT_FALSE(pencilmarks());
}

TEST_P(Explanation, SetsTheCaptionAndStandsAtTheRightOfTheMainWindow) {
  frmmain::left = 100;
  frmmain::top = 30;
  frmmain::width = 500;
  put(crossedboard);
  explained(go);
  EXPECT_EQ(frmactivity::caption, in("Spiegazioni- Clik sul semaforo verde per procedere",
                                     "Explanations - Clik on green traffic lights to proceed"));
  EXPECT_EQ(frmactivity::top, 30);
  EXPECT_EQ(frmactivity::left, 600);
  frmmain::left = frmmain::top = 0;
  frmmain::width = frmmain::clientwidth;
}

TEST_P(Explanation, OfTheLastDigitOfAHouseIsNoMoreThanCaptionAndPlace) {
  put(without(fullboard, {0}));
  frmactivity::Text3.text = "what it held";
  frmmain::top = 40;
  player.script = {help, go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 2u);
  EXPECT_EQ(player.frames[0], player.frames[1]);
  EXPECT_FALSE(player.frames[1].activity);
  EXPECT_EQ(frmactivity::Text3.text, "what it held");
  EXPECT_EQ(frmactivity::caption, in("Spiegazioni- Clik sul semaforo verde per procedere",
                                     "Explanations - Clik on green traffic lights to proceed"));
  EXPECT_EQ(frmactivity::top, 40);
  EXPECT_EQ(values(), fullboard);
  frmmain::top = 0;
}

TEST_F(Program, TheWindowOfTheExplanationsIsTitledBeforeItsFirstUse) {
  EXPECT_EQ(frmactivity::caption, "Spiegazioni");
  EXPECT_FALSE(frmactivity::visible);
}

TEST_F(Program, AnExplanationSpeaksTheLanguageOfItsMoment) {
  put(crossedboard);
  player.script = {[] {
                     cmdlan_Click();
                     Picthelp_Click();
                   },
                   go};
  player.event(mnuposition_Click);
  EXPECT_EQ(player.frames.at(1).hint, "hidden single in block 1, in r1c1");
  EXPECT_TRUE(player.frames.at(1).activity->starts_with("HIDDEN SINGLE nel settore\r\n"));
}

}  // namespace
}  // namespace gradino::tests
