// Unique rectangles: which one is found, what step, twin and explanation say, paint and delete, and in which
// order.
#include "rectangles.h"

#include <algorithm>

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

/// An empty board has all candidates; each test takes away what it needs, so that nothing simpler is left.
class Rectangles : public Program {
 protected:
  Rectangles() { put(emptyboard); }

  /// The four corners of r1, r2 and c1, c4.
  static void corners(const std::string& r1c1, const std::string& r1c4, const std::string& r2c1,
                      const std::string& r2c4) {
    leave(at(1, 1), r1c1);
    leave(at(1, 4), r1c4);
    leave(at(2, 1), r2c1);
    leave(at(2, 4), r2c4);
  }

  std::string step() { return hintof(player, frmmain::stepur); }
  static std::string twin() { return logged(frmgenerazione::gradeur); }
};

const std::string headit =
    "RETTANGOLI UNICI LEVEL 17\r\n"
    "Se troviamo 4 celle con gli stessi 2 candidati che condividono 2 righe, colonne e settori allora abbiamo una "
    "situazione senza uscita.\r\n"
    "I 2 candidati possono essere invertiti senza aver influenza con il resto dello schema, abbiamo quindi 2 "
    "soluzioni\r\n"
    "===================================================\r\n";
const std::string headen =
    "UNIQUE RECTANGLE LEVEL 17\r\n"
    "If we find four cells with the same 2 candidates that share 2 rows, columns and blocks then we have what is "
    "called a Deadly Pattern.\r\n"
    "The 2 candidates can be exchanged without having any invluence at the rest of the puzzle, so we have 2 "
    "solutions, that is illegal\r\n"
    "===================================================\r\n";

struct Case {
  const char* name;
  int corner[4];
  std::vector<std::string> open;               ///< candidates of the corners
  std::vector<std::pair<int, int>> alsopairs;  ///< cells whose houses lose the pair as a naked pair would
  std::vector<int> common;                     ///< cells outside the corners that keep the third digit
  std::vector<int> emptied;                    ///< cells that have lost it
  int type;
  std::vector<int> victims;  ///< of the third digit in type 2; of the pair in type 1
  std::string placed;        ///< the digit that the step enters in corner 4
  std::string hintit, hinten, doneit, doneen;
  std::string logit, logen;
  std::vector<std::string> lessonit, lessonen;  ///< one text for each wait, behind the head
};

bool sharehouse(int a, int b) {
  return cellrow(a) == cellrow(b) || cellcol(a) == cellcol(b) || cellblock(a) == cellblock(b);
}

// Corner 4 has two more candidates.
const Case type1 = {
    "Type1",
    {at(1, 1), at(1, 4), at(2, 1), at(2, 4)},
    {"12", "12", "12", "1245"},
    {{at(1, 1), at(1, 4)}, {at(1, 1), at(2, 1)}},
    {},
    {},
    1,
    {at(2, 4)},
    "",
    "RETTANGOLO UNICO in r1c1, r1c4, r2c1, r2c4",
    "UNIQUE RECTANGLE in r1c1, r1c4, r2c1, r2c4",
    "rimuovo12 da r2c4",
    "deleting 12 from r2c4",
    "\r\nRETTANGOLO UNICO in r1c1, r1c4, r2c1, r2c4\r\n * elimino 12 from r2c4",
    "\r\nUNIQUE RECTANGLE in r1c1, r1c4, r2c1, r2c4\r\n * deleting 12 from r2c4",
    {"RETTANGOLO UNICO 12 in r1c1, r1c4, r2c1, r2c4\r\n"
     "Se r2c4 fosse 12, lo schema avrebbe 2 soluxioni.\r\n"
     "la prima con 1 in r1c1 e r2c4\r\n"
     "la seconda 1 in r1c4 e r2c1",
     "\r\nposso quindi eliminare i candidati 12 da r2c4"},
    {"UNIQUE RECTANGLE 12 in r1c1, r1c4, r2c1, r2c4\r\n"
     "if r2c4 is 12, the puzzle would admit two solutions\r\n"
     "the first with 1 in r1c1 and r2c4\r\n"
     "the second with 1 in r1c4 and r2c1",
     "\r\nwe can, therefore, delete 12 from r2c4"},
};

