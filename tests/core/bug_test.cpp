// BUG: which cell and digit are found, what step, twin and explanation say, paint and place.
#include "bug.h"

#include <gtest/gtest.h>

#include "gradestate.h"
#include "grid.h"
#include "log.h"
#include "player.h"
#include "step.h"
#include "stepsolver.h"
#include "technique.h"

namespace gradino::tests {
namespace {

class Bug : public Program {
 protected:
  Bug() { put(emptyboard); }

  std::string step() { return hintof(player, frmmain::stepbug); }
  static std::string twin() { return logged(frmgenerazione::gradebug); }
};

const std::string headit =
    "BUG LEVEL 18\r\n"
    "Se ogni cella insoluta ha solo 2 candidati, in ogni gruppo abbiamo esattamente ogni candiato 2 volte, allora "
    "abbiamo un Bivalue Universal Grave (BUG).\r\n"
    "Il BUG è un deadly pattern, ha 0 o più di 1 soluzione.\r\n"
    "Se troviamo una situazione dove tutte le celle insolute ad eccezione di una hanno 2 soli candidati, tallora "
    "dalla cella che ha più di 2 candidati possiamo escludere i candidati che portanno al BUG.\r\n"
    "===================================================\r\n";
const std::string headen =
    "BUG LEVEL 18\r\n"
    "If every unsolved cell has only 2 possible candidates, in every house there are exactly 2 of every "
    "candidate, then we have a Bivalue Universal Grave (BUG).\r\n"
    "The BUG is a deadly pattern, it has either zero or more than one solution.\r\n"
    "If we found a situation were all but one unsolved cell has only 2 candidates, then from the cell that has "
    "more than 2 candidates we can remove the candidates that will create a BUG.\r\n"
    "===================================================\r\n";

/// A board whose next step it is: of 5, 7 and 9 in r3c5 the 5 has three places in row 3, block 2 and
/// column 5.
class BugInBothLanguages : public Bug, public testing::WithParamInterface<int> {
 protected:
  BugInBothLanguages() {
    speak(GetParam());
    setup();
    before = theboard();
    placesilently(cell, 5);
    after = theboard();
    setup();
  }
  void setup() {
    put("639128475157.4.982284...163791..2348468..12573257846918124..5395438197269762..814");
    const Marks open = {{at(2, 4), "36"}, {at(2, 6), "36"}, {at(3, 4), "59"}, {at(3, 5), "579"},
                        {at(3, 6), "57"}, {at(4, 4), "56"}, {at(4, 5), "56"}, {at(5, 4), "39"},
                        {at(5, 5), "39"}, {at(7, 5), "67"}, {at(7, 6), "67"}, {at(9, 5), "35"},
                        {at(9, 6), "35"}};
    leave(open);
    for (const auto& [c, digits] : open) ASSERT_EQ(candstr(c), digits);
    ASSERT_EQ(static_cast<int>(open.size()) + filledcount, cellcount);
  }
  static std::string in(const std::string& it, const std::string& en) {
    return GetParam() == italian ? it : en;
  }
  static Frame shownframe() {
    return {.tag = "bug",
            .hint = "BUG in r3c5",
            .number = "5",
            .activity = {},
            .Text1 = {},
            .Text2 = {{cell, "yellow"}},
            .candidate = {}};
  }
  static Frame arguedframe(int wait) {
    Frame frame = shownframe();
    frame.activity = in(headit, headen) + "BUG in r3c5\r\n" +
                     in("se r3c5 è differente da 5, lo schema si troba in un BUG",
                        "if r3c5 is different from 5, the puzzle is in a BUG position");
    if (wait == 2)
      *frame.activity += in("\r\nposso quindi inserire 5 in r3c5", "\r\nwe can, therefore, insert 5 in r3c5");
    return frame;
  }
  static std::string logtext() {
    return in("\r\nBUG in r3c5\r\n * inserito 5 in r3c5", "\r\nBUG in r3c5\r\n * entered 5 in r3c5");
  }

