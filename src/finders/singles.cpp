// Singles: a digit that has just one place left in a house, or a cell that has just one digit left.
//
//   last digit of a house   eight of nine are placed                       level 0
//   hidden single           one place left in a block (cross-hatching)     level 0
//                           ... in a row or column                         level 1
//   naked single            one candidate left in a cell                   level 2
//
// The hidden single in a block is easier than one in a line because the eye finds it by crossing out rows and
// columns; that is this program's own scale.
#include "singles.h"

#include <bit>

#include "boxes.h"
#include "gradestate.h"
#include "grid.h"
#include "houses.h"
#include "lesson.h"
#include "light.h"
#include "log.h"
#include "step.h"
#include "tables.h"
#include "view.h"
#include "words.h"

namespace gradino {
namespace {

// ---- words ------------------------------------------------------------------------------------------------

// The last digit of a house says the same in the hint and in the log; the missing number of the house and the
// blanks around it belong to the sentence.
constexpr Words lastinrow = {"{digit} unico rimanante nella riga , in r{row}c{col}",
                             "{digit} last digit in  row , r{row}c{col}"};
constexpr Words lastincolumn = {"{digit} unico rimanante nella colonna , in r{row}c{col}",
                                "{digit} last digit in  column , r{row}c{col}"};
constexpr Words lastinblock = {"{digit} unico rimanante nel settore , in r{row}c{col}",
                               "{digit} last digit in  block , r{row}c{col}"};

// The hint leaves the digit to Text5; the log begins with it, and has two blanks in Italian.
constexpr Words hintblock = {"hidden single nel settore {house}, in r{row}c{col}",
                             "hidden single in block {house}, in r{row}c{col}"};
constexpr Words headblock = {"{digit} hidden single  nel settore {house}, in r{row}c{col}",
                             "{digit} hidden single in block {house}, in r{row}c{col}"};
constexpr Words hintrow = {"hidden single nella riga {house}, in r{row}c{col}",
                           "hidden single in row {house}, in r{row}c{col}"};
constexpr Words headrow = {"{digit} hidden single  nella riga {house}, in r{row}c{col}",
                           "{digit} hidden single in row {house}, in r{row}c{col}"};
constexpr Words hintcolumn = {"hidden single nella colonna {house}, in r{row}c{col}",
                              "hidden single in column {house}, in r{row}c{col}"};
constexpr Words headcolumn = {"{digit} hidden single  nella colonna {house}, in r{row}c{col}",
                              "{digit} hidden single in column {house}, in r{row}c{col}"};
constexpr Words hintcell = {"naked single nella cella r{row}c{col}", "naked single in cell r{row}c{col}"};
constexpr Words headcell = {"{digit} naked single  nella cella r{row}c{col}",
                            "{digit} naked single in cell r{row}c{col}"};

constexpr Words crosshatching = {
    "HIDDEN SINGLE nel settore\r\n"
    "la maggior parte delle volte coincide con\r\n"
    "NUMERI OBBLIGATI DALLA POSIZIONE DEI SIMILI - LIVELLO 0\r\n"
    "E' la tecnica più semplice del Sudoku. Per definizione, in un gruppo (settore riga o cella), ogni candidato "
    "deve essere contenuto una ed una sola volta.\r\n"
    "La posizione dei suoi simili può quindi determinare il collocamento di un candidato in una detrminata cella.",
    " HIDDEN SINGLE in the block\r\n"
    "most of the times is coincidimg with \r\n"
    "CROSS-HATCHING - number forced by the position of similar-LEVEL 0\r\n"
    "Is the simplest technique of Sudoku. By definition, inside a house (block, row, column), all number from 1 "
    "to 9  must be contained .\r\n"
    "The position of similar can therefore force the position of a number in a particular cell."};
constexpr Words alreadyplaced = {"il numero {digit} è già presente nella ",
                                 "the number {digit} is already placed in the "};
constexpr Words placedinrow = {"riga {row}, ", "row {row}, "};
constexpr Words placedincolumn = {"colonna {col}, ", "column {col}, "};
constexpr Words ruledout = {"in r{row}c{col} già eliminato da tecniche precedenti",
                            "in r{row}c{col} already deleted by previous steps"};
constexpr Words onlyinblock = {"quindi nel settore {house} l'unica cella che può occupare{digit}",
                               "therefore in the block {house} the only possible position"};
constexpr Words onlyinrow = {"quindi nella riga {house} l'unica cella che può occupare{digit}",
                             "therefore in the row {house} the only possible position"};
constexpr Words onlyincolumn = {"quindi nella colonna {house} l'unica cella che può occupare{digit}",
                                "therefore in the column {house} the only possible position"};
constexpr Words yellowcell = {"è la cella gialla r{row}c{col}", "is the yellow cell r{row}c{col}"};

constexpr Words hiddensingle = {
    "HIDDEN SINGLE - LIVELLO 1\r\n"
    "Si tratta di trovare un candidato in un gruppo (settore riga o cella), che non possa essere attribuito a "
    "nessuna altra cella della stesso gruppo.",
    "HIDDEN SINGLE - LEVEL 1\r\n"
    "We must find a candidate in a house (block, row, column), that can not be placed in any other cell of the "
    "same house."};
constexpr Words thedigitinrow = {"nella riga {house} il numero {digit}",
                                 "in the row {house} the number {digit}"};
constexpr Words thedigitincolumn = {"nella colonna {house} il numero {digit}",
                                    "in the column {house} the number {digit}"};
constexpr Words impossiblein = {"non può stare nella cella r{row}c{col}", "is impossible in r{row}c{col}"};
constexpr Words becauseblock = {"perchè già presente nel settore {house}",
                                "because already present in the block {house}"};
constexpr Words becauserow = {"perchè già presente nella riga {house}",
                              "because already present in the row {house}"};
constexpr Words becausecolumn = {"perchè già presente nella colonna {house}",
                                 "because already present in the column {house}"};
constexpr Words becauseearlier = {"perchè già eliminato da tecniche precedenti ",
                                  "because already deleted by previous steps "};

constexpr Words nakedsingle = {
    "NAKED SINGLE - LIVELLO 2\r\n"
    "Si tratta di trovare una cella dove è possibile solo un candidato.",
    "NAKED SINGLE - LEVELL 2\r\n"
    "We must find a cell where only one candidate is possible."};
constexpr Words thecell = {"nella cella r{row}c{col}", "in the cell r{row}c{col}"};
constexpr Words seendigit = {"il numero {digit} non può stare perchè già presente in r{row}c{col}",
                             "the number {digit} is impossible because already present in r{row}c{col}"};
constexpr Words earlierdigit = {"il numero {digit} già eliminato da tecniche precedenti",
                                "the number {digit} because already deleted by previous steps "};
constexpr Words onlynumber = {"quindi l'unico numero possibile per la cella r{row}c{col}",
                              "therefore the only possible number for the cell r{row}c{col}"};
constexpr Words thedigit = {"è il numero {digit}", "is the number {digit}"};

}  // namespace

// ---- search -----------------------------------------------------------------------------------------------

namespace {

char figureof(int n) {
  return static_cast<char>('0' + n);
}

/// The house with eight digits placed: its open cell, the first that still has candidates.
template <class CellAt>
std::string lastof(char letter, CellAt cellat) {
  for (int position = 0; position < 9; ++position) {
    const int cell = cellat(position);
    if (candmask(cell) <= 0) continue;
    const int digit = onlydigit(candmask(cell));
    if (digit == 0) return {};  // pencil marks edited by hand: the cell doesn't say which
    return letter + std::to_string(digit) + std::to_string(cell);
  }
  return {};
}

template <int HI>
std::string onlyplace(Grid<Positions, HI, HI>& positions) {
  for (int house = 0; house < 9; ++house)
    for (int digit = 1; digit <= 9; ++digit)
      if (const Positions open = positions(digit, house); open.single())
        return {figureof(digit), figureof(house), figureof(open.first())};
  return {};
}

}  // namespace

std::string findOneMissing() {
  // Nearly all houses lack more than one digit.
  const auto lacksone = [](int slot) { return issingle(static_cast<unsigned>(fullmask - usedmask(slot))); };
  for (int b = 0; b < 9; ++b)
    if (lacksone(blockslot + b))
      if (auto r = lastof('b', [b](int p) { return blockcells(b, p); }); !r.empty()) return r;
  for (int row = 0; row < 9; ++row)
    if (lacksone(rowslot + row))
      if (auto r = lastof('r', [row](int p) { return row * 9 + p; }); !r.empty()) return r;
  for (int col = 0; col < 9; ++col)
    if (lacksone(columnslot + col))
      if (auto r = lastof('c', [col](int p) { return p * 9 + col; }); !r.empty()) return r;
  return {};
}

std::string findSingleInBlock() {
  return onlyplace(blockpos);
}
std::string findSingleInRow() {
  return onlyplace(rowpos);
}
std::string findSingleInColumn() {
  return onlyplace(colpos);
}

std::string findSingleInCell() {
  for (int cell = 0; cell < cellcount; ++cell)
    if (cellvalue(cell) == 0)
      if (const int digit = onlydigit(candmask(cell))) return std::to_string(digit) + std::to_string(cell);
  return {};
}

// ---- step and twin ----------------------------------------------------------------------------------------

namespace {

int figure(const std::string& result, std::size_t place) {
  return result.at(place) - '0';
}

/// From a place to the end.
int number(const std::string& result, std::size_t place) {
  return leadingnumber(std::string_view(result).substr(place));
}

Single readlast(const std::string& r) {
  const int cell = number(r, 2);
  const int house = r.at(0) == 'b' ? cellblock(cell) : r.at(0) == 'r' ? cellrow(cell) : cellcol(cell);
  return {r.at(0), house - 1, figure(r, 1), cell};
}
Single readblock(const std::string& r) {
  return {'b', figure(r, 1), figure(r, 0), blockcells(figure(r, 1), figure(r, 2))};
}
Single readrow(const std::string& r) {
  return {'r', figure(r, 1), figure(r, 0), figure(r, 1) * 9 + figure(r, 2)};
}
Single readcolumn(const std::string& r) {
  return {'c', figure(r, 1), figure(r, 0), figure(r, 2) * 9 + figure(r, 1)};
}
Single readcell(const std::string& r) {
  return {' ', 0, figure(r, 0), number(r, 1)};
}

/// What the hint and the log say of it: the words of the rung, or for the last digit of a house those of the
/// house.
std::string tell(const SingleRung& rung, const Words& words, const Single& found) {
  const bool last = rung.find == findOneMissing;
  const Words& lastwords = found.house == 'b' ? lastinblock : found.house == 'r' ? lastinrow : lastincolumn;
  return say(last ? lastwords : words, ofdigit(found.digit), hole("house", found.number + 1),
             hole("row", cellrow(found.cell)), hole("col", cellcol(found.cell)));
}

}  // namespace

// clang-format off
const std::array<SingleRung, 5> singlerungs{{
    // technique                       search              reading     hint         headline
    {techniques::lastdigit,            findOneMissing,     readlast,   lastinrow,   lastinrow},
    {techniques::hiddensingleinblock,  findSingleInBlock,  readblock,  hintblock,   headblock},
    {techniques::hiddensingleinrow,    findSingleInRow,    readrow,    hintrow,     headrow},
    {techniques::hiddensingleincolumn, findSingleInColumn, readcolumn, hintcolumn,  headcolumn},
    {techniques::nakedsingle,          findSingleInCell,   readcell,   hintcell,    headcell},
}};
// clang-format on

// A command that comes in during the wait may move curcell and curdigit: the step goes by its own find.
bool frmmain::single(const SingleRung& rung) {
  steptag = rung.technique.tag;
  const std::string result = rung.find();
  if (result.empty()) return false;
  const Single found = rung.read(result);
  const int digit = found.digit, cell = found.cell;
  curdigit = digit;
  curcell = cell;
  if (found.house == 'b') curblock = found.number;
  if (found.house == 'r') currow = found.number;
  if (found.house == 'c') curcol = found.number;
  if (rung.find != findOneMissing) {  // which has no explanation
    stepdigit = digit;
    stepcell = cell;
  }
  txthint.text = tell(rung, rung.hint, found);
  candidate(cell * 10 + digit).back = green;
  Text1(cell).back = yellow;
  Text5.text = std::to_string(digit);
  if (waitatlight() == Answer::stop) return true;  // the colours stay until some later repaint
  candidate(cell * 10 + digit).back = white;
  Text1(cell).back = white;
  writetext1(cell, std::to_string(digit));
  Text1(cell).visible = true;
  return true;
}

// The snapshot holds the board before the digit; the headline is written after it.
bool frmgenerazione::single(const SingleRung& rung) {
  const std::string result = rung.find();
  if (result.empty()) return false;
  const Single found = rung.read(result);
  const std::string line = tell(rung, rung.headline, found);
  counthead();
  placequickly(found.cell, found.digit);
  if (rung.technique.level > 0) raiselevel(rung.technique.level);
  appendline(line);
  return true;
}

// ---- explanation ------------------------------------------------------------------------------------------

namespace {

bool shows(int cell, int digit) {
  return frmmain::Text1(cell).text == std::to_string(digit);
}

/// Green where the digit stands, red where it therefore can't.
void paintplaced(const House& house, int digit) {
  for (int cell : house) frmmain::Text1(cell).back = shows(cell, digit) ? green : red;
}

std::string at(const Words& words, int cell) {
  return say(words, hole("row", cellrow(cell)), hole("col", cellcol(cell)));
}

/// The digits must stand out, so the pencil marks go, and stay off.
void hidepencilmarks() {
  if (pencilmarks()) mnupencil_Click();
}

/// Shows the argument and waits; on go the window and the colours of the digit boxes go.
void argue(const Lesson& lesson) {
  if (lesson.showandwait() == Answer::stop) return;
  closelesson();
  for (Box& box : frmmain::Text1) box.back = white;
}

}  // namespace

void explainsingleinblock() {
  const int row = cellrow(stepcell) - 1, col = cellcol(stepcell) - 1, block = cellblock(stepcell) - 1;
  Lesson lesson;
  lesson.line(inlanguage(crosshatching)).line(ruleline);
  hidepencilmarks();

  lesson.line(say(alreadyplaced, ofdigit(stepdigit)));
  for (int r = row / 3 * 3; r < row / 3 * 3 + 3; ++r)
    if (r != row && rowpos(stepdigit, r).empty()) {
      paintplaced(housecells(HouseKind::row, r), stepdigit);
      lesson.words(say(placedinrow, hole("row", r + 1)));
    }
  for (int c = col / 3 * 3; c < col / 3 * 3 + 3; ++c)
    if (c != col && colpos(stepdigit, c).empty()) {
      paintplaced(housecells(HouseKind::column, c), stepdigit);
      lesson.words(say(placedincolumn, hole("col", c + 1)));
    }
  for (int cell : housecells(HouseKind::block, block))
    if (frmmain::Text1(cell).text.empty() && frmmain::Text1(cell).back == white) {
      frmmain::Text1(cell).back = magenta;
      lesson.line(at(ruledout, cell));
    }
  lesson.line(say(onlyinblock, hole("house", block + 1), ofdigit(stepdigit)));
  lesson.line(at(yellowcell, stepcell));
  argue(lesson);
}

namespace {

/// A hidden single in a row, or its mirror image in a column: why no other cell of the line takes the digit.
void explainsingleinline(bool isrow) {
  const int line = (isrow ? cellrow(stepcell) : cellcol(stepcell)) - 1;
  Lesson lesson;
  lesson.line(inlanguage(hiddensingle)).line(ruleline);
  hidepencilmarks();

  lesson.line(say(isrow ? thedigitinrow : thedigitincolumn, hole("house", line + 1), ofdigit(stepdigit)));
  for (int cell : isrow ? housecells(HouseKind::row, line) : housecells(HouseKind::column, line)) {
    if (cell == stepcell || !frmmain::Text1(cell).text.empty()) continue;
    const int block = cellblock(cell) - 1, cross = (isrow ? cellcol(cell) : cellrow(cell)) - 1;
    lesson.line(at(impossiblein, cell));
    if (blockpos(stepdigit, block).empty()) {
      paintplaced(housecells(HouseKind::block, block), stepdigit);
      lesson.line(say(becauseblock, hole("house", block + 1)));
    } else if (isrow ? colpos(stepdigit, cross).empty() : rowpos(stepdigit, cross).empty()) {
      paintplaced(isrow ? housecells(HouseKind::column, cross) : housecells(HouseKind::row, cross),
                  stepdigit);
      lesson.line(say(isrow ? becausecolumn : becauserow, hole("house", cross + 1)));
    } else {
      frmmain::Text1(cell).back = magenta;
      lesson.line(inlanguage(becauseearlier));
    }
  }
  lesson.line(say(isrow ? onlyinrow : onlyincolumn, hole("house", line + 1), ofdigit(stepdigit)));
  lesson.line(at(yellowcell, stepcell));
  argue(lesson);
}

/// The first cell, seen from the step's cell by block, row and column, that shows the digit; or -1.
int seenfrom(int cell, int digit) {
  for (const House& house :
       {housecells(HouseKind::block, cellblock(cell) - 1), housecells(HouseKind::row, cellrow(cell) - 1),
        housecells(HouseKind::column, cellcol(cell) - 1)})
    for (int other : house)
      if (shows(other, digit)) return other;
  return -1;
}

}  // namespace

void explainsingleinrow() {
  explainsingleinline(true);
}
void explainsingleincolumn() {
  explainsingleinline(false);
}

void explainsingleincell() {
  Lesson lesson;
  lesson.line(inlanguage(nakedsingle)).line(ruleline);
  hidepencilmarks();

  lesson.line(at(thecell, stepcell));
  for (int digit = 1; digit <= 9; ++digit) {
    if (digit == stepdigit) continue;
    if (const int seen = seenfrom(stepcell, digit); seen >= 0) {
      frmmain::Text1(seen).back = green;
      lesson.line(say(seendigit, ofdigit(digit), hole("row", cellrow(seen)), hole("col", cellcol(seen))));
    } else {
      lesson.line(say(earlierdigit, ofdigit(digit)));
    }
  }
  lesson.line(at(onlynumber, stepcell));
  lesson.line(say(thedigit, ofdigit(stepdigit)));
  argue(lesson);
}

// ---- records ----------------------------------------------------------------------------------------------

// They are tested by their result: foundflag is nothing to them.
namespace {

template <int rung>
bool singlestep() {
  return frmmain::single(singlerungs[rung]);
}
template <int rung>
bool singletwin() {
  return frmgenerazione::single(singlerungs[rung]);
}

}  // namespace

const Technique techniques::lastdigit{
    .tag = "findOneMissing",
    .name = "findOneMissing",
    .called = {"ultima cifra di una casa", "last digit of a house"},
    .step = singlestep<0>,
    .twin = singletwin<0>,
    .explain = nullptr,
    .level = 0,
};
const Technique techniques::hiddensingleinblock{
    .tag = "findSingleInBlock",
    .name = "findSingleInBlock",
    .called = {"singolo nascosto in un riquadro", "hidden single in a block"},
    .step = singlestep<1>,
    .twin = singletwin<1>,
    .explain = explainsingleinblock,
    .level = 0,
};
const Technique techniques::hiddensingleinrow{
    .tag = "findSingleInRow",
    .name = "findSingleInRow",
    .called = {"singolo nascosto in una riga", "hidden single in a row"},
    .step = singlestep<2>,
    .twin = singletwin<2>,
    .explain = explainsingleinrow,
    .level = 1,
};
const Technique techniques::hiddensingleincolumn{
    .tag = "findSingleInColumn",
    .name = "findSingleInColumn",
    .called = {"singolo nascosto in una colonna", "hidden single in a column"},
    .step = singlestep<3>,
    .twin = singletwin<3>,
    .explain = explainsingleincolumn,
    .level = 1,
};
const Technique techniques::nakedsingle{
    .tag = "findSingleInCell",
    .name = "findSingleInCell",
    .called = {"singolo nudo", "naked single"},
    .step = singlestep<4>,
    .twin = singletwin<4>,
    .explain = explainsingleincell,
    .level = 2,
};

}  // namespace gradino
