// The search that loops and XY-chains share, and the queue and tables that all chains share.
#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "chains.h"
#include "conjugatechains.h"
#include "nodequeue.h"
#include "player.h"
#include "step.h"
#include "tables.h"
#include "technique.h"

namespace gradino::tests {
namespace {

// ---- the queue --------------------------------------------------------------------------------------------

class NodeQueue : public Program {
 protected:
  NodeQueue() {
    clearqueue();
    addhypothesis(at(1, 1), 1, 0);
  }
};

TEST_F(NodeQueue, RefusesARepetitionThatIsHardlyShorter) {
  ASSERT_EQ(addnode(at(1, 2), 1, false, 0, 3), Added::yes);
  ASSERT_EQ(addnode(at(9, 9), 9, true, 0, 4), Added::yes);
  EXPECT_EQ(addnode(at(9, 9), 9, true, 0, 3), Added::refused);
  EXPECT_EQ(addnode(at(1, 2), 1, false, 1, 6), Added::refused);
  EXPECT_EQ(addnode(at(1, 1), 1, true, 1, 6), Added::refused);
  EXPECT_TRUE(player.boxes.empty());
  EXPECT_EQ(nodecount(), 3);
}

TEST_F(NodeQueue, TellsTheSameCellDigitAndTruthApart) {
  ASSERT_EQ(addnode(at(1, 2), 1, false, 0, 3), Added::yes);
  EXPECT_EQ(addnode(at(1, 2), 1, true, 0, 3), Added::yes);
  EXPECT_EQ(addnode(at(1, 2), 2, false, 0, 3), Added::yes);
  EXPECT_EQ(addnode(at(1, 3), 1, false, 0, 3), Added::yes);
  EXPECT_EQ(nodecount(), 5);
}

// Five characters more than the path of the node that leads here are the limit.
TEST_F(NodeQueue, AMuchShorterRepetitionIsToldAndAdded) {
  ASSERT_EQ(addnode(at(1, 2), 1, false, 0, 5), Added::yes);
  EXPECT_EQ(addnode(at(1, 2), 1, false, 0, 3), Added::yes);
  EXPECT_EQ(player.boxes, std::vector<std::string>{"catena più corta"});
  EXPECT_EQ(nodecount(), 3);
  EXPECT_EQ(chainpath(2), 3);
  // The one added last now refuses the next one, but only after the message box for the first has come again.
  EXPECT_EQ(addnode(at(1, 2), 1, false, 0, 3), Added::refused);
  EXPECT_EQ(player.boxes, (std::vector<std::string>{"catena più corta", "catena più corta"}));
}

TEST_F(NodeQueue, Holds261) {
  for (int k = 1; k <= 260; ++k) ASSERT_EQ(addnode(k % 81, 1 + k / 81, false, 0, 3), Added::yes) << k;
  EXPECT_EQ(nodecount(), 261);
  EXPECT_EQ(addnode(at(9, 9), 9, true, 0, 3), Added::full);
  EXPECT_EQ(addnode(at(1, 2), 1, false, 0, 3), Added::refused);
  EXPECT_EQ(nodecount(), 261);
  EXPECT_THROW(chaincell(261), Fault);
}

TEST_F(NodeQueue, AnIndexFrom100OnTakesFourCharacters) {
  EXPECT_EQ(tokenlength(0), 3);
  EXPECT_EQ(tokenlength(9), 3);
  EXPECT_EQ(tokenlength(10), 3);
  EXPECT_EQ(tokenlength(99), 3);
  EXPECT_EQ(tokenlength(100), 4);
  EXPECT_EQ(tokenlength(260), 4);
}

TEST_F(NodeQueue, LinkTablesHold41) {
  linkcell(40) = linkdigit(40) = 1;
  EXPECT_THROW(linkcell(41), Fault);
  EXPECT_THROW(linkdigit(41), Fault);
  EXPECT_THROW(linkflag(41), Fault);
}

// ---- against the literal search ---------------------------------------------------------------------------

class AnyBoard : public Program {
 protected:
  /// Some digits of a full board are there. Of what else is possible in the other cells, some is.
  void putany(unsigned seed) {
    random_.seed(seed);
    const int holes = 4 + below(7), kept = 1 + below(9);
    std::string digits(fullboard);
    for (char& digit : digits)
      if (below(10) < holes) digit = '.';
    put(digits);
    const int solution = below(8);
    Marks gone;
    for (int cell = 0; cell < cellcount; ++cell) {
      const char digit = fullboard[static_cast<std::size_t>(cell)];
      const char claimed = solution == 1 ? static_cast<char>('1' + below(9)) : digit;
      solutiontext(cell) = solution == 0 ? "" : std::string(1, claimed);
      for (char other : std::string(candstr(cell)))
        if (other != digit && below(10) >= kept) gone.emplace_back(cell, std::string(1, other));
    }
    take(gone);
    nishioflag = below(2) == 1;
  }

