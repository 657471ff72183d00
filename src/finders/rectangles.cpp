// Unique rectangles: a puzzle has one solution, so four cells on two rows, two columns and two blocks never
// end up with the same two digits, which could be exchanged. Where a rectangle is close to that, the
// candidates that would complete it go.
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

#include <optional>
#include <string>
#include <string_view>

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
// The Italian words don't say the type.
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

struct Rectangle {
  /// The pattern that the corners make; the diagonal one deletes nothing, and only the grader says so.
  enum Type { type1 = 1, type2 = 2, diagonal = 5 } urtype = type1;
  int urcell1 = 0, urcell2 = 0, urcell3 = 0;   ///< the corners
  Table<int, 0, 10> commoncell{"commoncell"};  ///< cells that lose the third digit in type 2
  Byte urcount{"urcount"};                     ///< how many; a cell may come twice

  int urcell4() const { return cellat(rowof(urcell3), columnof(urcell2)); }
  int pairmask() const { return candmask(urcell1); }
  const std::string& pair() const { return candstr(urcell1); }
};

/// The only digit that a corner has besides the pair; 0 if there is none or more than one.
int thirddigit(const Rectangle& rectangle, int corner) {
  return onlydigit(candmask(corner) ^ rectangle.pairmask());
}

bool haspair(const Rectangle& rectangle, int cell) {
  return (candmask(cell) & rectangle.pairmask()) == rectangle.pairmask();
}

bool fits(const Rectangle& rectangle, int cell) {
  return cell != rectangle.urcell1 && haspair(rectangle, cell) && candidatecount(cell) < 4;
}

/// The first fit on a line of corner 1. If there is a second one, it is not seen from this corner.
std::optional<int> firstonline(const Rectangle& rectangle, HouseKind line) {
  for (int cell : housearound(line, rectangle.urcell1))
    if (fits(rectangle, cell)) return cell;
  return std::nullopt;
}

/// The first fit in the block of corner 1 that is on a line of corner 1.
std::optional<int> firstinblock(const Rectangle& rectangle, HouseKind line) {
  for (int cell : housearound(HouseKind::block, rectangle.urcell1))
    if (samehouse(line, cell, rectangle.urcell1) && fits(rectangle, cell)) return cell;
  return std::nullopt;
}

/// One corner along a line of corner 1, in another block; on its other line one in its own block.
bool cornersalong(Rectangle& rectangle, HouseKind line) {
  const bool alongrow = line == HouseKind::row;
  const std::optional<int> along = firstonline(rectangle, line);
  if (!along || samehouse(HouseKind::block, *along, rectangle.urcell1)) return false;
  const std::optional<int> inblock = firstinblock(rectangle, alongrow ? HouseKind::column : HouseKind::row);
  if (!inblock) return false;
  rectangle.urcell2 = alongrow ? *along : *inblock;
  rectangle.urcell3 = alongrow ? *inblock : *along;
  return true;
}

bool corners(Rectangle& rectangle) {
  return cornersalong(rectangle, HouseKind::row) || cornersalong(rectangle, HouseKind::column);
}

/// The number of a house, from 1, as the board's tables have it.
int numberof(HouseKind kind, int cell) {
  return kind == HouseKind::row ? cellrow(cell) : kind == HouseKind::column ? cellcol(cell) : cellblock(cell);
}

/// Collects the cells that share a house with two corners and have their third digit; of a shared column the
/// cells of the one numbered `column`. Fault: more than 11.
bool collect(Rectangle& rectangle, int p, int q, int digit, int column) {
  rectangle.urcount = 0;
  for (HouseKind kind : housekinds) {
    if (numberof(kind, p) != numberof(kind, q)) continue;
    for (int cell : housecells(kind, kind == HouseKind::column ? column : numberof(kind, p) - 1)) {
      if (cell == p || cell == q || !hascandidate(cell, digit)) continue;
      rectangle.commoncell(rectangle.urcount) = cell;
      rectangle.urcount += 1;
    }
  }
  return rectangle.urcount > 0;
}

/// Corners p and q, side by side, have three candidates.
bool side(Rectangle& rectangle, int p, int q, int column) {
  rectangle.urtype = Rectangle::type2;
  const int digit = thirddigit(rectangle, p);
  return digit == thirddigit(rectangle, q) && collect(rectangle, p, q, digit, column);
}

