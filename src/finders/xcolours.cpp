// X-colours (levels 15 and 16). A house in which a digit has just two places takes it in one of them: two
// hypotheses are run, one for each. What a true cell sees is false; a house with one place left makes that
// place true. The true cells of each hypothesis are a group.
//
//     deletion   a cell that sees a true cell of either group loses the digit; a cell true in both gets it
//     clash      two true cells of one hypothesis in a house: it is false, and the other seed gets the digit
//
// Deletions are recorded in short lists, repeats too: a board that gives more than they hold is a fault.
#include "xcolours.h"

#include <bitset>
#include <cstdint>
#include <string>

#include "colourcells.h"
#include "gradestate.h"
#include "grid.h"
#include "houses.h"
#include "lesson.h"
#include "light.h"
#include "log.h"
#include "nodequeue.h"
#include "step.h"
#include "words.h"

namespace gradino {
namespace {

// ---- words ------------------------------------------------------------------------------------------------

// Hint and headline alike. The Italian words don't name the digit.
constexpr Words xfound = {"COLORI-X, è possibile eliminare il candidato dalle celle rosse",
                          "X-COLORS,{digit} may be deleted from red and entered on blue cells "};
// The same in hint and log, the log's prefix too.
constexpr Words xdeleted = {" * eliminato il candidato {digit} da", " * deleted number {digit} from"};
constexpr Words xdeletedcell = {" {cell}, ", " {cell}, "};
constexpr Words xplaced = {" * inserito {digit} in ", " * placed {digit} in "};
constexpr Words xplacedcell = {" {cell}, ", " {cell}, "};  // the log writes other blanks

constexpr Words xclashhint = {"COLORI X tipo 2, il numero {digit} è forzato nelle celle {colour}",
                              "COLORS X type 2, the number {digit} it is forced in {colour} cells"};
constexpr Words xclashheadline = {
    "COLORI X CONTRADIZIONE, il numero {digit} è forzato nelle celle {colour}",
    "X-COLORS CONTRADICTION, the number {digit} it is forced in {colour} cells"};

constexpr Words xrule = {
    " TECNICA COLORI-X - LIVELLO 15\r\n"
    "E' una variante della tecnica dei colori\r\n"
    "Si devono cercare coppie di celle all'interno di un gruppo (settore, riga o colonna) che contengano "
    "univocamente lo stesso candidato\r\n"
    "Si costruiscono due gruppi di colore. il primo basato sul presupposto che il candidato stia nella prima "
    "cella, il secondo sul presupposto che il candidato stia nella seconda cella.\r\n"
    "O il candidato sta nelle primo gruppo o nel secondo.\r\n"
    "Il candidato può essere eliminato dalle intersezioni tra righe e colonne di due celle di colore diverso.",
    " TECHNIQUE X-COLORS - LEVEL 15\r\n"
    "It is an extension of simple colors tecnique\r\n"
    "We must find inside a house (block, row, column) 2 cells that contain unequivocally the same candidate\r\n"
    "When a house contains only 2 candidates for a number, one of them must be true and the other must be "
    "false.\r\n"
    "We build 2 groups of 2 colors, the first based on the number on the first cell, the second basd on the "
    "number on the second cell.\r\n"
    "The 2 groups of cells are colored with 2 different colors.\r\n"
    "If the candidate is contained in first group, then it is NOT contained in the second group , and vice "
    "versa.\r\n"
    "The candidate may be deleted from intersections of rows and columns of differently colored cells .\r\n"
    "If the two groups have common cells, then the candidate must be true in the common cells"};
// The Italian words say the first cell for both groups.
constexpr Words xclashrule = {
    " TECNICA COLORI-X - CONTRADDIZIONE  - LIVELLO 16\r\n"
    "E'una variante della tecnica dei colori\r\n"
    "Si devono cercare coppie di celle all'interno di un gruppo (settore, riga o colonna) che contengano "
    "univocamente lo stesso candidato\r\n"
    "Si costruiscono due gruppi di colore. il primo basato sul presupposto che il candidato stia nella prima "
    "cella, il secondo sul presupposto che il candidato stia nella prima cella.\r\n"
    "O il candidato sta nelle primo gruppo o nel secondo.\r\n"
    "Uno stesso colore non può comparire 2 volte nello stesso gruppo\r\n"
    "Se compare una situazione simile possiamo escludere il candidato dal tutte le celle del colore ed assegnarlo "
    "a tutte le celle dell'altro colore.\r\n"
    "Questa tecnica è coincidente con una catena NISHIO, prima di arrivare ad un gruppo con due celle dello "
    "stesso colore, possiamo trovare un gruppo dove il candidato non è più possibile.",
    " TECHNIQUE X-COLORS - CONTRADICTION - LEVEL 16\r\n"
    "It is an extension of simple colors tecnique\r\n"
    "We must find inside a house (block, row, column) 2 cells that contain unequivocally the same candidate\r\n"
    "When a house contains only 2 candidates for a number, one of them must be true and the other must be "
    "false.\r\n"
    "We build 2 groups of 2 colors, the first based on the number on the first cell, the second basd on the "
    "number on the second cell.\r\n"
    "The 2 groups of cells are colored with 2 different colors.\r\n"
    "If the candidate is contained in first group, then it is NOT contained in the second group , and vice "
    "versa.\r\n"
    "If the two groups have common cells, then the candidate must be true in the common cells\r\n"
    "A colors CAN NOT appear more than once in a house\r\n"
    "If we find a similar situation we can delete the candidate from the color group and place it on all the cell "
    "of the other color.\r\n"
    "This technique is coinciding with a NISHIO CHAIN, before arriving to a house with 2 cells of the same "
    "colors, we can find a house where the candidate is not more possible."};

constexpr Words eitherseed = {"il numero {digit} o in {first} o in {second}",
                              "the number {digit} or in {first} or in {second}"};
// Blanks differ between the colours.
constexpr Words ifyellow = {
    "se {digit} in {cell}  allora {digit} in tutte le celle colorate di giallo",
    "if {digit} in {cell} then {digit} is FALSE in red cells and TRUE in yellow cells "};
constexpr Words ifgreen = {
    "se {digit} in {cell}  allora {digit} in tutte le celle colorate di verde",
    "if {digit} in {cell}  then {digit}  is FALSE in red cells and TRUE in green cells"};
constexpr Words eithergroup = {"Quindi {digit} o nel gruppo giallo o nel gruppo verde",
                               "Then {digit} or in yellow group or in green group"};
constexpr Words eithergroupblue = {"Quindi {digit} o nel gruppo giallo-azzurro o nel gruppo verde-azzurro",
                                   "Then {digit} or in yellow-blue group or in green-blue group"};
constexpr Words xcandelete = {"possiamo quindi eliminare il candidato {digit} da tutte le celle rosse",
                              "we can, therefore, delete {digit} from all red cells"};
constexpr Words bluecommon = {"e siccome le celle azzurre sono comune ai due gruppi ",
                              "and, as the blue cell is common to the 2 groups "};
constexpr Words blueplace = {"possiamo inserire il candidato {digit} nella cella azzurri",
                             "we can place {digit} in blue cell"};
constexpr Words twiceinhouse = {
    "Il candidato compare due volte in un gruppo. IMPOSSIBILE - Il candidato è FALSO in TUTTE le celle del colore",
    "The candidate is contained twice in a House. IMPOSSIBLE - The candidate is FALSE in ALL the cells of the "
    "group"};
constexpr Words musttruegreen = {"Quindi deve essere vero nel colore verde - cella {cell}",
                                 "Then must be TRUE in green group - cell {cell}"};
constexpr Words musttrueyellow = {"Quindi deve essere vero nel colore giallo - cella {cell}",
                                  "Then must be TRUE in yellow group - cell {cell}"};

constexpr int level = 15, clashlevel = 16;

// ---- search -----------------------------------------------------------------------------------------------

struct XColours {
  enum class Kind { nothing, deletion, firstfalse, secondfalse } kind = Kind::nothing;
  int digit = 0;
  ByIndex<Recorded, 2> group = {
      {Recorded("groupcells", 0, 20), Recorded("groupcells", 0, 20)}};  ///< the seed first
  Recorded deleted{"xdeletecell", 0, 60};  ///< once for every pair of cells and rule that hits the cell
  Recorded common{"commoncell", 0, 10};    ///< true in both groups

