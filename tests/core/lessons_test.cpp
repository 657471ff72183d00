// The window of the explanations, by one of a single: what opens, moves and closes it. What is said and shown
// in it is in tests/cases.
#include <gtest/gtest.h>

#include "captions.h"
#include "clearboard.h"
#include "explain.h"
#include "filecommands.h"
#include "generator.h"
#include "grid.h"
#include "light.h"
#include "menu.h"
#include "player.h"
#include "singles.h"
#include "step.h"
#include "stepsolver.h"

namespace gradino::tests {
namespace {

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
};
IN_BOTH_LANGUAGES(Explanation);

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