  static constexpr int cell = at(3, 5);
  Board before, after;
};

TEST_P(BugInBothLanguages, IsTheNextStepShowsItsCellAndOnGoPlaces) {
  player.script = {[&] {
    EXPECT_EQ(theboard(), before);
    go();
  }};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 1u);
  EXPECT_EQ(player.frames[0], shownframe());
  EXPECT_EQ(frmmain::txthint.text, in("inserito 5 in r3c5", "entered 5 in r3c5"));
  EXPECT_EQ(frmmain::Text1(cell).text, "5");
  EXPECT_TRUE(frmmain::Text1(cell).visible);
  EXPECT_EQ(theboard().candmask, after.candmask);
  EXPECT_EQ(theboard().values, after.values);
  EXPECT_EQ(theboard().filledcount, after.filledcount);
  EXPECT_TRUE(foundflag);
  EXPECT_EQ(colourdigit, 5);
  EXPECT_EQ(levelcount(18), 0);
  expectnopaint();
}

TEST_P(BugInBothLanguages, AStopPlacesNothing) {
  player.script = {stop};
  player.event(frmmain::stepbug);
  EXPECT_EQ(theboard(), before);
  EXPECT_EQ(frmmain::txthint.text, "BUG in r3c5");
  EXPECT_TRUE(foundflag);
  expectnopaint();
}

TEST_P(BugInBothLanguages, TwinLogsCountsAndPlacesWithoutABox) {
  frmmain::txthint.text = steptag = "as it was";
  colourdigit = 7;
  frmgenerazione::gradebug();
  EXPECT_EQ(Frmlog::Text3.text, logtext());
  EXPECT_EQ(logcount, 2);
  std::string values, commas;
  for (char c : before.values) values += c == '.' ? '0' : c;
  for (int mask : before.candmask) commas += std::to_string(mask) + ",";
  EXPECT_EQ(logvalues(1), values);
  EXPECT_EQ(logcands(1), commas);
  EXPECT_EQ(logcands(2), "");
  EXPECT_EQ(runninglevel, 18);
  EXPECT_EQ(levelcount(18), 1);
  EXPECT_TRUE(foundflag);
  EXPECT_EQ(theboard(), after);
  EXPECT_EQ(frmmain::txthint.text, "as it was");
  EXPECT_EQ(steptag, "as it was");
  EXPECT_EQ(frmmain::Text5.text, "");
  EXPECT_EQ(colourdigit, 7);
  expectnopaint();
}

TEST_P(BugInBothLanguages, TwinInALongJobCountsTheDetailAlone) {
  const Job job("conta");
  runninglevel = 19;
  frmgenerazione::gradebug();
  EXPECT_EQ(Frmlog::Text3.text, logtext());
  EXPECT_EQ(logcount, 1);
  EXPECT_EQ(logcands(1), "");
  EXPECT_EQ(runninglevel, 19);
  EXPECT_EQ(levelcount(18), 1);
}

TEST_P(BugInBothLanguages, ExplanationArguesInTwoWaitsAndItsGoCarriesTheStepOut) {
  player.script = {[&] {
                     help();
                     EXPECT_FALSE(frmactivity::visible);
                     EXPECT_EQ(theboard(), before);
                     expectnopaint();
                   },
                   go, go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 3u);
  EXPECT_EQ(player.frames[1], arguedframe(1));
  EXPECT_EQ(player.frames[2], arguedframe(2));
  EXPECT_EQ(theboard().candmask, after.candmask);
  EXPECT_EQ(frmmain::Text1(cell).text, "5");
  EXPECT_EQ(frmmain::txthint.text, in("inserito 5 in r3c5", "entered 5 in r3c5"));
}

TEST_P(BugInBothLanguages, AStopInTheExplanationStopsTheStepAndLeavesTheWindowOpen) {
  for (int stopat : {1, 2}) {
    frmactivity::visible = false;
    player.frames.clear();
    player.script = {help};
    if (stopat == 2) player.script.push_back(go);
    player.script.push_back(stop);
    player.event(frmmain::stepbug);
    ASSERT_EQ(player.frames.size(), 1u + static_cast<std::size_t>(stopat));
    EXPECT_TRUE(frmactivity::visible);
    EXPECT_EQ(frmactivity::Text3.text, *arguedframe(stopat).activity);
    EXPECT_EQ(theboard(), before);
    EXPECT_TRUE(foundflag);
    expectnopaint();
  }
}

IN_BOTH_LANGUAGES(BugInBothLanguages);

// ---- what is found ----------------------------------------------------------------------------------------

// r5c5 with 1, 2 and 3; around it what each test needs.

TEST_F(Bug, NoCellOfMoreThanTwoCandidatesIsNone) {
  only({{at(5, 5), "12"}, {at(5, 6), "12"}});
  foundflag = true;
  EXPECT_EQ(step(), "");
  EXPECT_EQ(steptag, "bug");
  EXPECT_FALSE(foundflag);
  foundflag = true;
  EXPECT_EQ(twin(), "");
  EXPECT_FALSE(foundflag);
  EXPECT_EQ(logcount, 0);
  EXPECT_EQ(levelcount(18), 0);
  only({});
  EXPECT_EQ(step(), "");
}

TEST_F(Bug, TwoCellsOfThreeCandidatesAreNone) {
  only({{at(5, 5), "123"}, {at(5, 6), "12"}, {at(5, 7), "123"}});
  EXPECT_EQ(step(), "");
  EXPECT_EQ(twin(), "");
  only({{at(5, 5), "123"}, {at(5, 6), "12"}, {at(9, 9), "6789"}});
  EXPECT_EQ(step(), "");
}

TEST_F(Bug, OneCellOfFourCandidatesIsNone) {
  only({{at(5, 5), "1234"}, {at(5, 6), "12"}, {at(5, 7), "13"}});
  EXPECT_EQ(step(), "");
  EXPECT_EQ(twin(), "");
}

TEST_F(Bug, ThreePlacesInTheRowTheColumnOrTheBlock) {
  only({{at(5, 5), "123"}, {at(5, 1), "12"}, {at(5, 9), "14"}, {at(1, 1), "37"}});
  EXPECT_EQ(twin(), "\r\nBUG in r5c5\r\n * entered 1 in r5c5");
  put(emptyboard);
  only({{at(5, 5), "123"}, {at(1, 5), "24"}, {at(9, 5), "27"}, {at(1, 1), "37"}});
  EXPECT_EQ(twin(), "\r\nBUG in r5c5\r\n * entered 2 in r5c5");
  put(emptyboard);
  only({{at(5, 5), "123"}, {at(4, 4), "38"}, {at(6, 6), "39"}, {at(1, 1), "37"}});
  EXPECT_EQ(twin(), "\r\nBUG in r5c5\r\n * entered 3 in r5c5");
}

TEST_F(Bug, TwoOrFourPlacesDoNotQualify) {
  only({{at(5, 5), "123"},
        {at(9, 5), "15"},  // 1: two places in the column
        {at(5, 8), "24"},  // 2: three in the row
        {at(5, 9), "24"},
        {at(5, 1), "39"},  // 3: four in the row
        {at(5, 2), "39"},
        {at(5, 3), "39"}});
  EXPECT_EQ(twin(), "\r\nBUG in r5c5\r\n * entered 2 in r5c5");
}

TEST_F(Bug, OfSeveralDigitsTheLastIsPlaced) {
  only({{at(5, 5), "123"}, {at(5, 1), "12"}, {at(5, 9), "12"}});
  EXPECT_EQ(step(), "BUG in r5c5");
  EXPECT_EQ(frmmain::txthint.text, "entered 2 in r5c5");
  EXPECT_EQ(frmmain::Text5.text, "2");
  put(emptyboard);
  only({{at(5, 5), "123"}, {at(5, 1), "12"}, {at(5, 9), "12"}, {at(1, 5), "36"}, {at(2, 5), "36"}});
  EXPECT_EQ(twin(), "\r\nBUG in r5c5\r\n * entered 3 in r5c5");
}

TEST_F(Bug, CellsWithOneCandidateOrNoneDoNotHinder) {
  only({{at(5, 5), "123"}, {at(5, 1), "1"}, {at(5, 9), "1"}, {at(8, 8), "7"}});
  ASSERT_EQ(candstr(at(9, 9)), "");
  EXPECT_EQ(step(), "BUG in r5c5");
  EXPECT_EQ(frmmain::Text1(at(5, 5)).text, "1");
}

TEST_F(Bug, WithoutADigitThatQualifiesTheStepPlacesTheStaleOne) {
  only({{at(5, 5), "123"}, {at(5, 1), "12"}});
  colourdigit = 8;
  player.script = {help, go, go};
  player.event(frmmain::stepbug);
  ASSERT_EQ(player.frames.size(), 3u);
  EXPECT_EQ(player.frames[0].hint, "BUG in r5c5");
  EXPECT_EQ(player.frames[0].number, "8");
  EXPECT_EQ(player.frames[2].activity, headen +
                                           "BUG in r5c5\r\n"
                                           "if r5c5 is different from 8, the puzzle is in a BUG position\r\n"
                                           "we can, therefore, insert 8 in r5c5");
  EXPECT_EQ(frmmain::txthint.text, "entered 8 in r5c5");
  EXPECT_EQ(cellvalue(at(5, 5)), 8);
  EXPECT_EQ(colourdigit, 8);
}

// The twin's is its own and 0: the cell counts as filled with nothing.
TEST_F(Bug, WithoutADigitThatQualifiesTheTwinEntersNone) {
  only({{at(5, 5), "123"}, {at(5, 1), "12"}});
  colourdigit = 8;
  EXPECT_EQ(twin(), "\r\nBUG in r5c5\r\n * entered 0 in r5c5");
  EXPECT_EQ(cellvalue(at(5, 5)), 0);
  EXPECT_EQ(candmask(at(5, 5)), 0);
  EXPECT_EQ(filledcount, 1);
  EXPECT_TRUE(foundflag);
  EXPECT_EQ(levelcount(18), 1);
  EXPECT_EQ(colourdigit, 8);
}

// 10 is what colours leave that found nothing. No cell can hold it; overwriting the box mends the board.
TEST_F(Bug, AStaleTenIsAFaultThatLeavesABoardToGoOnWith) {
  only({{at(5, 5), "123"}, {at(5, 1), "12"}});
  colourdigit = 10;
  EXPECT_EQ(step(), "BUG in r5c5");
  EXPECT_EQ(player.boxes,
            std::vector<std::string>{"10 in r5c5 is not a digit from 1 to 9: delete one of the two. (table "
                                     "bitvalue 0 to 9, index 10, in rebuildusedmask)"});
  EXPECT_EQ(frmmain::txthint.text, "entered 10 in r5c5");
  player.event([] { writetext1(at(5, 5), "3"); });
  EXPECT_EQ(player.boxes.size(), 1u);
  EXPECT_EQ(cellvalue(at(5, 5)), 3);
  EXPECT_EQ(filledcount, 1);
  EXPECT_EQ(usedmask(at(5, 1)), bitvalue(3));
}

}  // namespace
}  // namespace gradino::tests
