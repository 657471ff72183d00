// Unique rectangles: a puzzle has one solution, so four cells on two rows, two columns and two blocks never
// end up with the same two digits: these could be exchanged. A rectangle that lacks little of that loses what
// would complete it.
//
//     12 . . | 12  . .      type 1: the corners 1, 2 and 3 have nothing but the pair;
//     12 . . | 123 . .      corner 4 loses it
//
//     12 . . | 123 . x      type 2: two corners on one line have the same third digit; one of them is that
//     12 . . | 123 . x      digit, and the cells that see both, marked x, lose it
//      . . . |  x  . x
//
//   corner 1   has two candidates; the search starts from it
//   corner 2   on its row
//   corner 3   on its column
//   corner 4   opposite
//
// Two corners lie in the block of corner 1, two in one other block.
#include "rectangles.h"

#include <string>

#include "boxes.h"
#include "candidatetext.h"
#include "gradestate.h"
#include "grid.h"
#include "host.h"
#include "houses.h"
#include "lesson.h"
#include "light.h"
#include "log.h"
#include "step.h"
#include "words.h"

namespace gradino {
namespace {

// ---- words ------------------------------------------------------------------------------------------------

constexpr Words found1 = {"RETTANGOLO UNICO in {c1}, {c2}, {c3}, {c4}",
                          "UNIQUE RECTANGLE in {c1}, {c2}, {c3}, {c4}"};
// Italian doesn't tell the type.
constexpr Words found2 = {"RETTANGOLO UNICO in {c1}, {c2}, {c3}, {c4}",
                          "UNIQUE RECTANGLE Type 2 in {c1}, {c2}, {c3}, {c4}"};

// No blank in the first; and "from" in the Italian log.
constexpr Words deleting = {"rimuovo{pair} da {cell}", "deleting {pair} from {cell}"};
constexpr Words logdeleting = {" * elimino {what} from {cell}", " * deleting {what} from {cell}"};
constexpr Words inserting = {"inserisco {digit} in {cell}", "inserting {digit} in {cell}"};
constexpr std::string_view diagonalbox = "emter code";  // in both languages

constexpr Words title = {"RETTANGOLI UNICI LEVEL 17", "UNIQUE RECTANGLE LEVEL 17"};
constexpr Words rule = {
    "Se troviamo 4 celle con gli stessi 2 candidati che condividono 2 righe, colonne e settori allora abbiamo una "
    "situazione senza uscita.\r\n"
    "I 2 candidati possono essere invertiti senza aver influenza con il resto dello schema, abbiamo quindi 2 "
    "soluzioni",
    "If we find four cells with the same 2 candidates that share 2 rows, columns and blocks then we have what is "
    "called a Deadly Pattern.\r\n"
    "The 2 candidates can be exchanged without having any invluence at the rest of the puzzle, so we have 2 "
    "solutions, that is illegal"};

constexpr Words case1 = {"RETTANGOLO UNICO {pair} in {c1}, {c2}, {c3}, {c4}",
                         "UNIQUE RECTANGLE {pair} in {c1}, {c2}, {c3}, {c4}"};
constexpr Words twosolutions = {"Se {c4} fosse {pair}, lo schema avrebbe 2 soluxioni.",
                                "if {c4} is {pair}, the puzzle would admit two solutions"};
constexpr Words firstsolution = {"la prima con {first} in {c1} e {c4}",
                                 "the first with {first} in {c1} and {c4}"};
constexpr Words secondsolution = {"la seconda {first} in {c2} e {c3}",
                                  "the second with {first} in {c2} and {c3}"};
constexpr Words candeletepair = {"posso quindi eliminare i candidati {pair} da {c4}",
                                 "we can, therefore, delete {pair} from {c4}"};
constexpr Words andinsert = {"inserisco {digit} in {cell}", "and insert {digit} in {cell}"};

constexpr Words case2 = {"RETTANGOLO UNICO tipo 2, {pair} in {c1}, {c2}, {c3}, {c4}",
                         "UNIQUE RECTANGLE type 2, {pair} in {c1}, {c2}, {c3}, {c4}"};
// Of corners 3 and 4, wherever the third digit is.
constexpr Words eitheror = {"per evitare un rettangolo unico o {c3} o {c4} deve contenere {digit}",
                            "to avoid an unique rectangle, either {c3} or {c4} must contain {digit}"};
constexpr Words candeletedigit = {"possiamo,perciò, eliminare {digit} dalle celle rosse",
                                  "we can, therefore, delete {digit} from red cells"};

constexpr int level = 17;

// ---- search -----------------------------------------------------------------------------------------------

constexpr int nocell = cellcount;

struct Rectangle {
  enum Type {
    nothing,
    type1,
    type2,
    failed,  ///< a pattern was looked at and gave nothing
    diagonal = 5,
  } urtype = nothing;
  int urcell1 = nocell, urcell2 = nocell, urcell3 = nocell;  ///< the corners
  Table<int, 0, 10> commoncell{"commoncell"};                ///< cells that lose the third digit in type 2
  Byte urcount{"urcount"};                                   ///< how many; a cell may come twice

