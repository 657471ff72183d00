// Wings. A pivot sees two wings of two candidates each. Whichever digit the pivot takes, Z stands in one of
// the three cells: X in the pivot leaves Z to the one wing, Y leaves it to the other. So Z goes from the
// cells that see all places it may have come to.
//
//         c1  c2  c3   c4  c5  c6   c7  c8  c9
//    r1    .   .  XZ |  .   .   . |  b   b   b        br: wing 1 in the pivot's block, wing 2 in its row
//    r2    a  XY   a |  .   .   . | YZ   .   .        bc: likewise with the pivot's column
//    r3    .   .   . |  .   .   . |  .   .   .
//
//    r2    .  XY   . |  .  XZ   . |  .   .   .        rc: wing 1 in the pivot's row, wing 2 in its column
//    r7    .  YZ   . |  .   c   . |  .   .   .
//
// In an XY-Wing Z goes from all cells marked a, b or c; c stands for the two corners of the rectangle through
// the wings. In an XYZ-Wing the pivot may hold Z itself: only the cells marked a see it too, and without a
// wing in the block there are none.
#include "wings.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

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

// " from " stands in both languages.
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

constexpr int nocell = 81;

struct Wing {
  std::string_view kind;                ///< br, bc, rc; empty: nothing found
  int x = 0, y = 0, z = 0;              ///< the other two digits as they are told, and the one that goes
  int pivot = 0, wing1 = 0, wing2 = 0;  ///< cells
  std::array<int, 8> slots{};           ///< the cells that lose z, 3 a, 3 b and 2 c; nocell for none
};

/// The line that wing 2 shares with the pivot, when wing 1 stands in the block.
struct Leg {
  std::string_view kind;
  HouseKind line;
  int slot;  ///< where such lines stand in usedmask
};
constexpr Leg legs[] = {{"br", HouseKind::row, rowslot}, {"bc", HouseKind::column, columnslot}};

bool placed(int slot, int digit) {
  return (usedmask(slot) & bitvalue(digit)) != 0;
}

bool hascandidates(int cell, std::size_t n) {
  return candmask(cell) >= 1 && candstr(cell).size() == n;
}

/// The k-th character of candstr; 0 for one that is no digit, as pencil marks edited by hand may be.
int candidateat(int cell, std::size_t k) {
  const char c = candstr(cell)[k];
  return c >= '1' && c <= '9' ? c - '0' : 0;
}

bool hastwoatmost(std::int32_t mask) {
  const std::int32_t butone = mask & (mask - 1);
  return (butone & (butone - 1)) == 0;
}

std::int32_t pairmask(int digit1, int digit2) {
  return bitvalue(digit1) | bitvalue(digit2);
}

/// Cell i (0 to 2) of those that a block has on the line through a cell, in the block or beside it.
int cellonline(HouseKind line, int through, int block, int i) {
  const int third = houseof(line, through) % 3;
  return blockcells(block, line == HouseKind::row ? i + 3 * third : 3 * i + third);
}

/// The slot takes the cell if z is lost there.
void fill(Wing& find, int slot, int cell, int spared) {
  const bool loses = cell != spared && hascandidate(cell, find.z);
  find.slots[static_cast<std::size_t>(slot)] = loses ? cell : nocell;
}

/// The cells marked a.
void fillpivotline(Wing& find, HouseKind line) {
  for (int i = 0; i < 3; ++i) fill(find, i, cellonline(line, find.pivot, blockof(find.pivot), i), find.pivot);
}

/// The cells marked b.
void fillwingline(Wing& find, HouseKind line) {
  for (int i = 0; i < 3; ++i)
    fill(find, 3 + i, cellonline(line, find.wing1, blockof(find.wing2), i), find.wing2);
}

/// The cells marked c. One may be the pivot; one may stand in a slot already.
void fillcorners(Wing& find) {
  fill(find, 6, find.wing1 / 9 * 9 + find.wing2 % 9, find.pivot);
  fill(find, 7, find.wing2 / 9 * 9 + find.wing1 % 9, find.pivot);
}

/// The pattern is one if some cell loses z.
bool settle(Wing& find, std::string_view kind) {
  if (std::all_of(find.slots.begin(), find.slots.end(), [](int cell) { return cell == nocell; }))
    return false;
  find.kind = kind;
  return true;
}

bool testxyleg(Wing& find, const Leg& leg) {
  if (placed(leg.slot + houseof(leg.line, find.pivot), find.z)) return false;
  fillpivotline(find, leg.line);
  fillwingline(find, leg.line);
  fillcorners(find);
  return settle(find, leg.kind);
}

