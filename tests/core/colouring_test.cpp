// Simple colours and x-colours: what is found, shown, argued, logged and done, and what ends a search.
#include <gtest/gtest.h>

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

// Column 2, row 5 and block 5 join r1c2, r5c2, r5c5 and r4c6. r1c6 sees the last in its column, the first in
// its row.
constexpr Places chain = {"xxx xxx xxx",  //
                          "x.x xxx xxx",  //
                          "x.x xxx xxx",  //
                          "x.x ..x xxx",  //
                          ".x. .x. ...",  //
                          "x.x ... xxx",  //
                          "x.x xxx xxx",  //
                          "x.x xxx xxx",  //
                          "x.x xxx xxx"};

// r5c8, r6c7 | r5c2, r2c8, r1c2. Rows 1 and 2 run through each other's blocks; r1c7 is hit twice.
constexpr Places band = {"xxx xxx x.x",  //
                         "x.x xxx xxx",  //
                         "x.x xxx x.x",  //
                         "x.x xxx ...",  //
                         ".x. ... .x.",  //
                         "x.x xxx x..",  //
                         "x.x xxx x.x",  //
                         "x.x xxx x.x",  //
                         "x.x xxx x.x"};

// r2c1, r2c5, r8c5, r8c2: columns 1 and 2 run through each other's blocks.
constexpr Places stack = {"xxx x.x xxx",  //
                          "x.. .x. ...",  //
                          "xxx x.x xxx",  //
                          "xxx x.x xxx",  //
                          "xxx x.x xxx",  //
                          "xxx x.x xxx",  //
                          "xxx x.x xxx",  //
                          ".x. .x. ...",  //
                          "xxx x.x xxx"};

// One cluster, ten deletions.
constexpr Places ten = {"xxx x.x x.x",  //
                        "x.x x.x xxx",  //
                        "x.x xxx x.x",  //
                        "x.x ..x ...",  //
                        ".x. ... .x.",  //
                        "... .x. x..",  //
                        "x.x x.x x.x",  //
                        "x.x x.x x.x",  //
                        "x.x x.x x.x"};

// r1c5 and r2c7 against r2c6, r9c5 and r9c7, of which two are in row 9.
constexpr Places secondclash = {"... .x. .xx",  //
                                "... ..x x..",  //
                                "... ... ...",  //
                                "... ... .xx",  //
                                "... ... ...",  //
                                "... ... ...",  //
                                "... ... ...",  //
                                "... ..x ..x",  //
                                "... .xx xx."};

// The same upside down: now the colour of the first cell clashes.
constexpr Places firstclash = {"... .xx xx.",  //
                               "... ..x ..x",  //
                               "... ... ...",  //
                               "... ... ...",  //
                               "... ... ...",  //
                               "... ... .xx",  //
                               "... ... ...",  //
                               "... ..x x..",  //
                               "... .x. .xx"};

// r5c2 or r5c8. r5c2 leaves block 1 with r3c3 alone; r3c8 sees that and r5c8.
constexpr Places forced = {".x. xxx xxx",  //
                           ".x. xxx xxx",  //
                           "..x xxx xxx",  //
                           "xxx xxx xxx",  //
                           ".x. ... .x.",  //
                           "xxx xxx xxx",  //
                           "xxx xxx xxx",  //
                           "xxx xxx xxx",  //
                           "xxx xxx xxx"};

// r5c2 or r5c8, and either forces r9c3: one through column 3, the other through row 9.
constexpr Places common = {"xx. xxx xxx",  //
                           "xx. xxx xxx",  //
                           "xx. xxx xxx",  //
                           "xxx xxx xxx",  //
                           ".x. ... .x.",  //
                           "xxx xxx xxx",  //
                           "xx. xxx xxx",  //
                           "xx. xxx xxx",  //
                           "..x ... .x."};

// r9c1 or r9c9. r9c1 forces r7c7, r2c2 and r2c9, of which two are in row 2.
constexpr Places firstfalse = {"... ... ...",  //
                               ".x. ... x.x",  //
                               "x.x ... x..",  //
                               "... ... ...",  //
                               "x.x ..x ...",  //
                               "x.x x.x ...",  //
                               "xxx ... x..",  //
                               "... x.x ...",  //
                               "x.. ... ..x"};

// r2c7 or r3c8. r3c8 forces r5c7 and r5c1, both in row 5.
constexpr Places secondfalse = {"... ... ...",  //
                                ".xx ... x..",  //
                                "xxx ... .x.",  //
                                ".xx ... .x.",  //
                                "x.. ... xx.",  //
                                "... ... ...",  //
                                ".x. .x. ...",  //
                                "..x .x. ...",  //
                                "... ... ..."};

// r5c2 forces r3c3 and r9c3, r5c8 forces r3c7 and r9c7: both are false.
constexpr Places bothfalse = {".x. xxx .x.",  //
                              ".x. xxx .x.",  //
                              "..x xxx x..",  //
                              "xxx xxx xxx",  //
                              ".x. ... .x.",  //
                              "xxx xxx xxx",  //
                              ".x. xxx .x.",  //
                              ".x. xxx .x.",  //
                              "..x xxx x.."};

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

constexpr std::string_view separator = "==============================================";

class Colouring : public Bilingual {
 protected:
  explicit Colouring(int digit = 0) : digit_(digit) {}

  void draw(int digit, const Places& places) {
    digit_ = digit;
    put(emptyboard);
    for (int cell = 0; cell < cellcount; ++cell) {
      const auto row = static_cast<std::size_t>(cell / 9), col = static_cast<std::size_t>(cell % 9);
      if (places[row][col + col / 3] == '.') candmask(cell) -= bitvalue(digit);
    }
    rebuildcandstr();
    updatetext2();
    rebuildpositions();
    before = theboard();
  }

  Paint marks(std::initializer_list<int> at, const char* colour, Paint paint = {}) const {
    for (int cell : at) paint[cell * 10 + digit_] = colour;
    return paint;
  }
  /// What a true cell rules out, wherever there is no colour yet.
  Paint ruledout(int cell, Paint paint) const {
    for (int seen = 0; seen < cellcount; ++seen)
      if (cellrow(seen) == cellrow(cell) || cellcol(seen) == cellcol(cell) ||
          cellblock(seen) == cellblock(cell))
        paint.try_emplace(seen * 10 + digit_, "red");
    return paint;
  }