// One more: it is entered. Corner 2 stands in the block of corner 1, corner 3 down the column in another.
const Case type1single = {
    "Type1Single",
    {at(5, 8), at(5, 9), at(9, 8), at(9, 9)},
    {"69", "69", "69", "679"},
    {{at(5, 8), at(5, 9)}, {at(5, 8), at(9, 8)}},
    {},
    {},
    1,
    {at(9, 9)},
    "7",
    "RETTANGOLO UNICO in r5c8, r5c9, r9c8, r9c9",
    "UNIQUE RECTANGLE in r5c8, r5c9, r9c8, r9c9",
    "inserisco 7 in r9c9",
    "inserting 7 in r9c9",
    "\r\nRETTANGOLO UNICO in r5c8, r5c9, r9c8, r9c9\r\n * elimino 69 from r9c9",
    "\r\nUNIQUE RECTANGLE in r5c8, r5c9, r9c8, r9c9\r\n * deleting 69 from r9c9",
    {"RETTANGOLO UNICO 69 in r5c8, r5c9, r9c8, r9c9\r\n"
     "Se r9c9 fosse 69, lo schema avrebbe 2 soluxioni.\r\n"
     "la prima con 6 in r5c8 e r9c9\r\n"
     "la seconda 6 in r5c9 e r9c8",
     "\r\nposso quindi eliminare i candidati 69 da r9c9", "\r\ninserisco 7 in r9c9"},
    {"UNIQUE RECTANGLE 69 in r5c8, r5c9, r9c8, r9c9\r\n"
     "if r9c9 is 69, the puzzle would admit two solutions\r\n"
     "the first with 6 in r5c8 and r9c9\r\n"
     "the second with 6 in r5c9 and r9c8",
     "\r\nwe can, therefore, delete 69 from r9c9", "\r\nand insert 7 in r9c9"},
};

// Corners 2 and 4 have the third digit: one column and one block, so r3c4 enters twice and goes once. The
// explanation speaks of corners 3 and 4 all the same.
const Case type2column = {
    "Type2Column",
    {at(1, 1), at(1, 4), at(2, 1), at(2, 4)},
    {"12", "123", "12", "123"},
    {{at(1, 1), at(2, 1)}},
    {at(3, 4), at(5, 4), at(3, 5)},
    {at(1, 5), at(1, 6), at(2, 5), at(2, 6), at(3, 6), at(4, 4), at(6, 4), at(7, 4), at(8, 4), at(9, 4)},
    2,
    {at(3, 4), at(5, 4), at(3, 5)},
    "",
    "RETTANGOLO UNICO in r1c1, r1c4, r2c1, r2c4",
    "UNIQUE RECTANGLE Type 2 in r1c1, r1c4, r2c1, r2c4",
    " * elimino 12 from r3c5",
    " * deleting 12 from r3c5",
    "\r\nRETTANGOLO UNICO in r1c1, r1c4, r2c1, r2c4\r\n"
    " * elimino 3 from r3c4\r\n * elimino 3 from r5c4\r\n * elimino 3 from r3c5",
    "\r\nUNIQUE RECTANGLE Type 2 in r1c1, r1c4, r2c1, r2c4\r\n"
    " * deleting 3 from r3c4\r\n * deleting 3 from r5c4\r\n * deleting 3 from r3c5",
    {"RETTANGOLO UNICO tipo 2, 12 in r1c1, r1c4, r2c1, r2c4",
     "\r\nper evitare un rettangolo unico o r2c1 o r2c4 deve contenere 3\r\n"
     "possiamo,perciò, eliminare 3 dalle celle rosse"},
    {"UNIQUE RECTANGLE type 2, 12 in r1c1, r1c4, r2c1, r2c4",
     "\r\nto avoid an unique rectangle, either r2c1 or r2c4 must contain 3\r\n"
     "we can, therefore, delete 3 from red cells"},
};

