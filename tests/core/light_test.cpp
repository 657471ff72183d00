// The traffic light, and what is refused while it waits.
#include "light.h"

#include <gtest/gtest.h>

#include "commands.h"
#include "editing.h"
#include "filecommands.h"
#include "grid.h"
#include "host.h"
#include "menu.h"
#include "player.h"
#include "replay.h"
#include "step.h"
#include "stepsolver.h"
#include "view.h"

namespace gradino::tests {
namespace {

using namespace frmmain;

bool lightshown() {
  EXPECT_EQ(Pictgo.visible, Pictalt.visible);
  EXPECT_EQ(Pictgo.visible, Picthelp.visible);
  return Pictgo.visible;
}

TEST_F(Program, TheLightIsShownWhileAWaitIsOpenOnly) {
  put(without(fullboard, {0}));
  EXPECT_FALSE(lightshown());
  int looked = 0;
  player.script = {[&] { looked += lightshown() && waiting(); }, go};
  player.event(mnuposition_Click);
  EXPECT_EQ(looked, 1);
  EXPECT_FALSE(lightshown());
  EXPECT_FALSE(waiting());
  EXPECT_EQ(lightresult, 1);
}

TEST_F(Program, AWaitGoesOnUntilItIsAnswered) {
  put(without(fullboard, {0}));
  const Act nothing = [] {};
  player.script = {nothing, nothing, nothing, stop};
  player.event(mnuposition_Click);
  EXPECT_EQ(player.frames.size(), 4u);
  EXPECT_EQ(lightresult, 2);
  EXPECT_EQ(cellvalue(0), 0);
}

TEST_F(Program, AnOldAnswerDoesNotAnswerTheNextWait) {
  put(without(fullboard, {0, 40}));
  lightresult = 1;
  player.script = {stop};
  player.event(mnuposition_Click);
  EXPECT_EQ(filledcount, 79);
}

TEST_F(Program, AnUnscriptedWaitFailsInsteadOfHanging) {
  put(without(fullboard, {0}));
  EXPECT_THROW(player.event(mnuposition_Click), Unscripted);
}

TEST_F(Program, AStepInsideAnothersWaitIsAnsweredTogetherWithIt) {
  put(without(fullboard, {0, 80}));
  player.script = {mnuposition_Click, go};
  player.event(mnuposition_Click);
  EXPECT_EQ(player.frames.size(), 2u);
  EXPECT_FALSE(lightshown());
  EXPECT_EQ(values().front(), '1');
}

TEST_F(Program, WhatCommandsFindDuringAWaitIsNotForTheStepThatWaits) {
  for (const bool before : {false, true})
    for (const bool command : {false, true}) {
      foundflag = before;
      player.script = {[&] { foundflag = command; }, go};
      player.event([] { EXPECT_EQ(waitatlight(), Answer::go); });
      EXPECT_EQ(foundflag, before);
    }
}

class DuringAWait : public Bilingual {
 protected:
  /// Does something while a step waits, and answers with stop.
  void during(const Act& act) {
    player.frames.clear();
    put(without(fullboard, {0}));
    player.script = {act, stop};
    player.event(mnuposition_Click);
    ASSERT_EQ(player.frames.size(), 2u);
  }
  const std::vector<std::string> refused = {
      in("per procedere, cliccare sul semaforo verde", "to proceed, click on green traffic light")};
};
IN_BOTH_LANGUAGES(DuringAWait);

TEST_P(DuringAWait, EveryKeyOfTheLowerBarRefusesButTheTwoThatChangeTheView) {
  for (const KeyRow& row : toolbar1rows()) {
    if (row.control == nullptr || row.action == nullptr) continue;
    const std::string key = row.key;
    player.boxes.clear();
    const bool pencil = mnupencil.ticked, number = mnunumber.ticked;
    during([&] { Toolbar1_ButtonClick(row); });
    if (key == "pencil" || key == "numero") {
      EXPECT_TRUE(player.boxes.empty()) << key;
      EXPECT_TRUE(mnupencil.ticked != pencil || mnunumber.ticked != number) << key;
    } else {
      EXPECT_EQ(player.boxes, refused) << key;
    }
  }
}

TEST_P(DuringAWait, EveryKeyOfTheUpperBarRefusesAndLeavesThePencilMarks) {
  for (const KeyRow& row : toolbar2rows()) {
    if (row.control == nullptr || row.action == nullptr) continue;
    player.boxes.clear();
    during([&] { Toolbar2_ButtonClick(row); });
    EXPECT_EQ(player.boxes, refused) << row.key;
    EXPECT_FALSE(mnupencil.ticked) << row.key;
  }
}

TEST_P(DuringAWait, AClickOnACellIsRefusedAndOpensNoRing) {
  during([] { Text1_Click(40); });
  EXPECT_EQ(player.boxes, refused);
  EXPECT_FALSE(Picture1(1).visible);
  player.boxes.clear();
  during([] { Text2_Click(40); });
  EXPECT_EQ(player.boxes, refused);
  EXPECT_FALSE(Picture1(1).visible);
}

TEST_P(DuringAWait, AClickOnAPencilMarkOpensTheRingAndTheRingEnters) {
  during([] {
    candidate_Click(805);
    EXPECT_TRUE(Picture1(1).visible);
    EXPECT_EQ(cellacliccata, 80);
    Picture1_Click(9);
  });
  EXPECT_TRUE(player.boxes.empty());
  EXPECT_EQ(cellvalue(80), 9);
}

TEST_P(DuringAWait, PaintingWithThePaletteWorks) {
  during([] {
    colore_Click(0);
    Text2_Click(40);
  });
  EXPECT_TRUE(player.boxes.empty());
  EXPECT_EQ(Text2(40).back, yellow);
}

TEST_P(DuringAWait, ADoubleClickOnTheLogIsRefusedInItsOwnWords) {
  during([] { Text3_DblClick(0); });
  EXPECT_EQ(player.boxes, std::vector<std::string>{in("per continuare click sul semaforo verde",
                                                      "to proceed, click on green traffic light")});
}

TEST_P(DuringAWait, ANewBlankFromTheMenuPutsTheLightOut) {
  put(without(fullboard, {0}));
  player.script = {[] {
                     mnunew_Click();
                     EXPECT_FALSE(lightshown());
                   },
                   stop};
  player.event(mnuposition_Click);
  EXPECT_EQ(boxtexts(), emptyboard);
}

TEST_P(DuringAWait, AFaultOfAnEventIsToldAndTheWaitGoesOn) {
  during([] { throw Fault{Fault::Kind::bounds, "cellvalue", 82, 0, 81, "somewhere"}; });
  EXPECT_EQ(player.boxes,
            std::vector<std::string>{
                in("È stato raggiunto un limite interno del programma. Il comando è stato "
                   "interrotto; lo schema resta e il programma continua. (tabella cellvalue da 0 a "
                   "81, indice 82, in somewhere)",
                   "An internal limit of the program was reached. The command was ended; the board "
                   "stays, and the program goes on. (table cellvalue 0 to 81, index 82, in "
                   "somewhere)")});
}

TEST_F(Program, AFaultOfAnEventLeavesTheChangeHandlingWorking) {
  put(emptyboard);
  player.event([] {
    suppresschange = true;
    cellvalue(82) = 1;
  });
  EXPECT_EQ(player.boxes.size(), 1u);
  EXPECT_FALSE(suppresschange);
}

class Loading : public Bilingual {};
IN_BOTH_LANGUAGES(Loading);

TEST_P(Loading, WithoutAPuzzleTheHintSaysSo) {
  player.event(mnuposition_Click);
  EXPECT_EQ(player.boxes, std::vector<std::string>{in("nessun schema caricato", "no puzzle loaded")});
}

TEST_P(Loading, ABoardTypedWithoutANameCountsAsNotLoaded) {
  for (int cell = 1; cell < 81; ++cell) Text1_Typed(cell, fullboard.substr(cell, 1));
  EXPECT_FALSE(checkloaded());
  filetxt.text = "x";
  player.boxes.clear();
  EXPECT_TRUE(checkloaded());
  EXPECT_TRUE(player.boxes.empty());
}

}  // namespace
}  // namespace gradino::tests
