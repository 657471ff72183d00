// Wings. A pivot sees two wings of two candidates each. Whichever digit the pivot takes, Z is in one of the
// three cells: X in the pivot leaves Z to the one wing, Y leaves it to the other. So the cells that see all
// these places of Z lose it.
//
//         c1  c2  c3   c4  c5  c6   c7  c8  c9
//    r1    .   .  XZ |  .   .   . |  b   b   b        wing 1 in the pivot's block, wing 2 in its row,
//    r2    a  XY   a |  .   .   . | YZ   .   .        or likewise in its column
//    r3    .   .   . |  .   .   . |  .   .   .
//
//    r2    .  XY   . |  .  XZ   . |  .   .   .        wing 1 in the pivot's row, wing 2 in its column
//    r7    .  YZ   . |  .   c   . |  .   .   .
//
// In an XY-Wing Z goes from all cells marked a, b or c; the cells c are the other corners of the rectangle
// through the wings, and one of them may be the pivot. In an XYZ-Wing the pivot may hold Z itself: only the
// cells marked a see it too, and without a wing in the block there are none.
#include "wings.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "candidatetext.h"
#include "gradestate.h"
#include "grid.h"
#include "houses.h"
#include "lesson.h"
#include "light.h"
#include "log.h"
#include "step.h"
#include "words.h"