  explicit operator bool() const { return kind != Kind::nothing; }

  /// Of a clash: the group that is false, 0 or 1, and the one that is not.
  int falsegroup() const { return kind == Kind::firstfalse ? 0 : 1; }
  int truegroup() const { return 1 - falsegroup(); }
};

/// One hypothesis, run in the node queue.
class Hypothesis {
 public:
  Hypothesis(int digit, int seed) : digit_(digit) {
    settle(seed, true);
    for (int i = 0; i < count_; ++i)
      for (HouseKind kind : {HouseKind::block, HouseKind::row, HouseKind::column})
        follow(chainflag(i), kind, houseof(kind, chaincell(i)));
  }

  /// Gathers the true cells. True: two of them share a house.
  bool gather(Recorded& group) const {
    group.clear();
    for (int i = 0; i < count_; ++i)
      if (chainflag(i)) group.add(chaincell(i));
    return clash_;
  }

 private:
  /// What is known of a house.
  struct Known {
    Positions settled;
    bool hastrue = false;
  };

  void settle(int cell, bool truth) {
    for (HouseKind kind : housekinds) settle(kind, houseof(kind, cell), positionof(kind, cell), truth);
    chaincell(count_) = cell;
    chainflag(count_) = truth;
    ++count_;
  }
  void settle(HouseKind kind, int house, int position, bool truth) {
    Known& here = known_[kind][house];
    here.settled.add(position);
    clash_ = clash_ || (truth && here.hastrue);
    here.hastrue = here.hastrue || truth;
  }

