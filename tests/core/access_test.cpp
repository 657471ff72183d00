// What a screen reader says of the things on the screen.
#include "access.h"

#include <gtest/gtest.h>

#include "browser.h"
#include "captions.h"
#include "clock.h"
#include "commands.h"
#include "editing.h"
#include "grid.h"
#include "menu.h"
#include "player.h"
#include "stepsolver.h"
#include "view.h"

namespace gradino::tests {
namespace {

using namespace frmmain;

const std::string puzzle =
    "53..7....6..195....98....6.8...6...34..8.3..17...2...6.6....28....419..5....8..79";

class Access : public Program {};
class AccessInBoth : public Bilingual {};
IN_BOTH_LANGUAGES(AccessInBoth);

TEST_P(AccessInBoth, CellsAreToldAsTheyAreSeen) {
  EXPECT_EQ(spokencell(at(1, 1)).name, in("casella r1c1, vuota", "cell r1c1, empty")) << "nothing is shown";
  open(puzzle);  // which turns the pencil marks on
  EXPECT_EQ(spokencell(at(1, 1)).name, in("casella r1c1, cifra 5, data", "cell r1c1, digit 5, given"));
  EXPECT_EQ(spokencell(at(1, 3)).name,
            in("casella r1c3, vuota, candidati 1 2 4", "cell r1c3, empty, candidates 1 2 4"));
  EXPECT_EQ(spokencell(at(5, 5)).name,
            in("casella r5c5, vuota, candidato 5", "cell r5c5, empty, candidate 5"));
  EXPECT_EQ(spokencell(at(9, 5)).description, in("settore 8", "block 8"));
  writetext1(at(5, 5), "5");
  EXPECT_EQ(spokencell(at(5, 5)).name, in("casella r5c5, cifra 5", "cell r5c5, digit 5"));
  eliminate(at(1, 3), "124");
  EXPECT_EQ(spokencell(at(1, 3)).name,
            in("casella r1c3, vuota, nessun candidato", "cell r1c3, empty, no candidates"));
  mnupencil_Click();
  EXPECT_EQ(spokencell(at(1, 4)).name, in("casella r1c4, vuota", "cell r1c4, empty"));
}

TEST_P(AccessInBoth, ColoursAreToldInWords) {
  open(puzzle);
  Text1(at(1, 1)).back = red;
  EXPECT_EQ(spokencell(at(1, 1)).name,
            in("casella r1c1, cifra 5, data, in rosso", "cell r1c1, digit 5, given, in red"));
  Text1(at(1, 3)).back = yellow;  // not to be seen under the marks
  candidate(at(1, 3) * 10 + 4).back = green;
  candidate(at(1, 3) * 10 + 5).back = red;  // no candidate
  EXPECT_EQ(spokencell(at(1, 3)).name, in("casella r1c3, vuota, candidati 1 2 4; 4 in verde",
                                          "cell r1c3, empty, candidates 1 2 4; 4 in green"));
  candidate(at(1, 3) * 10 + 2).back = candidate(at(1, 3) * 10 + 1).back = orange;
  Text2(at(1, 3)).back = lightblue;
  EXPECT_EQ(spokencell(at(1, 3)).name,
            in("casella r1c3, vuota, candidati 1 2 4, in azzurro; 4 in verde; 1 2 in arancione",
               "cell r1c3, empty, candidates 1 2 4, in light blue; 4 in green; 1 2 in orange"));
  mnupencil_Click();
  EXPECT_EQ(spokencell(at(1, 3)).name, in("casella r1c3, vuota, in giallo", "cell r1c3, empty, in yellow"));
}

// The digit box covers the marks or leaves them free: whichever can be seen speaks for the cell.
TEST_P(AccessInBoth, GroundAndMarksTellNothingThatIsHidden) {
  open(puzzle);
  const int open = at(1, 3), given = at(1, 1);
  EXPECT_EQ(spokenground(open).name, spokencell(open).name);
  EXPECT_EQ(spokenground(given).name,
            in("candidati della casella r1c1, coperti", "pencil marks of cell r1c1, covered"));
  EXPECT_EQ(spokenmark(open * 10 + 4).name, in("candidato 4 in r1c3", "candidate 4 in r1c3"));
  candidate(open * 10 + 4).back = green;
  EXPECT_EQ(spokenmark(open * 10 + 4).name,
            in("candidato 4 in r1c3, in verde", "candidate 4 in r1c3, in green"));
  const std::string hidden = in("candidato nascosto in r1c3", "hidden candidate in r1c3");
  EXPECT_EQ(spokenmark(open * 10 + 5).name, hidden);
  mnupencil_Click();
  EXPECT_EQ(spokenmark(open * 10 + 4).name, hidden);
  EXPECT_EQ(spokenground(open).name,
            in("candidati della casella r1c3, coperti", "pencil marks of cell r1c3, covered"));
}

TEST_P(AccessInBoth, MarksUnderEditAndOtherTexts) {
  open(puzzle);
  modifica_Click();
  candidate_Click(at(1, 3) * 10 + 1);
  EXPECT_EQ(spokencell(at(1, 3)).name, in("casella r1c3, vuota, candidati in modifica 124",
                                          "cell r1c3, empty, candidates under edit 124"));
  Text1(at(5, 5)).text = "x";
  Text1(at(5, 5)).visible = true;
  EXPECT_EQ(spokencell(at(5, 5)).name, in("casella r5c5, testo x", "cell r5c5, text x"));
}

TEST_F(Access, AHintIsToldOnTheBoard) {
  open(puzzle);
  const Act look = [] {
    EXPECT_EQ(txthint.text, "hidden single in block 2, in r1c6");
    EXPECT_EQ(spokencell(at(1, 6)).name, "cell r1c6, empty, candidates 2 4 6 8; 8 in green");
    stop();
  };
  player.script = {look};
  player.event(mnuposition_Click);
}

TEST_P(AccessInBoth, TheRingTellsItsCell) {
  Text1_Click(at(4, 5));
  EXPECT_EQ(spokenring(7).name, in("cifra 7", "digit 7"));
  EXPECT_EQ(spokenring(7).description,
            in("scrive la cifra nella casella r4c5", "writes the digit into cell r4c5"));
  EXPECT_EQ(spokenring(0).name, in("svuota la casella", "clear the cell"));
}

TEST_P(AccessInBoth, LampPaletteNumbersPreview) {
  EXPECT_EQ(spoken(picstart).name, in("avvia il tempo", "start timer"));
  picstart_Click();
  EXPECT_EQ(spoken(picstart).name, in("ferma il tempo", "pause timer"));
  const char* colours[][2] = {
      {"giallo", "yellow"},   {"arancione", "orange"}, {"verde", "green"},
      {"ciano", "cyan"},      {"bianco", "white"},     {"azzurro", "light blue"},
      {"magenta", "magenta"}, {"rosso", "red"},        {"togli i colori", "clear colours"}};
  for (int n = 0; n <= 8; ++n) EXPECT_EQ(spokencolour(n).name, in(colours[n][0], colours[n][1])) << n;
  EXPECT_EQ(spokennumber(3).name, in("riga 4", "row 4"));
  EXPECT_EQ(spokennumber(13).name, in("colonna 5", "column 5"));
  mostralibreria();
  EXPECT_EQ(spokenlevel(4).name, in("Livello 4 - AVANZATO - coppie nude", "Level 4 - ADVANCED - naked pair"));
  EXPECT_EQ(spokenpreview(at(2, 9)).name, in("anteprima r2c9, vuota", "preview r2c9, empty"));
  frmlivello::Text2(at(2, 9)).text = "3";
  EXPECT_EQ(spokenpreview(at(2, 9)).name, in("anteprima r2c9, cifra 3", "preview r2c9, digit 3"));
}

// A thing that is added to the window and forgotten here would stay mute.
TEST_P(AccessInBoth, EveryKeyAndBoxHasANameAndADescription) {
  for (const auto& keys : {toolbar1rows(), toolbar2rows()})
    for (const KeyRow& row : keys) {
      if (row.control == nullptr) continue;
      EXPECT_FALSE(spoken(*row.control).name.empty() || spoken(*row.control).description.empty()) << row.key;
    }
  for (const Control* control : {&Pictgo, &Pictalt, &Picthelp, &picstart, &Picture2, &cmdlan, &cmdimpossibili,
                                 &Cmdtest, &cmdnice, &Check1, &frmlivello::Command1, &frmlivello::Command2,
                                 &frmlivello::Command3, &frmlivello::Command4, &frmlivello::Command5})
    EXPECT_FALSE(spoken(*control).name.empty() || spoken(*control).description.empty());
  for (const Box* box : {&txthint, &filetxt, &txtlivello, &testototale, &txtlivello1, &txtesposti, &txtvuoti,
                         &Text5, &tempotot, &txtprogressivo, &Frmlog::Text3, &frmactivity::Text3,
                         &frmgeneratore::Text1, &frmlivello::id})
    EXPECT_FALSE(spoken(*box).name.empty() || spoken(*box).description.empty());
  EXPECT_EQ(spoken(Pictgo).name, in("procedi", "go"));
  EXPECT_EQ(spoken(txthint).name, in("passo", "step"));
  EXPECT_EQ(spoken(Toolbar1::suggerisci).name, in("suggerisci", "hint"));
  EXPECT_EQ(spokenwindow(frmactivity::caption).name, frmactivity::caption);
  EXPECT_EQ(spoken(Box{}), Telling{});
}

}  // namespace
}  // namespace gradino::tests