bool testxycorners(Wing& find) {
  find.slots.fill(nocell);
  fillcorners(find);
  return settle(find, "rc");
}

bool testxyzleg(Wing& find, const Leg& leg) {
  find.slots.fill(nocell);
  fillpivotline(find, leg.line);
  return settle(find, leg.kind);
}

/// The cells of the pivot's line outside its block that are as wing 2 must be, until test takes one.
template <class Test>
bool anywing2(Wing& find, HouseKind line, std::int32_t mask, Test test) {
  for (int cell : housecells(line, houseof(line, find.pivot))) {
    if (candmask(cell) != mask || blockof(cell) == blockof(find.pivot)) continue;
    find.wing2 = cell;
    if (test()) return true;
  }
  return false;
}

/// Wing 1 stands in the pivot's block: wing 2 is looked for along the pivot's row, then its column, but not
/// on a line that wing 1 stands on too.
bool anyleg(Wing& find, std::int32_t mask2, bool (*test)(Wing&, const Leg&)) {
  for (const Leg& leg : legs)
    if (houseof(leg.line, find.wing1) != houseof(leg.line, find.pivot) &&
        anywing2(find, leg.line, mask2, [&] { return test(find, leg); }))
      return true;
  return false;
}

bool scanblockwings(Wing& find, std::int32_t mask1, std::int32_t mask2) {
  const int block = blockof(find.pivot);
  if (placed(blockslot + block, find.z)) return false;
  for (int cell : housecells(HouseKind::block, block)) {
    find.wing1 = cell;
    if (candmask(cell) == mask1 && cell != find.pivot && anyleg(find, mask2, testxyleg)) return true;
  }
  return false;
}

bool scanlinewings(Wing& find, std::int32_t mask1, std::int32_t mask2) {
  const int row = houseof(HouseKind::row, find.pivot), col = houseof(HouseKind::column, find.pivot);
  if (placed(rowslot + row, find.z) || placed(columnslot + col, find.z)) return false;
  for (int cell : housecells(HouseKind::row, row)) {
    find.wing1 = cell;
    if (candmask(cell) == mask1 && cell != find.pivot &&
        anywing2(find, HouseKind::column, mask2, [&] { return testxycorners(find); }))
      return true;
  }
  return false;
}

/// The digits z for which the pivot may see both wings, and hardly ever one more: mostly there is none, and
/// that makes a search in vain quick.
std::int32_t possiblez(const Wing& find) {
  const std::int32_t x = bitvalue(find.x), y = bitvalue(find.y);
  std::int32_t besidex = 0, besidey = 0;
  for (HouseKind kind : {HouseKind::row, HouseKind::column, HouseKind::block})
    for (int cell : housecells(kind, houseof(kind, find.pivot))) {
      const std::int32_t mask = candmask(cell);
      if (!hastwoatmost(mask)) continue;
      if ((mask & x) == x) besidex |= mask;
      if ((mask & y) == y) besidey |= mask;
    }
  return besidex & besidey & ~(x | y);
}

/// The first XY-Wing that deletes something: by pivot, by z, wing 1 with x and then with y, in each the wings
/// in the block ahead of the wings on both lines.
void scanxywing(Wing& find) {
  foundflag = false;
  find = {};
  for (find.pivot = 0; find.pivot < cellcount; ++find.pivot) {
    if (!hascandidates(find.pivot, 2)) continue;
    find.x = candidateat(find.pivot, 0);
    find.y = candidateat(find.pivot, 1);
    const std::int32_t possible = possiblez(find);
    for (find.z = 1; find.z <= 9; ++find.z) {
      if ((possible & bitvalue(find.z)) == 0) continue;
      const std::int32_t xz = pairmask(find.x, find.z), yz = pairmask(find.y, find.z);
      if (scanblockwings(find, xz, yz) || scanlinewings(find, xz, yz) || scanblockwings(find, yz, xz) ||
          scanlinewings(find, yz, xz))
        return;
    }
  }
}

/// The wings around a pivot whose digits are told apart. Here only the masks count: what is placed is not
/// asked.
bool scanxyzwings(Wing& find) {
  const std::int32_t xz = pairmask(find.x, find.z), yz = pairmask(find.y, find.z);
  for (int cell : housecells(HouseKind::block, blockof(find.pivot))) {
    if ((candmask(cell) != xz && candmask(cell) != yz) || cell == find.pivot) continue;
    find.wing1 = cell;
    if (anyleg(find, candmask(cell) == xz ? yz : xz, testxyzleg)) return true;
  }
  return false;
}

