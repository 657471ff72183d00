#include "technique.h"

#include <algorithm>

#include "gradestate.h"
#include "grid.h"
#include "log.h"
#include "step.h"
#include "stepsolver.h"

namespace gradino::tests {
namespace {

void redraw() {
  rebuildcandstr();
  updatetext2();
  rebuildpositions();
}

int maskof(const std::string& digits) {
  int mask = 0;
  for (char digit : digits) mask |= bitvalue(digit - '0');
  return mask;
}

bool among(const std::vector<int>& all, int one) {
  return std::find(all.begin(), all.end(), one) != all.end();
}

std::vector<int> less(const std::vector<int>& cells, const std::vector<int>& but) {
  std::vector<int> left;
  for (int cell : cells)
    if (!among(but, cell)) left.push_back(cell);
  return left;
}

std::string asread(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += "\r\n" + line;
  return text;
}

}  // namespace

// ---- boards -----------------------------------------------------------------------------------------------

Marks each(const std::vector<int>& cells, const std::string& digits) {
  Marks marks;
  for (int cell : cells) marks.emplace_back(cell, digits);
  return marks;
}

void leave(const Marks& marks) {
  for (const auto& [cell, digits] : marks)
    for (int digit = 1; digit <= 9; ++digit)
      if (!(maskof(digits) & bitvalue(digit))) deletecandidate(cell, digit);
  redraw();
}
void leave(int cell, const std::string& digits) {
  leave({{cell, digits}});
}

void take(const Marks& marks) {
  for (const auto& [cell, digits] : marks)
    for (char digit : digits) deletecandidate(cell, digit - '0');
  redraw();
}
void take(const std::string& digits, const std::vector<int>& from) {
  take(each(from, digits));
}

void only(const Marks& marks) {
  for (int cell = 0; cell < cellcount; ++cell) candmask(cell) = 0;
  for (const auto& [cell, digits] : marks) candmask(cell) = maskof(digits);
  redraw();
}

void places(int digit, const std::vector<int>& where) {
  for (int cell = 0; cell < cellcount; ++cell)
    if (!among(where, cell)) deletecandidate(cell, digit);
  redraw();
}

void putmasks(const std::vector<int>& masks) {
  for (int cell = 0; cell < cellcount; ++cell) candmask(cell) = masks.at(static_cast<std::size_t>(cell));
  redraw();
}

std::vector<int> row(int number, const std::vector<int>& but) {
  std::vector<int> found;
  for (int p = 1; p <= 9; ++p) found.push_back(at(number, p));
  return less(found, but);
}
std::vector<int> column(int number, const std::vector<int>& but) {
  std::vector<int> found;
  for (int p = 1; p <= 9; ++p) found.push_back(at(p, number));
  return less(found, but);
}
std::vector<int> block(int number, const std::vector<int>& but) {
  std::vector<int> found;
  for (int p = 0; p < 9; ++p)
    found.push_back(at((number - 1) / 3 * 3 + p / 3 + 1, (number - 1) % 3 * 3 + p % 3 + 1));
  return less(found, but);
}

// ---- what is to be seen and read --------------------------------------------------------------------------

Paint painted(const Marks& marks, const std::string& colour, Paint besides) {
  for (const auto& [cell, digits] : marks)
    for (char digit : digits) besides[cell * 10 + digit - '0'] = colour;
  return besides;
}

Paint boxes(const std::vector<int>& cells, const std::string& colour, Paint besides) {
  for (int cell : cells) besides[cell] = colour;
  return besides;
}

void expectnopaint() {
  const Frame now = look();
  EXPECT_EQ(now.Text1, Paint{});
  EXPECT_EQ(now.Text2, Paint{});
  EXPECT_EQ(now.candidate, Paint{});
}

void expectmarks(const Board& board) {
  for (int cell = 0; cell < cellcount; ++cell)
    EXPECT_EQ(visiblemarks(cell), board.candstr[static_cast<std::size_t>(cell)]) << cell;
}

Said operator+(const Said& said, const Said& more) {
  return {said.it + more.it, said.en + more.en};
}

std::string hintof(Player& player, void (*step)(), const Act& answer) {
  player.script = {answer};
  player.frames.clear();
  player.event(step);
  return player.frames.empty() ? "" : player.frames[0].hint;
}

std::string logged(void (*twin)()) {
  Frmlog::Text3.text.clear();
  twin();
  return Frmlog::Text3.text;
}

void expecttwin(void (*twin)(), int level, const std::vector<std::string>& lines, const Board& after) {
  const Board before = theboard();
  std::string digits = before.values, commas;
  std::replace(digits.begin(), digits.end(), '.', '0');
  for (int mask : before.candmask) commas += std::to_string(mask) + ",";
  frmmain::txthint.text = frmmain::Text5.text = steptag = "as it was";
  twin();
  EXPECT_EQ(Frmlog::Text3.text, asread(lines));
  EXPECT_EQ(logcount, static_cast<int>(lines.size()));
  EXPECT_EQ(logvalues(1), digits);
  EXPECT_EQ(logcands(1), commas);
  EXPECT_EQ(logcands(2), "");
  EXPECT_EQ(runninglevel, level);
  for (int other = 1; other <= 21; ++other) EXPECT_EQ(levelcount(other), other == level ? 1 : 0) << other;
  EXPECT_TRUE(foundflag);
  EXPECT_EQ(theboard(), after);
  EXPECT_EQ(frmmain::txthint.text, "as it was");
  EXPECT_EQ(frmmain::Text5.text, "as it was");
  EXPECT_EQ(steptag, "as it was");
  expectmarks(before);
  expectnopaint();
}

void expecttwininajob(void (*twin)(), int level, const std::vector<std::string>& lines) {
  const Job job("genera");
  runninglevel = 21;
  twin();
  EXPECT_EQ(Frmlog::Text3.text, asread(lines));
  EXPECT_EQ(logcount, static_cast<int>(lines.size()) - 1);
  EXPECT_EQ(logcands(0), "");
  EXPECT_EQ(logcands(1), "");
  EXPECT_EQ(runninglevel, 21);
  EXPECT_EQ(levelcount(level), 1);
}

// ---- examples ---------------------------------------------------------------------------------------------

EachExample::EachExample() {
  speak(std::get<int>(GetParam()));
  put(emptyboard);
  leave(one().held);
  for (const auto& [cell, digits] : one().taken) eliminate(cell, digits);
  after = theboard();
  put(emptyboard);
  leave(one().held);
  before = theboard();
}

Board EachExample::waiting() const {
  Board board = before;
  if (one().narrowed) board.candmask = after.candmask;
  return board;
}

Frame EachExample::shownframe() {
  return {.tag = one().tag,
          .hint = one().hint.text(),
          .number = one().number,
          .activity = {},
          .Text1 = {},
          .Text2 = one().Text2,
          .candidate = one().candidate};
}

Frame EachExample::arguedframe(std::size_t k) {
  Frame frame = shownframe();
  std::string text;
  for (std::size_t i = 0; i <= k; ++i) text += one().lesson[i].adds.text();
  frame.activity = text;
  frame.Text2 = one().lesson[k].Text2;
  frame.candidate = one().lesson[k].candidate;
  return frame;
}

std::vector<std::string> EachExample::loglines() {
  std::vector<std::string> lines;
  for (const Said& line : one().log) lines.push_back(line.text());
  return lines;
}

void EachExample::explaineduntil(std::size_t k, const Act& last) {
  player.script = {help};
  player.script.insert(player.script.end(), k, go);
  player.script.push_back(last);
}

TEST_P(EachExample, IsTheNextStepShowsItselfAndOnGoActs) {
  player.script = {[&] { EXPECT_EQ(theboard(), waiting()); }, go};
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 2u);
  EXPECT_EQ(player.frames[0], shownframe());
  EXPECT_EQ(theboard(), after);
  EXPECT_EQ(frmmain::txthint.text, one().done.text());
  expectmarks(after);
  EXPECT_TRUE(foundflag);
  expectnopaint();
}

