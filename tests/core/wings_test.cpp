// XY-Wing and XYZ-Wing, on boards that are empty but for the marks of a few cells.
#include "wings.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "boxes.h"
#include "gradestate.h"
#include "grid.h"
#include "log.h"
#include "player.h"
#include "step.h"
#include "stepsolver.h"
#include "tables.h"

namespace gradino::tests {
namespace {

using Marks = std::vector<std::pair<int, std::string>>;

int maskof(const std::string& digits) {
  int mask = 0;
  for (char digit : digits) mask |= 1 << (digit - '0');
  return mask;
}

class Wings : public Bilingual {
 protected:
  /// An empty board with all candidates, but for these cells.
  void putmarks(const Marks& marks) {
    put(emptyboard);
    narrow(marks);
  }

  static void narrow(const Marks& marks) {
    for (const auto& [cell, digits] : marks) candmask(cell) = maskof(digits);
    rebuildcandstr();
    updatetext2();
    rebuildpositions();
  }

  /// The masks as they stand, less a digit in some cells.
  static std::vector<int> maskswithout(int digit, const std::vector<int>& from) {
    std::vector<int> all = masks();
    for (int cell : from) all.at(static_cast<std::size_t>(cell)) &= ~(1 << digit);
    return all;
  }

  /// Lets the step solver make its step with the explanation, answered go, and compares what was to be seen.
  void expectstep(const std::string& tag, const Frame& step, const Frame& lesson, const std::string& hint,
                  const std::vector<int>& after) {
    player.script = {help, go};
    player.event(mnuposition_Click);
    ASSERT_EQ(player.frames.size(), 2u);
    EXPECT_EQ(player.frames.at(0), step);
    EXPECT_EQ(player.frames.at(1), lesson);
    Frame done;
    done.tag = tag;
    done.hint = hint;
    EXPECT_EQ(look(), done);
    EXPECT_EQ(masks(), after);
    EXPECT_TRUE(foundflag);
    for (int cell = 0; cell < cellcount; ++cell)
      EXPECT_EQ(maskof(visiblemarks(cell)), after.at(cell)) << cell;
  }

  /// Lets a twin act and compares the log.
  static void expectlog(void (*twin)(), const std::string& log, const std::vector<int>& after, int level) {
    foundflag = false;
    twin();
    EXPECT_EQ(Frmlog::Text3.text, log);
    EXPECT_EQ(masks(), after);
    EXPECT_TRUE(foundflag);
    EXPECT_EQ(runninglevel, level);
    EXPECT_EQ(levelcount(level), 1);
    EXPECT_EQ(logcount, 2);
    const Board left = theboard();
    rebuildcandstr();
    rebuildpositions();
    EXPECT_EQ(left, theboard());
  }

  static Frame frame(const char* tag, const std::string& hint, const Paint& boxes, const Paint& marks) {
    Frame f;
    f.tag = tag;
    f.hint = hint;
    f.Text2 = boxes;
    f.candidate = marks;
    return f;
  }
  static Frame frame(const char* tag, const std::string& hint, const Paint& boxes, const Paint& marks,
                     const std::string& activity) {
    Frame f = frame(tag, hint, boxes, marks);
    f.activity = activity;
    return f;
  }

