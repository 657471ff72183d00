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

#include <array>
#include <optional>
#include <string>
#include <string_view>

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

// The last digit of a house says the same in the hint and in the log. That the number of the house is
// missing, and the blanks around the gap, belong to the sentence.
constexpr ByKind<Words> lastin = {
    {{"{digit} unico rimanante nella riga , in {cell}", "{digit} last digit in  row , {cell}"},
     {"{digit} unico rimanante nella colonna , in {cell}", "{digit} last digit in  column , {cell}"},
     {"{digit} unico rimanante nel settore , in {cell}", "{digit} last digit in  block , {cell}"}}};

// The hint leaves the digit to Text5; the log begins with it, and has two blanks in Italian.
constexpr ByKind<Words> hiddenhint = {
    {{"hidden single nella riga {house}, in {cell}", "hidden single in row {house}, in {cell}"},
     {"hidden single nella colonna {house}, in {cell}", "hidden single in column {house}, in {cell}"},
     {"hidden single nel settore {house}, in {cell}", "hidden single in block {house}, in {cell}"}}};
constexpr ByKind<Words> hiddenheadline = {{{"{digit} hidden single  nella riga {house}, in {cell}",
                                            "{digit} hidden single in row {house}, in {cell}"},
                                           {"{digit} hidden single  nella colonna {house}, in {cell}",
                                            "{digit} hidden single in column {house}, in {cell}"},
                                           {"{digit} hidden single  nel settore {house}, in {cell}",
                                            "{digit} hidden single in block {house}, in {cell}"}}};
constexpr Words nakedhint = {"naked single nella cella {cell}", "naked single in cell {cell}"};
constexpr Words nakedheadline = {"{digit} naked single  nella cella {cell}",
                                 "{digit} naked single in cell {cell}"};

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
constexpr Words placedinrow = {"riga {house}, ", "row {house}, "};
constexpr Words placedincolumn = {"colonna {house}, ", "column {house}, "};
constexpr Words ruledout = {"in {cell} già eliminato da tecniche precedenti",
                            "in {cell} already deleted by previous steps"};
constexpr ByKind<Words> onlyin = {{{"quindi nella riga {house} l'unica cella che può occupare{digit}",
                                    "therefore in the row {house} the only possible position"},
                                   {"quindi nella colonna {house} l'unica cella che può occupare{digit}",
                                    "therefore in the column {house} the only possible position"},
                                   {"quindi nel settore {house} l'unica cella che può occupare{digit}",
                                    "therefore in the block {house} the only possible position"}}};
constexpr Words yellowcell = {"è la cella gialla {cell}", "is the yellow cell {cell}"};

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
constexpr Words impossiblein = {"non può stare nella cella {cell}", "is impossible in {cell}"};
constexpr ByKind<Words> because = {
    {{"perchè già presente nella riga {house}", "because already present in the row {house}"},
     {"perchè già presente nella colonna {house}", "because already present in the column {house}"},
     {"perchè già presente nel settore {house}", "because already present in the block {house}"}}};
constexpr Words becauseearlier = {"perchè già eliminato da tecniche precedenti ",
                                  "because already deleted by previous steps "};

constexpr Words nakedsingle = {
    "NAKED SINGLE - LIVELLO 2\r\n"
    "Si tratta di trovare una cella dove è possibile solo un candidato.",
    "NAKED SINGLE - LEVELL 2\r\n"
    "We must find a cell where only one candidate is possible."};
constexpr Words thecell = {"nella cella {cell}", "in the cell {cell}"};
constexpr Words seendigit = {"il numero {digit} non può stare perchè già presente in {cell}",
                             "the number {digit} is impossible because already present in {cell}"};
constexpr Words earlierdigit = {"il numero {digit} già eliminato da tecniche precedenti",
                                "the number {digit} because already deleted by previous steps "};
constexpr Words onlynumber = {"quindi l'unico numero possibile per la cella {cell}",
                              "therefore the only possible number for the cell {cell}"};
constexpr Words thedigit = {"è il numero {digit}", "is the number {digit}"};

// ---- search -----------------------------------------------------------------------------------------------

char figureof(int n) {
  return static_cast<char>('0' + n);
}

/// The houses whose last digit is looked for, in that order.
struct LastKind {
  HouseKind kind;
  char letter;
  int slot;  ///< of the first such house in usedmask
};
constexpr LastKind lastkinds[] = {
    {HouseKind::block, 'b', blockslot}, {HouseKind::row, 'r', rowslot}, {HouseKind::column, 'c', columnslot}};

