// Simple colours and x-colours: what ends a search, and oddities of the explanation. What is said, shown and
// done on a board is in tests/cases/simplecolours and xcolours.
#include <gtest/gtest.h>

#include "caseboard.h"
#include "gradestate.h"
#include "grid.h"
#include "houses.h"
#include "light.h"
#include "log.h"
#include "player.h"
#include "simplecolours.h"
#include "step.h"
#include "stepsolver.h"
#include "technique.h"
#include "xcolours.h"

namespace gradino::tests {
namespace {

// The boards have no digits. One digit has its places as drawn, every other digit has all: so no other
// technique finds anything.
using Places = std::array<std::string_view, 9>;

// 61 deletions recorded, and 62.
constexpr Places sixtyone = {"x.. xx. xxx",  //
                             "... x.x xx.",  //
                             "x.. xxx .xx",  //
                             "x.x .xx .xx",  //
                             ".x. ... .x.",  //
                             ".x. .xx xxx",  //
                             "xx. xx. xx.",  //
                             "x.. xxx xxx",  //
                             "... ... ..."};
constexpr Places sixtytwo = {"x.. xx. xx.",  //
                             "... x.x xx.",  //
                             "x.. xxx .xx",  //
                             "..x .xx .xx",  //
                             ".x. ... .x.",  //
                             ".x. .xx xx.",  //
                             "xx. xx. xx.",  //
                             "x.. xx. xxx",  //
                             "... ... ..."};

class Colouring : public Bilingual {
 protected:
  static void draw(int digit, const Places& places) {
    put(emptyboard);
    for (int cell = 0; cell < cellcount; ++cell) {
      const auto row = static_cast<std::size_t>(cell / 9), col = static_cast<std::size_t>(cell % 9);
      if (places[row][col + col / 3] == '.') candmask(cell) -= bitvalue(digit);
    }
    rebuildcandstr();
    updatetext2();
    rebuildpositions();
  }
};

// ---- explanations -----------------------------------------------------------------------------------------

class ColoursExplanation : public Colouring {};

// The marks are the step's, which a stop clears.
TEST_P(ColoursExplanation, AStopAtItsLastWaitLeavesTheMarks) {
  putcase("simplecolours/seen-by-both-colours");
  player.script = {[&] {
                     const Paint marks = look().candidate;
                     help();
                     EXPECT_TRUE(frmactivity::visible);
                     EXPECT_EQ(look().candidate, marks);
                   },
                   stop,
                   stop,
                   stop,
                   stop,
                   stop};
  player.event(frmmain::stepcolors);
  EXPECT_EQ(player.frames.size(), 6u);
  expectnopaint();
}

// The Italian words go by the mark of r1c1.
TEST_P(ColoursExplanation, FindsR1c1Yellow) {
  putcase("simplecolours/second-colour-false");
  const Act gowithyellow = [&] {
    pencilmark(at(1, 1), 2).back = yellow;
    go();
  };
  player.script = {help, go, go, go, go, gowithyellow, go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 7u);
  const std::string closing = GetParam() == italian ? "\r\n2 non può quindi stare nel gruppo giallo"
                                                      "\r\n possiamo inserire quindi il numero 2"
                                                      "\r\n in tutte le celle del colore  verde"
                                                    : "\r\n2 can not stay on the green group "
                                                      "\r\n therefore, we can place 2"
                                                      "\r\n in ALL the cells of the yellow group";
  ASSERT_TRUE(player.frames[6].activity);
  EXPECT_TRUE(player.frames[6].activity->ends_with(closing)) << *player.frames[6].activity;
}
IN_BOTH_LANGUAGES(ColoursExplanation);

// ---- simple colours: the search ---------------------------------------------------------------------------

class ColoursSearch : public Colouring {};

TEST_P(ColoursSearch, TwoCellsAloneSeeingNothingTogetherGiveNothing) {
  Places places;
  places.fill("xxx xxx xxx");
  places[4] = ".x. ... .x.";
  draw(4, places);
  const Board before = theboard();
  foundflag = true;
  player.event(frmmain::stepcolors);
  EXPECT_EQ(player.frames.size(), 0u);
  EXPECT_FALSE(foundflag);
  EXPECT_EQ(colourdigit, 10);
  foundflag = true;
  frmgenerazione::gradecolors();
  EXPECT_FALSE(foundflag);
  EXPECT_EQ(theboard(), before);
  EXPECT_EQ(logcount, 0);
}

// Without r4c1 r4c3 joins the cluster, and what it sees makes more than ten.
TEST_P(ColoursSearch, TheEleventhIsAFaultThatLeavesTheBoardAlone) {
  putcase("simplecolours/ten-deletions");
  eliminate(at(4, 1), "4");
  const Board before = theboard();
  player.event(mnuposition_Click);
  EXPECT_EQ(player.frames.size(), 0u);
  const std::string told = in(
      "I colori semplici trovano qui più di 10 eliminazioni, più di quante se ne possano annotare. Il comando "
      "è stato interrotto e lo schema resta com'era: un'altra tecnica può andare avanti. (tabella deletedcell "
      "da 1 a 10, indice 11, in checkcluster)",
      "Simple colors find more than 10 deletions here, more than can be noted. The command was ended and the "
      "board stays as it was: another technique may go on. (table deletedcell 1 to 10, index 11, in "
      "checkcluster)");
  EXPECT_EQ(player.boxes, std::vector<std::string>{told});
  EXPECT_EQ(theboard(), before);
  EXPECT_FALSE(waiting());

  player.event(frmgenerazione::gradecolors);
  EXPECT_EQ(player.boxes, std::vector<std::string>(2, told));
  EXPECT_EQ(theboard(), before);
  EXPECT_EQ(logcount, 0);

  putcase("simplecolours/seen-by-both-colours");  // the program goes on
  player.script = {go};
  player.event(frmmain::stepcolors);
  EXPECT_EQ(look().hint, in("eliminato 5 from   r1c6 , ", "deleted 5 from   r1c6 , "));
}
IN_BOTH_LANGUAGES(ColoursSearch);

// ---- x-colours: the search --------------------------------------------------------------------------------

class XColoursSearch : public Colouring {};

// Row 1 has r1c8 alone, which r5c8 rules out. Two true cells in a house would be a contradiction, a house
// without any is none.
TEST_P(XColoursSearch, AHouseThatLosesAllPlacesIsNoContradiction) {
  Places places;
  places.fill("xxx xxx xxx");
  places[0] = "... ... .x.";
  places[4] = ".x. ... .x.";
  draw(4, places);
  const Board before = theboard();
  foundflag = true;
  player.event(frmmain::stepxcolors);
  EXPECT_EQ(player.frames.size(), 0u);
  EXPECT_FALSE(foundflag);
  EXPECT_EQ(colourdigit, 10);
  frmgenerazione::gradexcolors();
  EXPECT_EQ(theboard(), before);
  EXPECT_EQ(logcount, 0);
}

TEST_P(XColoursSearch, SixtyOneDeletionsFit) {
  draw(4, sixtyone);
  player.script = {stop};
  player.event(frmmain::stepxcolors);
  EXPECT_EQ(player.frames.size(), 1u);
  EXPECT_TRUE(player.boxes.empty());
}

TEST_P(XColoursSearch, TheNextIsAFaultThatLeavesTheBoardAlone) {
  draw(4, sixtytwo);
  const Board before = theboard();
  player.event(frmmain::stepxcolors);
  EXPECT_EQ(player.frames.size(), 0u);
  const std::string told = in(
      "I colori X trovano qui più di 61 eliminazioni, più di quante se ne possano annotare. Il comando è stato "
      "interrotto e lo schema resta com'era: un'altra tecnica può andare avanti. (tabella xdeletecell da 0 a "
      "60, indice 61, in recorddeletions)",
      "X-colors find more than 61 deletions here, more than can be noted. The command was ended and the board "
      "stays as it was: another technique may go on. (table xdeletecell 0 to 60, index 61, in "
      "recorddeletions)");
  EXPECT_EQ(player.boxes, std::vector<std::string>{told});
  player.event(frmgenerazione::gradexcolors);
  EXPECT_EQ(player.boxes, std::vector<std::string>(2, told));
  EXPECT_EQ(theboard(), before);
  EXPECT_EQ(logcount, 0);
  EXPECT_EQ(runninglevel, 0);
  EXPECT_FALSE(waiting());
}

// Simple colours and x-colours share the tag. With nothing on show there is nothing to explain.
TEST_P(XColoursSearch, NothingFoundLeavesNothingToExplain) {
  putcase("xcolours/first-group-false");
  player.script = {go};
  player.event(mnuposition_Click);
  put(emptyboard);
  player.event(frmmain::stepcolors);
  player.event(help);
  player.event(frmmain::stepxcolors);
  player.event(help);
  EXPECT_EQ(player.frames.size(), 1u);
  EXPECT_FALSE(frmactivity::visible);
}
IN_BOTH_LANGUAGES(XColoursSearch);

}  // namespace
}  // namespace gradino::tests
