// Fish. Take n lines of one direction in which a digit has places on the same n cross lines only. Each of the
// n lines takes the digit once, so together they use up the n cross lines: every other cell of the cross
// lines loses the digit.
//
//          c2      c5      c8            a swordfish in rows 1, 4 and 7: each o may hold the digit,
//     r1    o . . . . . . o              nowhere else do these rows take it. Columns 2, 5 and 8 are
//     r3    x                            used up, and the digit marked x goes.
//     r4    o . . . o
//     r7            o . . o
//     r9            x
//
// A line need not have the digit on all n cross lines. X-Wing (n = 2) is the exception: its two lines must
// have exactly the same two places. The search reads only the positions (rowpos, colpos), never a cell.
#include "fish.h"

#include <algorithm>
#include <array>
#include <bit>
#include <optional>
#include <string>
#include <vector>

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

// Each sentence in two directions: the lines are rows, the lines are columns.
using Pair = std::array<Words, 2>;

// The numbers of lines and cross lines are 1-based and written side by side: rows 1 and 4 read as 14.
constexpr Pair xwingfound = {{{"X-WING, numero {digit} nelle righe {lines} colonne {cross}",
                               "X-WING, number {digit} in rows {lines} columns {cross}"},
                              {"X-WING, numero {digit} nelle colonne {lines} righe {cross}",
                               "X-WING, number {digit} in columns {lines} rows {cross}"}}};
constexpr Pair swordfishfound = {{{"SWORDFISH, numero {digit} nelle righe {lines} colonne {cross}",
                                   "SWORDFISH, number {digit} in rows {lines} columns {cross}"},
                                  {"SWORDFISH, numero {digit} nelle colonne {lines} righe {cross}",
                                   "SWORDFISH, number {digit} in columns {lines} rows {cross}"}}};
constexpr Pair jellyfishfound = {{{"JELLYFISH, numero {digit} nelle righe {lines} colonne {cross}",
                                   "JELLYFISH, number {digit} in rows {lines} columns {cross}"},
                                  {"JELLYFISH, numero {digit} nelle colonne {lines} righe {cross}",
                                   "JELLYFISH, number {digit} in columns {lines} rows {cross}"}}};

// " from " is in both languages, and X-Wing's Italian log line has a stray quote.
constexpr Words deleted = {"eliminato {digit} from ", "deleted {digit} from "};
constexpr Words logdeletedxwing = {" *`eliminato {digit} from ", " * deleted {digit} from "};
constexpr Words logdeleted = {" * eliminato {digit} from ", " * deleted {digit} from "};
constexpr Words deletedcell = {"  {cell} , ", "  {cell} , "};

constexpr Words xwingrule = {
    "TECNICA X-WING  LIVELLO 10\r\n"
    "si devono trovare due righe (colonne) che contengono un candidato\r\n"
    "solo su due celle, se le celle sono su due colonne (righe) uguali\r\n"
    "si può eliminare il candidato dalle altre celle delle due colonne (righe)",
    "TECHNIQUE X-WING  LEVEL 10\r\n"
    "if we find two rows (columns) containing one candidate\r\n"
    "only in two cells and if these two cells are on two same columns (rows) \r\n"
    "then we can delete the candidate from the other cells of the 2 columns (rows)"};
constexpr Words swordfishrule = {
    "TECNICA SWORDFISH  LIVELLO 11\r\n"
    "Si devono trovare 3 righe(colonne) con lo stesso candidato unico\r\n"
    "solo su 3 celle, se le celle cadono su 3 colonne (righe) uguali\r\n"
    "si può eliminare il candidato dalle altre celle delle 3 colonne(righe)",
    "TECHNIQUE SWORDFISH  LEVEL 11\r\n"
    "When ALL candidates for number X in 3 rows (columns)\r\n"
    "are located in only 3 columns (rows), \r\n"
    "we can eliminate all candidates for number X \r\n"
    "from those 3 columns (rows)\r\n"
    "except those located on the defining 3 rows (columns)"};