/// The house has eight digits placed: its open cell is the first that still has candidates.
std::string lastof(char letter, const House& house) {
  for (int cell : house) {
    if (candmask(cell) <= 0) continue;
    const int digit = onlydigit(candmask(cell));
    if (digit == 0) return {};  // pencil marks edited by hand: the cell doesn't say which
    return letter + std::to_string(digit) + std::to_string(cell);
  }
  return {};
}

std::string onlyplace(const Grid<Positions, 9, 9>& positions) {
  for (int house = 0; house < 9; ++house)
    for (int digit = 1; digit <= 9; ++digit)
      if (const Positions open = positions(digit, house); open.single())
        return {figureof(digit), figureof(house), figureof(open.first())};
  return {};
}

}  // namespace

std::string findOneMissing() {
  for (const auto& [kind, letter, slot] : lastkinds)
    for (int house = 0; house < 9; ++house) {
      const auto missing = static_cast<unsigned>(fullmask - usedmask(slot + house));
      if (!issingle(missing)) continue;  // nearly all houses lack more than one digit
      if (std::string result = lastof(letter, housecells(kind, house)); !result.empty()) return result;
    }
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

Single readlast(const std::string& result) {
  const int cell = number(result, 2);
  const HouseKind kind = result.at(0) == 'b'   ? HouseKind::block
                         : result.at(0) == 'r' ? HouseKind::row
                                               : HouseKind::column;
  return {kind, houseof(kind, cell), cell, figure(result, 1)};
}
template <HouseKind kind>
Single readhidden(const std::string& result) {
  const int house = figure(result, 1);
  return {kind, house, housecell(kind, house, figure(result, 2)), figure(result, 0)};
}
Single readnaked(const std::string& result) {
  return {std::nullopt, 0, number(result, 1), figure(result, 0)};
}

/// What the hint or the log says of a single: the words passed, except for the last digit of a house, which
/// has its own.
std::string tell(const SingleRung& rung, const Single& single, const ByKind<Words>& hidden,
                 const Words& naked) {
  const bool last = rung.find == findOneMissing;
  const Words& words = !single.kind ? naked : last ? lastin[*single.kind] : hidden[*single.kind];
  return say(words, incell(single.cell), ofdigit(single.digit), hole("house", single.house + 1));
}

}  // namespace

// clang-format off
const std::array<SingleRung, 5> singlerungs{{
    {techniques::lastdigit,            findOneMissing,     readlast},
    {techniques::hiddensingleinblock,  findSingleInBlock,  readhidden<HouseKind::block>},
    {techniques::hiddensingleinrow,    findSingleInRow,    readhidden<HouseKind::row>},
    {techniques::hiddensingleincolumn, findSingleInColumn, readhidden<HouseKind::column>},
    {techniques::nakedsingle,          findSingleInCell,   readnaked},
}};
// clang-format on

// A command that comes in during the wait may move curcell and curdigit: the step goes by its own find.
bool frmmain::single(const SingleRung& rung) {
  steptag = rung.technique.tag;
  const std::optional<Single> found = rung.search();
  if (!found) return false;
  const int cell = found->cell, digit = found->digit;
  curdigit = digit;
  curcell = cell;
  if (found->kind) keephouse(*found->kind, found->house);
  if (rung.technique.explain != nullptr) {
    stepdigit = digit;
    stepcell = cell;
  }
  txthint.text = tell(rung, *found, hiddenhint, nakedhint);
  pencilmark(cell, digit).back = green;
  Text1(cell).back = yellow;
  Text5.text = std::to_string(digit);
  if (waitatlight() == Answer::stop) return true;  // the colours stay until some later repaint
  pencilmark(cell, digit).back = white;
  Text1(cell).back = white;
  writetext1(cell, std::to_string(digit));
  Text1(cell).visible = true;
  return true;
}

// The snapshot holds the board before the digit; the headline is written after it.
bool frmgenerazione::single(const SingleRung& rung) {
  const std::optional<Single> found = rung.search();
  if (!found) return false;
  const std::string line = tell(rung, *found, hiddenheadline, nakedheadline);
  counthead();
  placequickly(found->cell, found->digit);
  if (rung.technique.level > 0) raiselevel(rung.technique.level);
  appendline(line);
  return true;
}

// ---- explanation ------------------------------------------------------------------------------------------