  Frame frame(const std::string& hint, const Paint& paint,
              const std::optional<std::string>& activity = {}) const {
    return {.tag = "colors",
            .hint = hint,
            .number = number,
            .activity = activity,
            .Text1 = {},
            .Text2 = {},
            .candidate = paint};
  }

  /// The board as it stands without the digit in these cells.
  static std::vector<int> masksless(const Board& board, int digit, std::initializer_list<int> from) {
    std::vector<int> left = board.candmask;
    for (int cell : from) left[static_cast<std::size_t>(cell)] -= bitvalue(digit);
    return left;
  }
  static std::string valueswith(std::initializer_list<int> at, char digit) {
    std::string board = emptyboard;
    for (int cell : at) board[static_cast<std::size_t>(cell)] = digit;
    return board;
  }

  int digit_;
  std::string number;  ///< what Text5 shows
  Board before;
};

/// Lines of a text box.
std::string lines(std::initializer_list<std::string_view> all) {
  std::string text;
  for (std::string_view line : all) {
    if (!text.empty()) text += "\r\n";
    text += line;
  }
  return text;
}

// ---- simple colours: deletion -----------------------------------------------------------------------------

class ColoursDeletion : public Colouring {
 protected:
  ColoursDeletion() : Colouring(5) { draw(5, chain); }
  const std::string hint =
      in("COLORI tipo 1, numero 5 è possibile eliminare il numero dalle celle rosse",
         "COLORS type 1, number 5 it is possible to delete the candidate from red cells");
  const std::string done = in("eliminato 5 from   r1c6 , ", "deleted 5 from   r1c6 , ");
  // Block 5 is the first house with two places: r4c6 is the first cell.
  const Paint paint =
      marks({at(4, 6), at(5, 2)}, "yellow", marks({at(5, 5), at(1, 2)}, "green", marks({at(1, 6)}, "red")));
  const std::string heading =
      GetParam() == italian
          ? lines(
                {"COLORI  SEMPLICI - LIVELLO 13",
                 "Si devono cercare coppie di celle all'interno di un gruppo (settore, riga o colonna) che "
                 "contengano univocamente lo stesso candidato",
                 "Quando ci sono due celle all'interno del gruppo l'una o l'altra delle celle deve contenere il "
                 "candidato.",
                 " Le due celle vengono colorate con giallo e verde.",
                 "Se il candidato sta nelle celle gialle, non sta nelle celle verdi e viceversa.",
                 "Il candidato può essere eliminato dalle intersezioni tra righe e colonne di due celle di colore "
                 "diverso.",
                 separator, "CANDIDATO = 5"})
          : lines(
                {" SIMPLE COLORS - LEVEL 13",
                 "We must find inside a house (block, row, column) 2 cells that contain unequivocally the same "
                 "candidate",
                 "When a house contains only 2 candidates for a number, one of them must be true and the other "
                 "must be false.",
                 "The 2 cells containing the candidate are colored with 2 different colors.",
                 "In our case yellow and green.",
                 "If the candidate is contained in yellow cells, then it is NOT contained in green cells , and "
                 "vice versa.",
                 "The candidate may be deleted from intersections of rows and columns of differently colored "
                 "cells .",
                 separator, "CANDIDATE = 5"});
};

TEST_P(ColoursDeletion, StepPaintsSaysAndDeletes) {
  player.script = {[&] { EXPECT_EQ(theboard(), before); }, go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 2u);
  EXPECT_EQ(player.frames[0], frame(hint, paint));
  EXPECT_EQ(look().hint, done);
  EXPECT_EQ(masks(), masksless(before, 5, {at(1, 6)}));
  EXPECT_EQ(candstr(at(1, 6)), "12346789");
  EXPECT_EQ(visiblemarks(at(1, 6)), "12346789");
  EXPECT_FALSE(rowpos(5, 0).contains(5));
  EXPECT_TRUE(foundflag);
  EXPECT_EQ(colourdigit, 5);
  expectnopaint();
}

TEST_P(ColoursDeletion, AStopLeavesTheBoardAndEndsTheLadder) {
  player.script = {stop};
  player.event(mnuposition_Click);
  EXPECT_EQ(player.frames.size(), 1u);
  EXPECT_EQ(theboard(), before);
  EXPECT_EQ(look().hint, hint);
  EXPECT_TRUE(foundflag);
  expectnopaint();
}

TEST_P(ColoursDeletion, TwinLogsTwoListsAndTheDeletion) {
  frmgenerazione::gradecolors();
  EXPECT_EQ(
      Frmlog::Text3.text,
      "\r\n" + lines({in("COLORI SEMPLICI, numero 5 è possibile eliminare il numero dalle celle rosse",
                         "SIMPLE COLORS, number 5 it is possible to delete the candidate from red cells"),
                      " * color1 r4c6,r5c2,", " * color2 r5c5,r1c2,",
                      in(" * eliminato 5 from   r1c6 , ", " * deleted 5 from   r1c6 , ")}));
  EXPECT_EQ(logcount, 4);
  EXPECT_EQ(logvalues(1), std::string(81, '0'));
  EXPECT_EQ(logvalues(2), "");
  EXPECT_EQ(runninglevel, 13);
  EXPECT_EQ(levelcount(13), 1);
  EXPECT_TRUE(foundflag);
  EXPECT_EQ(masks(), masksless(before, 5, {at(1, 6)}));
  EXPECT_EQ(candstr(at(1, 6)), "12346789");
  EXPECT_FALSE(rowpos(5, 0).contains(5));
  EXPECT_EQ(visiblemarks(at(1, 6)), "123456789");
  EXPECT_EQ(look().hint, "");
  expectnopaint();
}

TEST_P(ColoursDeletion, TwinInALongJobCountsTheDetailLinesAlone) {
  const Job job("conta");
  runninglevel = 20;
  frmgenerazione::gradecolors();
  EXPECT_EQ(logcount, 3);
  EXPECT_EQ(logvalues(1), "");
  EXPECT_EQ(runninglevel, 20);
}