/// Corners 2 and 3 have three candidates. No house holds both, so in a sound board nothing is collected.
bool opposite(Rectangle& rectangle) {
  rectangle.urtype = Rectangle::diagonal;
  const int p = rectangle.urcell3, q = rectangle.urcell2, digit = thirddigit(rectangle, p);
  return digit == thirddigit(rectangle, q) && collect(rectangle, p, q, digit, columnof(p));
}

/// Whether the four corners make a pattern, by the number of candidates of the three others; corner 4 may
/// have any number beside corners 2 and 3 with two. Where corners 3 and 4 have three, a shared column would
/// be walked by the number of the block: required, though two corners of one row never share a column.
bool judge(Rectangle& rectangle) {
  const int cell2 = rectangle.urcell2, cell3 = rectangle.urcell3, cell4 = rectangle.urcell4();
  const auto have = [&](int n2, int n3, int n4) {
    return candidatecount(cell2) == n2 && candidatecount(cell3) == n3 && candidatecount(cell4) == n4;
  };
  rectangle.urtype = Rectangle::type1;
  if (bivalue(cell2) && bivalue(cell3)) return true;
  if (have(3, 3, 2)) return opposite(rectangle);
  if (have(3, 2, 3)) return side(rectangle, cell4, cell2, columnof(cell4));
  if (have(2, 3, 3)) return side(rectangle, cell4, cell3, blockof(cell4));
  return false;
}

/// The first rectangle, by corner 1.
std::optional<Rectangle> scanur() {
  Rectangle rectangle;
  for (rectangle.urcell1 = 0; rectangle.urcell1 < cellcount; ++rectangle.urcell1)
    if (rectangle.pairmask() != 0 && bivalue(rectangle.urcell1) && corners(rectangle) &&
        haspair(rectangle, rectangle.urcell4()) && judge(rectangle))
      return rectangle;
  return std::nullopt;
}

/// The one walk over what type 2 deletes: act(cell) for each cell that still has the digit.
template <class Act>
void victims(const Rectangle& rectangle, int digit, Act act) {
  for (int i = 0; i < rectangle.urcount; ++i)
    if (hascandidate(rectangle.commoncell(i), digit)) act(rectangle.commoncell(i));
}

/// The step on show, of type 1 or 2. Only its explanation reads it.
std::optional<Rectangle> shown;

void forget() {
  shown.reset();
}

std::string tell(const Words& words, const Rectangle& rectangle) {
  return say(words, hole("pair", rectangle.pair()),
             hole("first", std::string_view(rectangle.pair()).substr(0, 1)),
             hole("c1", cellname(rectangle.urcell1)), hole("c2", cellname(rectangle.urcell2)),
             hole("c3", cellname(rectangle.urcell3)), hole("c4", cellname(rectangle.urcell4())),
             ofdigit(thirddigit(rectangle, rectangle.urcell4())));
}

// ---- step -------------------------------------------------------------------------------------------------

void paintcorners(const Rectangle& rectangle, Colour colour) {
  for (int cell : {rectangle.urcell1, rectangle.urcell2, rectangle.urcell3, rectangle.urcell4()})
    frmmain::Text2(cell).back = colour;
}

void paintcommon(const Rectangle& rectangle, Colour colour) {
  for (int i = 0; i < rectangle.urcount; ++i) frmmain::Text2(rectangle.commoncell(i)).back = colour;
}

/// Type 1: corner 4 loses the pair, and if it has one candidate left, it gets that digit.
void steptype1(const Rectangle& rectangle) {
  paintcorners(rectangle, yellow);
  frmmain::txthint.text = tell(found1, rectangle);
  const bool stop = waitatlight() == Answer::stop;
  paintcorners(rectangle, white);
  if (stop) return;  // with foundflag set: the ladder stops all the same

  const int cell = rectangle.urcell4();
  frmmain::txthint.text = say(deleting, incell(cell), hole("pair", rectangle.pair()));
  // The explanation may have taken the pair away already.
  if ((candmask(cell) & rectangle.pairmask()) != 0) candmask(cell) ^= rectangle.pairmask();
  showdeletions();
  if (candidatecount(cell) != 1) return;
  frmmain::txthint.text = say(inserting, incell(cell), ofdigit(candidateat(cell, 0)));
  writetext1(cell, candstr(cell));
  frmmain::Text1(cell).visible = true;
}