  /// What a twin says first of the board as it stands; "" if it finds nothing.
  static std::string said(void (*twin)()) {
    foundflag = true;
    Frmlog::Text3.text.clear();
    const std::vector<int> before = masks();
    twin();
    if (!foundflag) {
      EXPECT_EQ(masks(), before);
    }
    const std::string& text = Frmlog::Text3.text;
    EXPECT_EQ(foundflag, !text.empty());
    return text.empty() ? "" : text.substr(2, text.find("\r\n", 2) - 2);
  }
};
IN_BOTH_LANGUAGES(Wings);

const std::string xyruleit =
    "TECNICA XY-WING  LIVELLO 8\r\n"
    "XY-Wings sono formati da 3 celle bivalori (con 2 candidati) .\r\n"
    "Per trovare un XY-Wing, cercate una cella con 2 candidati; questa è la cella XY, e le sue 2 possibilità sono "
    "X e Y.\r\n"
    "Ora cercate nelle altre celle della riga, colonna e settore della cella XY altre celle con 2 candidati, una "
    "con XZ e l'altra con YZ, dove Z è differente da X e Y. \r\n"
    "Se trovate un XY-Wing, allora tutte le celle che condividono un gruppo con entrambe le celle XZ e YZ non "
    "possono contenere Z.\r\n"
    "===================================================\r\n";
const std::string xyruleen =
    "TECHNIQUE XY-WING  LEVEL 8\r\n"
    "XY-Wings are formed by sets of 3 bivalue (two candidates) cells.\r\n"
    "To find an XY-Wing, look for a cell with two possibilities; this is the XY cell, and its two possibilities "
    "are X and Y.\r\n"
    "Now look in the other cells in the XY cell row, column and block; for two other 2-possibility cells, one "
    "with possibilities XZ and the other with possibilities YZ, where Z is not X or Y. \r\n"
    "If you find an XY-Wing, then all the cells that share a house with both XZ and YZ cannot contain Z.\r\n"
    "===================================================\r\n";
const std::string xyzruleit =
    "TECNICA XYZ-WING  LIVELLO 9\r\n"
    "XYZ-Wings è una estensione della XY-Wing.\r\n"
    "Per trovare un XYZ-Wing, cercate una cella con 3 candidati; questa è la cella XYZ.\r\n"
    "Ora cercate nelle altre celle della riga, colonna e settore della cella XYZ altre celle con 2 candidati, una "
    "con XZ e l'altra con YZ. \r\n"
    "Se trovate un XYZ-Wing, allora le celle che condividono un gruppo con tutte e tre le celle XYZ,XZ e YZ non "
    "possono contenere Z.\r\n"
    "===================================================\r\n";
const std::string xyzruleen =
    "TECHNIQUE XYZ-WING  LEVEL 9\r\n"
    "XYZ-Wing is an extension of XY-Wing.\r\n"
    "To find an XYZ-Wing, look for a cell with 3 candidates; this is the XYZ cell.\r\n"
    "Now look in the other cells in the XYZ cell row, column and block; for two other 2-possibility cells, one "
    "with possibilities XZ and the other with possibilities YZ. \r\n"
    "If you find an XYZ-Wing, then cells that share a house with all three of the cells cannot contain Z.\r\n"
    "===================================================\r\n";

// ---- each kind, step, explanation and log -----------------------------------------------------------------

// The pivot 12 in r2c2, 13 in its block, 23 in its row.
const Marks xybr = {{at(2, 2), "12"}, {at(1, 3), "13"}, {at(2, 7), "23"}};
const std::vector<int> xybrvictims = {at(2, 1), at(2, 3), at(1, 7), at(1, 8), at(1, 9)};

TEST_P(Wings, XYWingInBlockAndRow) {
  putmarks(xybr);
  const std::string hint =
      in("XY-WING, numero 3 in r2c2, r1c3, r2c7", "XY-WING, number 3 in r2c2, r1c3, r2c7");
  const Paint red = {{93, "red"}, {113, "red"}, {63, "red"}, {73, "red"}, {83, "red"}};
  expectstep("findxywing", frame("findxywing", hint, {{2, "yellow"}, {15, "yellow"}, {10, "yellow"}}, red),
             frame("findxywing", hint, {{2, "yellow"}, {15, "yellow"}, {10, "cyan"}}, red,
                   in(xyruleit + "XY-WING, 3 in r2c2, r1c3, r2c7\r\n"
                                 "se (XY-azzurra) r2c2 = 1 allora Z=3 in (gialla) r1c3\r\n"
                                 "se (XY-azzurra) r2c2 = 2 allora Z=3 in (gialla) r2c7\r\n"
                                 "posso quindi eliminare il candidato 3 da tutte le celle rosse",
                      xyruleen + "XY-WING, 3 in r2c2, r1c3, r2c7\r\n"
                                 "if (XY-blue) r2c2 = 1 then Z=3 in (yellow) r1c3\r\n"
                                 "if (XY-blue) r2c2 = 2 then Z=3 in (yellow) r2c7\r\n"
                                 "we can delete 3 from all red cells")),
             in("eliminato 3 from   r2c1 ,   r2c3 ,   r1c7 ,   r1c8 ,   r1c9 , ",
                "deleted 3 from   r2c1 ,   r2c3 ,   r1c7 ,   r1c8 ,   r1c9 , "),
             maskswithout(3, xybrvictims));
}

TEST_P(Wings, XYWingInBlockAndRowIsLogged) {
  putmarks(xybr);
  expectlog(frmgenerazione::findxywing,
            in("\r\nXY-WING, numero 3 in r2c2, r1c3, r2c7"
               "\r\n * eliminato 3 from   r2c1 ,   r2c3 ,   r1c7 ,   r1c8 ,   r1c9 , ",
               "\r\nXY-WING, number 3 in r2c2, r1c3, r2c7"
               "\r\n * deleted 3 from   r2c1 ,   r2c3 ,   r1c7 ,   r1c8 ,   r1c9 , "),
            maskswithout(3, xybrvictims), 8);
}

// The pivot 47 in r5c5, 79 in its block, 49 in its column: wing 1 has the pivot's second digit.
const Marks xybc = {{at(5, 5), "47"}, {at(4, 6), "79"}, {at(8, 5), "49"}};
const std::vector<int> xybcvictims = {at(4, 5), at(6, 5), at(7, 6), at(8, 6), at(9, 6)};

TEST_P(Wings, XYWingInBlockAndColumn) {
  putmarks(xybc);
  const std::string hint =
      in("XY-WING, numero 9 in r5c5, r4c6, r8c5", "XY-WING, number 9 in r5c5, r4c6, r8c5");
  const Paint red = {{319, "red"}, {499, "red"}, {599, "red"}, {689, "red"}, {779, "red"}};
  expectstep("findxywing", frame("findxywing", hint, {{32, "yellow"}, {67, "yellow"}, {40, "yellow"}}, red),
             frame("findxywing", hint, {{32, "yellow"}, {67, "yellow"}, {40, "cyan"}}, red,
                   in(xyruleit + "XY-WING, 9 in r5c5, r4c6, r8c5\r\n"
                                 "se (XY-azzurra) r5c5 = 4 allora Z=9 in (gialla) r8c5\r\n"
                                 "se (XY-azzurra) r5c5 = 7 allora Z=9 in (gialla) r4c6\r\n"
                                 "posso quindi eliminare il candidato 9 da tutte le celle rosse",
                      xyruleen + "XY-WING, 9 in r5c5, r4c6, r8c5\r\n"
                                 "if (XY-blue) r5c5 = 4 then Z=9 in (yellow) r8c5\r\n"
                                 "if (XY-blue) r5c5 = 7 then Z=9 in (yellow) r4c6\r\n"
                                 "we can delete 9 from all red cells")),
             in("eliminato 9 from   r4c5 ,   r6c5 ,   r7c6 ,   r8c6 ,   r9c6 , ",
                "deleted 9 from   r4c5 ,   r6c5 ,   r7c6 ,   r8c6 ,   r9c6 , "),
             maskswithout(9, xybcvictims));
}

TEST_P(Wings, XYWingInBlockAndColumnIsLogged) {
  putmarks(xybc);
  expectlog(frmgenerazione::findxywing,
            in("\r\nXY-WING, numero 9 in r5c5, r4c6, r8c5"
               "\r\n * eliminato 9 from   r4c5 ,   r6c5 ,   r7c6 ,   r8c6 ,   r9c6 , ",
               "\r\nXY-WING, number 9 in r5c5, r4c6, r8c5"
               "\r\n * deleted 9 from   r4c5 ,   r6c5 ,   r7c6 ,   r8c6 ,   r9c6 , "),
            maskswithout(9, xybcvictims), 8);
}

// The pivot 58 in r3c1, 68 in its row, 56 in its column.
const Marks xyrc = {{at(3, 1), "58"}, {at(3, 9), "68"}, {at(9, 1), "56"}};

TEST_P(Wings, XYWingInRowAndColumn) {
  putmarks(xyrc);
  const std::string hint =
      in("XY-WING, numero 6 in r3c1, r3c9, r9c1", "XY-WING, number 6 in r3c1, r3c9, r9c1");
  expectstep("findxywing",
             frame("findxywing", hint, {{18, "yellow"}, {26, "yellow"}, {72, "yellow"}}, {{806, "red"}}),
             frame("findxywing", hint, {{18, "cyan"}, {26, "yellow"}, {72, "yellow"}}, {{806, "red"}},
                   in(xyruleit + "XY-WING, 6 in r3c1, r3c9, r9c1\r\n"
                                 "se (XY-azzurra) r3c1 = 5 allora Z=6 in (gialla) r9c1\r\n"
                                 "se (XY-azzurra) r3c1 = 8 allora Z=6 in (gialla) r3c9\r\n"
                                 "posso quindi eliminare il candidato 6 da tutte le celle rosse",
                      xyruleen + "XY-WING, 6 in r3c1, r3c9, r9c1\r\n"
                                 "if (XY-blue) r3c1 = 5 then Z=6 in (yellow) r9c1\r\n"
                                 "if (XY-blue) r3c1 = 8 then Z=6 in (yellow) r3c9\r\n"
                                 "we can delete 6 from all red cells")),
             in("eliminato 6 from   r9c9 , ", "deleted 6 from   r9c9 , "), maskswithout(6, {at(9, 9)}));
}

TEST_P(Wings, XYWingInRowAndColumnIsLogged) {
  putmarks(xyrc);
  expectlog(frmgenerazione::findxywing,
            in("\r\nXY-WING, numero 6 in r3c1, r3c9, r9c1\r\n * eliminato 6 from   r9c9 , ",
               "\r\nXY-WING, number 6 in r3c1, r3c9, r9c1\r\n * deleted 6 from   r9c9 , "),
            maskswithout(6, {at(9, 9)}), 8);
}

// Z is the last digit of the pivot 123: the other two are told as 2, 1.
const Marks xyzbr = {{at(2, 2), "123"}, {at(1, 3), "13"}, {at(2, 7), "23"}};

TEST_P(Wings, XYZWingInBlockAndRow) {
  putmarks(xyzbr);
  const std::string hint =
      in("XYZ-WING, numero 3 in r2c2, r1c3, r2c7", "XYZ-WING, number 3 in r2c2, r1c3, r2c7");
  const Paint yellows = {{2, "yellow"}, {15, "yellow"}, {10, "yellow"}}, red = {{93, "red"}, {113, "red"}};
  expectstep("findxyzwing", frame("findxyzwing", hint, yellows, red),
             frame("findxyzwing", hint, yellows, red,
                   in(xyzruleit + "XYZ-WING, 3 in r2c2, r1c3, r2c7\r\n"
                                  "se r2c2 = 2 allora Z=3 in r2c7\r\n"
                                  "se r2c2 = 1 allora Z=3 in r1c3\r\n"
                                  "la terza possibilità è che Z=3 sia in r2c2\r\n"
                                  "posso quindi eliminare il candidato 3 da tutte le celle rosse",
                      xyzruleen + "XYZ-WING, 3 in r2c2, r1c3, r2c7\r\n"
                                  "if r2c2 = 2 then Z=3 in r2c7\r\n"
                                  "if r2c2 = 1 then Z=3 in r1c3\r\n"
                                  "the third possibility is that Z=3 is in r2c2\r\n"
                                  "we can delete 3 from all red cells")),
             in("eliminato 3 from   r2c1 ,   r2c3 , ", "deleted 3 from   r2c1 ,   r2c3 , "),
             maskswithout(3, {at(2, 1), at(2, 3)}));
}

TEST_P(Wings, XYZWingInBlockAndRowIsLogged) {
  putmarks(xyzbr);
  expectlog(frmgenerazione::findxyzwing,
            in("\r\nXYZ-WING, numero 3 in r2c2, r1c3, r2c7\r\n * eliminato 3 from   r2c1 ,   r2c3 , ",
               "\r\nXYZ-WING, number 3 in r2c2, r1c3, r2c7\r\n * deleted 3 from   r2c1 ,   r2c3 , "),
            maskswithout(3, {at(2, 1), at(2, 3)}), 9);
}

// Z is the first digit of the pivot 479, and wing 1 has the last.
const Marks xyzbc = {{at(5, 5), "479"}, {at(4, 6), "49"}, {at(8, 5), "47"}};

TEST_P(Wings, XYZWingInBlockAndColumn) {
  putmarks(xyzbc);
  const std::string hint =
      in("XYZ-WING, numero 4 in r5c5, r4c6, r8c5", "XYZ-WING, number 4 in r5c5, r4c6, r8c5");
  const Paint yellows = {{32, "yellow"}, {67, "yellow"}, {40, "yellow"}}, red = {{314, "red"}, {494, "red"}};
  expectstep("findxyzwing", frame("findxyzwing", hint, yellows, red),
             frame("findxyzwing", hint, yellows, red,
                   in(xyzruleit + "XYZ-WING, 4 in r5c5, r4c6, r8c5\r\n"
                                  "se r5c5 = 7 allora Z=4 in r8c5\r\n"
                                  "se r5c5 = 9 allora Z=4 in r4c6\r\n"
                                  "la terza possibilità è che Z=4 sia in r5c5\r\n"
                                  "posso quindi eliminare il candidato 4 da tutte le celle rosse",
                      xyzruleen + "XYZ-WING, 4 in r5c5, r4c6, r8c5\r\n"
                                  "if r5c5 = 7 then Z=4 in r8c5\r\n"
                                  "if r5c5 = 9 then Z=4 in r4c6\r\n"
                                  "the third possibility is that Z=4 is in r5c5\r\n"
                                  "we can delete 4 from all red cells")),
             in("eliminato 4 from   r4c5 ,   r6c5 , ", "deleted 4 from   r4c5 ,   r6c5 , "),
             maskswithout(4, {at(4, 5), at(6, 5)}));
}

TEST_P(Wings, XYZWingInBlockAndColumnIsLogged) {
  putmarks(xyzbc);
  expectlog(frmgenerazione::findxyzwing,
            in("\r\nXYZ-WING, numero 4 in r5c5, r4c6, r8c5\r\n * eliminato 4 from   r4c5 ,   r6c5 , ",
               "\r\nXYZ-WING, number 4 in r5c5, r4c6, r8c5\r\n * deleted 4 from   r4c5 ,   r6c5 , "),
            maskswithout(4, {at(4, 5), at(6, 5)}), 9);
}

// Z in the middle of 479: the other two as they stand.
TEST_P(Wings, XYZWingOfTheMiddleDigitTellsTheOthersInOrder) {
  putmarks({{at(5, 5), "479"}, {at(6, 4), "47"}, {at(5, 1), "79"}});
  player.script = {help, go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 2u);
  EXPECT_EQ(player.frames.at(1).activity,
            in(xyzruleit + "XYZ-WING, 7 in r5c5, r6c4, r5c1\r\n"
                           "se r5c5 = 4 allora Z=7 in r6c4\r\n"
                           "se r5c5 = 9 allora Z=7 in r5c1\r\n"
                           "la terza possibilità è che Z=7 sia in r5c5\r\n"
                           "posso quindi eliminare il candidato 7 da tutte le celle rosse",
               xyzruleen + "XYZ-WING, 7 in r5c5, r6c4, r5c1\r\n"
                           "if r5c5 = 4 then Z=7 in r6c4\r\n"
                           "if r5c5 = 9 then Z=7 in r5c1\r\n"
                           "the third possibility is that Z=7 is in r5c5\r\n"
                           "we can delete 7 from all red cells"));
  EXPECT_EQ(frmmain::txthint.text,
            in("eliminato 7 from   r5c4 ,   r5c6 , ", "deleted 7 from   r5c4 ,   r5c6 , "));
}

// ---- go and stop ------------------------------------------------------------------------------------------

TEST_P(Wings, StopLeavesTheBoardWithoutColoursAndTheLadderStopsToo) {
  for (const auto& [marks, tag, hint] :
       {std::tuple(xybr, "findxywing",
                   in("XY-WING, numero 3 in r2c2, r1c3, r2c7", "XY-WING, number 3 in r2c2, r1c3, r2c7")),
        std::tuple(xyzbr, "findxyzwing",
                   in("XYZ-WING, numero 3 in r2c2, r1c3, r2c7", "XYZ-WING, number 3 in r2c2, r1c3, r2c7"))}) {
    putmarks(marks);
    const Board before = theboard();
    player.frames.clear();
    player.script = {stop};
    player.event(mnuposition_Click);
    EXPECT_EQ(player.frames.size(), 1u);
    EXPECT_EQ(theboard(), before);
    EXPECT_EQ(look(), frame(tag, hint, {}, {}));
    EXPECT_TRUE(foundflag);
  }
}

TEST_P(Wings, StopAtTheExplanationStopsTheStepAndKeepsTheWindow) {
  for (const Marks& marks : {xyrc, xyzbc}) {
    putmarks(marks);
    const Board before = theboard();
    player.frames.clear();
    player.script = {help, stop};
    player.event(mnuposition_Click);
    ASSERT_EQ(player.frames.size(), 2u);
    EXPECT_EQ(theboard(), before);
    EXPECT_TRUE(foundflag);
    // The step paints back all that the explanation had painted.
    EXPECT_EQ(look(), frame(player.frames.at(1).tag.c_str(), player.frames.at(0).hint, {}, {},
                            *player.frames.at(1).activity));
    frmactivity::visible = false;
  }
}

TEST_P(Wings, TheExplanationClearsAllColours) {
  putmarks(xybr);
  frmmain::Text1(77).back = magenta;
  frmmain::Text2(78).back = orange;
  frmmain::candidate(795).back = green;
  player.script = {help, go};
  player.event(mnuposition_Click);
  EXPECT_EQ(look().Text1, Paint());
  EXPECT_EQ(look().Text2, Paint());
  EXPECT_EQ(look().candidate, Paint());
  EXPECT_FALSE(frmactivity::visible);
}

TEST_P(Wings, WithoutTheExplanationOnlyTheBoxesOfTheStepTurnWhite) {
  putmarks(xybr);
  frmmain::Text2(78).back = orange;
  player.script = {go};
  player.event(mnuposition_Click);
  EXPECT_EQ(look().Text2, (Paint{{78, "orange"}}));
  EXPECT_EQ(look().candidate, Paint());
}

TEST_P(Wings, GradingInsideAWaitDoesNotChangeWhatIsExplained) {
  putmarks(xyrc);
  player.script = {[this] {
                     narrow({{at(1, 4), "12"}, {at(2, 5), "13"}, {at(1, 9), "23"}});
                     frmgenerazione::findxywing();
                     EXPECT_TRUE(Frmlog::Text3.text.find("3 in r1c4, r2c5, r1c9") != std::string::npos);
                   },
                   help, go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 3u);
  EXPECT_TRUE(player.frames.at(2).activity->find("XY-WING, 6 in r3c1, r3c9, r9c1\r\n") != std::string::npos);
  EXPECT_FALSE(hascandidate(at(9, 9), 6));
}

TEST_P(Wings, NothingFoundLeavesAllButTheTagAndTheFlag) {
  putmarks({});
  const Board before = theboard();
  frmmain::txthint.text = "old";
  for (const auto& [routine, tag] :
       {std::pair(&frmmain::findxywing, "findxywing"), std::pair(&frmmain::findxyzwing, "findxyzwing")}) {
    foundflag = true;
    player.event(routine);
    EXPECT_FALSE(foundflag);
    EXPECT_EQ(look(), frame(tag, "old", {}, {}));
    EXPECT_EQ(theboard(), before);
  }
  EXPECT_EQ(said(frmgenerazione::findxywing), "");
  EXPECT_EQ(said(frmgenerazione::findxyzwing), "");
  EXPECT_EQ(runninglevel, 0);
  EXPECT_EQ(logcount, 0);
}

// ---- twins ------------------------------------------------------------------------------------------------

TEST_P(Wings, ASnapshotHoldsTheBoardBeforeTheStep) {
  for (const auto& [marks, twin] :
       {std::pair(xybr, &frmgenerazione::findxywing), std::pair(xyzbr, &frmgenerazione::findxyzwing)}) {
    clearlog();
    putmarks(marks);
    std::string cands;
    for (int mask : masks()) cands += std::to_string(mask) + ",";
    twin();
    EXPECT_EQ(logvalues(1), std::string(81, '0'));
    EXPECT_EQ(logcands(1), cands);
    EXPECT_EQ(logcands(2), "");
  }
}

TEST_P(Wings, DuringAJobOnlyTheDetailCountsAndThereIsNoSnapshot) {
  for (const auto& [marks, twin] :
       {std::pair(xybr, &frmgenerazione::findxywing), std::pair(xyzbr, &frmgenerazione::findxyzwing)}) {
    clearlog();
    putmarks(marks);
    const Job job("conta");
    twin();
    EXPECT_EQ(logcount, 1);
    EXPECT_EQ(logcands(0) + logcands(1), "");
    EXPECT_FALSE(Frmlog::Text3.text.empty());
  }
}

TEST_P(Wings, ATwinNeverLowersTheLevel) {
  putmarks(xybr);
  runninglevel = 12;
  frmgenerazione::findxywing();
  EXPECT_EQ(runninglevel, 12);
  EXPECT_EQ(levelcount(8), 1);
  putmarks(xyzbr);
  frmgenerazione::findxyzwing();
  EXPECT_EQ(runninglevel, 12);
  EXPECT_EQ(levelcount(9), 1);
  EXPECT_EQ(levelcount(8), 1);
}

// ---- which one is found -----------------------------------------------------------------------------------

std::string xy(int z, const std::string& where) {
  return std::string("XY-WING, ") + (lingua == italian ? "numero " : "number ") + std::to_string(z) + " in " +
         where;
}
std::string xyz(int z, const std::string& where) {
  return std::string("XYZ-WING, ") + (lingua == italian ? "numero " : "number ") + std::to_string(z) +
         " in " + where;
}

TEST_P(Wings, TheLowestPivotWinsEvenWithAHighZ) {
  putmarks({{at(1, 1), "78"},
            {at(2, 2), "79"},
            {at(1, 9), "89"},  // z = 9
            {at(6, 4), "12"},
            {at(6, 9), "13"},
            {at(9, 4), "23"}});  // z = 3
  EXPECT_EQ(said(frmgenerazione::findxywing), xy(9, "r1c1, r2c2, r1c9"));
  EXPECT_EQ(said(frmgenerazione::findxywing), xy(3, "r6c4, r6c9, r9c4"));
  EXPECT_EQ(said(frmgenerazione::findxywing), "");

  putmarks({{at(1, 1), "789"},
            {at(2, 2), "79"},
            {at(1, 9), "89"},
            {at(6, 4), "123"},
            {at(5, 5), "13"},
            {at(9, 4), "12"}});
  EXPECT_EQ(said(frmgenerazione::findxyzwing), xyz(9, "r1c1, r2c2, r1c9"));
  EXPECT_EQ(said(frmgenerazione::findxyzwing), xyz(1, "r6c4, r5c5, r9c4"));
  EXPECT_EQ(said(frmgenerazione::findxyzwing), "");
}

// All around the pivot 12 in r5c5 with z = 3, or as told.
TEST_P(Wings, RowBeforeColumn) {
  putmarks({{at(5, 5), "12"}, {at(4, 6), "13"}, {at(5, 9), "23"}, {at(8, 5), "23"}});
  EXPECT_EQ(said(frmgenerazione::findxywing), xy(3, "r5c5, r4c6, r5c9"));
  EXPECT_EQ(said(frmgenerazione::findxywing), xy(3, "r5c5, r4c6, r8c5"));
}

TEST_P(Wings, BlockWingsBeforeLineWings) {
  putmarks({{at(5, 5), "12"}, {at(4, 6), "13"}, {at(5, 1), "13"}, {at(8, 5), "23"}});
  EXPECT_EQ(said(frmgenerazione::findxywing), xy(3, "r5c5, r4c6, r8c5"));
  EXPECT_EQ(said(frmgenerazione::findxywing), xy(3, "r5c5, r5c1, r8c5"));
}

TEST_P(Wings, LineWingsWithXInWing1BeforeBlockWingsWithYInIt) {
  putmarks({{at(5, 5), "12"}, {at(5, 1), "13"}, {at(8, 5), "23"}, {at(4, 6), "23"}});
  EXPECT_EQ(said(frmgenerazione::findxywing), xy(3, "r5c5, r5c1, r8c5"));
  EXPECT_EQ(said(frmgenerazione::findxywing), xy(3, "r5c5, r4c6, r5c1"));
}

TEST_P(Wings, BothWaysRoundBeforeTheNextZ) {
  putmarks({{at(5, 5), "56"},
            {at(5, 1), "16"},
            {at(8, 5), "15"},  // z = 1, the other way round, on the lines
            {at(4, 6), "59"},
            {at(5, 9), "69"}});  // z = 9, in the block
  EXPECT_EQ(said(frmgenerazione::findxywing), xy(1, "r5c5, r5c1, r8c5"));
  EXPECT_EQ(said(frmgenerazione::findxywing), xy(9, "r5c5, r4c6, r5c9"));
}

TEST_P(Wings, BlockPositionsOfWing1InOrder) {
  putmarks({{at(5, 5), "12"}, {at(6, 4), "13"}, {at(4, 6), "13"}, {at(5, 9), "23"}});
  EXPECT_EQ(said(frmgenerazione::findxywing), xy(3, "r5c5, r4c6, r5c9"));
  // Of an XYZ-Wing the position decides, whichever of the two digits wing 1 has.
  putmarks({{at(5, 5), "123"}, {at(6, 4), "23"}, {at(4, 6), "13"}, {at(5, 9), "23"}, {at(8, 5), "13"}});
  EXPECT_EQ(said(frmgenerazione::findxyzwing), xyz(3, "r5c5, r4c6, r5c9"));
  EXPECT_EQ(said(frmgenerazione::findxyzwing), xyz(3, "r5c5, r6c4, r8c5"));
}

TEST_P(Wings, XYZTriesTheDigitsOfThePivotInOrderAsZ) {
  putmarks({{at(5, 5), "479"}, {at(4, 6), "79"}, {at(5, 1), "49"}, {at(5, 9), "47"}});
  EXPECT_EQ(said(frmgenerazione::findxyzwing), xyz(7, "r5c5, r4c6, r5c9"));
  EXPECT_EQ(said(frmgenerazione::findxyzwing), xyz(9, "r5c5, r4c6, r5c1"));
}

TEST_P(Wings, WingsBothInThePivotsBlockAreNoPattern) {
  putmarks({{at(5, 5), "12"}, {at(4, 4), "13"}, {at(6, 6), "23"}});
  EXPECT_EQ(said(frmgenerazione::findxywing), "");
  putmarks({{at(5, 5), "12"}, {at(5, 4), "13"}, {at(6, 5), "23"}});
  EXPECT_EQ(said(frmgenerazione::findxywing), "");
  putmarks({{at(5, 5), "123"}, {at(4, 4), "13"}, {at(5, 6), "23"}});
  EXPECT_EQ(said(frmgenerazione::findxyzwing), "");
}

TEST_P(Wings, Wing1OnTheLineOfWing2IsNoPattern) {
  putmarks({{at(5, 5), "12"}, {at(5, 4), "13"}, {at(5, 9), "23"}});
  EXPECT_EQ(said(frmgenerazione::findxywing), "");
  putmarks({{at(5, 5), "12"}, {at(4, 5), "13"}, {at(9, 5), "23"}});
  EXPECT_EQ(said(frmgenerazione::findxywing), "");
  putmarks({{at(5, 5), "123"}, {at(5, 4), "13"}, {at(5, 9), "23"}});
  EXPECT_EQ(said(frmgenerazione::findxyzwing), "");
}

TEST_P(Wings, AnXYZWingNeedsAWingInTheBlock) {
  putmarks({{at(5, 5), "123"}, {at(5, 1), "13"}, {at(9, 5), "23"}});
  EXPECT_EQ(said(frmgenerazione::findxyzwing), "");
}

TEST_P(Wings, WingsHoldExactlyTwoCandidates) {
  putmarks({{at(5, 5), "12"}, {at(4, 6), "134"}, {at(5, 9), "23"}});
  EXPECT_EQ(said(frmgenerazione::findxywing), "");
  putmarks({{at(5, 5), "12"}, {at(4, 6), "13"}, {at(5, 9), "234"}});
  EXPECT_EQ(said(frmgenerazione::findxywing), "");
  putmarks({{at(5, 5), "123"}, {at(4, 6), "13"}, {at(5, 9), "234"}});
  EXPECT_EQ(said(frmgenerazione::findxyzwing), "");
}

TEST_P(Wings, AWingInThePivotsRowAndBlockGoesWithOneInItsColumn) {
  putmarks({{at(5, 5), "12"}, {at(5, 4), "13"}, {at(9, 5), "23"}});
  const std::vector<int> after = maskswithout(3, {at(4, 5), at(6, 5), at(7, 4), at(8, 4), at(9, 4)});
  EXPECT_EQ(said(frmgenerazione::findxywing), xy(3, "r5c5, r5c4, r9c5"));
  EXPECT_EQ(masks(), after);
}

TEST_P(Wings, APatternWithNothingToDeleteIsPassedOver) {
  putmarks({{at(3, 1), "58"},
            {at(3, 9), "68"},
            {at(9, 1), "56"},
            {at(9, 9), "123"},
            {at(5, 5), "12"},
            {at(5, 3), "13"},
            {at(8, 5), "23"}});
  EXPECT_EQ(said(frmgenerazione::findxywing), xy(3, "r5c5, r5c3, r8c5"));
  EXPECT_EQ(said(frmgenerazione::findxywing), "");
}

// Z counts as gone from a house that has it placed, whatever the marks say that a user has edited by hand.
TEST_P(Wings, XYDoesNotLookForAZThatIsPlacedInTheHouse) {
  const auto found = [](const Marks& marks, std::int32_t slot, void (*twin)()) {
    usedmask(slot) = bitvalue(3);
    for (int cell = 0; cell < cellcount; ++cell) candmask(cell) = fullmask;
    for (const auto& [cell, digits] : marks) {
      candmask(cell) = maskof(digits);
      candstr(cell) = digits;
    }
    foundflag = false;
    twin();
    usedmask(slot) = 0;
    rebuildcandstr();
    return foundflag;
  };
  const int row = rowslot + 4, column = columnslot + 4, block = blockslot + 4;
  const Marks br = {{at(5, 5), "12"}, {at(4, 6), "13"}, {at(5, 9), "23"}};
  const Marks bc = {{at(5, 5), "12"}, {at(4, 6), "13"}, {at(9, 5), "23"}};
  const Marks rc = {{at(5, 5), "12"}, {at(5, 1), "13"}, {at(9, 5), "23"}};
  struct {
    const Marks& marks;
    int slot;
    bool expected;
  } const table[] = {{br, block, false}, {br, row, false}, {br, column, true},
                     {bc, block, false}, {bc, row, true},  {bc, column, false},
                     {rc, block, true},  {rc, row, false}, {rc, column, false}};
  for (const auto& line : table) {
    put(emptyboard);
    EXPECT_EQ(found(line.marks, line.slot, frmgenerazione::findxywing), line.expected) << line.slot;
  }
  // The XYZ-Wing doesn't ask.
  for (int slot : {row, column, block}) {
    put(emptyboard);
    EXPECT_TRUE(
        found({{at(5, 5), "123"}, {at(4, 6), "13"}, {at(5, 9), "23"}}, slot, frmgenerazione::findxyzwing));
  }
}

}  // namespace
}  // namespace gradino::tests
