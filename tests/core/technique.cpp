#include "technique.h"

#include <algorithm>

#include "grid.h"
#include "log.h"
#include "step.h"

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
  found.reserve(9);
  for (int p = 0; p < 9; ++p)
    found.push_back(at((number - 1) / 3 * 3 + p / 3 + 1, (number - 1) % 3 * 3 + p % 3 + 1));
  return less(found, but);
}

// ---- what is to be seen and read --------------------------------------------------------------------------

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

}  // namespace gradino::tests