// A stop that leaves foundflag ends the ladder, too.
TEST_P(EachExample, AStopTakesNothingAway) {
  foundflag = !one().foundbystop;
  player.script = {stop};
  player.event(one().foundbystop ? mnuposition_Click : one().step);
  ASSERT_EQ(player.frames.size(), 1u);
  EXPECT_EQ(theboard(), waiting());
  EXPECT_EQ(frmmain::txthint.text, one().hint.text());
  EXPECT_EQ(steptag, one().tag);
  EXPECT_EQ(foundflag, one().foundbystop);
  expectmarks(before);
  expectnopaint();
}

TEST_P(EachExample, TwinLogsCountsAndActsWithoutABox) {
  expecttwin(one().twin, one().level, loglines(), after);
}

TEST_P(EachExample, TwinInALongJobWritesAllItsLinesButCountsNoHeadline) {
  expecttwininajob(one().twin, one().level, loglines());
  EXPECT_EQ(theboard(), after);
}

TEST_P(EachExample, ExplanationArguesAndItsGoCarriesTheStepOut) {
  explaineduntil(one().lesson.size() - 1, go);
  player.event(mnuposition_Click);
  ASSERT_EQ(player.frames.size(), 1 + one().lesson.size());
  EXPECT_EQ(player.frames[0], shownframe());
  for (std::size_t k = 0; k < one().lesson.size(); ++k) EXPECT_EQ(player.frames[1 + k], arguedframe(k)) << k;
  EXPECT_FALSE(frmactivity::visible);
  EXPECT_EQ(theboard(), after);
  EXPECT_EQ(frmmain::txthint.text, one().done.text());
  expectmarks(after);
  expectnopaint();
}