  int urcell4() const { return (cellrow(urcell3) - 1) * 9 + cellcol(urcell2) - 1; }
  int pairmask() const { return candmask(urcell1); }
  const std::string& pair() const { return candstr(urcell1); }
};

/// What a corner has besides the pair, if it is one digit; else 0.
int thirddigit(const Rectangle& find, int corner) {
  return onlydigit(candmask(corner) ^ find.pairmask());
}

bool haspair(const Rectangle& find, int cell) {
  return (candmask(cell) & find.pairmask()) == find.pairmask();
}

bool fits(const Rectangle& find, int cell) {
  return cell != find.urcell1 && haspair(find, cell) && candidatecount(cell) < 4;
}

/// The first fit on a line of corner 1. If there is a second one, it is not seen from this corner.
int firstonline(const Rectangle& find, HouseKind line) {
  for (int cell : housecells(line, houseof(line, find.urcell1)))
    if (fits(find, cell)) return cell;
  return nocell;
}

/// The first fit in the block of corner 1 that stands on a line of corner 1.
int firstinblock(const Rectangle& find, HouseKind line) {
  for (int cell : housecells(HouseKind::block, houseof(HouseKind::block, find.urcell1)))
    if (houseof(line, cell) == houseof(line, find.urcell1) && fits(find, cell)) return cell;
  return nocell;
}

/// One corner along a line of corner 1, in another block; on the other line one in its own block.
bool twocorners(const Rectangle& find, HouseKind line, int& along, HouseKind otherline, int& inblock) {
  along = firstonline(find, line);
  if (along == nocell || cellblock(along) == cellblock(find.urcell1)) return false;
  inblock = firstinblock(find, otherline);
  return inblock != nocell;
}

bool corners(Rectangle& find) {
  return twocorners(find, HouseKind::row, find.urcell2, HouseKind::column, find.urcell3) ||
         twocorners(find, HouseKind::column, find.urcell3, HouseKind::row, find.urcell2);
}

/// The number of a house, from 1, as the board's tables have it.
int numberof(HouseKind kind, int cell) {
  return kind == HouseKind::row ? cellrow(cell) : kind == HouseKind::column ? cellcol(cell) : cellblock(cell);
}

/// Collects the cells that share a house with two corners and have their third digit; of a shared column the
/// cells of the one numbered `column`. Fault: more than 11.
bool collect(Rectangle& find, int p, int q, int digit, int column) {
  find.urcount = 0;
  for (HouseKind kind : {HouseKind::row, HouseKind::column, HouseKind::block}) {
    if (numberof(kind, p) != numberof(kind, q)) continue;
    for (int cell : housecells(kind, kind == HouseKind::column ? column : numberof(kind, p) - 1)) {
      if (cell == p || cell == q || !hascandidate(cell, digit)) continue;
      find.commoncell(find.urcount) = cell;
      find.urcount += 1;
    }
  }
  return find.urcount > 0;
}

/// Corners p and q, side by side, have three candidates.
bool side(Rectangle& find, int p, int q, int column) {
  const int digit = thirddigit(find, p);
  const bool is = digit == thirddigit(find, q) && collect(find, p, q, digit, column);
  find.urtype = is ? Rectangle::type2 : Rectangle::failed;
  return is;
}

/// Corners 2 and 3 have three candidates. No house holds both, so in a sound board nothing is collected.
bool opposite(Rectangle& find) {
  const int p = find.urcell3, q = find.urcell2, digit = thirddigit(find, p);
  const bool is = digit == thirddigit(find, q) && collect(find, p, q, digit, columnof(p));
  if (is) find.urtype = Rectangle::diagonal;
  return is;
}

/// Which pattern the four corners make, told by the lengths of the three others; corner 4 may have any number
/// of candidates beside corners 2 and 3 with two. Where corners 3 and 4 have three, a shared column would be
/// walked by the number of the block: required, though two corners of one row never share a column.
bool judge(Rectangle& find) {
  const int cell2 = find.urcell2, cell3 = find.urcell3, cell4 = find.urcell4();
  const auto have = [&](int n2, int n3, int n4) {
    return candidatecount(cell2) == n2 && candidatecount(cell3) == n3 && candidatecount(cell4) == n4;
  };
  if (bivalue(cell2) && bivalue(cell3)) {
    find.urtype = Rectangle::type1;
    return true;
  }
  if (have(3, 3, 2)) return opposite(find);
  if (have(3, 2, 3)) return side(find, cell4, cell2, columnof(cell4));
  if (have(2, 3, 3)) return side(find, cell4, cell3, houseof(HouseKind::block, cell4));
  return false;
}

/// The first rectangle, by corner 1.
void scanur(Rectangle& find) {
  foundflag = false;
  find = {};
  for (find.urcell1 = 0; find.urcell1 < cellcount; ++find.urcell1)
    if (find.pairmask() != 0 && bivalue(find.urcell1) && corners(find) && haspair(find, find.urcell4()) &&
        judge(find))
      return;
}

/// The one walk over what type 2 deletes: act(cell) for each cell that still has the digit.
template <class Act>
void victims(const Rectangle& find, int digit, Act act) {
  for (int i = 0; i < find.urcount; ++i)
    if (hascandidate(find.commoncell(i), digit)) act(find.commoncell(i));
}

/// What the last step found, for its explanation.
Rectangle shown;

std::string tell(const Words& words, const Rectangle& find) {
  return say(words, hole("pair", find.pair()), hole("first", std::string_view(find.pair()).substr(0, 1)),
             hole("c1", cellname(find.urcell1)), hole("c2", cellname(find.urcell2)),
             hole("c3", cellname(find.urcell3)), hole("c4", cellname(find.urcell4())),
             hole("digit", thirddigit(find, find.urcell4())));
}

std::string telldeleting(std::string_view what, int cell) {
  return say(logdeleting, hole("what", what), incell(cell));
}

std::string tellonly(const Words& words, int cell) {
  return say(words, hole("digit", candstr(cell)), incell(cell));
}

// ---- step -------------------------------------------------------------------------------------------------

void paintcorners(const Rectangle& find, Colour colour) {
  for (int cell : {find.urcell1, find.urcell2, find.urcell3, find.urcell4()})
    frmmain::Text2(cell).back = colour;
}

void paintcommon(const Rectangle& find, Colour colour) {
  for (int i = 0; i < find.urcount; ++i) frmmain::Text2(find.commoncell(i)).back = colour;
}

/// Type 1: corner 4 loses the pair, and if it has one candidate left, it gets that digit.
void steptype1(const Rectangle& find) {
  paintcorners(find, yellow);
  frmmain::txthint.text = tell(found1, find);
  const bool stop = waitatlight() == Answer::stop;
  paintcorners(find, white);
  if (stop) return;  // with foundflag set: the ladder stops all the same

  const int cell = find.urcell4();
  frmmain::txthint.text = say(deleting, hole("pair", find.pair()), incell(cell));
  // The explanation may have taken the pair away already.
  if ((candmask(cell) & find.pairmask()) != 0) candmask(cell) ^= find.pairmask();
  showdeletions();
  if (candidatecount(cell) != 1) return;
  frmmain::txthint.text = tellonly(inserting, cell);
  writetext1(cell, candstr(cell));
  frmmain::Text1(cell).visible = true;
}

/// Type 2: the answer is not asked for, so a stop doesn't hinder. The hint names the pair, though the third
/// digit goes, and counts in the grade, as no other step does: both are required.
void steptype2(const Rectangle& find) {
  paintcorners(find, yellow);
  paintcommon(find, red);
  frmmain::txthint.text = tell(found2, find);
  waitatlight();
  paintcorners(find, white);
  colourdigit = thirddigit(find, find.urcell4());
  victims(find, colourdigit, [&](int cell) {
    frmmain::txthint.text = telldeleting(find.pair(), cell);
    deletecandidate(cell, colourdigit);
    frmmain::Text2(cell).back = white;
  });
  showdeletions();
  raiselevel(level);
}

// ---- twin -------------------------------------------------------------------------------------------------

void gradetype1(const Rectangle& find) {
  const int cell = find.urcell4();
  headline(tell(found1, find));
  detail(telldeleting(find.pair(), cell));
  candmask(cell) ^= find.pairmask();
  settledeletions();
  raiselevel(level);
}

void gradetype2(const Rectangle& find) {
  const int digit = thirddigit(find, find.urcell4());
  headline(tell(found2, find));
  victims(find, digit, [&](int cell) {
    detail(telldeleting(std::to_string(digit), cell));
    deletecandidate(cell, digit);
  });
  settledeletions();
  raiselevel(level);
}

// ---- explanation ------------------------------------------------------------------------------------------

/// False: the user said stop.
bool arguetype1(const Rectangle& find, Lesson& lesson) {
  lesson.line(tell(case1, find)).line(tell(twosolutions, find));
  lesson.line(tell(firstsolution, find)).line(tell(secondsolution, find));
  if (lesson.showandwait() == Answer::stop) return false;
  lesson.line(tell(candeletepair, find));
  if (lesson.showandwait() == Answer::stop) return false;

  // The step's own work, shown here: the step then finds it done.
  const int cell = find.urcell4();
  candmask(cell) ^= find.pairmask();
  rebuildcandstr();
  updatetext2();
  if (candidatecount(cell) != 1) return true;
  return lesson.line(tellonly(andinsert, cell)).showandwait() == Answer::go;
}

bool arguetype2(const Rectangle& find, Lesson& lesson) {
  if (lesson.line(tell(case2, find)).showandwait() == Answer::stop) return false;
  paintcommon(find, red);
  lesson.line(tell(eitheror, find)).line(tell(candeletedigit, find));
  if (lesson.showandwait() == Answer::stop) return false;
  foundflag = true;
  return true;
}

}  // namespace

void frmmain::stepur() {
  steptag = techniques::uniquerectangle.tag;
  scanur(shown);
  const Rectangle find = shown;  // a command that comes in during the wait may show another
  if (find.urtype != Rectangle::type1 && find.urtype != Rectangle::type2) return;
  foundflag = true;
  find.urtype == Rectangle::type1 ? steptype1(find) : steptype2(find);
}

void frmgenerazione::gradeur() {
  Rectangle find;
  scanur(find);
  if (find.urtype == Rectangle::diagonal) host.message(std::string(diagonalbox));
  if (find.urtype != Rectangle::type1 && find.urtype != Rectangle::type2) return;
  foundflag = true;
  find.urtype == Rectangle::type1 ? gradetype1(find) : gradetype2(find);
}

void explainur() {
  const Rectangle find = shown;
  // A command that found nothing, while another step waits, may be asked too.
  if (find.urtype != Rectangle::type1 && find.urtype != Rectangle::type2) return;
  for (int cell : {find.urcell1, find.urcell4()}) frmmain::Text2(cell).back = green;
  Lesson lesson;
  lesson.line(inlanguage(title)).line(inlanguage(rule)).line(longruleline);
  if (!(find.urtype == Rectangle::type1 ? arguetype1(find, lesson) : arguetype2(find, lesson))) return;
  closelesson();
  clearcolours();
}

// ---- record -----------------------------------------------------------------------------------------------

const Technique techniques::uniquerectangle{
    .tag = "ur",
    .name = "ur",
    .called = {"rettangolo unico", "unique rectangle"},
    .step = byfoundflag<frmmain::stepur>,
    .twin = byfoundflag<frmgenerazione::gradeur>,
    .explain = explainur,
    .level = level,
};

}  // namespace gradino
