#include "caseboard.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <utility>
#include <vector>

#include "boxes.h"
#include "commands.h"
#include "grid.h"
#include "ladders.h"
#include "player.h"
#include "step.h"
#include "view.h"

namespace gradino::tests {
namespace {

constexpr std::string_view digits = "123456789";

std::string inquotes(std::string_view text) {
  return "\"" + std::string(text) + "\"";
}

std::string namedcell(std::size_t cell) {
  return "r" + std::to_string(cell / 9 + 1) + "c" + std::to_string(cell % 9 + 1);
}

class Reader {
 public:
  explicit Reader(std::filesystem::path file) : file_(std::move(file)) {}

  CaseBoard read() {
    std::ifstream in(file_);
    if (!in) fail("can't be read");
    for (std::string text; std::getline(in, text);) {
      ++line_;
      take(text);
    }
    line_ = 0;
    if (!said_) fail("begin with a line or two of comment (# ...): what is to be seen on the board?");
    if (board_.technique == nullptr) fail("a line \"technique: ...\" is missing");
    if (cells_.size() != cellcount) fail("has " + std::to_string(cells_.size() / 9) + " rows, not 9");
    draw();
    return board_;
  }

 private:
  [[noreturn]] void fail(const std::string& what) const {
    throw BadBoard(file_.string() + (line_ > 0 ? ":" + std::to_string(line_) : "") + ": " + what);
  }

  void take(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t\r");
    if (first == std::string::npos || text.find_first_not_of(" \t\r-+|") == std::string::npos) return;
    if (text[first] == '#')
      said_ = true;
    else if (text.find(':') != std::string::npos)
      setting(text.substr(first));
    else
      row(text);
  }

  void row(const std::string& text) {
    std::string bare = text;
    std::replace(bare.begin(), bare.end(), '|', ' ');
    std::istringstream in(bare);
    std::vector<std::string> cells;
    for (std::string cell; in >> cell;) cells.push_back(cell);
    if (cells_.size() == cellcount) fail("a tenth row: " + inquotes(text));
    if (cells.size() != 9)
      fail("row " + std::to_string(cells_.size() / 9 + 1) + " has " + std::to_string(cells.size()) +
           " cells, not 9");
    for (const std::string& cell : cells) {
      cells_.push_back(cell);
      lines_.push_back(line_);
    }
  }

  void setting(const std::string& text) {
    const std::size_t colon = text.find(':');
    const std::string name = text.substr(0, colon);
    std::string value;
    std::istringstream words(text.substr(colon + 1));
    for (std::string word; words >> word;) value += (value.empty() ? "" : " ") + word;
    if (name == "technique")
      board_.technique = techniquenamed(value);
    else if (name == "start")
      board_.start = startby(value);
    else if (name == "solution")
      board_.solution = solution(value);
    else if (name == "tag")
      board_.tag = value;
    else if (name == "nishio")
      board_.nishio = oneof(value, "yes", "no");
    else if (name == "pencil marks")
      board_.pencilmarks = oneof(value, "on", "off");
    else
      fail(inquotes(name) +
           " is no setting; there are technique, start, solution, tag, nishio, pencil marks");
  }

  bool oneof(const std::string& value, std::string_view yes, std::string_view no) const {
    if (value != yes && value != no)
      fail(inquotes(value) + " is neither " + std::string(yes) + " nor " + std::string(no));
    return value == yes;
  }

  std::string solution(const std::string& value) const {
    if (value.size() != cellcount || value.find_first_not_of(digits) != std::string::npos)
      fail("the solution is not 81 digits");
    return value;
  }

  const Technique* techniquenamed(const std::string& name) const {
    std::string all;
    for (const Technique* technique : hintladder) {
      if (technique->name == name) return technique;
      all += " " + std::string(technique->name);
    }
    fail("no technique is called " + inquotes(name) + "; there are" + all);
  }