constexpr Words jellyfishrule = {
    "TECNICA JELLYFISH  LIVELLO 12\r\n"
    "Si devono trovare 4 righe(colonne) con lo stesso candidato unico\r\n"
    "solo su 4 celle, se le celle cadono su 4 colonne (righe) uguali\r\n"
    "si può eliminare il candidato dalle altre celle delle 4 colonne(righe)",
    "TECHNIQUE JELLYFISH  LEVEL 12\r\n"
    "When ALL candidates for number X in 4 rows (columns)\r\n"
    "are located in only 4 columns (rows), \r\n"
    "we can eliminate all candidates for number X \r\n"
    "from those 4 columns (rows)\r\n"
    "except those located on the defining 4 rows (columns)"};

constexpr Words ourcase = {"nel nostro caso", "in our case:"};
constexpr Pair onlyin = {{{"nella riga {line} il numero {digit} è contenuto solo in {first} e {second}",
                           "in row {line} the number {digit} is present only in {first} and {second}"},
                          {"nella colonna {line} il numero {digit} è contenuto solo in {first} e {second}",
                           "in column {line} the number {digit} is present only in {first} and {second}"}}};
constexpr Pair blueorgreen = {
    {{"quindi il numero {digit} o nella cella azzurra o nella cella verde della riga {line}",
      "therefore {digit} or in blue cell or in green cell of row {line}"},
     {"quindi il numero {digit} o nella cella azzurra o nella cella verde della colonna {line}",
      "therefore {digit} or in blue cell or in green cell of column {line}"}}};
// The Italian words say rows in both directions.
constexpr Pair wedontknow = {{{"non sappiamo in quale cella delle due righe si trovi il numero {digit}",
                               "we don't know which cell of the two rows contain the number {digit}"},
                              {"non sappiamo in quale cella delle due righe si trovi il numero {digit}",
                               "we don't know which cell of the two columns contain the number {digit}"}}};
constexpr Words butsurely = {"ma sicuramente il {digit} sta o nelle celle azzurre o nelle verdi",
                             "but surely the number {digit} is or in blue cells or in the green ones"};

// "nella righe", "nella colonne": the article stays wrong.
constexpr Pair onlygreen = {{{"nella righe {lines} il numero {digit} è contenuto solo nelle celle verdi",
                              "in rows {lines} the number {digit} is located only on green cells"},
                             {"nella colonne {lines} il numero {digit} è contenuto solo nelle celle verdi",
                              "in columns {lines} the number {digit} is located only on green cells"}}};
constexpr Pair consequence = {{{"questo comporta che anche nelle colonne {cross} il numero {digit}",
                                "in consequence, also in the columns {cross} the number {digit}"},
                               {"questo comporta che anche nelle righe {cross} il numero {digit}",
                                "in consequence, also in the rows {cross} the number {digit}"}}};
constexpr Words forcedgreen = {"deve obbligatoriamente cadere in una delle celle verdi ",
                               "is forced on green cells "};

constexpr Pair xwingdelete = {
    {{"possiamo quindi eliminare il {digit} dalle altre celle delle colonne {cross}",
      "Then we can delete {digit} from the red cells of columns {cross}"},
     {"possiamo quindi eliminare il {digit} dalle altre celle delle righe {cross}",
      "Then we can delete {digit} from the red cells of rows {cross}"}}};
constexpr Pair swordfishdelete = {
    {{"possiamo quindi eliminare il {digit} dalle altre celle delle colonne {cross}",
      "Then we can delete {digit} from the other cells of columns {cross}"},
     {"possiamo quindi eliminare il {digit} dalle altre celle delle righe {cross}",
      "Then we can delete {digit} from the other cells of rows {cross}"}}};
// Rows and columns are the other way round from the two above; it stays so.
constexpr Pair jellyfishdelete = {
    {{"possiamo quindi eliminare il {digit} dalle altre celle delle righe {cross}",
      "Then we can delete {digit} from the red cells of rows {cross}"},
     {"possiamo quindi eliminare il {digit} dalle altre celle delle colonne {cross}",
      "Then we can delete {digit} from the red cells of columns {cross}"}}};