TEST_P(ColoursDeletion, ExplanationNamesCellByCellAndItsGoCarriesTheStepOut) {
  player.script = {help, go, go, go, go, go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 6u);
  std::string text = heading;
  const std::string named[] = {in("r4c6= giallo", "r4c6= yellow"), in("r5c5= verde", "r5c5= green"),
                               in("r5c2= giallo", "r5c2= yellow"), in("r1c2= verde", "r1c2= green")};
  for (std::size_t i = 0; i < 4; ++i)
    EXPECT_EQ(player.frames[i + 1], frame(hint, paint, text += "\r\n" + named[i]));
  text += "\r\n" + in("il numero 5 o nel gruppo giallo o nel gruppo verde",
                      "the number 5 either in yellow group or in green group");
  text += "\r\n" + in("possiamo quindi eliminare il candidato 5 dalle celle rosse",
                      "we can delete the candidate 5 from red cells");
  EXPECT_EQ(player.frames[5], frame(hint, paint, text));
  EXPECT_FALSE(frmactivity::visible);
  EXPECT_EQ(look().hint, done);
  EXPECT_EQ(masks(), masksless(before, 5, {at(1, 6)}));
  expectnopaint();
}

TEST_P(ColoursDeletion, AStopAtACellDoesNotEndTheExplanationButOneAtItsLastWaitDoes) {
  const auto paintatlast = [&] {
    help();
    EXPECT_TRUE(frmactivity::visible);
    EXPECT_EQ(look().candidate, paint);
  };
  player.script = {paintatlast, stop, stop, stop, stop, stop};
  player.event(mnuposition_Click);
  EXPECT_EQ(player.frames.size(), 6u);
  EXPECT_EQ(theboard(), before);
  EXPECT_EQ(look().hint, hint);
}

// A grade while the step waits must not change what the picture explains.
TEST_P(ColoursDeletion, ExplanationKeepsTheStepAcrossATwin) {
  player.script = {[&] {
                     const Board board = theboard();
                     draw(3, secondclash);
                     frmgenerazione::gradecolors();
                     draw(5, chain);
                     EXPECT_EQ(theboard(), board);
                     help();
                   },
                   go,
                   go,
                   go,
                   go,
                   go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 6u);
  EXPECT_EQ(player.frames[1].activity, heading + "\r\n" + in("r4c6= giallo", "r4c6= yellow"));
  EXPECT_EQ(look().hint, done);
}
IN_BOTH_LANGUAGES(ColoursDeletion);

// ---- simple colours: clash --------------------------------------------------------------------------------

class ColoursClash : public Colouring {
 protected:
  static std::string title() {
    return GetParam() == italian
               ? lines(
                     {" TECNICA  CONTRADDIZIONE COLORI - LIVELLO 14",
                      "Si devono cercare coppie di celle all'interno di un gruppo (settore, riga o colonna) che "
                      "contengano univocamente lo stesso candidato.",
                      "Quando ci sono due celle all'interno del gruppo l'una o l'altra delle celle deve contenere "
                      "il candidato.",
                      "Le due celle vengono colorate con giallo e verde.",
                      "Se il candidato sta nelle celle gialle, non sta nelle celle azzurre e viceversa.",
                      "Uno stesso colore non può comparire 2 volte nello stesso gruppo",
                      "Se compare una situazione simile possiamo escludere il candidato dal gruppo del colore ed "
                      "assegnarlo a tutte le celle dell'altro colore.",
                      separator, "CANDIDATO = 2"})
               : lines(
                     {"SIMPLE COLORS CONTRADICTION - LEVEL 14",
                      "We must find inside a house (block, row, column) 2 cells that contain unequivocally the "
                      "same candidate",
                      "When a house contains only 2 candidates for a number, one of them must be true and the "
                      "other must be false.",
                      "The 2 cells containing the candidate are colored with 2 different colors.",
                      "In our case yellow and green.", "A colors CAN NOT appear more than once in a house",
                      "If we find a similar situation we can delete the candidate from the color group and place "
                      "it on all the cell of the other color.",
                      separator, "CANDIDATE = 2"});
  }
  std::string hint(const std::string& it, const std::string& en) const {
    return in("COLORI tipo 2, il numero 2 è forzato nelle celle " + it,
              "COLORS type 2, the number 2 it is forced in " + en + " cells");
  }
};

// A deletion of r9c5 and r9c7 was recorded before the clash: it does not count.
TEST_P(ColoursClash, OfTheSecondColourPlacesTheFirst) {
  draw(2, secondclash);
  player.script = {go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 1u);
  EXPECT_EQ(player.frames[0],
            frame(hint("gialle", "yellow"),
                  marks({at(1, 5), at(2, 7)}, "yellow", marks({at(2, 6), at(9, 5), at(9, 7)}, "green"))));
  EXPECT_EQ(look().hint, in("inserito 2 in   r1c5 ,   r2c7 , ", "entered 2 in   r1c5 ,   r2c7 , "));
  EXPECT_EQ(values(), valueswith({at(1, 5), at(2, 7)}, '2'));
  EXPECT_EQ(boxtexts(), values());
  EXPECT_TRUE(frmmain::Text1(at(1, 5)).visible);
  EXPECT_TRUE(frmmain::Text1(at(2, 7)).visible);
  EXPECT_EQ(filledcount, 2);
  EXPECT_TRUE(foundflag);
  expectnopaint();
}

TEST_P(ColoursClash, OfTheFirstColourPlacesTheSecond) {
  draw(2, firstclash);
  player.script = {go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 1u);
  EXPECT_EQ(player.frames[0], frame(hint("verdi", "green"), marks({at(8, 6), at(1, 5), at(1, 7)}, "yellow",
                                                                  marks({at(9, 5), at(8, 7)}, "green"))));
  EXPECT_EQ(look().hint, in("inserito 2 in   r9c5 ,   r8c7 , ", "entered 2 in   r9c5 ,   r8c7 , "));
  EXPECT_EQ(values(), valueswith({at(9, 5), at(8, 7)}, '2'));
}

TEST_P(ColoursClash, AStopLeavesTheBoard) {
  draw(2, secondclash);
  player.script = {stop};
  player.event(mnuposition_Click);
  EXPECT_EQ(player.frames.size(), 1u);
  EXPECT_EQ(theboard(), before);
  EXPECT_TRUE(foundflag);
  expectnopaint();
}

