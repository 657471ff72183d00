// What the user does by hand: start, ring, keys, pencil marks, palette, commands, captions, clock.
#include <gtest/gtest.h>

#include "captions.h"
#include "clock.h"
#include "commands.h"
#include "counter.h"
#include "editing.h"
#include "filecommands.h"
#include "gradestate.h"
#include "grid.h"
#include "host.h"
#include "library.h"
#include "log.h"
#include "menu.h"
#include "player.h"
#include "runevent.h"
#include "startup.h"
#include "step.h"
#include "stepsolver.h"
#include "view.h"

namespace gradino::tests {
namespace {

using namespace frmmain;
using Strings = std::vector<std::string>;

void press(const Control& key) {
  for (const auto& keys : {toolbar1rows(), toolbar2rows()})
    for (const KeyRow& row : keys)
      if (row.control == &key)
        runevent([&] {
          (&keys.front() == toolbar1rows().data() ? Toolbar1_ButtonClick : Toolbar2_ButtonClick)(row);
        });
}

bool ringopen() {
  for (int n = 0; n <= 9; ++n) EXPECT_EQ(Picture1(n).visible, Picture1(0).visible);
  return Picture1(0).visible;
}

// ---- start -----------------------------------------------------------------------------------------------

TEST_F(Program, StartsInEnglishWithAnEmptyRedBoardWhateverWasBefore) {
  cmdlan_Click();
  open(std::string(fullboard));
  startprogram();
  EXPECT_EQ(lingua, english);
  EXPECT_EQ(boxtexts(), emptyboard);
  EXPECT_EQ(giventexts(), emptyboard);
  for (const Box& box : Text1) EXPECT_TRUE(box.fore == red && box.back == white && box.visible);
  for (int cell = 0; cell < 81; ++cell)
    for (int digit = 1; digit <= 9; ++digit) {
      EXPECT_EQ(candidate(cell * 10 + digit).text, std::to_string(digit));
      EXPECT_TRUE(candidate(cell * 10 + digit).visible);
    }
  EXPECT_EQ(candidate(0).text, "8");
  EXPECT_EQ(tempotot.text, "0");
  EXPECT_EQ(Label2.text, "timer");
  EXPECT_FALSE(Text5.visible || Label3.visible);
  EXPECT_FALSE(Pictgo.visible || Pictalt.visible || Picthelp.visible);
  EXPECT_FALSE(ringopen());
  EXPECT_FALSE(pencilmarks() || mnunumber.ticked || mnuactivity.ticked || Toolbar1::modifica.ticked);
  EXPECT_EQ(bkglabel.text, "bkg");
  EXPECT_EQ(filetxt.text, "");
  EXPECT_TRUE(Check1.ticked);
  EXPECT_FALSE(Check1.visible);
  EXPECT_EQ(Check1.caption, "genera schemi supersimmetrici");
  EXPECT_EQ(picstartlamp, Lamp::verde);
  EXPECT_EQ(picstart.tip, "start timer");
  EXPECT_EQ(Picture2.tip, "reset timer");
  EXPECT_EQ(Pictalt.tip, "stop");
  EXPECT_FALSE(cmdnice.visible || Cmdtest.visible || Toolbar2::continuo.visible);
  EXPECT_EQ(cmdnice.tip, "nice loops");
  EXPECT_FALSE(Frmlog::visible || frmactivity::visible);
}

TEST_F(Program, ThePaletteHasItsColours) {
  const Colour expected[] = {yellow, orange, green, cyan, white, lightblue, magenta, red, white};
  for (int n = 0; n <= 8; ++n) EXPECT_EQ(colore(n).back, expected[n]) << n;
  EXPECT_EQ(colore(8).text, "X");
}

// ---- pencil marks on and off -----------------------------------------------------------------------------

TEST_F(Program, PencilMarksUncoverEmptyCellsOnly) {
  put(with({{0, '5'}}));
  mnupencil_Click();
  EXPECT_TRUE(mnupencil.ticked);
  EXPECT_TRUE(Text1(0).visible);
  for (int cell = 1; cell < 81; ++cell) EXPECT_FALSE(Text1(cell).visible);
  const auto marks = visiblemarks(1);
  mnupencil_Click();
  EXPECT_FALSE(mnupencil.ticked);
  for (const Box& box : Text1) EXPECT_TRUE(box.visible);
  EXPECT_EQ(visiblemarks(1), marks) << "covered, not changed";
}

TEST_F(Program, ACellFilledWhileMarksAreOnIsVisibleAndStaysSoWhenEmptied) {
  put(emptyboard);
  mnupencil_Click();
  Text1_Typed(40, "7");
  EXPECT_TRUE(Text1(40).visible);
  EXPECT_EQ(visiblemarks(40), "");
  Text1_Typed(40, "");
  EXPECT_TRUE(Text1(40).visible);
  mnupencil_Click();
  mnupencil_Click();
  EXPECT_FALSE(Text1(40).visible);
}

TEST_F(Program, RepaintingTheMarksEmptiesTheEditBoxes) {
  put(emptyboard);
  Text2(5).text = "123";
  candstr(5) = "9x1";
  updatetext2();
  EXPECT_EQ(Text2(5).text, "");
  EXPECT_EQ(visiblemarks(5), "19");
}

TEST_F(Program, ClearingColoursLeavesNoneOnTheBoard) {
  for (Box& box : Text1) box.back = red;
  for (Box& box : Text2) box.back = cyan;
  for (int cell = 0; cell < 81; ++cell)
    for (int digit = 1; digit <= 9; ++digit) candidate(cell * 10 + digit).back = green;
  clearcolours();
  EXPECT_EQ(look().Text1, Paint{});
  EXPECT_EQ(look().Text2, Paint{});
  EXPECT_EQ(look().candidate, Paint{});
}

// ---- the ring ---------------------------------------------------------------------------------------------

TEST_F(Program, AClickOnACellOpensTheRingAndTheRingEnters) {
  put(emptyboard);
  Text1_Click(40);
  EXPECT_TRUE(ringopen());
  EXPECT_EQ(cellacliccata, 40);
  Text1_Click(41);
  EXPECT_TRUE(ringopen());
  EXPECT_EQ(cellacliccata, 41);
  player.event([] { Picture1_Click(7); });
  EXPECT_FALSE(ringopen());
  EXPECT_EQ(cellvalue(41), 7);
  EXPECT_EQ(filledcount, 1);
  Text1_Click(41);
  player.event([] { Picture1_Click(0); });
  EXPECT_EQ(cellvalue(41), 0);
  EXPECT_EQ(filledcount, 0);
}

TEST_F(Program, TheRingStandsAroundTheCellClockwise) {
  const int expected[10][2] = {{-23, -18}, {-2, -24}, {19, -24}, {40, -18}, {40, 3},
                               {40, 24},   {19, 36},  {-2, 36},  {-23, 24}, {-23, 3}};
  for (std::size_t n = 0; n < 10; ++n) {
    EXPECT_EQ(ringoffsets[n].x, expected[n][0]) << n;
    EXPECT_EQ(ringoffsets[n].y, expected[n][1]) << n;
  }
}

TEST_F(Program, AGivenIsReplacedAndAClashIsNotMarked) {
  put(with({{0, '5'}, {1, '6'}}));
  Text1_Click(0);
  player.event([] { Picture1_Click(6); });
  EXPECT_EQ(boxtexts().substr(0, 2), "66");
  EXPECT_EQ(player.boxes, Strings{});
  EXPECT_EQ(look().Text1, Paint{});
  EXPECT_EQ(filledcount, 3) << "overwriting counts once more";
  EXPECT_EQ(Text1(0).fore, red) << "editing never changes a text colour";
}

TEST_F(Program, EmptyingAnEmptyCellChangesNothing) {
  put(with({{0, '5'}}));
  const Board before = theboard();
  Text1_Click(40);
  player.event([] { Picture1_Click(0); });
  EXPECT_EQ(theboard(), before);
  EXPECT_EQ(player.boxes, Strings{});
}

TEST_F(Program, ThePointersMoveClosesTheRingByCellNumber) {
  put(emptyboard);
  for (int cell : {29, 51, 40, 30, 50}) {
    Text1_Click(40);
    cell_MouseMove(cell);
    EXPECT_TRUE(ringopen()) << cell;
  }
  for (int cell : {28, 52, 0, 80}) {
    Text1_Click(40);
    cell_MouseMove(cell);
    EXPECT_FALSE(ringopen()) << cell;
  }
}

// ---- keys ------------------------------------------------------------------------------------------------

TEST_F(Program, ArrowKeysRunAroundTheBoard) {
  const auto pressed = [](int cell, int code) {
    Text1_KeyDown(cell, code);
    EXPECT_TRUE(focusrequest.on == Focus::On::text1 && focusrequest.cell == navcell);
    return navcell;
  };
  EXPECT_EQ(pressed(40, 37), 39);
  EXPECT_EQ(pressed(0, 37), 80);
  EXPECT_EQ(pressed(9, 37), 8);
  EXPECT_EQ(pressed(40, 38), 31);
  EXPECT_EQ(pressed(4, 38), 76);
  EXPECT_EQ(pressed(8, 38), 80);
  EXPECT_EQ(pressed(9, 38), 0);
  EXPECT_EQ(pressed(40, 39), 41);
  EXPECT_EQ(pressed(80, 39), 0);
  EXPECT_EQ(pressed(8, 39), 9);
  EXPECT_EQ(pressed(40, 40), 49);
  EXPECT_EQ(pressed(72, 40), 0);
  EXPECT_EQ(pressed(80, 40), 8);
  EXPECT_EQ(pressed(71, 40), 80);
}

TEST_F(Program, AnyOtherKeyGoesToTheCellReachedByTheArrows) {
  Text1_Click(40);
  Text1_KeyDown(40, '5');
  EXPECT_EQ(focusrequest.cell, 0) << "cell 0 before any arrow key";
  Text1_KeyDown(40, 39);
  Text1_KeyDown(12, '5');
  EXPECT_EQ(focusrequest.cell, 41);
  EXPECT_EQ(navcell, 41);
}

TEST_F(Program, TypedTextThatIsNoNumberEmptiesTheCellsValue) {
  put(with({{0, '5'}}));
  player.event([] { Text1_Typed(0, "a"); });
  EXPECT_EQ(cellvalue(0), 0);
  EXPECT_EQ(filledcount, 0);
  EXPECT_EQ(candmask(0), 1022);
  player.event([] { Text1_Typed(1, "6"); });
  player.event([] { Text1_Typed(2, "b"); });
  EXPECT_EQ(filledcount, 0) << "text that is no number counts one less";
}

class Slips : public Bilingual {
 protected:
  /// Types a text into a box, where the program is expected to answer in these words.
  void type(int cell, const std::string& text, const Strings& told) {
    player.boxes.clear();
    player.event([&] { Text1_Typed(cell, text); });
    EXPECT_EQ(player.boxes, told) << text;
  }
};
IN_BOTH_LANGUAGES(Slips);

TEST_P(Slips, ALetterWhereNothingIsFilledIsToldAndSoIsItsGoing) {
  put(emptyboard);
  const std::string behind = in(" (contatore filledcount da 0 a 255, valore -1, in text1changed)",
                                " (counter filledcount 0 to 255, value -1, in text1changed)");
  type(at(3, 4), "a",
       {in("Quello che sta in r3c4 non è una cifra da 1 a 9: cancellarlo.",
           "What stands in r3c4 is not a digit from 1 to 9: delete it.") +
        behind});
  EXPECT_EQ(filledcount, 0);
  EXPECT_EQ(Text1(at(3, 4)).text, "a");
  type(
      at(3, 4), "",
      {in("r3c4 è di nuovo vuota, e il conteggio delle celle esposte resta a 0: non può scendere. Se mancano dei "
          "candidati, \"rigenera candidati\" li riporta.",
          "r3c4 is empty again, and the count of filled cells stays at 0: it can't go lower. If pencil marks are "
          "missing, \"refresh pencil marks\" brings them back.") +
       behind});
  EXPECT_EQ(visiblemarks(at(3, 4)), "123456789");
  type(1, "7", {});
  EXPECT_EQ(cellvalue(1), 7);
  EXPECT_EQ(filledcount, 1);
}

// The count has drifted: the digit that goes counted for nothing, and its cell stays without pencil marks.
TEST_P(Slips, MarksThatAreMissingThenComeBackByTheKeyThatIsTold) {
  put(with({{0, '5'}}));
  type(1, "a", {});
  player.event([] { Text1_Typed(0, ""); });
  EXPECT_EQ(player.boxes.size(), 1u);
  EXPECT_EQ(candmask(0), 0);
  press(Toolbar1::refresh);
  EXPECT_EQ(visiblemarks(0), "123456789");
}

TEST_P(Slips, ASecondDigitInACellNamesCellAndCure) {
  put(emptyboard);
  const Strings told = {
      in("56 in r3c4 non è una cifra da 1 a 9: cancellare una delle due. (tabella bitvalue da 0 a "
         "9, indice 56, in rebuildusedmask)",
         "56 in r3c4 is not a digit from 1 to 9: delete one of the two. (table bitvalue 0 to 9, "
         "index 56, in rebuildusedmask)")};
  type(at(3, 4), "5", {});
  type(at(3, 4), "56", told);
  EXPECT_EQ(cellvalue(at(3, 4)), 56);
  EXPECT_EQ(filledcount, 1);
  type(at(1, 1), "7", told);  // every change looks at all cells: the one that is wrong is named
  type(at(3, 4), "5", {});
  EXPECT_EQ(cellvalue(at(3, 4)), 5);
  type(at(1, 1), "", {});
}

TEST_P(Slips, MoreThanTwoDigitsAreToLeaveOne) {
  put(emptyboard);
  type(
      80, "123",
      {in("123 in r9c9 non è una cifra da 1 a 9: lasciare una sola delle sue cifre. (tabella bitvalue da 0 a 9, "
          "indice 123, in rebuildusedmask)",
          "123 in r9c9 is not a digit from 1 to 9: leave only one of its digits. (table bitvalue 0 to 9, index 123, "
          "in rebuildusedmask)")});
  type(
      80, "2147483648",
      {in("Il numero in r9c9 non è una cifra da 1 a 9: lasciare una sola delle sue cifre. (contatore cellvalue da "
          "-2147483648 a 2147483647, valore 2147483648, in leadingnumber)",
          "The number in r9c9 is not a digit from 1 to 9: leave only one of its digits. (counter cellvalue "
          "-2147483648 to 2147483647, value 2147483648, in leadingnumber)")});
  type(80, "1", {});
}

TEST_P(Slips, ADigitWrittenOverTooOftenIsTold) {
  put(emptyboard);
  for (int n = 0; n < 255; ++n) type(0, n % 2 == 0 ? "1" : "2", {});
  type(
      0, "2",
      {in("Il conteggio delle celle esposte non può superare 255: una cifra scritta sopra un'altra conta una volta in "
          "più. Salvare lo schema fa ricontare le celle. (contatore filledcount da 0 a 255, valore 256, in "
          "text1changed)",
          "The count of filled cells can't go above 255: a digit that is written over another counts once more. "
          "Saving the board has the cells counted anew. (counter filledcount 0 to 255, value 256, in "
          "text1changed)")});
  player.boxes.clear();
  player.names = {path("a.sav")};
  player.event(mnusave_Click);
  EXPECT_EQ(filledcount, 1);
  type(0, "3", {});
}

// ---- editing pencil marks --------------------------------------------------------------------------------

class Marks : public Bilingual {
 protected:
  void edit() {
    put(with({{0, '5'}}));
    mnupencil_Click();
    press(Toolbar1::modifica);
  }
};
IN_BOTH_LANGUAGES(Marks);

TEST_P(Marks, TheButtonSwitchesEditingAndBringsTheSmallBoxesBack) {
  edit();
  EXPECT_TRUE(modificacandidati && Toolbar1::modifica.ticked);
  EXPECT_EQ(Toolbar1::modifica.tip, in("blocca candidati", "freeze pencil marks"));
  candidate_Click(1 * 10 + 3);
  EXPECT_EQ(Text2(1).text, "12346789");
  EXPECT_EQ(visiblemarks(1), "");
  EXPECT_TRUE(focusrequest.on == Focus::On::text2 && focusrequest.cell == 1);
  EXPECT_FALSE(ringopen());
  Text2_Typed(1, "3 9x3");
  EXPECT_EQ(candmask(1), 8 + 512);
  EXPECT_EQ(candstr(1), "3 9x3");
  press(Toolbar1::modifica);
  EXPECT_FALSE(modificacandidati || Toolbar1::modifica.ticked);
  EXPECT_EQ(Toolbar1::modifica.tip, in("modifica candidati", "edit pencil marks"));
  EXPECT_EQ(visiblemarks(1), "39");
  EXPECT_EQ(Text2(1).text, "");
  EXPECT_EQ(candmask(1), 8 + 512);
}

TEST_P(Marks, TheMenuSwitchesTheSameFlagWithTheTipsReversedAndBringsNothingBack) {
  put(emptyboard);
  mnuedit_Click();
  EXPECT_TRUE(modificacandidati && Toolbar1::modifica.ticked);
  EXPECT_EQ(Toolbar1::modifica.tip, in("modifica candidati", "edit pencil marks"));
  candidate_Click(15);
  mnuedit_Click();
  EXPECT_FALSE(modificacandidati || Toolbar1::modifica.ticked);
  EXPECT_EQ(Toolbar1::modifica.tip, in("blocca candidati", "freeze pencil marks"));
  EXPECT_EQ(visiblemarks(1), "");
}

TEST_P(Marks, WhenNotEditingTypedMarksChangeNoTable) {
  put(emptyboard);
  const Board before = theboard();
  Text2_Typed(1, "39");
  EXPECT_EQ(theboard(), before);
}

TEST_P(Marks, AClickOnAMarkOtherwiseOpensTheRing) {
  put(emptyboard);
  mnupencil_Click();
  candidate_Click(609);
  EXPECT_TRUE(ringopen());
  EXPECT_EQ(cellacliccata, 60);
  EXPECT_TRUE(Text1(60).visible);
  EXPECT_TRUE(focusrequest.on == Focus::On::text1 && focusrequest.cell == 60);
}

TEST_P(Marks, AClickOnACellsGroundOpensTheRingAndWhitensIt) {
  put(emptyboard);
  mnupencil_Click();
  Text2(33).back = cyan;
  Text2_Click(33);
  EXPECT_TRUE(ringopen());
  EXPECT_EQ(cellacliccata, 33);
  EXPECT_TRUE(Text1(33).visible);
  EXPECT_EQ(Text2(33).back, white);
  EXPECT_TRUE(focusrequest.on == Focus::On::text1 && focusrequest.cell == 33);
}

TEST_P(Marks, WhileTheButtonIsPressedAClickLeavesTheGroundToTyping) {
  edit();
  Text2(33).back = cyan;
  Text2_Click(33);
  EXPECT_FALSE(ringopen());
  EXPECT_FALSE(Text1(33).visible);
  EXPECT_EQ(Text2(33).back, cyan);
}

TEST_P(Marks, RefreshClearsTheFlagButNotTheButton) {
  edit();
  eliminate(1, "12");
  press(Toolbar1::refresh);
  EXPECT_FALSE(modificacandidati);
  EXPECT_TRUE(Toolbar1::modifica.ticked);
  EXPECT_EQ(candstr(1), "12346789");
  EXPECT_EQ(visiblemarks(1), "12346789");
  candidate_Click(15);
  EXPECT_FALSE(ringopen()) << "the pressed button keeps the ring away";
}

TEST_P(Marks, RefreshForgetsAllEliminations) {
  put(with({{0, '5'}}));
  const Board before = theboard();
  eliminate(1, "12");
  eliminate(80, "9");
  mnurefresh_Click();
  EXPECT_EQ(theboard(), before);
  EXPECT_EQ(visiblemarks(80), "123456789");
}

TEST_P(Marks, EditingSurvivesANewBoard) {
  edit();
  mnunew_Click();
  EXPECT_TRUE(modificacandidati && Toolbar1::modifica.ticked);
}

// ---- the palette -----------------------------------------------------------------------------------------

TEST_F(Program, AChosenColourPaintsCellsUntilTheCrossIsClicked) {
  put(emptyboard);
  colore_Click(0);
  EXPECT_TRUE(pencilmarks());
  EXPECT_EQ(colorescelto, yellow);
  Text2_Click(40);
  Text2_Click(41);
  EXPECT_EQ(Text2(40).back, yellow);
  EXPECT_EQ(Text2(41).back, yellow);
  EXPECT_FALSE(ringopen());
  EXPECT_FALSE(Text1(40).visible);
  colore_Click(7);
  EXPECT_TRUE(pencilmarks());
  Text2_Click(42);
  EXPECT_EQ(Text2(42).back, red);
  Text1_Typed(40, "5");
  EXPECT_EQ(Text2(40).back, yellow) << "a painted cell keeps its colour";
  Text1(3).back = candidate(35).back = green;
  colore_Click(8);
  EXPECT_EQ(colorescelto, 0);
  EXPECT_EQ(look().Text1, Paint{});
  EXPECT_EQ(look().Text2, Paint{});
  EXPECT_EQ(look().candidate, Paint{});
  Text2_Click(43);
  EXPECT_TRUE(ringopen());
}

// ---- commands --------------------------------------------------------------------------------------------

class Commands : public Bilingual {};
IN_BOTH_LANGUAGES(Commands);

TEST_P(Commands, OnAFreshStartTheHintRefusesAndTheMenusSolutionIsSilent) {
  press(Toolbar1::suggerisci);
  EXPECT_EQ(player.boxes, Strings{in("nessun schema caricato", "no puzzle loaded")});
  player.boxes.clear();
  player.event(mnusolve_Click);
  EXPECT_EQ(player.boxes, Strings{});
  EXPECT_EQ(boxtexts(), emptyboard);
  press(Toolbar2::risolvi);
  EXPECT_EQ(player.boxes, Strings{in("nessun schema caricato", "no puzzle loaded")});
  EXPECT_FALSE(pencilmarks());
}

TEST_P(Commands, SolvingCopiesTheSolutionThroughTheChangeHandling) {
  open(without(fullboard, {0, 1, 2, 40, 80}));
  player.event(mnusolve_Click);
  EXPECT_EQ(boxtexts(), fullboard);
  EXPECT_EQ(values(), fullboard);
  EXPECT_EQ(filledcount, 81);
  EXPECT_EQ(Text1(0).fore, textcolor);
  EXPECT_EQ(Text1(3).fore, red);
  EXPECT_TRUE(Text1(0).visible);
  player.event(mnusolve_Click);
  EXPECT_EQ(player.boxes, Strings{in("schema già completato", "sudoku already completed")});
}

TEST_P(Commands, SolvingOverAWrongDigitCountsOnceMore) {
  open(without(fullboard, {0, 1, 2}));
  Text1_Typed(0, "2");
  player.event(mnusolve_Click);
  EXPECT_EQ(boxtexts(), fullboard);
  EXPECT_EQ(filledcount, 82);
}

TEST_P(Commands, SolvingATypedPuzzleWritesWhatTheLastCountLeft) {
  open(fullboard);
  mnunew_Click();
  Text1_Typed(0, "9");
  player.event(mnusolve_Click);
  EXPECT_EQ(boxtexts(), fullboard);
}

TEST_P(Commands, TheSolutionKeyRefusesAFullBoardAndLeavesThePencilMarks) {
  put(fullboard);
  press(Toolbar2::risolvi);
  EXPECT_EQ(player.boxes, Strings{in("schema già completato", "sudoku already completed")});
  EXPECT_FALSE(pencilmarks());
}

TEST_P(Commands, AnUpperBarCommandThatRanTurnsThePencilMarksOn) {
  open(without(fullboard, {0, 1, 2}));
  mnupencil_Click();
  press(Toolbar2::undo);
  EXPECT_TRUE(pencilmarks());
  mnupencil_Click();
  press(Toolbar2::risolvi);
  EXPECT_TRUE(pencilmarks());
  mnupencil_Click();
  press(Toolbar2::anew);
  EXPECT_TRUE(pencilmarks());
  EXPECT_EQ(filetxt.text, "nuovo schema");
}

TEST_P(Commands, NewBlankIsLoadedEmptyAndRed) {
  open(fullboard);
  EXPECT_TRUE(pencilmarks());
  libraryrecordopen = true;
  mnunew_Click();
  EXPECT_FALSE(libraryrecordopen);
  EXPECT_FALSE(pencilmarks());
  EXPECT_EQ(filetxt.text, "nuovo schema");
  EXPECT_TRUE(checkloaded());
  EXPECT_EQ(boxtexts(), emptyboard);
  for (const Box& box : Text1) EXPECT_TRUE(box.fore == red && box.visible);
}

TEST_P(Commands, UndoLeavesAnOverwrittenGivenInItsBox) {
  open(without(fullboard, {0, 1, 2}));
  Text1_Typed(0, "1");
  Text1_Typed(3, "7");
  Text2(50).back = cyan;
  press(Toolbar2::undo);
  EXPECT_EQ(Text1(3).text, "7");
  EXPECT_EQ(cellvalue(3), 2);
  EXPECT_EQ(Text1(0).text, "");
  EXPECT_EQ(cellvalue(0), 0);
  EXPECT_EQ(filledcount, 78);
  EXPECT_EQ(Text2(50).back, cyan);
}

TEST_P(Commands, ShowingTheGivensRewritesAllBoxesAndBringsCandidatesBack) {
  open(without(fullboard, {0, 1, 2}));
  Text1_Typed(0, "1");
  Text1_Typed(3, "7");
  const int filled = filledcount;
  showgivens();
  EXPECT_EQ(boxtexts(), without(fullboard, {0, 1, 2}));
  EXPECT_EQ(filledcount, filled);
  EXPECT_FALSE(suppresschange);
}

TEST_P(Commands, TheHintNumberIsShownOnDemand) {
  mnunumber_Click();
  EXPECT_TRUE(mnunumber.ticked && Label3.visible && Text5.visible);
  press(Toolbar1::numero);
  EXPECT_FALSE(mnunumber.ticked || Label3.visible || Text5.visible);
}

TEST_P(Commands, KeysDoAsTheirMenuEntries) {
  put(without(fullboard, {0}));
  press(Toolbar1::pencil);
  EXPECT_TRUE(pencilmarks());
  press(Toolbar1::activity);
  EXPECT_TRUE(Frmlog::visible && mnuactivity.ticked);
  press(Toolbar1::activity);
  EXPECT_FALSE(Frmlog::visible || mnuactivity.ticked);
  player.script = {go};
  press(Toolbar1::suggerisci);
  EXPECT_EQ(values(), fullboard);
}

TEST_P(Commands, ADoubleClickOnTheFrameShowsAndHidesTheHiddenTools) {
  Frame1_DblClick();
  EXPECT_TRUE(cmdnice.visible && Toolbar2::continuo.visible);
  Frame1_DblClick();
  EXPECT_FALSE(cmdnice.visible || Toolbar2::continuo.visible);
}

// ---- captions ---------------------------------------------------------------------------------------------

struct Caption {
  const Control* control;
  const char *en, *it;
};

TEST_P(Commands, TheMenuSaysTheseWords) {
  const Caption expected[] = {
      {&mnufile, "File", "File"},
      {&mnuopen, "Open", "Apri"},
      {&mnusave, "Save", "Salva"},
      {&mnunew, "New blank", "Nuovo"},
      {&mnuprint, "Print", "Stampa"},
      {&mnulibreria, "Open library", "Libreria"},
      {&mnuview, "View", "Visualizza"},
      {&mnupencil, "Show pencil marks", "Mostra candidati"},
      {&mnurefresh, "Refresh pencil marks", "Rigenera candidati"},
      {&mnuedit, "Edit pencil marks", "Modifica candidati"},
      {&mnuactivity, "Show activity", "Mostra attivita'"},
      {&mnuhints, "Hints", "Suggerimenti"},
      {&mnuposition, "Suggest position", "suggerisci posizione"},
      {&mnunumber, "Suggest number", "suggerisci numero"},
      {&mnutecniche, "Tecniques", "Tecniche"},
      {&mnurestricted, "Intersections", "Intersezioni"},
      {&mnunakedpair, "Naked Pair", "Naked Pair"},
      {&mnuhidden, "Hidden pair", "Hidden pair"},
      {&mnutriplet, "Naked-Hidden triple-quad", "Naked-Hidden triple-quad"},
      {&mnuxy, "XY-XYZ Wing", "XY-XYZ Wing"},
      {&mnuxwing, "X Wing", "X Wing"},
      {&mnusword, "Sword Fish -JellyFish", "Sword Fish -JellyFish"},
      {&mnucolori, "Coloring", "Colori"},
      {&mnuchain, "Forcing chain", "Catene forzate"},
      {&mnutools, "Tools", "Strumenti"},
      {&mnusolve, "Solve", "Risolvi"},
      {&mnugenerator, "Generator", "Generatore"},
      {&mnuadvanced, "Advanced", "Avanzato"},
  };
  ASSERT_EQ(menurows().size(), std::size(expected));
  for (std::size_t n = 0; n < std::size(expected); ++n) {
    EXPECT_EQ(menurows()[n].control, expected[n].control) << expected[n].en;
    EXPECT_EQ(expected[n].control->caption, in(expected[n].it, expected[n].en));
  }
}

struct Key {
  const char *key, *caption, *it, *en;
};

void expectkeys(std::span<const KeyRow> rows, std::initializer_list<Key> expected, bool initalian) {
  ASSERT_EQ(rows.size(), expected.size());
  auto row = rows.begin();
  for (const Key& key : expected) {
    EXPECT_EQ(row->key, std::string(key.key));
    EXPECT_EQ(row->control == nullptr, std::string(key.key).empty());
    if (row->control != nullptr) {
      EXPECT_EQ(row->caption, std::string(key.caption)) << key.key;
      EXPECT_EQ(row->control->tip, initalian ? key.it : key.en) << key.key;
    }
    ++row;
  }
}

TEST_P(Commands, TheBarsHaveTheseKeysAndTips) {
  expectkeys(toolbar2rows(),
             {{"open", "Open", "apri", "open"},
              {"new", "New", "nuovo", "new"},
              {"libreria", "", "libreria", "library"},
              {"save", "", "salva", "save"},
              {"print", "", "stampa", "print"},
              {"", "", "", ""},
              {"risolvi", "", "risolvi", "solution"},
              {"conta", "", "conta soluzioni", "count solutions"},
              {"undo", "", "rigenera schema", "from scratch"},
              {"", "", "", ""},
              {"genera", "", "generatore", "generator"},
              {"continuo", "", "generatore continuo", "continuous generator"},
              {"", "", "", ""}},
             GetParam() == italian);
  expectkeys(toolbar1rows(),
             {{"pencil", "", "candidati", "pencil marks"},
              {"refresh", "", "rigenera candidati", "refresh pencil marks"},
              {"modifica", "", "edit pencil marks", "edit pencil marks"},
              {"activity", "", "log attività", "activity log"},
              {"", "", "", ""},
              {"obbligate", "", "intersezioni", "intersections"},
              {"nakedpair", "", "doppia nuda", "naked pair"},
              {"hidden", "", "doppia nascosta", "hidden pair"},
              {"nakedtriple", "", "triple quadruple", "naked_hidden triple-quad"},
              {"xywing", "", "XY-XYZ Wing", "XY-XYZ Wing "},
              {"xwing", "", "X Wing", "X Wing"},
              {"sword", "", "swordfish-jellyfish", "swordfish-jellyfish"},
              {"colori", "", "colori", "colors"},
              {"chain", "", "cicli - catene forzate", "loops - chains"},
              {"", "", "", ""},
              {"", "", "", ""},
              {"", "", "", ""},
              {"numero", "numero", "mostra suggerimento", "show hint number"},
              {"suggerisci", "tip", "suggerisci", "hint"}},
             GetParam() == italian);
}

TEST_P(Commands, LabelsAndTipsFollowTheLanguage) {
  EXPECT_EQ(Label3.text, in("numero", "number"));
  EXPECT_EQ(lblfile.text, in("esposti", "filled"));
  EXPECT_EQ(Label1.text, in("vuoti", "empty"));
  EXPECT_EQ(Label5.text, in("schema", "grid id"));
  EXPECT_EQ(cmdlan.tip, in("english", "italiano"));
  EXPECT_EQ(cmdlanflag, GetParam() == italian ? Flag::uk : Flag::it);
  EXPECT_EQ(Pictgo.tip, in("procedi", "go"));
  EXPECT_EQ(Picthelp.tip, in("spiega", "explain"));
  EXPECT_EQ(Cmdtest.tip, in("testa il tuo pc", "test your pc"));
  EXPECT_EQ(cmdimpossibili.tip, "UR - BUGS");
  EXPECT_EQ(Label2.text, "timer");
  EXPECT_EQ(Pictalt.tip, "stop");
  EXPECT_EQ(Picture2.tip, "reset timer");
  EXPECT_EQ(picstart.tip, "start timer");
}

std::vector<std::string> allcaptions() {
  std::vector<std::string> all;
  for (const MenuRow& row : menurows()) all.push_back(row.control->caption);
  for (const auto& rows : {toolbar1rows(), toolbar2rows()})
    for (const KeyRow& row : rows)
      if (row.control != nullptr) all.push_back(row.control->tip);
  for (const std::string* text : {&Label3.text, &lblfile.text, &Label1.text, &Label5.text, &cmdlan.tip,
                                  &Pictgo.tip, &Picthelp.tip, &Cmdtest.tip, &cmdimpossibili.tip})
    all.push_back(*text);
  return all;
}

TEST_P(Commands, TwoSwitchesOfLanguageAreNone) {
  const auto before = allcaptions();
  cmdlan_Click();
  EXPECT_NE(allcaptions(), before);
  cmdlan_Click();
  EXPECT_EQ(allcaptions(), before);
  EXPECT_EQ(lingua, GetParam());
}

TEST_P(Commands, AnyLanguageButEnglishSwitchesToEnglish) {
  lingua = 77;
  cmdlan_Click();
  EXPECT_EQ(lingua, english);
}

TEST_P(Commands, TheSwitchLeavesTextLinesLogAndTheEditingTip) {
  press(Toolbar1::modifica);
  const std::string tip = Toolbar1::modifica.tip;
  txthint.text = "hint";
  txtlivello.text = "level";
  txtlivello1.text = "detail";
  Frmlog::Text3.text = "log";
  frmactivity::Text3.text = "lesson";
  cmdlan_Click();
  EXPECT_EQ(Toolbar1::modifica.tip, tip);
  EXPECT_EQ(txthint.text + txtlivello.text + txtlivello1.text + Frmlog::Text3.text + frmactivity::Text3.text,
            "hintleveldetailloglesson");
  press(Toolbar1::modifica);
  EXPECT_EQ(Toolbar1::modifica.tip, in("edit pencil marks", "modifica candidati")) << "the other language's";
}

// ---- the clock --------------------------------------------------------------------------------------------

class Clock : public Program {
 protected:
  /// What the clock shows after some seconds of running.
  std::string after(double seconds) {
    player.now = start + seconds;
    Timer2_Timer();
    return tempotot.text;
  }
  void clickat(double seconds) {
    player.now = seconds;
    picstart_Click();
  }
  double start = 1000;
};

TEST_F(Clock, GoesThroughItsForms) {
  clickat(1000);
  EXPECT_EQ(after(0), "0s");
  EXPECT_EQ(after(1), "1s");
  EXPECT_EQ(after(59), "59s");
  EXPECT_EQ(after(59.9), "59s");
  EXPECT_EQ(after(60), "60s");
  EXPECT_EQ(after(61), "1m 1s");
  EXPECT_EQ(after(120), "2m 0s");
  EXPECT_EQ(after(3599), "59m 59s");
  EXPECT_EQ(after(3600), "3600s");
  EXPECT_EQ(after(3601), "1h 0m 1s");
  EXPECT_EQ(after(7384), "2h 3m 4s");
}

TEST_F(Clock, StartsPausesAndGoesOn) {
  EXPECT_FALSE(timer2on);
  clickat(1000);
  EXPECT_TRUE(timer2on);
  EXPECT_EQ(picstartlamp, Lamp::rosso);
  EXPECT_EQ(picstart.tip, "pause timer ");
  EXPECT_EQ(after(20), "20s");
  clickat(1021);
  EXPECT_FALSE(timer2on);
  EXPECT_EQ(picstartlamp, Lamp::verde);
  EXPECT_EQ(picstart.tip, "start timer ");
  EXPECT_EQ(tempotot.text, "20s");
  clickat(5000);
  start = 5000;
  EXPECT_EQ(after(5), "25s");
}

TEST_F(Clock, AfterAPauseItResumesFromTheFirstNumberOnShow) {
  for (const auto& [shown, resumed] :
       {std::pair("1m 5s", "1s"), std::pair("2h 3m 4s", "2s"), std::pair("60s", "60s")}) {
    startprogram();
    tempotot.text = shown;
    clickat(1000);
    EXPECT_EQ(after(0), resumed);
  }
}

TEST_F(Clock, ResetWhileStoppedStartsFromZero) {
  tempotot.text = "45s";
  player.now = 1000;
  Picture2_Click();
  EXPECT_TRUE(timer2on);
  EXPECT_EQ(tempotot.text, "0");
  EXPECT_EQ(after(3), "3s");
}

TEST_F(Clock, ResetWhileRunningStopsAtZero) {
  clickat(1000);
  after(20);
  Picture2_Click();
  EXPECT_FALSE(timer2on);
  EXPECT_EQ(tempotot.text, "0");
  EXPECT_EQ(picstartlamp, Lamp::verde);
}

TEST_F(Clock, PastMidnightTheTimeFallsByADay) {
  clickat(86390);
  player.now = 5;
  Timer2_Timer();
  EXPECT_EQ(tempotot.text, "-86385s");
}

TEST_F(Clock, StopsByItselfOnAFullBoardWithTheRedLampOn) {
  clickat(1000);
  put(fullboard);
  EXPECT_EQ(after(7), "7s");
  EXPECT_FALSE(timer2on);
  EXPECT_EQ(picstartlamp, Lamp::rosso);
  clickat(1010);
  EXPECT_EQ(picstartlamp, Lamp::verde);
  EXPECT_EQ(tempotot.text, "7s");
  clickat(1020);
  EXPECT_EQ(picstartlamp, Lamp::rosso);
  EXPECT_TRUE(timer2on);
}

TEST_F(Clock, IsNotTouchedByALoad) {
  clickat(1000);
  after(20);
  open(fullboard);
  EXPECT_EQ(tempotot.text, "20s");
  EXPECT_TRUE(timer2on);
  mnunew_Click();
  EXPECT_EQ(tempotot.text, "20s");
  EXPECT_TRUE(timer2on);
}

TEST_F(Clock, SpeaksEnglishInBothLanguages) {
  speak(italian);
  clickat(1000);
  EXPECT_EQ(picstart.tip, "pause timer ");
  clickat(1000);
  EXPECT_EQ(picstart.tip, "start timer ");
}

}  // namespace
}  // namespace gradino::tests