/// The first XYZ-Wing that deletes something: by pivot, each of its digits as z, by wing 1. With the last
/// digit as z the other two are told the greater first.
void scanxyzwing(Wing& find) {
  static constexpr std::size_t orders[][3] = {{1, 2, 0}, {0, 2, 1}, {1, 0, 2}};
  foundflag = false;
  find = {};
  for (find.pivot = 0; find.pivot < cellcount; ++find.pivot) {
    if (!hascandidates(find.pivot, 3)) continue;
    for (const auto& [x, y, z] : orders) {
      find.x = candidateat(find.pivot, x);
      find.y = candidateat(find.pivot, y);
      find.z = candidateat(find.pivot, z);
      if (scanxyzwings(find)) return;
    }
  }
}

/// The one walk over the slots: act(cell) for each that names a cell. A cell may come twice.
template <class Act>
void victims(const Wing& find, Act act) {
  for (int cell : find.slots)
    if (cell != nocell) act(cell);
}

/// The wings on show, for their explanations.
Wing shownxy, shownxyz;

/// What tells the two techniques apart.
struct WingKind {
  const Technique& technique;
  void (*scan)(Wing&);
  Wing& shown;
  Words found, rule, thecase, ifdigit;
};

// clang-format off
constexpr WingKind xywing  = {techniques::xywing,  scanxywing,  shownxy,  xyfound,  xyrule,  xycase,  xyif};
constexpr WingKind xyzwing = {techniques::xyzwing, scanxyzwing, shownxyz, xyzfound, xyzrule, xyzcase, xyzif};
// clang-format on

std::string tell(const Words& words, const Wing& find) {
  return say(words, hole("z", find.z), hole("pivot", cellname(find.pivot)),
             hole("wing1", cellname(find.wing1)), hole("wing2", cellname(find.wing2)));
}

std::string at(const Words& words, int cell) {
  return say(words, incell(cell));
}

// ---- step -------------------------------------------------------------------------------------------------

void paint(const Wing& find, Colour marks, Colour boxes) {
  victims(find, [&](int cell) { pencilmark(cell, find.z).back = marks; });
  for (int cell : {find.wing1, find.wing2, find.pivot}) frmmain::Text2(cell).back = boxes;
}

void step(const WingKind& kind) {
  steptag = kind.technique.tag;
  Wing find;
  kind.scan(find);
  kind.shown = find;
  if (find.kind.empty()) return;
  foundflag = true;
  paint(find, red, yellow);
  frmmain::txthint.text = tell(kind.found, find);
  const bool stop = waitatlight() == Answer::stop;
  paint(find, white, white);
  if (stop) return;  // with foundflag set: the ladder stops all the same

  frmmain::txthint.text = tell(deleted, find);
  victims(find, [&](int cell) {
    if (deletecandidate(cell, find.z)) frmmain::txthint.text += at(deletedcell, cell);
  });
  showdeletions();
}

// ---- twin -------------------------------------------------------------------------------------------------

void twin(const WingKind& kind) {
  Wing find;
  kind.scan(find);
  if (find.kind.empty()) return;
  foundflag = true;
  headline(tell(kind.found, find));
  detail(tell(logdeleted, find));
  victims(find, [&](int cell) {
    if (deletecandidate(cell, find.z)) appendwords(at(deletedcell, cell));
  });
  raiselevel(kind.technique.level);
  settledeletions();
}

// ---- explanation ------------------------------------------------------------------------------------------

/// The digit in the pivot, and the wing that it leaves z to.
std::string argue(const Words& words, const Wing& find, int digit) {
  const int wing = hascandidate(find.wing1, digit) ? find.wing1 : find.wing2;
  return say(words, hole("pivot", cellname(find.pivot)), ofdigit(digit), hole("z", find.z),
             hole("wing", cellname(wing)));
}

void explain(const WingKind& kind) {
  const Wing& find = kind.shown;
  if (find.kind.empty()) return;  // asked for by a command that found nothing, while another step waits
  Lesson lesson;
  lesson.line(inlanguage(kind.rule)).line(longruleline).line(tell(kind.thecase, find));
  if (&kind == &xywing) frmmain::Text2(find.pivot).back = cyan;
  lesson.line(argue(kind.ifdigit, find, find.x)).line(argue(kind.ifdigit, find, find.y));
  if (&kind == &xyzwing) lesson.line(tell(thirdpossibility, find));
  lesson.line(tell(wecandelete, find));
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
};
const Technique techniques::xyzwing{
    .tag = "findxyzwing",
    .name = "findxyzwing",
    .called = {"XYZ-Wing", "XYZ-Wing"},
    .step = byfoundflag<frmmain::findxyzwing>,
    .twin = byfoundflag<frmgenerazione::findxyzwing>,
    .explain = explainxyzwing,
    .level = 9,
};

}  // namespace gradino