// Italian goes on over two lines.
constexpr Words xwingfrom = {"colorate in rosso \r\nnel nostro caso da ", "in our case from "};
constexpr Words swordfishfrom = {"colorate in rosso \r\nnel nostro caso da ",
                                 "red colored, in our case from "};
constexpr Pair jellyfishfrom = {{{"colorate in rosso \r\nnel nostro caso da ", " in our case from "},
                                 {"colorate in rosso \r\nnel nostro caso da ", "in our case from "}}};
constexpr Words redcell = {"{cell}, ", "{cell}, "};
constexpr Words joiner = {" e ", " , "};
constexpr Words deletejoiner = {" e ", " and "};

/// What the three fish differ in.
struct FishKind {
  const Technique& technique;
  int n;  ///< lines
  Pair found;
  Words logdeleted, rule;
  std::string_view ruleline;
  Pair candelete, from;
};

// clang-format off
constexpr FishKind xwing     = {techniques::xwing,     2, xwingfound,     logdeletedxwing, xwingrule,     longruleline,
                                xwingdelete,     {xwingfrom, xwingfrom}};
constexpr FishKind swordfish = {techniques::swordfish, 3, swordfishfound, logdeleted,      swordfishrule, ruleline,
                                swordfishdelete, {swordfishfrom, swordfishfrom}};
constexpr FishKind jellyfish = {techniques::jellyfish, 4, jellyfishfound, logdeleted,      jellyfishrule, ruleline,
                                jellyfishdelete, jellyfishfrom};
// clang-format on

// ---- search -----------------------------------------------------------------------------------------------

struct Fish {
  HouseKind linekind = HouseKind::row;  ///< row or column
  int digit = 0;
  std::vector<int> lines, cross;  ///< 0-based; lines ascending, cross lines in order of discovery

  bool inrows() const { return linekind == HouseKind::row; }
  const Words& of(const Pair& words) const { return words[inrows() ? 0 : 1]; }
  int cell(int line, int crossline) const { return housecell(linekind, line, crossline); }
  Positions online(int line) const { return inrows() ? rowpos(digit, line) : colpos(digit, line); }
  Positions oncross(int crossline) const {
    return inrows() ? colpos(digit, crossline) : rowpos(digit, crossline);
  }
  Positions linebits() const {
    Positions bits;
    for (int line : lines) bits.add(line);
    return bits;
  }

  /// Some cross line has the digit outside the lines.
  bool useful() const {
    const unsigned inside = linebits().bits;
    for (int crossline : cross)
      if (oncross(crossline).bits & ~inside) return true;
    return false;
  }
};

void discover(std::vector<int>& seen, const Positions& positions) {
  for (int p : positions)
    if (std::find(seen.begin(), seen.end(), p) == seen.end()) seen.push_back(p);
}

/// Two lines with the same two places.
bool scanlines2(Fish& fish) {
  for (int line1 = 0; line1 <= 7; ++line1) {
    const Positions places = fish.online(line1);
    if (places.length() != 2) continue;
    for (int line2 = line1 + 1; line2 <= 8; ++line2) {
      if (fish.online(line2) != places) continue;
      fish.lines = {line1, line2};
      fish.cross = {places.first(), places.last()};
      if (fish.useful()) return true;
    }
  }
  return false;
}

/// n lines whose places together lie on n cross lines. `united` are the places of the lines so far.
bool scanlinesn(Fish& fish, int n, unsigned united) {
  const int had = static_cast<int>(fish.lines.size());
  const int from = had == 0 ? 0 : fish.lines.back() + 1;
  const int tocome = n - had - 1;
  for (int line = from; line <= 8 - tocome; ++line) {
    const Positions places = fish.online(line);
    if (places.empty() || places.length() > n) continue;
    const unsigned more = united | places.bits;
    if (std::popcount(more) > n) continue;
    fish.lines.push_back(line);
    if (tocome > 0) {
      if (scanlinesn(fish, n, more)) return true;
    } else if (std::popcount(more) == n) {
      fish.cross.clear();
      for (int l : fish.lines) discover(fish.cross, fish.online(l));
      if (fish.useful()) return true;
    }
    fish.lines.pop_back();
  }
  return false;
}