  std::function<void()> startby(const std::string& value) const {
    const bool menu = value.starts_with("menu ");
    const std::string name = value.substr(std::min(value.size(), value.find(' ') + 1));
    if (menu)
      for (const MenuRow& row : menurows())
        if (row.caption.en == name && row.action != nullptr) return row.action;
    if (value.starts_with("key ")) {
      for (const KeyRow& row : toolbar1rows())
        if (row.control != nullptr && row.key == name) return [&row] { Toolbar1_ButtonClick(row); };
      for (const KeyRow& row : toolbar2rows())
        if (row.control != nullptr && row.key == name) return [&row] { Toolbar2_ButtonClick(row); };
    }
    fail("nothing is started by " + inquotes(value) + R"(: say "key NAME" or "menu CAPTION")");
  }

  // ---- the drawing ----------------------------------------------------------------------------------------

  void draw() {
    board_.digits.assign(cellcount, '.');
    for (std::size_t cell = 0; cell < cellcount; ++cell) {
      if (cells_[cell][0] != '=') continue;
      line_ = lines_[cell];
      if (cells_[cell].size() != 2 || digits.find(cells_[cell][1]) == std::string_view::npos)
        fail(badcell(cell));
      board_.digits[cell] = cells_[cell][1];
    }
    for (std::size_t cell = 0; cell < cellcount; ++cell) {
      line_ = lines_[cell];
      if (board_.digits[cell] == '.')
        board_.masks[cell] = maskof(cell);
      else if ((open(cell) & 1 << (board_.digits[cell] - '0')) == 0)
        fail(namedcell(cell) + ": " + board_.digits[cell] + " stands twice in a house");
    }
  }

  std::string badcell(std::size_t cell) const {
    return namedcell(cell) + ": " + inquotes(cells_[cell]) +
           " is no cell; write =5 for a digit, 358 for candidates, * for all, !58 for all but these, . for none";
  }

  /// What the digits elsewhere leave.
  int open(std::size_t cell) const {
    int mask = fullmask;
    for (std::size_t other = 0; other < cellcount; ++other) {
      const bool sees = other / 9 == cell / 9 || other % 9 == cell % 9 ||
                        (other / 27 == cell / 27 && other % 9 / 3 == cell % 9 / 3);
      if (other != cell && sees && board_.digits[other] != '.') mask &= ~(1 << (board_.digits[other] - '0'));
    }
    return mask;
  }

  int maskof(std::size_t cell) const {
    const std::string& text = cells_[cell];
    if (text == ".") return 0;
    if (text == "*") return open(cell);
    const bool allbut = text[0] == '!';
    const std::string named = text.substr(allbut ? 1 : 0);
    int mask = 0;
    for (char digit : named) {
      if (digits.find(digit) == std::string_view::npos) fail(badcell(cell));
      if (mask >= 1 << (digit - '0')) fail(namedcell(cell) + ": " + inquotes(text) + " is not ascending");
      mask |= 1 << (digit - '0');
    }
    if (mask == 0) fail(badcell(cell));
    if (allbut) return open(cell) & ~mask;
    if (const int seen = mask & ~open(cell); seen != 0)
      for (char digit : named)
        if ((seen & 1 << (digit - '0')) != 0)
          fail(namedcell(cell) + ": " + digit + " can't be a candidate, the cell sees it as a digit");
    return mask;
  }

  const std::filesystem::path file_;
  int line_ = 0;
  bool said_ = false;
  std::vector<std::string> cells_;
  std::vector<int> lines_;  ///< the line of the file with each cell
  CaseBoard board_;
};

}  // namespace

CaseBoard readboard(const std::filesystem::path& file) {
  return Reader(file).read();
}

void putboard(const CaseBoard& board) {
  putpuzzle(board.digits);
  for (int cell = 0; cell < cellcount; ++cell) {
    const auto c = static_cast<std::size_t>(cell);
    candmask(cell) = board.masks[c];
    solutiontext(cell) = board.solution.empty() ? "" : board.solution.substr(c, 1);
  }
  showdeletions();
  nishioflag = board.nishio;
  if (board.pencilmarks) showpencilmarks();
}

std::filesystem::path casesfolder() {
  return CASES;
}

void putcase(std::string_view name) {
  putboard(readboard(casesfolder() / name / "board"));
}

}  // namespace gradino::tests