// Corners 3 and 4 have it: one row of two blocks.
const Case type2row = {
    "Type2Row",
    {at(4, 3), at(4, 7), at(6, 3), at(6, 7)},
    {"48", "48", "458", "458"},
    {{at(4, 3), at(4, 7)}},
    {at(6, 1), at(6, 5), at(6, 8), at(6, 9)},
    {at(6, 2), at(6, 4), at(6, 6)},
    2,
    {at(6, 1), at(6, 5), at(6, 8), at(6, 9)},
    "",
    "RETTANGOLO UNICO in r4c3, r4c7, r6c3, r6c7",
    "UNIQUE RECTANGLE Type 2 in r4c3, r4c7, r6c3, r6c7",
    " * elimino 48 from r6c9",
    " * deleting 48 from r6c9",
    "\r\nRETTANGOLO UNICO in r4c3, r4c7, r6c3, r6c7\r\n"
    " * elimino 5 from r6c1\r\n * elimino 5 from r6c5\r\n * elimino 5 from r6c8\r\n * elimino 5 from r6c9",
    "\r\nUNIQUE RECTANGLE Type 2 in r4c3, r4c7, r6c3, r6c7\r\n"
    " * deleting 5 from r6c1\r\n * deleting 5 from r6c5\r\n * deleting 5 from r6c8\r\n * deleting 5 from r6c9",
    {"RETTANGOLO UNICO tipo 2, 48 in r4c3, r4c7, r6c3, r6c7",
     "\r\nper evitare un rettangolo unico o r6c3 o r6c7 deve contenere 5\r\n"
     "possiamo,perciò, eliminare 5 dalle celle rosse"},
    {"UNIQUE RECTANGLE type 2, 48 in r4c3, r4c7, r6c3, r6c7",
     "\r\nto avoid an unique rectangle, either r6c3 or r6c7 must contain 5\r\n"
     "we can, therefore, delete 5 from red cells"},
};

class EachRectangle : public Rectangles, public testing::WithParamInterface<std::tuple<const Case*, int>> {
 protected:
  EachRectangle() {
    speak(std::get<int>(GetParam()));
    setup();
    before = theboard();
    act();
    twinafter = theboard();
    if (!one().placed.empty()) writetext1(one().corner[3], one().placed);
    after = theboard();
    startover();
  }
  void startover() {
    put(emptyboard);
    player.frames.clear();
    setup();
  }
  void setup() {
    const std::string& pair = one().open[0];
    for (const auto& [a, b] : one().alsopairs)
      for (int cell = 0; cell < cellcount; ++cell)
        if (cell != a && cell != b && std::find(one().corner, one().corner + 4, cell) == one().corner + 4 &&
            ((cellrow(a) == cellrow(b) && cellrow(cell) == cellrow(a)) ||
             (cellcol(a) == cellcol(b) && cellcol(cell) == cellcol(a)) ||
             (cellblock(a) == cellblock(b) && cellblock(cell) == cellblock(a))))
          take(pair, {cell});
    take(third(), one().emptied);
    for (std::size_t k = 0; k < 4; ++k) leave(one().corner[k], one().open[k]);
    ASSERT_EQ(theboard().candstr[static_cast<std::size_t>(one().corner[0])], pair);
  }
  void act() {
    for (int cell : one().victims) eliminate(cell, one().type == 1 ? one().open[0] : third());
  }
  /// The third digit of type 2.
  static std::string third() {
    for (char digit : one().open[3])
      if (one().open[0].find(digit) == std::string::npos) return std::string(1, digit);
    return "";
  }
  static const Case& one() { return *std::get<const Case*>(GetParam()); }
  template <class T>
  static const T& in(const T& it, const T& en) {
    return std::get<int>(GetParam()) == italian ? it : en;
  }

