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
// A line needs not have the digit on all n cross lines. X-Wing (n = 2) is the exception: its two lines must
// have exactly the same two places. Fish swim in the position strings alone; no search looks at a cell.
#include "fish.h"

#include <algorithm>
#include <array>
#include <bit>
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

// Two directions a sentence: the lines are rows, the lines are columns.
using Pair = std::array<Words, 2>;

// The numbers of lines and cross lines are 1-based and stand side by side: rows 1 and 4 read as 14.
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

// " from " stands in both languages, and X-Wing's Italian log line has a stray quote.
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
// Rows and columns are the other way round from the two above: it stays so.
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

/// What tells the three fish apart.
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
  enum Kind { none, row, column } kind = none;  ///< the direction of the lines
  int digit = 0;
  std::vector<int> lines, cross;  ///< 0-based; lines ascending, cross lines in order of discovery

  const Words& of(const Pair& words) const { return words[kind == row ? 0 : 1]; }
  int cell(int line, int crossline) const {
    return kind == row ? line * 9 + crossline : crossline * 9 + line;
  }
  Positions online(int line) const { return kind == row ? rowpos(digit, line) : colpos(digit, line); }
  Positions oncross(int crossline) const {
    return kind == row ? colpos(digit, crossline) : rowpos(digit, crossline);
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
bool scanlines2(Fish& find) {
  for (int line1 = 0; line1 <= 7; ++line1) {
    const Positions places = find.online(line1);
    if (places.length() != 2) continue;
    for (int line2 = line1 + 1; line2 <= 8; ++line2) {
      if (find.online(line2) != places) continue;
      find.lines = {line1, line2};
      find.cross = {places.first(), places.last()};
      if (find.useful()) return true;
    }
  }
  return false;
}

/// n lines whose places together lie on n cross lines. `united` are the places of the lines so far.
bool scanlinesn(Fish& find, int n, unsigned united) {
  const int had = static_cast<int>(find.lines.size());
  const int from = had == 0 ? 0 : find.lines.back() + 1;
  const int tocome = n - had - 1;
  for (int line = from; line <= 8 - tocome; ++line) {
    const Positions places = find.online(line);
    if (places.empty() || places.length() > n) continue;
    const unsigned more = united | places.bits;
    if (std::popcount(more) > n) continue;
    find.lines.push_back(line);
    if (tocome > 0) {
      if (scanlinesn(find, n, more)) return true;
    } else if (std::popcount(more) == n) {
      find.cross.clear();
      for (int l : find.lines) discover(find.cross, find.online(l));
      if (find.useful()) return true;
    }
    find.lines.pop_back();
  }
  return false;
}

/// The first fish that deletes something: the digit outermost, rows before columns, lines ascending.
Fish scan(const FishKind& fish) {
  Fish find;
  for (find.digit = 1; find.digit <= 9; ++find.digit)
    for (find.kind = Fish::row;; find.kind = Fish::column) {
      find.lines.clear();
      if (fish.n == 2 ? scanlines2(find) : scanlinesn(find, fish.n, 0)) return find;
      if (find.kind == Fish::column) break;
    }
  find.kind = Fish::none;
  return find;
}

/// The one walk over the cells that lose the digit: cross line by cross line, act(cell) for each.
template <class Act>
void victims(const Fish& find, Act act) {
  const Positions inside = find.linebits();
  for (int crossline : find.cross)
    for (int p = 0; p < 9; ++p)
      if (const int cell = find.cell(p, crossline); !inside.contains(p) && hascandidate(cell, find.digit))
        act(cell);
}

std::vector<int> crossings(const Fish& find) {
  std::vector<int> found;
  for (int line : find.lines)
    for (int crossline : find.cross) found.push_back(find.cell(line, crossline));
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

std::string tell(const Words& words, const Fish& find, std::string_view joinedby = "") {
  return say(words, hole("digit", find.digit), hole("lines", numbers(find.lines, joinedby)),
             hole("cross", numbers(find.cross, joinedby)));
}

std::string at(const Words& words, int cell) {
  return say(words, hole("cell", cellname(cell)));
}

/// The step on show, for its explanation.
Fish shown;

// ---- step -------------------------------------------------------------------------------------------------

// An X-Wing shows all four corners in green. The greater ones show where the digit is, and in red where it
// goes. Returns the cells painted: they alone go back to white, so that what an explanation painted stays
// when it was stopped.
std::vector<int> paint(const FishKind& fish, const Fish& find) {
  std::vector<int> painted;
  const auto mark = [&](int cell, Colour colour) {
    pencilmark(cell, find.digit).back = colour;
    painted.push_back(cell);
  };
  if (fish.n > 2) victims(find, [&](int cell) { mark(cell, red); });
  for (int cell : crossings(find))
    if (fish.n == 2 || hascandidate(cell, find.digit)) mark(cell, green);
  return painted;
}

void step(const FishKind& fish) {
  steptag = fish.technique.tag;
  foundflag = false;
  const Fish find = shown = scan(fish);
  if (find.kind == Fish::none) return;
  const std::vector<int> painted = paint(fish, find);
  foundflag = true;
  curdigit = find.digit;
  frmmain::Text5.text = std::to_string(find.digit);
  frmmain::txthint.text = tell(find.of(fish.found), find);
  const bool stop = waitatlight() == Answer::stop;
  for (int cell : painted) pencilmark(cell, find.digit).back = white;
  if (stop) return;  // with foundflag set: the ladder stops all the same

  frmmain::txthint.text = tell(deleted, find);
  victims(find, [&](int cell) {
    deletecandidate(cell, find.digit);
    frmmain::txthint.text += at(deletedcell, cell);
    if (fish.n == 2)
      frmmain::Text2(cell).back = white;
    else
      pencilmark(cell, find.digit).back = white;
  });
  showdeletions();
}

// ---- twin -------------------------------------------------------------------------------------------------

void twin(const FishKind& fish) {
  foundflag = false;
  const Fish find = scan(fish);
  if (find.kind == Fish::none) return;
  foundflag = true;
  headline(tell(find.of(fish.found), find));
  detail(tell(fish.logdeleted, find));
  victims(find, [&](int cell) {
    deletecandidate(cell, find.digit);
    appendwords(at(deletedcell, cell));
  });
  raiselevel(fish.technique.level);
  settledeletions();
}

// ---- explanation ------------------------------------------------------------------------------------------

/// X-Wing: the digit stands in one of two opposite pairs of corners, the blue or the green.
void arguecorners(const Fish& find, Lesson& lesson) {
  const std::vector<int> corner = crossings(find);
  pencilmark(corner[1], find.digit).back = cyan;
  pencilmark(corner[2], find.digit).back = cyan;
  lesson.line(inlanguage(ourcase));
  for (std::size_t k = 0; k < 2; ++k) {
    const Hole line = hole("line", find.lines[k] + 1), digit = hole("digit", find.digit);
    lesson.line(say(find.of(onlyin), line, digit, hole("first", cellname(corner[2 * k])),
                    hole("second", cellname(corner[2 * k + 1]))));
    lesson.line(say(find.of(blueorgreen), line, digit));
  }
  lesson.line(tell(find.of(wedontknow), find)).line(tell(butsurely, find));
}

void arguelines(const Fish& find, Lesson& lesson) {
  lesson.line(tell(find.of(onlygreen), find, inlanguage(joiner)));
  lesson.line(tell(find.of(consequence), find, inlanguage(joiner)));
  lesson.line(inlanguage(forcedgreen));
}

void explain(const FishKind& fish) {
  const Fish find = shown;              // a command that comes in during a wait may show another, or none
  if (find.kind == Fish::none) return;  // a search without a result was started during another step's wait
  Lesson lesson;
  lesson.line(inlanguage(fish.rule)).line(fish.ruleline);
  if (fish.n == 2)
    arguecorners(find, lesson);
  else
    arguelines(find, lesson);
  if (lesson.showandwait() == Answer::stop) return;

  lesson.line(tell(find.of(fish.candelete), find, inlanguage(deletejoiner)));
  lesson.line(inlanguage(find.of(fish.from)));
  victims(find, [&](int cell) {
    pencilmark(cell, find.digit).back = red;
    lesson.words(at(redcell, cell));
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
};
const Technique techniques::swordfish{
    .tag = "findswordfish",
    .name = "findswordfish",
    .called = {"Swordfish", "Swordfish"},
    .step = byfoundflag<frmmain::findswordfish>,
    .twin = byfoundflag<frmgenerazione::findswordfish>,
    .explain = explainswordfish,
    .level = 11,
};
const Technique techniques::jellyfish{
    .tag = "findjellyfish",
    .name = "findjellyfish",
    .called = {"Jellyfish", "Jellyfish"},
    .step = byfoundflag<frmmain::findjellyfish>,
    .twin = byfoundflag<frmgenerazione::findjellyfish>,
    .explain = explainjellyfish,
    .level = 12,
};

}  // namespace gradino