TEST_P(EachExample, ExplanationTakesNothingAwayItselfAndLeavesAWhiteBoard) {
  explaineduntil(one().lesson.size() - 1, go);
  player.script.front() = [&] {
    help();
    const std::string closing = one().closing.text();
    EXPECT_EQ(frmmain::txthint.text, closing.empty() ? one().hint.text() : closing);
    EXPECT_EQ(theboard(), waiting());
    EXPECT_FALSE(frmactivity::visible);
    expectnopaint();
  };
  player.event(one().step);
  EXPECT_TRUE(player.script.empty());
}

TEST_P(EachExample, AStopInTheExplanationStopsTheStepAndLeavesTheWindowOpen) {
  for (std::size_t k = 0; k < one().lesson.size(); ++k) {
    put(emptyboard);
    leave(one().held);
    clearcolours();
    foundflag = !one().foundbystop;
    player.frames.clear();
    explaineduntil(k, stop);
    player.event(one().step);
    ASSERT_EQ(player.frames.size(), 2 + k);
    EXPECT_TRUE(frmactivity::visible);
    EXPECT_EQ(frmactivity::Text3.text, arguedframe(k).activity);
    EXPECT_EQ(look().Text1, Paint{});
    EXPECT_EQ(look().Text2, Paint{});
    EXPECT_EQ(look().candidate, one().lesson[k].left) << k;
    EXPECT_EQ(frmmain::txthint.text, one().hint.text());
    EXPECT_EQ(theboard(), waiting());
    EXPECT_EQ(foundflag, one().foundbystop);
  }
}

TEST_P(EachExample, WhatOtherCommandsFindDuringTheWaitIsNotTheSteps) {
  for (const bool found : {false, true})
    for (const bool stopped : {false, true}) {
      put(emptyboard);
      leave(one().held);
      player.script = {[&] { foundflag = found; }, stopped ? stop : go};
      player.event(one().step);
      EXPECT_TRUE(player.script.empty());
      EXPECT_EQ(foundflag, !stopped || one().foundbystop);
    }
}

// An empty board has no technique on it.
TEST_P(EachExample, ASearchInVainDuringTheExplanationLeavesTheExplanationAlone) {
  explaineduntil(one().lesson.size() - 1, go);
  player.script.insert(player.script.begin() + 1, [&] {
    put(emptyboard);
    one().step();
    EXPECT_EQ(steptag, one().tag);
    put(emptyboard);
    leave(one().held);
    for (int cell = 0; cell < cellcount; ++cell)
      candmask(cell) = waiting().candmask[static_cast<std::size_t>(cell)];
  });
  player.event(one().step);
  ASSERT_EQ(player.frames.size(), 2 + one().lesson.size());
  for (std::size_t k = 0; k < one().lesson.size(); ++k) EXPECT_EQ(player.frames[2 + k], arguedframe(k)) << k;
  EXPECT_EQ(theboard(), after);
  EXPECT_EQ(frmmain::txthint.text, one().done.text());
}

// Menus work during a wait, and what they start in the generator's form has no window of its own. Rows and
// columns exchanged, the technique finds something else.
TEST_P(EachExample, ATwinDuringTheWaitLeavesTheExplanationAlone) {
  Marks turned;
  for (const auto& [cell, digits] : one().held) turned.emplace_back(cell % 9 * 9 + cell / 9, digits);
  explaineduntil(one().lesson.size() - 1, go);
  player.script.push_front([&] {
    put(emptyboard);
    leave(turned);
    one().twin();
    EXPECT_EQ(levelcount(one().level), 1);
    put(emptyboard);
    leave(one().held);
    for (int cell = 0; cell < cellcount; ++cell)
      candmask(cell) = waiting().candmask[static_cast<std::size_t>(cell)];
  });
  player.event(one().step);
  ASSERT_EQ(player.frames.size(), 2 + one().lesson.size());
  for (std::size_t k = 0; k < one().lesson.size(); ++k) EXPECT_EQ(player.frames[2 + k], arguedframe(k)) << k;
  EXPECT_EQ(theboard(), after);
}

}  // namespace gradino::tests