  /// What a cell means for one of its houses: if it is true, all open places become false; if it is false,
  /// the last open place becomes true, if there is only one and the house has no true cell.
  void follow(bool truth, HouseKind kind, int house) {
    const Known& here = known_[kind][house];
    if (!truth && here.hastrue) return;
    Positions open = housepos(kind, digit_, house);
    open.bits = static_cast<std::uint16_t>(open.bits & ~here.settled.bits);
    if (truth)
      for (int p : open) settle(housecell(kind, house, p), false);
    else if (!open.empty() && open.first() == open.last())
      settle(housecell(kind, house, open.first()), true);
  }

  int digit_;
  int count_ = 0;
  bool clash_ = false;
  ByKind<ByHouse<Known>> known_;
};

void recordcommon(XColours& find) {
  ByCell<bool> infirst{};
  for (int cell : find.group[0]) infirst[cell] = true;
  for (int cell : find.group[1])
    if (infirst[cell]) find.common.add(cell);
}

/// What the true cells of a group see, and where they are, as columns by row.
struct Sight {
  ByHouse<unsigned> seen{}, own{};

  explicit Sight(const Recorded& group) {
    unsigned columns = 0;
    for (int cell : group) {
      const int row = rowof(cell), col = columnof(cell), band = row / 3 * 3;
      own[row] |= 1u << col;
      columns |= 1u << col;
      seen[row] = 0x1ff;
      for (int r = band; r < band + 3; ++r) seen[r] |= 7u << col / 3 * 3;
    }
    for (unsigned& row : seen) row |= columns;
  }
};

/// Whether a cell sees both groups: for most pairs of hypotheses none does, and they end here. A true cell
/// never does, as no two of a sound group share a house. places: the columns of the digit's candidates, by
/// row.
bool anydeletion(const XColours& find, const ByHouse<unsigned>& places) {
  const Sight one(find.group[0]), other(find.group[1]);
  for (int r = 0; r < 9; ++r)
    if (places[r] & one.seen[r] & other.seen[r] & ~one.own[r] & ~other.own[r]) return true;
  return false;
}

ByHouse<unsigned> candidatesbyrow(int digit) {
  ByHouse<unsigned> places{};
  const int bit = bitvalue(digit);
  for (int cell = 0; cell < cellcount; ++cell)
    if (candmask(cell) & bit) places[rowof(cell)] |= 1u << columnof(cell);
  return places;
}

/// The other cells of the houses that two cells share.
template <class Act>
void sharedhouses(int one, int other, Act act) {
  for (HouseKind kind : housekinds) {
    if (!samehouse(kind, one, other)) continue;
    for (int cell : housearound(kind, one))
      if (cell != one && cell != other) act(cell);
  }
}

/// Records what sees a true cell of each group. A cell that is true in both counts as a pair too: it shares
/// row, column and block with itself.
void recorddeletions(XColours& find) {
  const char* const here = __func__;
  const auto record = [&](int cell) {
    if (hascandidate(cell, find.digit)) find.deleted.add(cell, here);
  };
  for (int one : find.group[0])
    for (int other : find.group[1]) {
      seenbyboth(one, other, record);
      sharedhouses(one, other, record);
    }
}

/// Both hypotheses of a house. When both clash it is the second that is called false.
void runpair(XColours& find, int first, int second, const ByHouse<unsigned>& places) {
  if (Hypothesis(find.digit, first).gather(find.group[0])) find.kind = XColours::Kind::firstfalse;
  if (Hypothesis(find.digit, second).gather(find.group[1])) find.kind = XColours::Kind::secondfalse;
  if (find) return;
  if (!anydeletion(find, places)) return;
  recordcommon(find);
  recorddeletions(find);
  find.kind = XColours::Kind::deletion;
}

/// The first house whose two hypotheses give something. Common cells alone are nothing.
XColours scanxcolors(Byte& digit) {
  XColours find;
  for (digit = 1; digit <= 9; digit += 1) {
    find.digit = digit;
    const ByHouse<unsigned> places = candidatesbyrow(digit);
    ByCell<std::bitset<cellcount>> done;  // two cells can share a line and a block
    const bool over =
        seeds(digit, {HouseKind::row, HouseKind::block, HouseKind::column}, [&](int first, int second) {
          if (done[first][second]) return false;
          done[first].set(second);
          runpair(find, first, second, places);
          return static_cast<bool>(find);
        });
    if (over) break;
  }
  return find;
}

/// The step on show. Only the explanations read it, and not from a copy: a command during one of their waits
/// may put another there.
XColours shown;

void explain();

void forget() {
  shown = {};
  colourlesson = nullptr;
}

// ---- step -------------------------------------------------------------------------------------------------

// Group 1 is green and group 2 yellow, the other way round from the explanation. A stop leaves the colours on
// the board and foundflag unset: the ladder goes on with its next rung.
void showdeletion(const XColours& find) {
  const int digit = find.digit;
  paintmarks(find.group[0], digit, green);
  paintmarks(find.group[1], digit, yellow);
  paintmarks(find.deleted, digit, red);
  paintmarks(find.common, digit, cyan);
  frmmain::Text5.text = std::to_string(digit);
  frmmain::txthint.text = say(xfound, ofdigit(digit));
  if (waitatlight() == Answer::stop) return;

  frmmain::txthint.text = say(xdeleted, ofdigit(digit));
  for (int cell : find.deleted)
    if (deletecandidate(cell, digit)) frmmain::txthint.text += say(xdeletedcell, incell(cell));
  foundflag = true;
  if (!find.common.empty()) {
    waitatlight();  // whatever the answer, the cells get their digit
    frmmain::txthint.text = say(xplaced, ofdigit(digit));
    for (int cell : find.common) {
      enterdigit(cell, digit);
      frmmain::txthint.text += say(xplacedcell, incell(cell));
    }
  }
  paintmarks(find.group[0], digit, white);
  paintmarks(find.group[1], digit, white);
  paintmarks(find.deleted, digit, white);
  paintmarks(find.common, digit, white);
  showdeletions();
}

// Of the surviving group only the seed is shown and placed: the rest is left to later steps.
void showclash(const XColours& find) {
  const int seed = find.group[find.truegroup()].first();
  const bool seedyellow = find.kind == XColours::Kind::firstfalse;
  foundflag = true;
  paintmarks(find.group[find.falsegroup()], find.digit, seedyellow ? green : yellow);
  pencilmark(seed, find.digit).back = seedyellow ? yellow : green;
  frmmain::txthint.text =
      say(xclashhint, ofdigit(find.digit), hole("colour", cellsof(seedyellow ? yellow : green)));
  const bool stop = waitatlight() == Answer::stop;
  paintmarks(find.group[0], find.digit, white);
  paintmarks(find.group[1], find.digit, white);
  if (stop) return;

  frmmain::txthint.text = say(logentered, ofdigit(find.digit));
  enterdigit(seed, find.digit);
  frmmain::txthint.text += say(andcell, incell(seed));
}

}  // namespace

void frmmain::stepxcolors() {
  foundflag = false;
  const XColours find = shown = scanxcolors(colourdigit);
  colourlesson = find ? explain : nullptr;
  if (!find) return;
  find.kind == XColours::Kind::deletion ? showdeletion(find) : showclash(find);
}

// ---- twin -------------------------------------------------------------------------------------------------

namespace {

void loggroups(const XColours& find) {
  detail(listline(0, find.group[0].cells()));
  detail(listline(1, find.group[1].cells()));
}

void gradedeletion(const XColours& find) {
  raiselevel(level);
  headline(say(xfound, ofdigit(find.digit)));
  loggroups(find);
  detail(say(xdeleted, ofdigit(find.digit)));
  logdeletions(find.deleted, find.digit, xdeletedcell);
  if (!find.common.empty()) {
    detail(say(xplaced, ofdigit(find.digit)));
    for (int cell : find.common) logentering(cell, find.digit);
  }
  settledeletions();
}

void gradeclash(const XColours& find) {
  headline(say(xclashheadline, ofdigit(find.digit), hole("colour", listname(find.truegroup()))));
  loggroups(find);
  detail(say(logentered, ofdigit(find.digit)));
  raiselevel(clashlevel);
  logentering(find.group[find.truegroup()].first(), find.digit);
}

}  // namespace

void frmgenerazione::gradexcolors() {
  foundflag = false;
  Byte digit;
  const XColours find = scanxcolors(digit);
  if (!find) return;
  foundflag = true;
  find.kind == XColours::Kind::deletion ? gradedeletion(find) : gradeclash(find);
}

// ---- explanations -----------------------------------------------------------------------------------------

namespace {

/// A group as the explanation shows it.
struct GroupWords {
  Colour colour;
  Words iftrue;
};
constexpr ByIndex<GroupWords, 2> groupwords = {{{yellow, ifyellow}, {green, ifgreen}}};

/// One of the two seeds holds the digit. True: stop.
bool showseeds(Lesson& lesson) {
  const ByIndex<int, 2> seed = {{shown.group[0].first(), shown.group[1].first()}};
  for (int k : {0, 1}) pencilmark(seed[k], shown.digit).back = groupwords[k].colour;
  lesson.line(say(eitherseed, ofdigit(shown.digit), hole("first", cellname(seed[0])),
                  hole("second", cellname(seed[1]))));
  if (lesson.showandwait() == Answer::stop) return true;
  pencilmark(seed[1], shown.digit).back = white;
  return false;
}

/// Red for all that a true cell rules out; whatever has a colour keeps it.
void paintruledout(int cell, int digit) {
  for (HouseKind kind : housekinds)
    for (int seen : housearound(kind, cell))
      if (Box& box = pencilmark(seen, digit); box.back == white) box.back = red;
}

/// A hypothesis cell by cell, each with what it rules out. True: stop.
bool showgroup(Lesson& lesson, int k) {
  const int digit = shown.digit;
  lesson.line(say(groupwords[k].iftrue, ofdigit(digit), incell(shown.group[k].first())));
  const auto group = shown.group[k];  // a command in one of the waits may search anew
  for (int cell : group) {
    pencilmark(cell, digit).back = groupwords[k].colour;
    paintruledout(cell, digit);
    if (lesson.showandwait() == Answer::stop) return true;
  }
  return false;
}

void explaindeletion() {
  const int digit = shown.digit;
  const bool blue = !shown.common.empty();
  Lesson lesson = ruleof(xrule, digit);
  if (showseeds(lesson) || showgroup(lesson, 0)) return;
  clearcolours();
  if (showgroup(lesson, 1)) return;
  clearcolours();

  for (int k : {0, 1}) paintmarks(shown.group[k], digit, groupwords[k].colour);
  paintmarks(shown.common, digit, cyan);
  lesson.line(say(blue ? eithergroupblue : eithergroup, ofdigit(digit)));
  if (lesson.showandwait() == Answer::stop) return;

  paintmarks(shown.deleted, digit, red);
  lesson.line(say(xcandelete, ofdigit(digit)));
  if (lesson.showandwait() == Answer::stop) return;

  if (blue) {
    lesson.line(inlanguage(bluecommon)).line(say(blueplace, ofdigit(digit)));
    if (lesson.showandwait() == Answer::stop) return;
  }
  closelesson();
  clearcolours();
}

void explainclash() {
  Lesson lesson = ruleof(xclashrule, shown.digit);
  if (showseeds(lesson) || showgroup(lesson, shown.falsegroup())) return;
  const int seed = shown.group[shown.truegroup()].first();
  lesson.line(inlanguage(twiceinhouse));
  lesson.line(say(shown.kind == XColours::Kind::firstfalse ? musttruegreen : musttrueyellow, incell(seed)));
  if (lesson.showandwait() == Answer::stop) return;
  closelesson();
  clearcolours();
}

void explain() {
  shown.kind == XColours::Kind::deletion ? explaindeletion() : explainclash();
}

}  // namespace

// ---- record -----------------------------------------------------------------------------------------------

const Technique techniques::xcolours{
    .tag = "colors",
    .name = "xcolors",
    .called = {"X-Colors", "X-colours"},
    .step = byfoundflag<frmmain::stepxcolors>,
    .twin = byfoundflag<frmgenerazione::gradexcolors>,
    .explain = explaincolors,
    .level = level,
    .clashlevel = clashlevel,
    .forget = forget,
};

}  // namespace gradino
