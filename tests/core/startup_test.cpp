// A program that is started again in the same process begins like a new one.
#include "startup.h"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "boxes.h"
#include "caseboard.h"
#include "player.h"
#include "singles.h"
#include "technique.h"

namespace gradino::tests {
namespace {

/// The last digit of a house has no explanation, and the other singles explain whatever stepcell and stepdigit
/// say: for them it is the empty steptag that says that there is none.
bool issingle(const Technique& technique) {
  for (const SingleRung& rung : singlerungs)
    if (&rung.technique == &technique) return true;
  return false;
}

TEST_F(Program, StartedAgainExplainsNoStepOfBefore) {
  int tried = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(casesfolder())) {
    if (entry.path().filename() != "board") continue;
    const CaseBoard board = readboard(entry.path());
    if (issingle(*board.technique)) continue;
    SCOPED_TRACE(entry.path().string());
    putboard(board);
    player.script.assign(80, go);
    player.frames.clear();
    player.event([&] { board.start ? board.start() : static_cast<void>(board.technique->step()); });
    EXPECT_FALSE(player.frames.empty());

    startprogram();
    player.frames.clear();
    player.event([&] { board.technique->explain(); });
    EXPECT_TRUE(player.frames.empty());
    EXPECT_FALSE(frmactivity::visible);
    ++tried;
  }
  EXPECT_GT(tried, 50);
}

}  // namespace
}  // namespace gradino::tests
