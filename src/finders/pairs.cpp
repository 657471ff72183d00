// Pairs: two cells of a house that two digits have to share.
//
//   naked pair     the two cells have no candidate but the same two: the house's other cells lose both
//   hidden pair    the two digits have no place but the same two: the two cells lose all other candidates
//
//     naked, in a row:     47 147 . | 47   . .  | . 489 .       147 and 489 lose 4 and 7
//     hidden, in a row:    147 19 . | 4579 . 59 | . 189 .       147 and 4579 keep 4 and 7 alone
//
// The naked pair is the easier one to see, and is looked for first.
#include "pairs.h"

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

// Hint and headline of the naked pair differ: the headline has a comma before the cells in Italian too, with
// a blank before it, and in English two blanks after it.
constexpr Words nakedhint = {"COPPIA NUDA {digits} nelle celle {first} , {second}",
                             "NAKED PAIR {digits}, cells {first} , {second}"};
constexpr Words nakedheadline = {"COPPIA NUDA {digits} , celle {first} , {second}",
                                 "NAKED PAIR {digits} ,  cells {first} , {second}"};
constexpr Words deleted = {"eliminato ", "deleted "};
constexpr Words logdeleted = {" * eliminato ", " * deleted "};
constexpr Words deletedcandidate = {"{digit} from {cell} , ", "{digit} from {cell} , "};

constexpr Words hiddenfound = {"COPPIA NASCOSTA {digits} nelle celle {first} , {second}",
                               "HIDDEN PAIR {digits}, cells {first} , {second}"};
constexpr Words entered = {"inserito {digits} in {first} , {second}",
                           "entered {digits} in {first} , {second}"};
constexpr Words logentered = {" * inserito {digits} in {first} , {second}",
                              " * entered {digits} in {first} , {second}"};

constexpr Words nakedtitle = {"DOPPIA NUDA - LIVELLO 4", "NAKED PAIR - LEVEL 4"};
constexpr Words nakedrule = {
    "Se due celle di un gruppo (settore riga o colonna), contengono esattamente gli stessi due candidati, allora "
    "possiamo eliminare i due candidati da tutte le altre celle del gruppo",
    "If two cells in a house (block, row, column), contain exactly the same two candidates, then we can delete "
    "the two candidates from all the other cells of the house"};
constexpr Words containonly = {"contengono solamente {digits}", "contain only {digits}"};
constexpr Words wecandelete = {"nel nostro caso li possiamo  eliminare dalle celle rosse: ",
                               "in our case we can delete them from red cells: "};
constexpr Words redcandidate = {"{digit} da {cell} , ", "{digit} from {cell} , "};
constexpr Words nakedclosing = {"eliminato i numeri {one} e {other} da ",
                                "deleted  numbers {one} and {other} from "};
constexpr Words closingcell = {" {cell} , ", " {cell} , "};

constexpr Words hiddentitle = {"DOPPIA NASCOSTA - LIVELLO 5", "HIDDEN PAIR - LEVEL 5"};
constexpr Words hiddenrule = {
    "Se in due celle di un gruppo (settore riga o colonna) è contenuta una coppia identica di candidati e nessuna "
    "altra cella del gruppo contiene i due candidati, allora possiamo escludere tutti gli altri candidati da "
    "queste due celle.",
    "If in 2 cells of a house (block, row, column) is contained an identical pair of candidates and no other cell "
    "of the house contain the 2 candidates, then we can delete all the other candidates from these 2 cells."};
constexpr Words onlyones = {"sono le uniche a contenere i candidati {one} e {other}",
                            "are the only ones to contain the candidates {one} and {other}"};
constexpr Words fromtwocells = {"possiamo quindi eliminare dalle due celle  ",
                                "we can delete from the 2 cells  "};
constexpr Words anyother = {"ogni altro candidato diverso da  {one} e {other}",
                            "any other candidate different from  {one} and {other}"};
constexpr Words hiddenclosing = {"rimossi extra numeri da  {first} {second}",
                                 "deleted extra cendidates from  {first} {second}"};

/// What the explanations say of the house that holds the pair.
struct HouseWords {
  Words yellowcells, forced, deletefrom;  ///< naked
  Words greencells, onemust, othermust;   ///< hidden
};