TEST_P(ColoursClash, TwinNamesTheListAndPlaces) {
  draw(2, secondclash);
  frmgenerazione::gradecolors();
  const Board after = theboard();
  EXPECT_EQ(
      Frmlog::Text3.text,
      "\r\n" + lines({in("COLORI - CONTRADIZIONE, il numero 2 è forzato nelle celle color1",
                         "COLORS - CONTRADICTION, the number 2 it is forced in color1 cells"),
                      " * color1 r1c5,r2c7,", " * color2 r2c6,r9c5,r9c7,",
                      in(" * inserito 2 in   r1c5 ,   r2c7 , ", " * entered 2 in   r1c5 ,   r2c7 , ")}));
  EXPECT_EQ(logcount, 4);
  EXPECT_EQ(logvalues(1), std::string(81, '0'));
  EXPECT_EQ(runninglevel, 14);
  EXPECT_EQ(levelcount(14), 1);
  EXPECT_EQ(levelcount(13), 0);
  EXPECT_TRUE(foundflag);
  EXPECT_EQ(values(), valueswith({at(1, 5), at(2, 7)}, '2'));
  EXPECT_EQ(candmask(at(1, 5)), 0);
  EXPECT_EQ(filledcount, 2);
  EXPECT_EQ(boxtexts(), emptyboard);
  rebuildusedmask();
  rebuildcandstr();
  rebuildpositions();
  EXPECT_EQ(theboard(), after);
}

TEST_P(ColoursClash, TwinNamesTheOtherList) {
  draw(2, firstclash);
  frmgenerazione::gradecolors();
  EXPECT_EQ(
      Frmlog::Text3.text,
      "\r\n" + lines({in("COLORI - CONTRADIZIONE, il numero 2 è forzato nelle celle color2",
                         "COLORS - CONTRADICTION, the number 2 it is forced in color2 cells"),
                      " * color1 r8c6,r1c5,r1c7,", " * color2 r9c5,r8c7,",
                      in(" * inserito 2 in   r9c5 ,   r8c7 , ", " * entered 2 in   r9c5 ,   r8c7 , ")}));
}

TEST_P(ColoursClash, ExplanationArguesAndLeavesAWhiteCluster) {
  draw(2, secondclash);
  const Paint paint = marks({at(1, 5), at(2, 7)}, "yellow", marks({at(2, 6), at(9, 5), at(9, 7)}, "green"));
  const std::string shownhint = hint("gialle", "yellow");
  player.script = {[&] {
                     help();
                     EXPECT_EQ(look().hint, in("introdotto 2 in ", "introduced 2 in "));
                     EXPECT_FALSE(frmactivity::visible);
                     EXPECT_EQ(theboard(), before);
                     expectnopaint();
                   },
                   go,
                   go,
                   go,
                   go,
                   go,
                   go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 7u);
  std::string text = title();
  const std::string named[] = {in("r1c5= giallo", "r1c5= yellow"), in("r2c6= verde", "r2c6= green"),
                               in("r9c5= verde", "r9c5= green"), in("r2c7= giallo", "r2c7= yellow"),
                               in("r9c7= verde", "r9c7= green")};
  for (std::size_t i = 0; i < 5; ++i)
    EXPECT_EQ(player.frames[i + 1], frame(shownhint, paint, text += "\r\n" + named[i]));
  text += GetParam() == italian ? "\r\n2 non può quindi stare nel gruppo verde"
                                  "\r\n possiamo inserire quindi il numero 2"
                                  "\r\n in tutte le celle del colore  giallo"
                                : "\r\n2 can not stay on the green group "
                                  "\r\n therefore, we can place 2"
                                  "\r\n in ALL the cells of the yellow group";
  EXPECT_EQ(player.frames[6], frame(shownhint, paint, text));
  EXPECT_EQ(values(), valueswith({at(1, 5), at(2, 7)}, '2'));
}

// Yellow is false. The Italian words go by the box of r1c1, which is white, and say green.
TEST_P(ColoursClash, ExplanationNamesTheColourByR1c1InItalian) {
  draw(2, firstclash);
  player.script = {help, go, go, go, go, go, go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 7u);
  const std::string closing = GetParam() == italian ? "\r\nr1c7= giallo"
                                                      "\r\n2 non può quindi stare nel gruppo verde"
                                                      "\r\n possiamo inserire quindi il numero 2"
                                                      "\r\n in tutte le celle del colore  giallo"
                                                    : "\r\nr1c7= yellow"
                                                      "\r\n2 can not stay on the yellow group "
                                                      "\r\n therefore, we can place 2"
                                                      "\r\n in ALL the cells of the green group";
  ASSERT_TRUE(player.frames[6].activity);
  EXPECT_TRUE(player.frames[6].activity->ends_with(closing)) << *player.frames[6].activity;
}