namespace gradino {
namespace {

// ---- words ------------------------------------------------------------------------------------------------

// The hint and the log's headline.
constexpr Words xyfound = {"XY-WING, numero {z} in {pivot}, {wing1}, {wing2}",
                           "XY-WING, number {z} in {pivot}, {wing1}, {wing2}"};
constexpr Words xyzfound = {"XYZ-WING, numero {z} in {pivot}, {wing1}, {wing2}",
                            "XYZ-WING, number {z} in {pivot}, {wing1}, {wing2}"};

// " from " is in both languages.
constexpr Words deleted = {"eliminato {z} from ", "deleted {z} from "};
constexpr Words logdeleted = {" * eliminato {z} from ", " * deleted {z} from "};
constexpr Words deletedcell = {"  {cell} , ", "  {cell} , "};

constexpr Words xyrule = {
    "TECNICA XY-WING  LIVELLO 8\r\n"
    "XY-Wings sono formati da 3 celle bivalori (con 2 candidati) .\r\n"
    "Per trovare un XY-Wing, cercate una cella con 2 candidati; questa è la cella XY, e le sue 2 possibilità sono "
    "X e Y.\r\n"
    "Ora cercate nelle altre celle della riga, colonna e settore della cella XY altre celle con 2 candidati, una "
    "con XZ e l'altra con YZ, dove Z è differente da X e Y. \r\n"
    "Se trovate un XY-Wing, allora tutte le celle che condividono un gruppo con entrambe le celle XZ e YZ non "
    "possono contenere Z.",
    "TECHNIQUE XY-WING  LEVEL 8\r\n"
    "XY-Wings are formed by sets of 3 bivalue (two candidates) cells.\r\n"
    "To find an XY-Wing, look for a cell with two possibilities; this is the XY cell, and its two possibilities "
    "are X and Y.\r\n"
    "Now look in the other cells in the XY cell row, column and block; for two other 2-possibility cells, one "
    "with possibilities XZ and the other with possibilities YZ, where Z is not X or Y. \r\n"
    "If you find an XY-Wing, then all the cells that share a house with both XZ and YZ cannot contain Z."};
constexpr Words xyzrule = {
    "TECNICA XYZ-WING  LIVELLO 9\r\n"
    "XYZ-Wings è una estensione della XY-Wing.\r\n"
    "Per trovare un XYZ-Wing, cercate una cella con 3 candidati; questa è la cella XYZ.\r\n"
    "Ora cercate nelle altre celle della riga, colonna e settore della cella XYZ altre celle con 2 candidati, una "
    "con XZ e l'altra con YZ. \r\n"
    "Se trovate un XYZ-Wing, allora le celle che condividono un gruppo con tutte e tre le celle XYZ,XZ e YZ non "
    "possono contenere Z.",
    "TECHNIQUE XYZ-WING  LEVEL 9\r\n"
    "XYZ-Wing is an extension of XY-Wing.\r\n"
    "To find an XYZ-Wing, look for a cell with 3 candidates; this is the XYZ cell.\r\n"
    "Now look in the other cells in the XYZ cell row, column and block; for two other 2-possibility cells, one "
    "with possibilities XZ and the other with possibilities YZ. \r\n"
    "If you find an XYZ-Wing, then cells that share a house with all three of the cells cannot contain Z."};

constexpr Words xycase = {"XY-WING, {z} in {pivot}, {wing1}, {wing2}",
                          "XY-WING, {z} in {pivot}, {wing1}, {wing2}"};
constexpr Words xyzcase = {"XYZ-WING, {z} in {pivot}, {wing1}, {wing2}",
                           "XYZ-WING, {z} in {pivot}, {wing1}, {wing2}"};
constexpr Words xyif = {"se (XY-azzurra) {pivot} = {digit} allora Z={z} in (gialla) {wing}",
                        "if (XY-blue) {pivot} = {digit} then Z={z} in (yellow) {wing}"};
constexpr Words xyzif = {"se {pivot} = {digit} allora Z={z} in {wing}",
                         "if {pivot} = {digit} then Z={z} in {wing}"};
constexpr Words thirdpossibility = {"la terza possibilità è che Z={z} sia in {pivot}",
                                    "the third possibility is that Z={z} is in {pivot}"};
constexpr Words wecandelete = {"posso quindi eliminare il candidato {z} da tutte le celle rosse",
                               "we can delete {z} from all red cells"};

// ---- search -----------------------------------------------------------------------------------------------

struct Wing {
  int pivot = 0, wing1 = 0, wing2 = 0;  ///< cells
  int x = 0, y = 0, z = 0;    ///< the pivot's other two digits as they are said, and the one that goes
  std::vector<int> losing{};  ///< the cells that lose z: those marked a, b and c; one may come twice
};

/// The line that wing 2 shares with the pivot when wing 1 is in the block.
struct Leg {
  HouseKind line;
  int slot;  ///< of the first such line in usedmask
};
constexpr Leg legs[] = {{HouseKind::row, rowslot}, {HouseKind::column, columnslot}};

bool placed(int slot, int digit) {
  return (usedmask(slot) & bitvalue(digit)) != 0;
}

bool hascandidates(int cell, int n) {
  return candmask(cell) >= 1 && candidatecount(cell) == n;
}

bool hastwoatmost(std::int32_t mask) {
  const std::int32_t butone = mask & (mask - 1);
  return (butone & (butone - 1)) == 0;
}

std::int32_t pairmask(int digit1, int digit2) {
  return bitvalue(digit1) | bitvalue(digit2);
}

/// The cell loses z if it has it and is not the one spared.
void lose(Wing& wing, int cell, int spared) {
  if (cell != spared && hascandidate(cell, wing.z)) wing.losing.push_back(cell);
}

/// The cells marked a: those of the pivot's block on its line.
void losepivotline(Wing& wing, HouseKind line) {
  for (int cell : housearound(HouseKind::block, wing.pivot))
    if (samehouse(line, cell, wing.pivot)) lose(wing, cell, wing.pivot);
}

/// The cells marked b: those of wing 2's block on the line of wing 1.
void losewingline(Wing& wing, HouseKind line) {
  for (int cell : housearound(HouseKind::block, wing.wing2))
    if (samehouse(line, cell, wing.wing1)) lose(wing, cell, wing.wing2);
}

/// The cells marked c. One may be the pivot; one may be marked a or b already.
void losecorners(Wing& wing) {
  lose(wing, cellat(rowof(wing.wing1), columnof(wing.wing2)), wing.pivot);
  lose(wing, cellat(rowof(wing.wing2), columnof(wing.wing1)), wing.pivot);
}

// The tests of a pattern whose wings are in place: it counts if some cell loses z. As that ends the search,
// no cell is listed before a test.

bool testxyleg(Wing& wing, const Leg& leg) {
  if (placed(leg.slot + houseof(leg.line, wing.pivot), wing.z)) return false;
  losepivotline(wing, leg.line);
  losewingline(wing, leg.line);
  losecorners(wing);
  return !wing.losing.empty();
}

bool testxycorners(Wing& wing) {
  losecorners(wing);
  return !wing.losing.empty();
}

bool testxyzleg(Wing& wing, const Leg& leg) {
  losepivotline(wing, leg.line);
  return !wing.losing.empty();
}

/// Tries as wing 2 each cell of the pivot's line outside its block that has the right candidates, until test
/// takes one.
template <class Test>
bool anywing2(Wing& wing, HouseKind line, std::int32_t mask, Test test) {
  for (int cell : housearound(line, wing.pivot)) {
    if (candmask(cell) != mask || samehouse(HouseKind::block, cell, wing.pivot)) continue;
    wing.wing2 = cell;
    if (test()) return true;
  }
  return false;
}

/// Wing 1 is in the pivot's block: wing 2 is looked for along the pivot's row, then its column, but not on a
/// line that wing 1 is on too.
bool anyleg(Wing& wing, std::int32_t mask2, bool (*test)(Wing&, const Leg&)) {
  for (const Leg& leg : legs)
    if (!samehouse(leg.line, wing.wing1, wing.pivot) &&
        anywing2(wing, leg.line, mask2, [&] { return test(wing, leg); }))
      return true;
  return false;
}

bool scanblockwings(Wing& wing, std::int32_t mask1, std::int32_t mask2) {
  if (placed(blockslot + blockof(wing.pivot), wing.z)) return false;
  for (int cell : housearound(HouseKind::block, wing.pivot)) {
    wing.wing1 = cell;
    if (candmask(cell) == mask1 && cell != wing.pivot && anyleg(wing, mask2, testxyleg)) return true;
  }
  return false;
}

bool scanlinewings(Wing& wing, std::int32_t mask1, std::int32_t mask2) {
  if (placed(rowslot + rowof(wing.pivot), wing.z) || placed(columnslot + columnof(wing.pivot), wing.z))
    return false;
  for (int cell : housearound(HouseKind::row, wing.pivot)) {
    wing.wing1 = cell;
    if (candmask(cell) == mask1 && cell != wing.pivot &&
        anywing2(wing, HouseKind::column, mask2, [&] { return testxycorners(wing); }))
      return true;
  }
  return false;
}

/// The digits that z may be: the pivot sees a cell with x and z and one with y and z. A few more may pass,
/// but mostly none does, which makes a search in vain quick.
std::int32_t possiblez(const Wing& wing) {
  const std::int32_t x = bitvalue(wing.x), y = bitvalue(wing.y);
  std::int32_t besidex = 0, besidey = 0;
  for (HouseKind kind : housekinds)
    for (int cell : housearound(kind, wing.pivot)) {
      const std::int32_t mask = candmask(cell);
      if (!hastwoatmost(mask)) continue;
      if ((mask & x) == x) besidex |= mask;
      if ((mask & y) == y) besidey |= mask;
    }
  return besidex & besidey & ~(x | y);
}

/// The first XY-Wing that deletes something: by pivot, by z, wing 1 with x and then with y, in each the wings
/// in the block ahead of the wings on both lines.
std::optional<Wing> scanxywing() {
  Wing wing;
  for (wing.pivot = 0; wing.pivot < cellcount; ++wing.pivot) {
    if (!hascandidates(wing.pivot, 2)) continue;
    wing.x = candidateat(wing.pivot, 0);
    wing.y = candidateat(wing.pivot, 1);
    const std::int32_t possible = possiblez(wing);
    for (wing.z = 1; wing.z <= 9; ++wing.z) {
      if ((possible & bitvalue(wing.z)) == 0) continue;
      const std::int32_t xz = pairmask(wing.x, wing.z), yz = pairmask(wing.y, wing.z);
      if (scanblockwings(wing, xz, yz) || scanlinewings(wing, xz, yz) || scanblockwings(wing, yz, xz) ||
          scanlinewings(wing, yz, xz))
        return wing;
    }
  }
  return std::nullopt;
}

/// The wings around a pivot with x, y and z given. Here only the masks count: what is placed is not asked.
bool scanxyzwings(Wing& wing) {
  const std::int32_t xz = pairmask(wing.x, wing.z), yz = pairmask(wing.y, wing.z);
  for (int cell : housearound(HouseKind::block, wing.pivot)) {
    if ((candmask(cell) != xz && candmask(cell) != yz) || cell == wing.pivot) continue;
    wing.wing1 = cell;
    if (anyleg(wing, candmask(cell) == xz ? yz : xz, testxyzleg)) return true;
  }
  return false;
}

/// The first XYZ-Wing that deletes something: by pivot, each of its digits as z, by wing 1. With the last
/// digit as z the greater of the other two is said first.
std::optional<Wing> scanxyzwing() {
  static constexpr int orders[][3] = {{1, 2, 0}, {0, 2, 1}, {1, 0, 2}};
  Wing wing;
  for (wing.pivot = 0; wing.pivot < cellcount; ++wing.pivot) {
    if (!hascandidates(wing.pivot, 3)) continue;
    for (const auto& [x, y, z] : orders) {
      wing.x = candidateat(wing.pivot, x);
      wing.y = candidateat(wing.pivot, y);
      wing.z = candidateat(wing.pivot, z);
      if (scanxyzwings(wing)) return wing;
    }
  }
  return std::nullopt;
}

/// What the two techniques differ in.
struct WingKind {
  const Technique& technique;
  std::optional<Wing> (*scan)();
  Words found, rule, thecase, ifdigit;
};

// clang-format off
constexpr WingKind xywing  = {techniques::xywing,  scanxywing,  xyfound,  xyrule,  xycase,  xyif};
constexpr WingKind xyzwing = {techniques::xyzwing, scanxyzwing, xyzfound, xyzrule, xyzcase, xyzif};
// clang-format on

/// The step on show, of either technique. Only explain reads it.
std::optional<Wing> shown;

void forget() {
  shown.reset();
}

std::string tell(const Words& words, const Wing& wing) {
  return say(words, hole("z", wing.z), hole("pivot", cellname(wing.pivot)),
             hole("wing1", cellname(wing.wing1)), hole("wing2", cellname(wing.wing2)));
}

// ---- step -------------------------------------------------------------------------------------------------

struct Paint {
  Colour marks, boxes;
};

void paint(const Wing& wing, const Paint& colours) {
  for (int cell : wing.losing) pencilmark(cell, wing.z).back = colours.marks;
  for (int cell : {wing.wing1, wing.wing2, wing.pivot}) frmmain::Text2(cell).back = colours.boxes;
}

void step(const WingKind& kind) {
  steptag = kind.technique.tag;
  foundflag = false;
  shown = kind.scan();
  if (!shown) return;
  const Wing wing = *shown;  // a command that comes in during the wait may show another
  foundflag = true;
  paint(wing, {.marks = red, .boxes = yellow});
  frmmain::txthint.text = tell(kind.found, wing);
  const bool stop = waitatlight() == Answer::stop;
  paint(wing, {.marks = white, .boxes = white});
  if (stop) return;  // with foundflag set: the ladder stops all the same

  frmmain::txthint.text = tell(deleted, wing);
  for (int cell : wing.losing)
    if (deletecandidate(cell, wing.z)) frmmain::txthint.text += say(deletedcell, incell(cell));
  showdeletions();
}

// ---- twin -------------------------------------------------------------------------------------------------

void twin(const WingKind& kind) {
  foundflag = false;
  const std::optional<Wing> found = kind.scan();
  if (!found) return;
  const Wing& wing = *found;
  foundflag = true;
  headline(tell(kind.found, wing));
  detail(tell(logdeleted, wing));
  for (int cell : wing.losing)
    if (deletecandidate(cell, wing.z)) appendwords(say(deletedcell, incell(cell)));
  raiselevel(kind.technique.level);
  settledeletions();
}

// ---- explanation ------------------------------------------------------------------------------------------

/// The digit in the pivot, and the wing that it leaves z to.
std::string argue(const Words& words, const Wing& wing, int digit) {
  const int left = hascandidate(wing.wing1, digit) ? wing.wing1 : wing.wing2;
  return say(words, hole("pivot", cellname(wing.pivot)), ofdigit(digit), hole("z", wing.z),
             hole("wing", cellname(left)));
}

void explain(const WingKind& kind) {
  if (!shown) return;  // a search without a result was started during another step's wait
  const Wing wing = *shown;
  Lesson lesson;
  lesson.line(inlanguage(kind.rule)).line(longruleline).line(tell(kind.thecase, wing));
  if (&kind == &xywing) frmmain::Text2(wing.pivot).back = cyan;
  lesson.line(argue(kind.ifdigit, wing, wing.x)).line(argue(kind.ifdigit, wing, wing.y));
  if (&kind == &xyzwing) lesson.line(tell(thirdpossibility, wing));
  lesson.line(tell(wecandelete, wing));
  if (lesson.showandwait() == Answer::stop) return;
  closelesson();
  clearcolours();
}

}  // namespace

void frmmain::findxywing() {
  step(xywing);
}
void frmmain::findxyzwing() {
  step(xyzwing);
}

void frmgenerazione::findxywing() {
  twin(xywing);
}
void frmgenerazione::findxyzwing() {
  twin(xyzwing);
}

void explainxywing() {
  explain(xywing);
}
void explainxyzwing() {
  explain(xyzwing);
}

// ---- records ----------------------------------------------------------------------------------------------

const Technique techniques::xywing{
    .tag = "findxywing",
    .name = "findxywing",
    .called = {"XY-Wing", "XY-Wing"},
    .step = byfoundflag<frmmain::findxywing>,
    .twin = byfoundflag<frmgenerazione::findxywing>,
    .explain = explainxywing,
    .level = 8,
    .forget = forget,
};
const Technique techniques::xyzwing{
    .tag = "findxyzwing",
    .name = "findxyzwing",
    .called = {"XYZ-Wing", "XYZ-Wing"},
    .step = byfoundflag<frmmain::findxyzwing>,
    .twin = byfoundflag<frmgenerazione::findxyzwing>,
    .explain = explainxyzwing,
    .level = 9,
    .forget = forget,
};

}  // namespace gradino