/// Type 2: carried out whatever the answer is. The hint names the pair, though it is the third digit that
/// goes, and the step raises the level of the grade, as no other does: both are required.
void steptype2(const Rectangle& rectangle) {
  paintcorners(rectangle, yellow);
  paintcommon(rectangle, red);
  frmmain::txthint.text = tell(found2, rectangle);
  waitatlight();
  paintcorners(rectangle, white);
  colourdigit = thirddigit(rectangle, rectangle.urcell4());
  victims(rectangle, colourdigit, [&](int cell) {
    frmmain::txthint.text = say(logdeleting, incell(cell), hole("what", rectangle.pair()));
    deletecandidate(cell, colourdigit);
    frmmain::Text2(cell).back = white;
  });
  showdeletions();
  raiselevel(level);
}

// ---- twin -------------------------------------------------------------------------------------------------

void gradetype1(const Rectangle& rectangle) {
  const int cell = rectangle.urcell4();
  headline(tell(found1, rectangle));
  detail(say(logdeleting, incell(cell), hole("what", rectangle.pair())));
  candmask(cell) ^= rectangle.pairmask();
  settledeletions();
  raiselevel(level);
}

void gradetype2(const Rectangle& rectangle) {
  const int digit = thirddigit(rectangle, rectangle.urcell4());
  headline(tell(found2, rectangle));
  victims(rectangle, digit, [&](int cell) {
    detail(say(logdeleting, incell(cell), hole("what", digit)));
    deletecandidate(cell, digit);
  });
  settledeletions();
  raiselevel(level);
}

// ---- explanation ------------------------------------------------------------------------------------------

/// False: the user said stop.
bool arguetype1(const Rectangle& rectangle, Lesson& lesson) {
  lesson.line(tell(case1, rectangle)).line(tell(twosolutions, rectangle));
  lesson.line(tell(firstsolution, rectangle)).line(tell(secondsolution, rectangle));
  if (lesson.showandwait() == Answer::stop) return false;
  lesson.line(tell(candeletepair, rectangle));
  if (lesson.showandwait() == Answer::stop) return false;

  // This is what the step does, shown here: the step then finds it done.
  const int cell = rectangle.urcell4();
  candmask(cell) ^= rectangle.pairmask();
  rebuildcandstr();
  updatetext2();
  if (candidatecount(cell) != 1) return true;
  return lesson.line(say(andinsert, incell(cell), ofdigit(candidateat(cell, 0)))).showandwait() == Answer::go;
}

bool arguetype2(const Rectangle& rectangle, Lesson& lesson) {
  if (lesson.line(tell(case2, rectangle)).showandwait() == Answer::stop) return false;
  paintcommon(rectangle, red);
  lesson.line(tell(eitheror, rectangle)).line(tell(candeletedigit, rectangle));
  if (lesson.showandwait() == Answer::stop) return false;
  foundflag = true;
  return true;
}

}  // namespace

void frmmain::stepur() {
  steptag = techniques::uniquerectangle.tag;
  foundflag = false;
  shown.reset();  // the search may end in a fault
  const std::optional<Rectangle> found = scanur();
  if (!found || found->urtype == Rectangle::diagonal) return;
  shown = found;
  foundflag = true;
  found->urtype == Rectangle::type1 ? steptype1(*found) : steptype2(*found);
}

void frmgenerazione::gradeur() {
  foundflag = false;
  const std::optional<Rectangle> found = scanur();
  if (!found) return;
  if (found->urtype == Rectangle::diagonal) return host.message(std::string(diagonalbox));
  foundflag = true;
  found->urtype == Rectangle::type1 ? gradetype1(*found) : gradetype2(*found);
}

void explainur() {
  if (!shown) return;                  // a search without a result was started during another step's wait
  const Rectangle rectangle = *shown;  // a command that comes in during a wait may show another, or none
  for (int cell : {rectangle.urcell1, rectangle.urcell4()}) frmmain::Text2(cell).back = green;
  Lesson lesson;
  lesson.line(inlanguage(title)).line(inlanguage(rule)).line(longruleline);
  const bool istype1 = rectangle.urtype == Rectangle::type1;
  if (!(istype1 ? arguetype1(rectangle, lesson) : arguetype2(rectangle, lesson))) return;
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
    .forget = forget,
};

}  // namespace gradino