  Frame shownframe() const {
    Frame frame = {.tag = "ur",
                   .hint = in(one().hintit, one().hinten),
                   .number = "",
                   .activity = {},
                   .Text1 = {},
                   .Text2 = {},
                   .candidate = {}};
    for (int cell : one().corner) frame.Text2[cell] = "yellow";
    if (one().type == 2)
      for (int cell : one().victims) frame.Text2[cell] = "red";
    return frame;
  }
  /// At the k-th wait of the explanation, from 0.
  Frame arguedframe(std::size_t k) const {
    Frame frame = shownframe();
    frame.Text2[one().corner[0]] = frame.Text2[one().corner[3]] = "green";
    std::string text = in(headit, headen);
    for (std::size_t i = 0; i <= k; ++i) text += in(one().lessonit, one().lessonen)[i];
    frame.activity = text;
    return frame;
  }
  static std::size_t waits() { return one().lessonen.size(); }
  static int details() { return static_cast<int>(one().victims.size()); }

  Board before, twinafter, after;
};

TEST_P(EachRectangle, IsTheNextStepShowsItsCornersAndOnGoDeletes) {
  player.script = {[&] {
    EXPECT_EQ(theboard(), before);
    go();
  }};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 1u);
  EXPECT_EQ(player.frames[0], shownframe());
  EXPECT_EQ(theboard(), after);
  EXPECT_EQ(frmmain::txthint.text, in(one().doneit, one().doneen));
  const int last = one().victims.back();
  if (one().placed.empty()) {
    EXPECT_EQ(visiblemarks(last), candstr(last));
  } else {
    EXPECT_TRUE(frmmain::Text1(last).visible);
  }
  EXPECT_TRUE(foundflag);
  expectnopaint();
}

TEST_P(EachRectangle, AStopHindersType1AndNotType2) {
  player.script = {stop};
  player.event(frmmain::stepur);
  ASSERT_EQ(player.frames.size(), 1u);
  EXPECT_TRUE(foundflag);
  expectnopaint();
  if (one().type == 1) {
    EXPECT_EQ(theboard(), before);
    EXPECT_EQ(frmmain::txthint.text, in(one().hintit, one().hinten));
  } else {
    EXPECT_EQ(theboard(), after);
    EXPECT_EQ(frmmain::txthint.text, in(one().doneit, one().doneen));
  }
}

TEST_P(EachRectangle, OnlyAType2StepCountsInTheGradeAndLeavesItsDigit) {
  player.script = {go};
  player.event(frmmain::stepur);
  EXPECT_EQ(runninglevel, one().type == 2 ? 17 : 0);
  EXPECT_EQ(levelcount(17), one().type == 2 ? 1 : 0);
  EXPECT_EQ(colourdigit, one().type == 2 ? std::stoi(third()) : 0);
  EXPECT_EQ(logcount, 0);
  runninglevel = 21;
  startover();
  player.script = {go};
  player.event(frmmain::stepur);
  EXPECT_EQ(runninglevel, 21);
}

TEST_P(EachRectangle, TwinLogsCountsAndDeletesWithoutABox) {
  frmmain::txthint.text = "as it was";
  steptag = "as it was";
  colourdigit = 7;
  frmgenerazione::gradeur();
  EXPECT_EQ(Frmlog::Text3.text, in(one().logit, one().logen));
  EXPECT_EQ(logcount, 1 + details());
  EXPECT_EQ(logvalues(1), std::string(81, '0'));
  std::string commas;
  for (int mask : before.candmask) commas += std::to_string(mask) + ",";
  EXPECT_EQ(logcands(1), commas);
  EXPECT_EQ(logcands(2), "");
  EXPECT_EQ(runninglevel, 17);
  EXPECT_EQ(levelcount(17), 1);
  EXPECT_TRUE(foundflag);
  EXPECT_EQ(theboard(), twinafter);
  EXPECT_EQ(frmmain::txthint.text, "as it was");
  EXPECT_EQ(steptag, "as it was");
  EXPECT_EQ(colourdigit, 7);
  EXPECT_TRUE(player.boxes.empty());
  expectnopaint();
}