constexpr HouseWords rowwords = {
    {"nella riga {house} le celle {first} e {second} (colorate in giallo)",
     "in the row {house} the yellow cells {first} and {second}"},
    {"Ne consegue che nella riga {house} i numeri {one} e {other} devono stare obbligatoriamente in una delle due "
     "celle gialle",
     "therefore in the row {house} the numbers {one} and {other} are forced in one of the two yellow cells"},
    {"possiamo quindi eliminare i due candidati da ogni altra cella della riga {house}",
     "we can delete the two candidates from any other cell of the row {house}"},
    {"nella riga {house} le celle {first} e {second} (colorate in verde)",
     "in the row {house} the green cells {first} and {second}"},
    {"Ne consegue che una cella dovrà contenere il {one}", "Therefore one cell must contain {one}"},
    {"e l'altra  dovrà contenere il {other} o viceversa", "and the other must contain {other} or vice versa"},
};

// Of a column or a block the Italian words say "contenere 4", of a row "contenere il 4".
constexpr Words onemust = {"Ne consegue che una cella dovrà contenere {one}",
                           "Therefore one cell must contain {one}"};
constexpr Words othermust = {"e l'altra  dovrà contenere {other} o viceversa",
                             "and the other must contain {other} or vice versa"};

constexpr HouseWords columnwords = {
    {"nella colonna {house} le celle {first} e {second} (colorate in giallo)",
     "in the column {house} the yellow cells {first} and {second}"},
    {"Ne consegue che nella colonna {house} i numeri {one} e {other} devono stare obbligatoriamente in una delle "
     "due celle gialle",
     "therefore in the column {house} the numbers {one} and {other} are forced in one of the two yellow cells"},
    {"possiamo quindi eliminare i due candidati da ogni altra cella della colonna {house}",
     "we can delete the two candidates from any other cell of the column {house}"},
    {"nella colonna {house} le celle {first} e {second} (colorate in verde)",
     "in the column {house} the green cells {first} and {second}"},
    onemust,
    othermust,
};

constexpr HouseWords blockwords = {
    {"nel settore {house} le celle {first} e {second} (colorate in giallo)",
     "in the block {house} the yellow cells {first} and {second}"},
    {"Ne consegue che nel settore {house} i numeri {one} e {other} devono stare obbligatoriamente in una delle due "
     "celle gialle",
     "therefore in the block {house} the numbers {one} and {other} are forced in one of the two yellow cells"},
    {"possiamo quindi eliminare i due candidati da ogni altra cella del settore {house}",
     "we can delete the two candidates from any other cell of the block {house}"},
    {"nel settore {house} le celle {first} e {second} (colorate in verde)",
     "in the block {house} the green cells {first} and {second}"},
    onemust,
    othermust,
};

constexpr ByKind<HouseWords> housewords = {rowwords, columnwords, blockwords};

constexpr int nakedlevel = 4, hiddenlevel = 5;

// ---- search -----------------------------------------------------------------------------------------------

struct Pair {
  HouseKind kind;
  int house;          ///< 0-based
  int first, second;  ///< cells
  int one, other;     ///< digits
  std::string said;   ///< the two digits as they are read to the user

  int mask() const { return bitvalue(one) | bitvalue(other); }
};

/// The one walk over what a naked pair deletes: act(cell, digit) for each candidate.
template <class Act>
void victims(const Pair& naked, Act act) {
  for (int cell : housecells(naked.kind, naked.house)) {
    if (cell == naked.first || cell == naked.second) continue;
    for (int digit : {naked.one, naked.other})
      if (hascandidate(cell, digit)) act(cell, digit);
  }
}

bool hasvictims(const Pair& naked) {
  bool any = false;
  victims(naked, [&](int, int) { any = true; });
  return any;
}

/// The first naked pair in a house of two equal cells, the lower one given, that deletes something.
std::optional<Pair> nakedin(HouseKind kind, int cell) {
  for (int partner : housearound(kind, cell)) {
    if (partner <= cell || candmask(partner) != candmask(cell)) continue;
    // The text may have been typed: the digits keep its order, and a character that is no digit counts as
    // none.
    const std::string& open = candstr(cell);
    const int one = leadingnumber(open.substr(0, 1)), other = leadingnumber(open.substr(1));
    Pair pair = {kind, houseof(kind, cell), cell, partner, one, other, open};
    if (hasvictims(pair)) return pair;
  }
  return std::nullopt;
}

