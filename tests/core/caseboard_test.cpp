// Board files that something is wrong with say what, and where.
#include "caseboard.h"

#include <gtest/gtest.h>

#include "grid.h"
#include "player.h"
#include "step.h"
#include "view.h"

namespace gradino::tests {
namespace {

const std::string head = "# A board.\ntechnique: findxwing\n";
const std::string anyrow = "* * * | * * * | * * *\n";
const std::string eight =
    anyrow + anyrow + anyrow + "------+-------+------\n" + anyrow + anyrow + anyrow + anyrow + anyrow;

class BoardFile : public Program {
 protected:
  CaseBoard read(const std::string& text) const { return readboard(file("board", text)); }

  /// What is said of a file, without its path.
  std::string said(const std::string& text) const {
    try {
      read(text);
    } catch (const BadBoard& bad) {
      return std::string(bad.what()).substr(path("board").size());
    }
    return "";
  }
};

TEST_F(BoardFile, IsPutUpAsDrawn) {
  const std::string solution(fullboard);
  putboard(read(head + "nishio: yes\nsolution: " + solution + "\n=5 * !12 378 . * * * *\n" + eight));
  EXPECT_EQ(values(), "5" + std::string(80, '.'));
  EXPECT_EQ(candstr(1), "12346789");
  EXPECT_EQ(candstr(2), "346789");
  EXPECT_EQ(candstr(4), "");
  EXPECT_EQ(candstr(80), "123456789");
  EXPECT_EQ(visiblemarks(2), "346789");
  EXPECT_EQ(rowpos(3, 0).text(), "1235678");
  EXPECT_EQ(solutiontext(80), solution.substr(80));
  EXPECT_TRUE(nishioflag);
  EXPECT_TRUE(pencilmarks());
  EXPECT_FALSE(frmmain::Text1(1).visible);
}

TEST_F(BoardFile, WithACandidateThatIsSeenAsADigitSaysWhich) {
  EXPECT_EQ(said(head + "=5 358 * * * * * * *\n" + eight),
            ":3: r1c2: 5 can't be a candidate, the cell sees it as a digit");
}

TEST_F(BoardFile, ThatIsGarbledSaysWhereAndHow) {
  const std::string nocell =
      " is no cell; write =5 for a digit, 358 for candidates, * for all, !58 for all but these, . for none";
  EXPECT_EQ(said(head + "* * * 3x8 * * * * *\n" + eight), ":3: r1c4: \"3x8\"" + nocell);
  EXPECT_EQ(said(head + "* * * =0 * * * * *\n" + eight), ":3: r1c4: \"=0\"" + nocell);
  EXPECT_EQ(said(head + "* * * ! * * * * *\n" + eight), ":3: r1c4: \"!\"" + nocell);
  EXPECT_EQ(said(head + "* * * 385 * * * * *\n" + eight), ":3: r1c4: \"385\" is not ascending");
  EXPECT_EQ(said(head + "* * * * * * * *\n" + eight), ":3: row 1 has 8 cells, not 9");
  EXPECT_EQ(said(head + "=5 * * * * * * =5 *\n" + eight), ":3: r1c1: 5 stands twice in a house");
  EXPECT_EQ(said(head + eight), ": has 8 rows, not 9");
  EXPECT_EQ(said(head + eight + anyrow + anyrow), ":13: a tenth row: \"* * * | * * * | * * *\"");
}

TEST_F(BoardFile, WithAWrongSettingSaysWhatThereIs) {
  EXPECT_EQ(said("technique: findxwing\n" + eight + anyrow),
            ": begin with a line or two of comment (# ...): what is to be seen on the board?");
  EXPECT_EQ(said("# A board.\n" + eight + anyrow), ": a line \"technique: ...\" is missing");
  EXPECT_TRUE(said("# A board.\ntechnique: xwin\n" + eight + anyrow)
                  .starts_with(":2: no technique is called \"xwin\"; there are findOneMissing "));
  EXPECT_EQ(
      said(head + "solutoin: 1\n" + eight + anyrow),
      ":3: \"solutoin\" is no setting; there are technique, start, solution, tag, nishio, pencil marks");
  EXPECT_EQ(said(head + "solution: 12\n" + eight + anyrow), ":3: the solution is not 81 digits");
  EXPECT_EQ(said(head + "nishio: perhaps\n" + eight + anyrow), ":3: \"perhaps\" is neither yes nor no");
  EXPECT_EQ(said(head + "start: key chian\n" + eight + anyrow),
            ":3: nothing is started by \"key chian\": say \"key NAME\" or \"menu CAPTION\"");
}

TEST_F(BoardFile, ThatIsNotThereSaysSo) {
  EXPECT_THROW(readboard(path("none")), BadBoard);
}

// Each way is one of those that the command tables have.
TEST_F(BoardFile, NamesWhoStartsTheStep) {
  EXPECT_TRUE(read(head + "start: key chain\n" + eight + anyrow).start);
  EXPECT_TRUE(read(head + "start: menu Coloring\n" + eight + anyrow).start);
  EXPECT_FALSE(read(head + eight + anyrow).start);
  EXPECT_EQ(read(head + "tag: colors\n" + eight + anyrow).tag, "colors");
}

}  // namespace
}  // namespace gradino::tests