TEST_P(EachRectangle, TwinInALongJobCountsTheDetailsAlone) {
  const Job job("genera");
  runninglevel = 18;
  frmgenerazione::gradeur();
  EXPECT_EQ(Frmlog::Text3.text, in(one().logit, one().logen));
  EXPECT_EQ(logcount, details());
  EXPECT_EQ(logcands(0), "");
  EXPECT_EQ(logcands(1), "");
  EXPECT_EQ(runninglevel, 18);
  EXPECT_EQ(levelcount(17), 1);
}

TEST_P(EachRectangle, ExplanationArguesInWaitsOfItsOwnAndItsGoCarriesTheStepOut) {
  player.script = {help};
  for (std::size_t k = 0; k < waits(); ++k) player.script.push_back(go);
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 1 + waits());
  for (std::size_t k = 0; k < waits(); ++k) EXPECT_EQ(player.frames[1 + k], arguedframe(k)) << k;
  EXPECT_FALSE(frmactivity::visible);
  EXPECT_EQ(theboard(), after);
  EXPECT_EQ(frmmain::txthint.text, in(one().doneit, one().doneen));
  EXPECT_TRUE(foundflag);
  expectnopaint();
}

TEST_P(EachRectangle, ExplanationItselfTakesThePairAwayAndEndsInWhite) {
  Board shown = before;
  player.script = {[&] {
    help();
    shown = theboard();
    EXPECT_FALSE(frmactivity::visible);
    EXPECT_TRUE(foundflag);
    expectnopaint();
  }};
  for (std::size_t k = 0; k < waits(); ++k)
    player.script.push_back([&, k] {
      if (k < 2) {
        EXPECT_EQ(theboard(), before);
      }
      go();
    });
  player.event(frmmain::stepur);
  EXPECT_EQ(shown.candmask, (one().type == 1 ? twinafter : before).candmask);
  EXPECT_EQ(shown.candstr, (one().type == 1 ? twinafter : before).candstr);
  EXPECT_EQ(shown.text1, before.text1);
  EXPECT_EQ(theboard(), after);
}

TEST_P(EachRectangle, AStopInTheExplanationLeavesTheWindowOpen) {
  for (std::size_t stopat = 0; stopat < waits(); ++stopat) {
    startover();
    player.script = {help};
    for (std::size_t k = 0; k < stopat; ++k) player.script.push_back(go);
    player.script.push_back(stop);
    player.event(frmmain::stepur);
    ASSERT_EQ(player.frames.size(), 2 + stopat);
    EXPECT_TRUE(frmactivity::visible);
    EXPECT_EQ(frmactivity::Text3.text, *arguedframe(stopat).activity);
    EXPECT_TRUE(foundflag);
    // Type 2 goes on in spite of it. In type 1 the third wait stands behind the deletion.
    const Board& expected = one().type == 2 ? after : stopat < 2 ? before : twinafter;
    EXPECT_EQ(theboard().candmask, expected.candmask) << stopat;
    EXPECT_EQ(theboard().text1, expected.text1);
    expectnopaint();
  }
}

// The help picture can be clicked again while the explanation waits. The inner explanation takes the pair
// away, the outer one exchanges it back, and the step takes it away again: it ends as if asked once.
TEST_P(EachRectangle, AnExplanationInsideAnExplanationEndsTheSame) {
  player.script = {help, help};
  for (std::size_t k = 0; k < waits() + 1; ++k) player.script.push_back(go);
  player.event(frmmain::stepur);
  EXPECT_TRUE(player.script.empty());
  EXPECT_EQ(theboard(), after);
  EXPECT_EQ(frmmain::txthint.text, in(one().doneit, one().doneen));
}

INSTANTIATE_TEST_SUITE_P(Kinds, EachRectangle,
                         testing::Combine(testing::Values(&type1, &type1single, &type2column, &type2row),
                                          testing::Values(english, italian)),
                         [](auto& p) {
                           return std::string(std::get<0>(p.param)->name) +
                                  (std::get<1>(p.param) == english ? "English" : "Italian");
                         });

// ---- what is found ----------------------------------------------------------------------------------------