/// The first naked pair that deletes something: the lower cell outermost; for it row, column, block.
std::optional<Pair> findnaked() {
  for (int cell = 0; cell < cellcount; ++cell) {
    if (candmask(cell) < 1 || candstr(cell).length() != 2) continue;
    for (HouseKind kind : housekinds)
      if (auto pair = nakedin(kind, cell)) return pair;
  }
  return std::nullopt;
}

/// True when nothing is left to take away. The masks decide, as they may have fewer candidates than the
/// positions.
bool bare(const Pair& hidden) {
  return (candmask(hidden.first) & ~hidden.mask()) == 0 && candmask(hidden.second) == hidden.mask();
}

struct TwoPlaces {
  HouseKind kind;
  int house;
  Positions places;
};

/// The houses in which a digit has two places left: rows, columns, blocks.
std::vector<TwoPlaces> twoplaces(int digit) {
  std::vector<TwoPlaces> found;
  for (HouseKind kind : housekinds)
    for (int house = 0; house < 9; ++house)
      if (const Positions places = housepos(kind, digit, house); places.length() == 2)
        found.push_back({kind, house, places});
  return found;
}

/// The first hidden pair of two digits that takes something away; `houses` are those with two places for the
/// first digit.
std::optional<Pair> hiddenof(int one, int other, const std::vector<TwoPlaces>& houses) {
  for (const auto& [kind, house, places] : houses) {
    if (housepos(kind, other, house) != places) continue;
    const int first = housecell(kind, house, places.first());
    const int second = housecell(kind, house, places.last());
    Pair pair = {kind, house, first, second, one, other, std::to_string(one * 10 + other)};
    if (!bare(pair)) return pair;
  }
  return std::nullopt;
}

/// The first hidden pair that takes something away: the digits outermost; for them rows, columns, blocks.
std::optional<Pair> findhidden() {
  for (int one = 1; one <= 8; ++one) {
    const std::vector<TwoPlaces> houses = twoplaces(one);
    for (int other = one + 1; other <= 9; ++other)
      if (auto pair = hiddenof(one, other, houses)) return pair;
  }
  return std::nullopt;
}

/// The pair on show, naked or hidden. Only the explanations read it.
std::optional<Pair> shown;

void forget() {
  shown.reset();
}

/// Its first cell and its house become those of the step on show (step.h).
void keep(const Pair& pair) {
  curcell = pair.first;
  keephouse(pair.kind, pair.house);
}

std::string tell(const Words& words, const Pair& pair) {
  return say(words, hole("digits", pair.said), hole("one", pair.one), hole("other", pair.other),
             hole("house", pair.house + 1), hole("first", cellname(pair.first)),
             hole("second", cellname(pair.second)));
}

void paintnaked(const Pair& pair, Colour colour) {
  for (int cell : {pair.first, pair.second}) frmmain::Text2(cell).back = colour;
}

void painthidden(const Pair& pair, Colour colour) {
  for (int cell : {pair.first, pair.second})
    for (int digit : {pair.one, pair.other}) pencilmark(cell, digit).back = colour;
}

void narrow(const Pair& hidden) {
  for (int cell : {hidden.first, hidden.second}) candmask(cell) = hidden.mask();
}

}  // namespace

// ---- steps ------------------------------------------------------------------------------------------------

void frmmain::nakedpair() {
  foundflag = false;
  steptag = techniques::nakedpair.tag;
  shown = findnaked();
  if (!shown) return;
  const Pair pair = *shown;  // a command that comes in during the wait may show another
  keep(pair);
  paintnaked(pair, yellow);
  txthint.text = tell(nakedhint, pair);
  const bool stop = waitatlight() == Answer::stop;
  paintnaked(pair, white);
  if (stop) return;
  txthint.text = inlanguage(deleted);
  victims(pair, [](int cell, int digit) {
    deletecandidate(cell, digit);
    foundflag = true;
    txthint.text += say(deletedcandidate, incell(cell), ofdigit(digit));
  });
  showdeletions();
}