namespace {

bool shows(int cell, int digit) {
  return frmmain::Text1(cell).text == std::to_string(digit);
}

/// Green where the digit is, red where it therefore can't be.
void paintplaced(const House& house, int digit) {
  for (int cell : house) frmmain::Text1(cell).back = shows(cell, digit) ? green : red;
}

/// The pencil marks are turned off, so that the digits can be seen, and stay off.
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
  const int block = blockof(stepcell);
  Lesson lesson;
  lesson.line(inlanguage(crosshatching)).line(ruleline);
  hidepencilmarks();

  lesson.line(say(alreadyplaced, ofdigit(stepdigit)));
  for (HouseKind kind : {HouseKind::row, HouseKind::column})
    for (int position : {0, 4, 8}) {  // the block's diagonal, which meets all its lines
      const int line = houseof(kind, housecell(HouseKind::block, block, position));
      if (line == houseof(kind, stepcell) || !housepos(kind, stepdigit, line).empty()) continue;
      paintplaced(housecells(kind, line), stepdigit);
      lesson.words(say(kind == HouseKind::row ? placedinrow : placedincolumn, hole("house", line + 1)));
    }
  for (int cell : housecells(HouseKind::block, block))
    if (frmmain::Text1(cell).text.empty() && frmmain::Text1(cell).back == white) {
      frmmain::Text1(cell).back = magenta;
      lesson.line(say(ruledout, incell(cell)));
    }
  lesson.line(say(onlyin[HouseKind::block], hole("house", block + 1), ofdigit(stepdigit)));
  lesson.line(say(yellowcell, incell(stepcell)));
  argue(lesson);
}

namespace {

/// The block of a cell, or its cross line, where the digit is placed: there it has no place left.
std::optional<HouseKind> takenin(int cell, int digit, HouseKind cross) {
  for (HouseKind kind : {HouseKind::block, cross})
    if (housepos(kind, digit, houseof(kind, cell)).empty()) return kind;
  return std::nullopt;
}

/// A hidden single in a row, or its mirror image in a column: why no other cell of the line takes the digit.
void explainsingleinline(HouseKind kind) {
  const bool isrow = kind == HouseKind::row;
  const Hole line = hole("house", houseof(kind, stepcell) + 1);
  Lesson lesson;
  lesson.line(inlanguage(hiddensingle)).line(ruleline);
  hidepencilmarks();

  lesson.line(say(isrow ? thedigitinrow : thedigitincolumn, line, ofdigit(stepdigit)));
  for (int cell : housearound(kind, stepcell)) {
    if (cell == stepcell || !frmmain::Text1(cell).text.empty()) continue;
    lesson.line(say(impossiblein, incell(cell)));
    if (const auto taken = takenin(cell, stepdigit, isrow ? HouseKind::column : HouseKind::row)) {
      paintplaced(housearound(*taken, cell), stepdigit);
      lesson.line(say(because[*taken], hole("house", houseof(*taken, cell) + 1)));
    } else {
      frmmain::Text1(cell).back = magenta;
      lesson.line(inlanguage(becauseearlier));
    }
  }
  lesson.line(say(onlyin[kind], line, ofdigit(stepdigit)));
  lesson.line(say(yellowcell, incell(stepcell)));
  argue(lesson);
}

/// The first cell that a cell sees, by block, row and column, and that shows the digit.
std::optional<int> seenfrom(int cell, int digit) {
  for (HouseKind kind : {HouseKind::block, HouseKind::row, HouseKind::column})
    for (int other : housearound(kind, cell))
      if (shows(other, digit)) return other;
  return std::nullopt;
}

}  // namespace

void explainsingleinrow() {
  explainsingleinline(HouseKind::row);
}
void explainsingleincolumn() {
  explainsingleinline(HouseKind::column);
}

void explainsingleincell() {
  Lesson lesson;
  lesson.line(inlanguage(nakedsingle)).line(ruleline);
  hidepencilmarks();

  lesson.line(say(thecell, incell(stepcell)));
  for (int digit = 1; digit <= 9; ++digit) {
    if (digit == stepdigit) continue;
    if (const std::optional<int> seen = seenfrom(stepcell, digit)) {
      frmmain::Text1(*seen).back = green;
      lesson.line(say(seendigit, incell(*seen), ofdigit(digit)));
    } else {
      lesson.line(say(earlierdigit, ofdigit(digit)));
    }
  }
  lesson.line(say(onlynumber, incell(stepcell)));
  lesson.line(say(thedigit, ofdigit(stepdigit)));
  argue(lesson);
}

// ---- records ----------------------------------------------------------------------------------------------

// The singles return whether they found something; they don't use foundflag.
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