TEST_F(Rectangles, ThereIsNoneOnAnEmptyBoard) {
  foundflag = true;
  EXPECT_EQ(step(), "");
  EXPECT_FALSE(foundflag);
  EXPECT_EQ(steptag, "ur");
  foundflag = true;
  EXPECT_EQ(twin(), "");
  EXPECT_FALSE(foundflag);
  EXPECT_EQ(logcount, 0);
  EXPECT_EQ(levelcount(17), 0);
}

TEST_F(Rectangles, OnlyTheFirstFitOnALineIsTried) {
  // r1c1 r1c7 r2c1 r2c7 would be one, but r1c4 and r2c5 come first and have no fourth corner.
  leave(at(1, 1), "12");
  leave(at(2, 1), "12");
  leave(at(1, 7), "123");
  leave(at(2, 7), "123");
  leave(at(1, 4), "124");
  leave(at(2, 5), "124");
  take("1", {at(2, 4)});
  take("2", {at(1, 5)});
  take("3", {at(3, 7), at(3, 8), at(3, 9), at(1, 8), at(1, 9)});
  const Board before = theboard();
  EXPECT_EQ(step(), "");
  EXPECT_EQ(twin(), "");
  EXPECT_EQ(theboard(), before);
  take("1", {at(1, 4)});  // now it does not fit
  EXPECT_EQ(step(), "UNIQUE RECTANGLE Type 2 in r1c1, r1c7, r2c1, r2c7");
}

TEST_F(Rectangles, AFitHasBothDigitsAndAtMostThreeCandidates) {
  corners("12", "12", "12", "1234");
  leave(at(1, 4), "13");
  EXPECT_EQ(step(), "");
  put(emptyboard);
  corners("12", "12", "12", "1234");
  take("2", {at(2, 4)});
  EXPECT_EQ(step(), "");
  // Four candidates in r1c4: it is passed over for r1c7.
  put(emptyboard);
  corners("12", "1234", "12", "1234");
  EXPECT_EQ(step(), "");
  leave(at(1, 7), "12");
  leave(at(2, 7), "1234");
  EXPECT_EQ(step(), "UNIQUE RECTANGLE in r1c1, r1c7, r2c1, r2c7");
}

TEST_F(Rectangles, TwoCornersStandInTheBlockOfTheFirst) {
  // Four blocks: no rectangle.
  for (int cell : {at(1, 1), at(1, 4), at(4, 1)}) leave(cell, "12");
  leave(at(4, 4), "123");
  EXPECT_EQ(step(), "");
  // One block: no rectangle.
  put(emptyboard);
  for (int cell : {at(1, 1), at(1, 2), at(2, 1)}) leave(cell, "12");
  leave(at(2, 2), "123");
  EXPECT_EQ(step(), "");
}

TEST_F(Rectangles, TheSearchStartsFromTheFirstBivalueCorner) {
  corners("123", "12", "12", "12");
  EXPECT_EQ(step(), "UNIQUE RECTANGLE in r2c4, r2c1, r1c4, r1c1");
  EXPECT_EQ(frmmain::txthint.text, "inserting 3 in r1c1");
}

TEST_F(Rectangles, FourEqualCornersLeaveTheLastWithoutCandidates) {
  corners("12", "12", "12", "12");
  EXPECT_EQ(step(), "UNIQUE RECTANGLE in r1c1, r1c4, r2c1, r2c4");
  EXPECT_EQ(frmmain::txthint.text, "deleting 12 from r2c4");
  EXPECT_EQ(candmask(at(2, 4)), 0);
  EXPECT_EQ(candstr(at(2, 4)), "");
  EXPECT_EQ(visiblemarks(at(2, 4)), "");
  EXPECT_EQ(cellvalue(at(2, 4)), 0);
  EXPECT_EQ(candstr(at(2, 1)), "12");
}

TEST_F(Rectangles, Type1LetsCornerFourHaveAnyNumberOfCandidates) {
  corners("12", "12", "12", "123456789");
  EXPECT_EQ(twin(), "\r\nUNIQUE RECTANGLE in r1c1, r1c4, r2c1, r2c4\r\n * deleting 12 from r2c4");
  EXPECT_EQ(candstr(at(2, 4)), "3456789");
}