// The masks are narrowed before the wait. A stop leaves them so, while candstr, positions and boxes still
// have the old candidates: the next search passes over this find.
void frmmain::hiddenpair() {
  foundflag = false;
  steptag = techniques::hiddenpair.tag;
  shown = findhidden();
  if (!shown) return;
  const Pair pair = *shown;  // a command that comes in during the wait may show another
  keep(pair);
  curdigit = pair.one;
  narrow(pair);
  Text5.text = pair.said;
  painthidden(pair, green);
  txthint.text = tell(hiddenfound, pair);
  const bool stop = waitatlight() == Answer::stop;
  painthidden(pair, white);
  if (stop) return;
  txthint.text = tell(entered, pair);
  foundflag = true;
  showdeletions();
}

// ---- twins ------------------------------------------------------------------------------------------------

void frmgenerazione::nakedpair() {
  foundflag = false;
  const std::optional<Pair> found = findnaked();
  if (!found) return;
  const Pair& pair = *found;
  headline(tell(nakedheadline, pair));
  detail(inlanguage(logdeleted));
  raiselevel(nakedlevel);
  victims(pair, [](int cell, int digit) {
    deletecandidate(cell, digit);
    foundflag = true;
    appendwords(say(deletedcandidate, incell(cell), ofdigit(digit)));
  });
  settledeletions();
}

// Unlike the step it narrows after the headline, whose snapshot holds the board before the step as all do.
void frmgenerazione::hiddenpair() {
  foundflag = false;
  const std::optional<Pair> found = findhidden();
  if (!found) return;
  const Pair& pair = *found;
  headline(tell(hiddenfound, pair));
  narrow(pair);
  detail(tell(logentered, pair));
  raiselevel(hiddenlevel);
  foundflag = true;
  settledeletions();
}

// ---- explanations -----------------------------------------------------------------------------------------

void explainnakedpair() {
  if (!shown) return;        // a search without a result was started during another step's wait
  const Pair pair = *shown;  // a command that comes in during the wait may show another, or none
  const HouseWords& inhouse = housewords[pair.kind];
  Lesson lesson;
  lesson.line(inlanguage(nakedtitle)).line(inlanguage(nakedrule)).line(ruleline);
  lesson.line(tell(inhouse.yellowcells, pair)).line(tell(containonly, pair));
  lesson.line(tell(inhouse.forced, pair)).line(tell(inhouse.deletefrom, pair));
  lesson.line(inlanguage(wecandelete));
  victims(pair, [&](int cell, int digit) {
    pencilmark(cell, digit).back = red;
    lesson.words(say(redcandidate, incell(cell), ofdigit(digit)));
  });
  if (lesson.showandwait() == Answer::stop) return;

  frmmain::txthint.text = tell(nakedclosing, pair);
  for (int cell : housecells(pair.kind, pair.house))
    if (pencilmark(cell, pair.one).back == red || pencilmark(cell, pair.other).back == red)
      frmmain::txthint.text += say(closingcell, incell(cell));
  closelesson();
  clearcolours();
}

void explainhiddenpair() {
  if (!shown) return;        // a search without a result was started during another step's wait
  const Pair pair = *shown;  // a command that comes in during the wait may show another, or none
  const HouseWords& inhouse = housewords[pair.kind];
  Lesson lesson;
  lesson.line(inlanguage(hiddentitle)).line(inlanguage(hiddenrule)).line(ruleline);
  lesson.line(tell(inhouse.greencells, pair)).line(tell(onlyones, pair));
  lesson.line(tell(inhouse.onemust, pair)).line(tell(inhouse.othermust, pair));
  lesson.line(inlanguage(fromtwocells)).line(tell(anyother, pair));
  if (lesson.showandwait() == Answer::stop) return;

  frmmain::txthint.text = tell(hiddenclosing, pair);
  closelesson();
  clearcolours();
}

// ---- records ----------------------------------------------------------------------------------------------

const Technique techniques::nakedpair{
    .tag = "nakedpair",
    .name = "nakedpair",
    .called = {"coppia nuda", "naked pair"},
    .step = byfoundflag<frmmain::nakedpair>,
    .twin = byfoundflag<frmgenerazione::nakedpair>,
    .explain = explainnakedpair,
    .level = nakedlevel,
    .forget = forget,
};
const Technique techniques::hiddenpair{
    .tag = "hiddenpair",
    .name = "hiddenpair",
    .called = {"coppia nascosta", "hidden pair"},
    .step = byfoundflag<frmmain::hiddenpair>,
    .twin = byfoundflag<frmgenerazione::hiddenpair>,
    .explain = explainhiddenpair,
    .level = hiddenlevel,
    .forget = forget,
};

}  // namespace gradino
