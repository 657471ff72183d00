#include "player.h"

#include <fstream>
#include <sstream>

#include <unistd.h>

#include "captions.h"
#include "explain.h"
#include "filecommands.h"
#include "grid.h"
#include "host.h"
#include "light.h"
#include "menu.h"
#include "runevent.h"
#include "startup.h"
#include "step.h"

namespace gradino::tests {
namespace {

template <class Boxes>
Paint paintof(const Boxes& boxes) {
  Paint paint;
  int index = Boxes::low;
  for (const Box& box : boxes) {
    if (box.back != white) paint[index] = colourname(box.back);
    ++index;
  }
  return paint;
}

std::ostream& operator<<(std::ostream& out, const Paint& paint) {
  for (const auto& [index, colour] : paint) out << ' ' << index << ':' << colour;
  return out;
}

std::string dotted(const std::string& text) {
  return text.empty() ? "." : text;
}

std::vector<std::string> texts(const Grid<Positions, 9, 9>& positions) {
  std::vector<std::string> all;
  for (int digit = 0; digit <= 9; ++digit)
    for (int house = 0; house <= 9; ++house) all.push_back(positions(digit, house).text());
  return all;
}

template <class T>
std::ostream& list(std::ostream& out, const char* name, const std::vector<T>& items) {
  out << '\n' << name << ':';
  for (const T& item : items) out << ' ' << item;
  return out;
}

}  // namespace

const Act go = Pictgo_Click, stop = Pictalt_Click, help = Picthelp_Click;

std::ostream& operator<<(std::ostream& out, const Frame& frame) {
  out << "[" << frame.tag << "] " << frame.hint << " (" << frame.number << ")";
  if (frame.activity) out << "\nactivity: " << *frame.activity;
  return out << "\nText1:" << frame.Text1 << "\nText2:" << frame.Text2 << "\ncandidate:" << frame.candidate
             << '\n';
}

Frame look() {
  Frame frame;
  frame.tag = steptag;
  frame.hint = frmmain::txthint.text;
  frame.number = frmmain::Text5.text;
  if (frmactivity::visible) frame.activity = frmactivity::Text3.text;
  frame.Text1 = paintof(frmmain::Text1);
  frame.Text2 = paintof(frmmain::Text2);
  frame.candidate = paintof(frmmain::candidate);
  return frame;
}

void Player::play() {
  host.waitevents = [this] {
    frames.push_back(look());
    if (script.empty()) throw Unscripted("a wait nobody scripted: " + frames.back().hint);
    const Act act = script.front();
    script.pop_front();
    event(act);
  };
  host.message = [this](const std::string& text) {
    boxes.push_back(text);
    if (onbox) onbox(text);
  };
  const auto dialog = [this](CommonDialog& box) {
    filters.push_back(box.filter);
    suggestions.push_back(box.filename);
    if (names.empty()) throw Unscripted("a file dialog nobody scripted");
    if (names.front()) box.filename = *names.front();
    names.pop_front();
  };
  host.showopen = host.showsave = dialog;
  host.clock = [this] { return now; };
  host.repaint = [this] { ++repaints; };
  host.runevents = [this] {
    ++turns;
    if (onevents) onevents();
  };
}

void Player::event(const std::function<void()>& body) {
  runevent(body);
}

std::ostream& operator<<(std::ostream& out, const Board& board) {
  out << "\nvalues: " << board.values << "\ngivens: " << board.givens << "\ntext1:  " << board.text1
      << "\nfilled: " << board.filledcount;
  list(out, "candmask", board.candmask);
  list(out, "candstr", board.candstr);
  return list(out, "usedmask", board.usedmask) << '\n';
}

Board theboard() {
  Board board;
  board.values = values();
  board.givens = giventexts();
  board.text1 = boxtexts();
  board.candmask = masks();
  for (int slot = 0; slot <= 107; ++slot) board.usedmask.push_back(usedmask(slot));
  for (int cell = 0; cell < cellcount; ++cell) board.candstr.push_back(candstr(cell));
  board.rowpos = texts(rowpos);
  board.colpos = texts(colpos);
  board.blockpos = texts(blockpos);
  board.filledcount = filledcount;
  return board;
}

std::string values() {
  std::string all;
  for (int cell = 0; cell < cellcount; ++cell)
    all += cellvalue(cell) == 0 ? "." : std::to_string(cellvalue(cell));
  return all;
}
std::string boxtexts() {
  std::string all;
  for (const Box& box : frmmain::Text1) all += dotted(box.text);
  return all;
}
std::string giventexts() {
  std::string all;
  for (int cell = 0; cell < cellcount; ++cell) all += dotted(givens(cell));
  return all;
}
std::vector<int> masks() {
  std::vector<int> all;
  all.reserve(cellcount);
  for (int cell = 0; cell < cellcount; ++cell) all.push_back(candmask(cell));
  return all;
}
std::string visiblemarks(int cell) {
  std::string marks;
  for (int digit = 1; digit <= 9; ++digit)
    if (frmmain::candidate(cell * 10 + digit).visible) marks += frmmain::candidate(cell * 10 + digit).text;
  return marks;
}

void putpuzzle(std::string_view puzzle) {
  suppresschange = true;
  for (int cell = 0; cell < cellcount; ++cell) {
    const char c = puzzle.at(static_cast<std::size_t>(cell));
    givens(cell) = c == '.' ? "" : std::string(1, c);
    writetext1(cell, givens(cell));
  }
  suppresschange = false;
  loadgivens();
  rebuildwhole();
  frmmain::filetxt.text = "puzzle";
}

Program::Program() {
  const auto* test = testing::UnitTest::GetInstance()->current_test_info();
  std::string name = std::string(test->test_suite_name()) + "." + test->name();
  for (char& c : name)
    if (c == '/') c = '_';
  folder_ = std::filesystem::temp_directory_path() / ("gradino-" + std::to_string(getpid())) / name;
  std::filesystem::create_directories(folder_);
  player.play();
  startprogram();
}

Program::~Program() {
  std::error_code error;
  std::filesystem::permissions(folder_, std::filesystem::perms::owner_all, error);
  std::filesystem::remove_all(folder_, error);
  std::filesystem::remove(folder_.parent_path(), error);
  host = {};
}

std::string Program::file(const std::string& name, std::string_view bytes) const {
  std::ofstream(path(name), std::ios::binary) << bytes;
  return path(name);
}

std::string Program::bytes(const std::string& name) {
  std::ostringstream all;
  all << std::ifstream(name, std::ios::binary).rdbuf();
  return all.str();
}

void Program::opennamed(const std::string& name) {
  player.names.emplace_back(name);
  player.event(mnuopen_Click);
}

void Program::open(std::string_view puzzle) {
  opennamed(file("puzzle.sav", std::string(puzzle) + "\r\n"));
}

void Program::eliminate(int cell, std::string_view digits) {
  for (char digit : digits) ASSERT_TRUE(deletecandidate(cell, digit - '0')) << cell << ' ' << digit;
  rebuildcandstr();
  updatetext2();
  rebuildpositions();
}

void Program::speak(int language) {
  if (lingua != language) cmdlan_Click();
}

std::string without(std::string_view puzzle, std::initializer_list<int> holes) {
  std::string left(puzzle);
  for (int cell : holes) left.at(static_cast<std::size_t>(cell)) = '.';
  return left;
}

std::string with(std::initializer_list<std::pair<int, char>> digits) {
  std::string board = emptyboard;
  for (const auto& [cell, digit] : digits) board.at(static_cast<std::size_t>(cell)) = digit;
  return board;
}

}  // namespace gradino::tests