TEST_F(Rectangles, Type2NeedsThreeCandidatesInCornerFour) {
  corners("12", "123", "12", "1234");
  EXPECT_EQ(step(), "");
  put(emptyboard);
  corners("12", "12", "123", "1234");
  EXPECT_EQ(step(), "");
}

TEST_F(Rectangles, OtherThirdDigitsFailAndTheScanGoesOn) {
  corners("12", "123", "12", "124");
  EXPECT_EQ(step(), "");
  EXPECT_FALSE(foundflag);
  EXPECT_EQ(twin(), "");
  put(emptyboard);
  corners("12", "12", "123", "124");
  EXPECT_EQ(step(), "");
  EXPECT_EQ(twin(), "");
  for (int cell : {at(7, 1), at(7, 9), at(8, 1)}) leave(cell, "56");
  leave(at(8, 9), "567");
  EXPECT_EQ(step(), "UNIQUE RECTANGLE in r7c1, r7c9, r8c1, r8c9");
}

TEST_F(Rectangles, Type2WithNothingToDeleteIsPassedOver) {
  corners("12", "12", "123", "123");
  take("3", {at(2, 2), at(2, 3), at(2, 5), at(2, 6), at(2, 7), at(2, 8), at(2, 9)});
  EXPECT_EQ(step(), "");
  EXPECT_EQ(twin(), "");
  EXPECT_FALSE(foundflag);
  put(emptyboard);
  corners("12", "123", "12", "123");
  for (int cell = 0; cell < cellcount; ++cell)
    if (sharehouse(cell, at(1, 4)) && sharehouse(cell, at(2, 4)) && cell != at(1, 4) && cell != at(2, 4))
      take("3", {cell});
  EXPECT_EQ(step(), "");
}

TEST_F(Rectangles, TheDiagonalPatternGivesNothing) {
  corners("12", "123", "123", "12");
  EXPECT_EQ(step(), "");
  EXPECT_EQ(twin(), "");
  EXPECT_TRUE(player.boxes.empty());
}

// Opposite corners share no house. Were it otherwise, the step would do nothing and the twin say so.
TEST_F(Rectangles, TheDiagonalPatternWithCellsToDeleteOnlyTellsTheGrader) {
  corners("12", "123", "123", "12");
  for (int cell : {at(8, 1), at(8, 9), at(9, 1)}) leave(cell, "56");  // a rectangle that is not reached
  leave(at(9, 9), "567");
  cellblock(at(2, 1)) = 2;  // the tables bent so that corners 2 and 3 share block 2
  const Board before = theboard();
  EXPECT_EQ(step(), "");
  EXPECT_FALSE(foundflag);
  EXPECT_TRUE(player.boxes.empty());
  EXPECT_EQ(twin(), "");
  EXPECT_EQ(player.boxes, std::vector<std::string>{"emter code"});
  EXPECT_FALSE(foundflag);
  EXPECT_EQ(levelcount(17), 0);
  EXPECT_EQ(theboard(), before);
}

// Where corners 3 and 4 have the third digit, a column that they shared would be walked by their block's
// number. They share a row, so only bent tables show it.
TEST_F(Rectangles, TheColumnOfCornersThreeAndFourIsTheWrongOne) {
  corners("12", "12", "123", "123");
  take("3", {at(2, 2), at(2, 3), at(2, 5), at(2, 6), at(2, 7), at(2, 8), at(2, 9)});
  take("3", {at(1, 2), at(7, 2), at(8, 2), at(9, 2)});
  cellcol(at(2, 4)) = 1;
  twin();
  EXPECT_TRUE(foundflag);
  for (int row : {3, 4, 5, 6}) EXPECT_FALSE(hascandidate(at(row, 2), 3)) << row;
  for (int row : {3, 4, 5, 6}) EXPECT_TRUE(hascandidate(at(row, 1), 3)) << row;
  for (int row : {3, 4, 5, 6}) EXPECT_TRUE(hascandidate(at(row, 4), 3)) << row;
}