/// The first fish that deletes something: the digit outermost, rows before columns, lines ascending.
std::optional<Fish> scan(const FishKind& kind) {
  Fish fish;
  for (fish.digit = 1; fish.digit <= 9; ++fish.digit)
    for (const HouseKind lines : {HouseKind::row, HouseKind::column}) {
      fish.linekind = lines;
      fish.lines.clear();
      if (kind.n == 2 ? scanlines2(fish) : scanlinesn(fish, kind.n, 0)) return fish;
    }
  return std::nullopt;
}

/// The one walk over the cells that lose the digit: cross line by cross line, act(cell) for each.
template <class Act>
void victims(const Fish& fish, Act act) {
  const Positions inside = fish.linebits();
  for (int crossline : fish.cross)
    for (int p = 0; p < 9; ++p)
      if (const int cell = fish.cell(p, crossline); !inside.contains(p) && hascandidate(cell, fish.digit))
        act(cell);
}

std::vector<int> crossings(const Fish& fish) {
  std::vector<int> found;
  for (int line : fish.lines)
    for (int crossline : fish.cross) found.push_back(fish.cell(line, crossline));
  return found;
}

// ---- what the sentences need ------------------------------------------------------------------------------

std::string numbers(const std::vector<int>& zerobased, std::string_view joinedby) {
  std::string text;
  for (int number : zerobased) {
    if (!text.empty()) text += joinedby;
    text += std::to_string(number + 1);
  }
  return text;
}

std::string tell(const Words& words, const Fish& fish, std::string_view joinedby = "") {
  return say(words, ofdigit(fish.digit), hole("lines", numbers(fish.lines, joinedby)),
             hole("cross", numbers(fish.cross, joinedby)));
}

/// The step on show. Only explain reads it.
std::optional<Fish> shown;

void forget() {
  shown.reset();
}

// ---- step -------------------------------------------------------------------------------------------------

// An X-Wing shows all four corners in green. Larger fish show in green where the digit is, and in red the
// cells that lose it. Returns the cells painted: only they go back to white, so that what an explanation
// painted stays when it was stopped.
std::vector<int> paint(const FishKind& kind, const Fish& fish) {
  std::vector<int> painted;
  const auto mark = [&](int cell, Colour colour) {
    pencilmark(cell, fish.digit).back = colour;
    painted.push_back(cell);
  };
  if (kind.n > 2) victims(fish, [&](int cell) { mark(cell, red); });
  for (int cell : crossings(fish))
    if (kind.n == 2 || hascandidate(cell, fish.digit)) mark(cell, green);
  return painted;
}

void step(const FishKind& kind) {
  steptag = kind.technique.tag;
  foundflag = false;
  shown = scan(kind);
  if (!shown) return;
  const Fish fish = *shown;  // a command that comes in during the wait may show another
  const std::vector<int> painted = paint(kind, fish);
  foundflag = true;
  curdigit = fish.digit;
  frmmain::Text5.text = std::to_string(fish.digit);
  frmmain::txthint.text = tell(fish.of(kind.found), fish);
  const bool stop = waitatlight() == Answer::stop;
  for (int cell : painted) pencilmark(cell, fish.digit).back = white;
  if (stop) return;  // with foundflag set: the ladder stops all the same

  frmmain::txthint.text = tell(deleted, fish);
  victims(fish, [&](int cell) {
    deletecandidate(cell, fish.digit);
    frmmain::txthint.text += say(deletedcell, incell(cell));
    if (kind.n == 2)
      frmmain::Text2(cell).back = white;
    else
      pencilmark(cell, fish.digit).back = white;
  });
  showdeletions();
}

// ---- twin -------------------------------------------------------------------------------------------------

void twin(const FishKind& kind) {
  foundflag = false;
  const std::optional<Fish> found = scan(kind);
  if (!found) return;
  const Fish& fish = *found;
  foundflag = true;
  headline(tell(fish.of(kind.found), fish));
  detail(tell(kind.logdeleted, fish));
  victims(fish, [&](int cell) {
    deletecandidate(cell, fish.digit);
    appendwords(say(deletedcell, incell(cell)));
  });
  raiselevel(kind.technique.level);
  settledeletions();
}