  /// No digits, and 5 is in r8c1 or in r8c9. In r8c1 it leaves each other row with a digit in column 1, and
  /// that leaves it with one in another column: from most statements very much follows.
  void putdense(unsigned seed) {
    random_.seed(seed);
    put(emptyboard);
    std::string digits = "12346789", columns = "23456789";
    std::shuffle(digits.begin(), digits.end(), random_);
    std::shuffle(columns.begin(), columns.end(), random_);
    Marks marks = {{at(8, 1), "125"}, {at(8, 9), "125"}};
    for (std::size_t k = 0; k < 8; ++k) {
      const int row = k == 7 ? 9 : static_cast<int>(k) + 1;
      marks.emplace_back(at(row, 1), std::string{'5', digits[k]});
      marks.emplace_back(at(row, columns[k] - '0'), std::string{digits[k], digits[(k + 1) % 8]});
    }
    for (int more = below(4); more > 0; --more)
      marks.emplace_back(at(7 + 2 * below(2), 2 + below(2)), std::string{'5', digits[0]});
    take("5", row(8, {at(8, 1), at(8, 9)}));
    leave(marks);
    for (int cell = 0; cell < cellcount; ++cell) solutiontext(cell).clear();
    nishioflag = below(2) == 1;
  }

 private:
  int below(unsigned limit) { return static_cast<int>(random_() % limit); }

  std::mt19937 random_;
};

/// What a run over many boards has met.
struct Met {
  int loops = 0, xychains = 0, longest = 0, fullqueues = 0, longwalks = 0;
};

void expectasliteral(unsigned seed, const Player& player, Met& met) {
  const LiteralSearch loop(false), xychain(true);
  EXPECT_EQ(xychainfound(), xychain.chain) << seed;
  EXPECT_EQ(loopfound(), loop.chain) << seed;
  if (!loop.chain.empty()) met.longest = std::max<int>(met.longest, chainlength);
  EXPECT_EQ(player.boxes, std::vector<std::string>{});
  met.loops += !loop.chain.empty();
  met.xychains += !xychain.chain.empty();
  met.fullqueues += loop.fullqueues;
  met.longwalks += loop.longwalks;
}

TEST_F(AnyBoard, WhatIsFoundIsWhatIsFoundLiterally) {
  Met met;
  for (unsigned seed = 1; seed <= 1000; ++seed) {
    putany(seed);
    expectasliteral(seed, player, met);
  }
  EXPECT_GT(met.loops, 500);
  EXPECT_GT(met.xychains, 200);
  EXPECT_GT(met.longest, 10);
}

// 250 nodes end the walk, a full queue ends it at once.
TEST_F(AnyBoard, AlsoWhereMoreFollowsThanTheQueueHolds) {
  Met met;
  for (unsigned seed = 1; seed <= 600; ++seed) {
    putdense(seed);
    expectasliteral(seed, player, met);
  }
  EXPECT_GT(met.loops, 200);
  EXPECT_GT(met.longwalks, 1000);
  EXPECT_GT(met.fullqueues, 150);
}

}  // namespace
}  // namespace gradino::tests