TEST_F(Rectangles, ElevenCellsFitAndTheTwelfthIsAFault) {
  // Column 4 has seven more places of the 3, block 2 has seven: r3c4 counts twice.
  const auto setup = [&](const std::vector<int>& without3) {
    put(emptyboard);
    corners("12", "123", "12", "123");
    take("3", without3);
  };
  setup({at(8, 4), at(9, 4)});
  Board before = theboard();
  player.event(frmgenerazione::gradeur);
  EXPECT_EQ(
      player.boxes,
      std::vector<std::string>{
          "The unique rectangle finds more than 11 deletions here, more than can be noted. The command was "
          "ended and the board stays as it was: another technique may go on. (table commoncell 0 to 10, "
          "index 11, in collect)"});
  EXPECT_FALSE(foundflag);
  EXPECT_EQ(Frmlog::Text3.text, "");
  EXPECT_EQ(theboard(), before);
  player.event(frmmain::stepur);
  EXPECT_EQ(player.boxes.size(), 2u);
  EXPECT_TRUE(player.frames.empty());
  EXPECT_EQ(theboard(), before);
  expectnopaint();

  setup({at(7, 4), at(8, 4), at(9, 4)});
  EXPECT_EQ(step(), "UNIQUE RECTANGLE Type 2 in r1c1, r1c4, r2c1, r2c4");
  EXPECT_EQ(player.boxes.size(), 2u);
  for (int cell :
       {at(3, 4), at(4, 4), at(5, 4), at(6, 4), at(1, 5), at(1, 6), at(2, 5), at(2, 6), at(3, 5), at(3, 6)})
    EXPECT_FALSE(hascandidate(cell, 3)) << cell;
}

TEST_F(Rectangles, TheTwinDoesNotPlaceTheLastCandidate) {
  corners("12", "12", "12", "123");
  twin();
  EXPECT_EQ(candstr(at(2, 4)), "3");
  EXPECT_EQ(cellvalue(at(2, 4)), 0);
  EXPECT_EQ(filledcount, 0);
}

TEST_F(Rectangles, TheExplanationPaintsTheRedCellsItself) {
  corners("12", "12", "123", "123");
  take("3", {at(2, 2), at(2, 3), at(2, 5), at(2, 6)});
  player.script = {help,
                   [] {
                     clearcolours();
                     go();
                   },
                   go};
  player.event(frmmain::stepur);
  ASSERT_EQ(player.frames.size(), 3u);
  EXPECT_EQ(player.frames[2].Text2, (Paint{{at(2, 7), "red"}, {at(2, 8), "red"}, {at(2, 9), "red"}}));
}

TEST_F(Rectangles, GradingDuringAWaitDoesNotChangeWhatTheExplanationArgues) {
  corners("12", "12", "12", "1234");
  const std::string text = headen +
                           "UNIQUE RECTANGLE 12 in r1c1, r1c4, r2c1, r2c4\r\n"
                           "if r2c4 is 12, the puzzle would admit two solutions\r\n"
                           "the first with 1 in r1c1 and r2c4\r\n"
                           "the second with 1 in r1c4 and r2c1";
  player.script = {[&] {
                     const Table<std::int32_t, 0, 107> kept = candmask;
                     for (int cell : {at(7, 1), at(7, 9), at(8, 1)}) leave(cell, "56");
                     leave(at(8, 9), "567");
                     take("1", {at(2, 4)});
                     frmgenerazione::gradeur();
                     EXPECT_TRUE(foundflag);
                     candmask = kept;
                     rebuildcandstr();
                     rebuildpositions();
                     help();
                   },
                   stop};
  player.event(frmmain::stepur);
  ASSERT_EQ(player.frames.size(), 2u);
  EXPECT_EQ(player.frames[1].activity, text);
}

TEST_F(Rectangles, HelpAfterACommandThatFoundNothingShowsNothing) {
  player.event(frmmain::stepur);
  player.event(explainur);
  EXPECT_FALSE(frmactivity::visible);
  expectnopaint();
}

}  // namespace
}  // namespace gradino::tests