TEST_P(ColoursClash, ExplanationFindsR1c1Yellow) {
  draw(2, secondclash);
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
IN_BOTH_LANGUAGES(ColoursClash);

// ---- simple colours: the search ---------------------------------------------------------------------------

class ColoursSearch : public Colouring {
 protected:
  /// What the step deletes, as its hint names it.
  std::string deletions() {
    player.script = {go};
    player.event(frmmain::stepcolors);
    EXPECT_EQ(player.frames.size(), 1u);
    return look().hint;
  }
};

TEST_P(ColoursSearch, RowsRunThroughEachOthersBlocksInABandAndARepeatedCellIsNamedOnce) {
  draw(4, band);
  EXPECT_EQ(deletions(), in("eliminato 4 from   r1c7 ,   r2c1 ,   r2c3 ,   r1c9 , ",
                            "deleted 4 from   r1c7 ,   r2c1 ,   r2c3 ,   r1c9 , "));
  EXPECT_EQ(masks(), masksless(before, 4, {at(1, 7), at(2, 1), at(2, 3), at(1, 9)}));
}

TEST_P(ColoursSearch, ColumnsRunThroughEachOthersBlocksInAStack) {
  draw(4, stack);
  EXPECT_EQ(deletions(), in("eliminato 4 from   r7c1 ,   r9c1 ,   r1c2 ,   r3c2 , ",
                            "deleted 4 from   r7c1 ,   r9c1 ,   r1c2 ,   r3c2 , "));
}

TEST_P(ColoursSearch, TwoCellsAloneSeeingNothingTogetherGiveNothing) {
  Places places = chain;
  places.fill("xxx xxx xxx");
  places[4] = ".x. ... .x.";
  draw(4, places);
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

TEST_P(ColoursSearch, TheLowestDigitThatGivesSomethingIsTaken) {
  draw(5, chain);
  for (int cell = 0; cell < cellcount; ++cell)  // 3 stands wherever 5 does
    if (!hascandidate(cell, 5)) candmask(cell) -= bitvalue(3);
  rebuildcandstr();
  rebuildpositions();
  EXPECT_EQ(deletions(), in("eliminato 3 from   r1c6 , ", "deleted 3 from   r1c6 , "));
}

// r1c2 and r3c3 are in block 1, and so are r1c3 and r3c2.
TEST_P(ColoursSearch, OfTwoClashesTheFirstCounts) {
  Places places;
  places.fill("... ... ...");
  places[0] = places[2] = ".xx ... ...";
  draw(4, places);
  frmgenerazione::gradecolors();
  EXPECT_EQ(
      Frmlog::Text3.text,
      "\r\n" + lines({in("COLORI - CONTRADIZIONE, il numero 4 è forzato nelle celle color2",
                         "COLORS - CONTRADICTION, the number 4 it is forced in color2 cells"),
                      " * color1 r1c2,r3c3,", " * color2 r1c3,r3c2,",
                      in(" * inserito 4 in   r1c3 ,   r3c2 , ", " * entered 4 in   r1c3 ,   r3c2 , ")}));
}

TEST_P(ColoursSearch, TenRecordedDeletionsFit) {
  draw(4, ten);
  EXPECT_EQ(deletions(),
            in("eliminato 4 from   r1c6 ,   r1c7 ,   r3c1 ,   r3c3 ,   r1c4 ,   r2c1 ,   r2c3 ,   r1c9 , ",
               "deleted 4 from   r1c6 ,   r1c7 ,   r3c1 ,   r3c3 ,   r1c4 ,   r2c1 ,   r2c3 ,   r1c9 , "));
  EXPECT_TRUE(player.boxes.empty());
}

// Without r4c1 r4c3 joins the cluster, and what it sees makes more than ten.
TEST_P(ColoursSearch, TheEleventhIsAFaultThatLeavesTheBoardAlone) {
  draw(4, ten);
  eliminate(at(4, 1), "4");
  before = theboard();
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

  draw(5, chain);  // the program goes on
  EXPECT_EQ(deletions(), in("eliminato 5 from   r1c6 , ", "deleted 5 from   r1c6 , "));
}
IN_BOTH_LANGUAGES(ColoursSearch);

// ---- x-colours: deletion ----------------------------------------------------------------------------------

class XColours : public Colouring {
 protected:
  using Colouring::Colouring;

  static std::string heading(const std::string& digit) {
    return GetParam() == italian
               ? lines(
                     {" TECNICA COLORI-X - LIVELLO 15", "E' una variante della tecnica dei colori",
                      "Si devono cercare coppie di celle all'interno di un gruppo (settore, riga o colonna) che "
                      "contengano univocamente lo stesso candidato",
                      "Si costruiscono due gruppi di colore. il primo basato sul presupposto che il candidato stia "
                      "nella prima cella, il secondo sul presupposto che il candidato stia nella seconda cella.",
                      "O il candidato sta nelle primo gruppo o nel secondo.",
                      "Il candidato può essere eliminato dalle intersezioni tra righe e colonne di due celle di "
                      "colore diverso.",
                      separator, "CANDIDATO = " + digit})
               : lines(
                     {" TECHNIQUE X-COLORS - LEVEL 15", "It is an extension of simple colors tecnique",
                      "We must find inside a house (block, row, column) 2 cells that contain unequivocally the "
                      "same candidate",
                      "When a house contains only 2 candidates for a number, one of them must be true and the "
                      "other must be false.",
                      "We build 2 groups of 2 colors, the first based on the number on the first cell, the second "
                      "basd on the number on the second cell.",
                      "The 2 groups of cells are colored with 2 different colors.",
                      "If the candidate is contained in first group, then it is NOT contained in the second group "
                      ", and vice versa.",
                      "The candidate may be deleted from intersections of rows and columns of differently colored "
                      "cells .",
                      "If the two groups have common cells, then the candidate must be true in the common cells",
                      separator, "CANDIDATE = " + digit});
  }
};

class XColoursDeletion : public XColours {
 protected:
  XColoursDeletion() : XColours(7) {
    draw(7, forced);
    number = "7";
  }
  const std::string hint = in("COLORI-X, è possibile eliminare il candidato dalle celle rosse",
                              "X-COLORS,7 may be deleted from red and entered on blue cells ");
  const std::string done = in(" * eliminato il candidato 7 da r3c8, ", " * deleted number 7 from r3c8, ");
  const Paint paint =
      marks({at(5, 2), at(3, 3)}, "green", marks({at(5, 8)}, "yellow", marks({at(3, 8)}, "red")));
};

TEST_P(XColoursDeletion, StepPaintsSaysAndDeletes) {
  player.script = {[&] { EXPECT_EQ(theboard(), before); }, go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 2u);
  EXPECT_EQ(player.frames[0], frame(hint, paint));
  EXPECT_EQ(look().hint, done);
  EXPECT_EQ(masks(), masksless(before, 7, {at(3, 8)}));
  EXPECT_EQ(visiblemarks(at(3, 8)), "12345689");
  EXPECT_FALSE(rowpos(7, 2).contains(7));
  EXPECT_TRUE(foundflag);
  EXPECT_EQ(colourdigit, 7);
  expectnopaint();
}

// Unlike the other techniques: the ladder goes on behind it.
TEST_P(XColoursDeletion, AStopLeavesBoardAndColoursAndHasFoundNothing) {
  steptag = "as it was";
  player.script = {stop};
  player.event(frmmain::stepxcolors);
  EXPECT_EQ(player.frames.size(), 1u);
  EXPECT_EQ(theboard(), before);
  EXPECT_EQ(look().hint, hint);
  EXPECT_EQ(look().candidate, paint);
  EXPECT_FALSE(foundflag);
  EXPECT_EQ(steptag, "as it was");
}

TEST_P(XColoursDeletion, TwinLogsTwoListsAndTheDeletion) {
  frmgenerazione::gradexcolors();
  EXPECT_EQ(Frmlog::Text3.text, "\r\n" + lines({hint, " * color1 r5c2,r3c3,", " * color2 r5c8,", done}));
  EXPECT_EQ(logcount, 4);
  EXPECT_EQ(logvalues(1), std::string(81, '0'));
  EXPECT_EQ(logvalues(2), "");
  EXPECT_EQ(runninglevel, 15);
  EXPECT_EQ(levelcount(15), 1);
  EXPECT_TRUE(foundflag);
  EXPECT_EQ(masks(), masksless(before, 7, {at(3, 8)}));
  EXPECT_EQ(candstr(at(3, 8)), "12345689");
  EXPECT_FALSE(rowpos(7, 2).contains(7));
  EXPECT_EQ(look().hint, "");
  expectnopaint();
}

// The step's green is the explanation's yellow, and the step's colours are still there when it begins.
TEST_P(XColoursDeletion, ExplanationFollowsBothHypothesesAndItsGoCarriesTheStepOut) {
  player.script = {help, go, go, go, go, go, go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 7u);
  std::string text =
      heading("7") + "\r\n" + in("il numero 7 o in r5c2 o in r5c8", "the number 7 or in r5c2 or in r5c8");
  Paint now = marks({at(5, 2)}, "yellow", marks({at(5, 8), at(3, 3)}, "green", marks({at(3, 8)}, "red")));
  EXPECT_EQ(player.frames[1], frame(hint, now, text));

  text += "\r\n" + in("se 7 in r5c2  allora 7 in tutte le celle colorate di giallo",
                      "if 7 in r5c2 then 7 is FALSE in red cells and TRUE in yellow cells ");
  now.erase(at(5, 8) * 10 + 7);
  now = ruledout(at(5, 2), now);
  EXPECT_EQ(now.at(at(5, 8) * 10 + 7), "red");
  EXPECT_EQ(player.frames[2], frame(hint, now, text));
  now = ruledout(at(3, 3), marks({at(3, 3)}, "yellow", now));
  EXPECT_EQ(player.frames[3], frame(hint, now, text));

  text += "\r\n" + in("se 7 in r5c8  allora 7 in tutte le celle colorate di verde",
                      "if 7 in r5c8  then 7  is FALSE in red cells and TRUE in green cells");
  EXPECT_EQ(player.frames[4], frame(hint, ruledout(at(5, 8), marks({at(5, 8)}, "green")), text));

  text += "\r\n" + in("Quindi 7 o nel gruppo giallo o nel gruppo verde",
                      "Then 7 or in yellow group or in green group");
  now = marks({at(5, 2), at(3, 3)}, "yellow", marks({at(5, 8)}, "green"));
  EXPECT_EQ(player.frames[5], frame(hint, now, text));
  text += "\r\n" + in("possiamo quindi eliminare il candidato 7 da tutte le celle rosse",
                      "we can, therefore, delete 7 from all red cells");
  EXPECT_EQ(player.frames[6], frame(hint, marks({at(3, 8)}, "red", now), text));
  EXPECT_FALSE(frmactivity::visible);
  EXPECT_EQ(look().hint, done);
  EXPECT_EQ(masks(), masksless(before, 7, {at(3, 8)}));
  expectnopaint();
}

TEST_P(XColoursDeletion, AStopEndsTheExplanationAtAnyOfItsWaits) {
  for (std::size_t waits = 1; waits <= 6; ++waits) {
    clearcolours();
    steptag = "colors";
    player.frames.clear();
    player.script = {help};
    for (std::size_t i = 1; i < waits; ++i) player.script.push_back(go);
    player.script.push_back(stop);
    player.event(frmmain::stepxcolors);
    EXPECT_EQ(player.frames.size(), waits + 1);
    EXPECT_TRUE(frmactivity::visible);
    EXPECT_EQ(look().candidate, player.frames.back().candidate);
    EXPECT_EQ(theboard(), before);
    EXPECT_EQ(look().hint, hint);
  }
}
IN_BOTH_LANGUAGES(XColoursDeletion);

class XColoursCommon : public XColours {
 protected:
  XColoursCommon() : XColours(6) {
    draw(6, common);
    number = "6";
  }
  const std::string hint = in("COLORI-X, è possibile eliminare il candidato dalle celle rosse",
                              "X-COLORS,6 may be deleted from red and entered on blue cells ");
  // The words run on as the deletions were recorded, each cell once.
  const std::string deleted = in(" * eliminato il candidato 6 da", " * deleted number 6 from") +
                              " r7c2,  r8c2,  r4c3,  r6c3,  r9c8,  r7c1,  r8c1, ";
  const Paint paint = marks(
      {at(5, 2)}, "green",
      marks({at(5, 8)}, "yellow",
            marks({at(9, 3)}, "cyan",
                  marks({at(7, 1), at(7, 2), at(8, 1), at(8, 2), at(4, 3), at(6, 3), at(9, 8)}, "red"))));
  void expectboard() const {
    EXPECT_EQ(values(), valueswith({at(9, 3)}, '6'));
    EXPECT_EQ(filledcount, 1);
    for (int cell : {at(7, 1), at(7, 2), at(8, 1), at(8, 2), at(4, 3), at(6, 3), at(9, 8)})
      EXPECT_FALSE(hascandidate(cell, 6)) << cell;
    EXPECT_EQ(candmask(at(9, 3)), 0);
    EXPECT_EQ(rowpos(6, 8).length(), 0);
    EXPECT_EQ(rowpos(6, 4).text(), "17");
    EXPECT_EQ(candstr(at(4, 3)), "12345789");
  }
};

TEST_P(XColoursCommon, StepDeletesWaitsAgainAndPlaces) {
  player.script = {go, [&] { EXPECT_EQ(values(), emptyboard); }, go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 3u);
  EXPECT_EQ(player.frames[0], frame(hint, paint));
  EXPECT_EQ(player.frames[1], frame(deleted, paint));
  EXPECT_EQ(look().hint, in(" * inserito 6 in  r9c3, ", " * placed 6 in  r9c3, "));
  expectboard();
  EXPECT_EQ(boxtexts(), values());
  EXPECT_TRUE(frmmain::Text1(at(9, 3)).visible);
  EXPECT_TRUE(foundflag);
  expectnopaint();
}

TEST_P(XColoursCommon, AStopAtTheSecondWaitPlacesAllTheSame) {
  player.script = {go, stop};
  player.event(mnuposition_Click);
  EXPECT_EQ(player.frames.size(), 2u);
  expectboard();
  expectnopaint();
}

TEST_P(XColoursCommon, TwinLogsThePlacingToo) {
  frmgenerazione::gradexcolors();
  EXPECT_EQ(Frmlog::Text3.text,
            "\r\n" + lines({hint, " * color1 r5c2,r9c3,", " * color2 r5c8,r9c3,", deleted,
                            in(" * inserito 6 in   r9c3 , ", " * placed 6 in   r9c3 , ")}));
  EXPECT_EQ(logcount, 5);
  EXPECT_EQ(runninglevel, 15);
  EXPECT_EQ(levelcount(15), 1);
  EXPECT_TRUE(foundflag);
  expectboard();
  EXPECT_EQ(boxtexts(), emptyboard);
}

TEST_P(XColoursCommon, ExplanationEndsWithTheBlueCells) {
  player.script = {help, go, go, go, go, go, go, go, go, go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 10u);
  // seeds, two cells of either group, then:
  const std::string text =
      heading("6") + (GetParam() == italian
                          ? "\r\nil numero 6 o in r5c2 o in r5c8"
                            "\r\nse 6 in r5c2  allora 6 in tutte le celle colorate di giallo"
                            "\r\nse 6 in r5c8  allora 6 in tutte le celle colorate di verde"
                            "\r\nQuindi 6 o nel gruppo giallo-azzurro o nel gruppo verde-azzurro"
                          : "\r\nthe number 6 or in r5c2 or in r5c8"
                            "\r\nif 6 in r5c2 then 6 is FALSE in red cells and TRUE in yellow cells "
                            "\r\nif 6 in r5c8  then 6  is FALSE in red cells and TRUE in green cells"
                            "\r\nThen 6 or in yellow-blue group or in green-blue group");
  const Paint groups = marks({at(5, 2)}, "yellow", marks({at(5, 8)}, "green", marks({at(9, 3)}, "cyan")));
  EXPECT_EQ(player.frames[6], frame(hint, groups, text));
  const std::string deletes = text + "\r\n" +
                              in("possiamo quindi eliminare il candidato 6 da tutte le celle rosse",
                                 "we can, therefore, delete 6 from all red cells");
  Paint all = groups;
  all.merge(Paint(paint));
  EXPECT_EQ(player.frames[7], frame(hint, all, deletes));
  const std::string places =
      deletes + (GetParam() == italian ? "\r\ne siccome le celle azzurre sono comune ai due gruppi "
                                         "\r\npossiamo inserire il candidato 6 nella cella azzurri"
                                       : "\r\nand, as the blue cell is common to the 2 groups "
                                         "\r\nwe can place 6 in blue cell");
  EXPECT_EQ(player.frames[8], frame(hint, all, places));
  EXPECT_EQ(player.frames[9], frame(deleted, {}));  // the step's second wait, on a cleared board
  expectboard();
}
IN_BOTH_LANGUAGES(XColoursCommon);

// ---- x-colours: clash -------------------------------------------------------------------------------------

class XColoursClash : public Colouring {
 protected:
  static std::string heading() {
    return GetParam() == italian
               ? lines(
                     {" TECNICA COLORI-X - CONTRADDIZIONE  - LIVELLO 16",
                      "E'una variante della tecnica dei colori",
                      "Si devono cercare coppie di celle all'interno di un gruppo (settore, riga o colonna) che "
                      "contengano univocamente lo stesso candidato",
                      "Si costruiscono due gruppi di colore. il primo basato sul presupposto che il candidato stia "
                      "nella prima cella, il secondo sul presupposto che il candidato stia nella prima cella.",
                      "O il candidato sta nelle primo gruppo o nel secondo.",
                      "Uno stesso colore non può comparire 2 volte nello stesso gruppo",
                      "Se compare una situazione simile possiamo escludere il candidato dal tutte le celle del "
                      "colore ed assegnarlo a tutte le celle dell'altro colore.",
                      "Questa tecnica è coincidente con una catena NISHIO, prima di arrivare ad un gruppo con due "
                      "celle dello stesso colore, possiamo trovare un gruppo dove il candidato non è più "
                      "possibile.",
                      separator, "CANDIDATO = 4"})
               : lines(
                     {" TECHNIQUE X-COLORS - CONTRADICTION - LEVEL 16",
                      "It is an extension of simple colors tecnique",
                      "We must find inside a house (block, row, column) 2 cells that contain unequivocally the "
                      "same candidate",
                      "When a house contains only 2 candidates for a number, one of them must be true and the "
                      "other must be false.",
                      "We build 2 groups of 2 colors, the first based on the number on the first cell, the second "
                      "basd on the number on the second cell.",
                      "The 2 groups of cells are colored with 2 different colors.",
                      "If the candidate is contained in first group, then it is NOT contained in the second group "
                      ", and vice versa.",
                      "If the two groups have common cells, then the candidate must be true in the common cells",
                      "A colors CAN NOT appear more than once in a house",
                      "If we find a similar situation we can delete the candidate from the color group and place "
                      "it on all the cell of the other color.",
                      "This technique is coinciding with a NISHIO CHAIN, before arriving to a house with 2 cells of "
                      "the same colors, we can find a house where the candidate is not more possible.",
                      separator, "CANDIDATE = 4"});
  }
  const std::string twice = in(
      "Il candidato compare due volte in un gruppo. IMPOSSIBILE - Il candidato è FALSO in TUTTE le celle del "
      "colore",
      "The candidate is contained twice in a House. IMPOSSIBLE - The candidate is FALSE in ALL the cells of the "
      "group");
  const std::string yellowhint = in("COLORI X tipo 2, il numero 4 è forzato nelle celle gialle",
                                    "COLORS X type 2, the number 4 it is forced in yellow cells");
  const std::string greenhint = in("COLORI X tipo 2, il numero 4 è forzato nelle celle verdi",
                                   "COLORS X type 2, the number 4 it is forced in green cells");
};

TEST_P(XColoursClash, OfTheFirstPlacesTheSecondSeedInYellow) {
  draw(4, firstfalse);
  const Paint paint = marks({at(9, 1), at(7, 7), at(2, 2), at(2, 9)}, "green", marks({at(9, 9)}, "yellow"));
  player.script = {[&] { EXPECT_EQ(theboard(), before); }, go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 2u);
  EXPECT_EQ(player.frames[0], frame(yellowhint, paint));
  EXPECT_EQ(look().hint, in(" * inserito 4 in   r9c9 , ", " * entered 4 in   r9c9 , "));
  EXPECT_EQ(values(), valueswith({at(9, 9)}, '4'));
  EXPECT_EQ(boxtexts(), values());
  EXPECT_TRUE(frmmain::Text1(at(9, 9)).visible);
  EXPECT_TRUE(foundflag);
  expectnopaint();
}

TEST_P(XColoursClash, OfTheSecondPlacesTheFirstSeedInGreen) {
  draw(4, secondfalse);
  const Paint paint = marks({at(2, 7)}, "green", marks({at(3, 8), at(5, 7), at(5, 1)}, "yellow"));
  player.script = {go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 1u);
  EXPECT_EQ(player.frames[0], frame(greenhint, paint));
  EXPECT_EQ(look().hint, in(" * inserito 4 in   r2c7 , ", " * entered 4 in   r2c7 , "));
  EXPECT_EQ(values(), valueswith({at(2, 7)}, '4'));
}

TEST_P(XColoursClash, AStopLeavesTheBoardAndEndsTheLadder) {
  draw(4, secondfalse);
  player.script = {stop};
  player.event(mnuposition_Click);
  EXPECT_EQ(player.frames.size(), 1u);
  EXPECT_EQ(theboard(), before);
  EXPECT_EQ(look().hint, greenhint);
  EXPECT_TRUE(foundflag);
  expectnopaint();
}

TEST_P(XColoursClash, TwinPlacesTheSeedAlone) {
  draw(4, firstfalse);
  frmgenerazione::gradexcolors();
  EXPECT_EQ(Frmlog::Text3.text,
            "\r\n" + lines({in("COLORI X CONTRADIZIONE, il numero 4 è forzato nelle celle color2",
                               "X-COLORS CONTRADICTION, the number 4 it is forced in color2 cells"),
                            " * color1 r9c1,r7c7,r2c2,r2c9,", " * color2 r9c9,",
                            in(" * inserito 4 in   r9c9 , ", " * entered 4 in   r9c9 , ")}));
  EXPECT_EQ(logcount, 4);
  EXPECT_EQ(logvalues(1), std::string(81, '0'));
  EXPECT_EQ(runninglevel, 16);
  EXPECT_EQ(levelcount(16), 1);
  EXPECT_EQ(levelcount(15), 0);
  EXPECT_TRUE(foundflag);
  EXPECT_EQ(values(), valueswith({at(9, 9)}, '4'));
  EXPECT_EQ(filledcount, 1);
  EXPECT_EQ(boxtexts(), emptyboard);
  EXPECT_EQ(colpos(4, 8).length(), 0);
}

TEST_P(XColoursClash, OfBothCallsTheSecondFalse) {
  draw(4, bothfalse);
  frmgenerazione::gradexcolors();
  EXPECT_EQ(Frmlog::Text3.text,
            "\r\n" + lines({in("COLORI X CONTRADIZIONE, il numero 4 è forzato nelle celle color1",
                               "X-COLORS CONTRADICTION, the number 4 it is forced in color1 cells"),
                            " * color1 r5c2,r3c3,r9c3,", " * color2 r5c8,r3c7,r9c7,",
                            in(" * inserito 4 in   r5c2 , ", " * entered 4 in   r5c2 , ")}));
  EXPECT_EQ(values(), valueswith({at(5, 2)}, '4'));
}

TEST_P(XColoursClash, ExplanationOfTheFirstIsYellowAndNamesTheGreenCell) {
  draw(4, firstfalse);
  player.script = {help, go, go, go, go, go, go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 7u);
  std::string text =
      heading() + "\r\n" + in("il numero 4 o in r9c1 o in r9c9", "the number 4 or in r9c1 or in r9c9");
  Paint now = marks({at(9, 1)}, "yellow", marks({at(9, 9), at(7, 7), at(2, 2), at(2, 9)}, "green"));
  EXPECT_EQ(player.frames[1], frame(yellowhint, now, text));
  now.erase(at(9, 9) * 10 + 4);
  text += "\r\n" + in("se 4 in r9c1  allora 4 in tutte le celle colorate di giallo",
                      "if 4 in r9c1 then 4 is FALSE in red cells and TRUE in yellow cells ");
  const int group[] = {at(9, 1), at(7, 7), at(2, 2), at(2, 9)};
  for (std::size_t i = 0; i < 4; ++i) {
    now[group[i] * 10 + 4] = "yellow";
    now = ruledout(group[i], now);
    EXPECT_EQ(player.frames[i + 2], frame(yellowhint, now, text));
  }
  text += "\r\n" + twice + "\r\n" +
          in("Quindi deve essere vero nel colore verde - cella r9c9",
             "Then must be TRUE in green group - cell r9c9");
  EXPECT_EQ(player.frames[6], frame(yellowhint, now, text));
  EXPECT_FALSE(frmactivity::visible);
  EXPECT_EQ(values(), valueswith({at(9, 9)}, '4'));
  expectnopaint();
}

// Nothing is cleared between the hypotheses: the first seed stays yellow.
TEST_P(XColoursClash, ExplanationOfTheSecondIsGreenAndNamesTheYellowCell) {
  draw(4, secondfalse);
  player.script = {help, go, go, go, go, go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 6u);
  std::string text =
      heading() + "\r\n" + in("il numero 4 o in r2c7 o in r3c8", "the number 4 or in r2c7 or in r3c8");
  Paint now = marks({at(2, 7), at(5, 7), at(5, 1)}, "yellow", marks({at(3, 8)}, "green"));
  EXPECT_EQ(player.frames[1], frame(greenhint, now, text));
  text += "\r\n" + in("se 4 in r3c8  allora 4 in tutte le celle colorate di verde",
                      "if 4 in r3c8  then 4  is FALSE in red cells and TRUE in green cells");
  const int group[] = {at(3, 8), at(5, 7), at(5, 1)};
  for (std::size_t i = 0; i < 3; ++i) {
    now[group[i] * 10 + 4] = "green";
    now = ruledout(group[i], now);
    EXPECT_EQ(player.frames[i + 2], frame(greenhint, now, text));
  }
  text += "\r\n" + twice + "\r\n" +
          in("Quindi deve essere vero nel colore giallo - cella r2c7",
             "Then must be TRUE in yellow group - cell r2c7");
  EXPECT_EQ(player.frames[5], frame(greenhint, now, text));
  EXPECT_EQ(values(), valueswith({at(2, 7)}, '4'));
  expectnopaint();
}

TEST_P(XColoursClash, AStopInTheExplanationStopsTheStep) {
  draw(4, secondfalse);
  player.script = {help, go, stop};
  player.event(mnuposition_Click);
  EXPECT_EQ(player.frames.size(), 3u);
  EXPECT_TRUE(frmactivity::visible);
  EXPECT_EQ(theboard(), before);
}
IN_BOTH_LANGUAGES(XColoursClash);

// ---- x-colours: the search --------------------------------------------------------------------------------

class XColoursSearch : public Colouring {};

// Row 1 has r1c8 alone, which r5c8 rules out. Two true cells in a house would be a contradiction, a house
// without any is none.
TEST_P(XColoursSearch, AHouseThatLosesAllPlacesIsNoContradiction) {
  Places places = chain;
  places.fill("xxx xxx xxx");
  places[0] = "... ... .x.";
  places[4] = ".x. ... .x.";
  draw(4, places);
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
  draw(4, firstfalse);
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