// ---- explanation ------------------------------------------------------------------------------------------

/// X-Wing: the digit is in one of two opposite pairs of corners, the blue or the green.
void arguecorners(const Fish& fish, Lesson& lesson) {
  const std::vector<int> corner = crossings(fish);
  pencilmark(corner[1], fish.digit).back = cyan;
  pencilmark(corner[2], fish.digit).back = cyan;
  lesson.line(inlanguage(ourcase));
  for (std::size_t k = 0; k < 2; ++k) {
    const Hole line = hole("line", fish.lines[k] + 1), digit = ofdigit(fish.digit);
    lesson.line(say(fish.of(onlyin), line, digit, hole("first", cellname(corner[2 * k])),
                    hole("second", cellname(corner[2 * k + 1]))));
    lesson.line(say(fish.of(blueorgreen), line, digit));
  }
  lesson.line(tell(fish.of(wedontknow), fish)).line(tell(butsurely, fish));
}

void arguelines(const Fish& fish, Lesson& lesson) {
  lesson.line(tell(fish.of(onlygreen), fish, inlanguage(joiner)));
  lesson.line(tell(fish.of(consequence), fish, inlanguage(joiner)));
  lesson.line(inlanguage(forcedgreen));
}

void explain(const FishKind& kind) {
  if (!shown) return;        // a search without a result was started during another step's wait
  const Fish fish = *shown;  // a command that comes in during the wait may show another
  Lesson lesson;
  lesson.line(inlanguage(kind.rule)).line(kind.ruleline);
  if (kind.n == 2)
    arguecorners(fish, lesson);
  else
    arguelines(fish, lesson);
  if (lesson.showandwait() == Answer::stop) return;

  lesson.line(tell(fish.of(kind.candelete), fish, inlanguage(deletejoiner)));
  lesson.line(inlanguage(fish.of(kind.from)));
  victims(fish, [&](int cell) {
    pencilmark(cell, fish.digit).back = red;
    lesson.words(say(redcell, incell(cell)));
  });
  if (lesson.showandwait() == Answer::stop) return;
  closelesson();
  clearcolours();
}

}  // namespace

void frmmain::findxwing() {
  step(xwing);
}
void frmmain::findswordfish() {
  step(swordfish);
}
void frmmain::findjellyfish() {
  step(jellyfish);
}

void frmgenerazione::findxwing() {
  twin(xwing);
}
void frmgenerazione::findswordfish() {
  twin(swordfish);
}
void frmgenerazione::findjellyfish() {
  twin(jellyfish);
}

void explainxwing() {
  explain(xwing);
}
void explainswordfish() {
  explain(swordfish);
}
void explainjellyfish() {
  explain(jellyfish);
}

// ---- records ----------------------------------------------------------------------------------------------

const Technique techniques::xwing{
    .tag = "findxwing",
    .name = "findxwing",
    .called = {"X-Wing", "X-Wing"},
    .step = byfoundflag<frmmain::findxwing>,
    .twin = byfoundflag<frmgenerazione::findxwing>,
    .explain = explainxwing,
    .level = 10,
    .forget = forget,
};
const Technique techniques::swordfish{
    .tag = "findswordfish",
    .name = "findswordfish",
    .called = {"Swordfish", "Swordfish"},
    .step = byfoundflag<frmmain::findswordfish>,
    .twin = byfoundflag<frmgenerazione::findswordfish>,
    .explain = explainswordfish,
    .level = 11,
    .forget = forget,
};
const Technique techniques::jellyfish{
    .tag = "findjellyfish",
    .name = "findjellyfish",
    .called = {"Jellyfish", "Jellyfish"},
    .step = byfoundflag<frmmain::findjellyfish>,
    .twin = byfoundflag<frmgenerazione::findjellyfish>,
    .explain = explainjellyfish,
    .level = 12,
    .forget = forget,
};

}  // namespace gradino
