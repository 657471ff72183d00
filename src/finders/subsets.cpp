// Triples and quads: n cells of a house and n digits that belong to each other, n = 3 or 4.
//
//   naked     the cells hold nothing but the digits: the house's other cells lose all n digits
//   hidden    the digits have no place but the cells: the cells lose all other digits
//
//     naked triple 123, in a row:   12 23 . | 13 1245 . | 2346 456 .    1245 loses 12, 2346 loses 23
//     hidden triple 123, in a row:  12 234 . | 1356 456 . | 456 46 .    234 loses 4, 1356 loses 56
//
// A cell of a naked subset holds all n digits or all but one. So two candidates are enough in a triple but
// not in a quad: four cells with two candidates each are no naked quad here. Houses with few open digits are
// not looked at: what they hold is found as a smaller subset of the other kind.
#include "subsets.h"

#include <algorithm>
#include <array>
#include <bit>
#include <optional>
#include <span>
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

// The number n is read as {count}: "tre" or "4" in Italian. Cells are joined by " , " in {cells} and by " e "
// in {ecells}; digits are written side by side in {digits} and joined in {edigits} and {anddigits}.
constexpr Words countthree = {"tre", "3"};
constexpr Words countfour = {"4", "4"};

// The same in hint and log, and in Italian two blanks before the digits.
constexpr Words nakedtriplefound = {"TRIPLA NUDA  {digits} nelle celle {cells}",
                                    "NAKED TRIPLE {digits}, cells {cells}"};
constexpr Words hiddentriplefound = {"TRIPLA NASCOSTA  {digits} nelle celle {cells}",
                                     "HIDDEN TRIPLE {digits}, cells {cells}"};
constexpr Words nakedquadfound = {"QUADRUPLA NUDA  {digits} nelle celle {cells}",
                                  "NAKED QUAD {digits}, cells {cells}"};
constexpr Words hiddenquadfound = {"QUADRUPLA NASCOSTA  {digits} nelle celle {cells}",
                                   "HIDDEN QUAD {digits}, cells {cells}"};

constexpr Words deleted = {"eliminato ", "deleted "};
constexpr Words logdeleted = {" * eliminato ", " * deleted "};
constexpr Words deletedcandidate = {"{digit} from {cell} , ", "{digit} from {cell} , "};
constexpr Words entered = {"inserito {digits} in {cells}", "entered {digits} in {cells}"};
constexpr Words logentered = {" * inserito {digits} in {cells}", " * entered {digits} in {cells}"};

constexpr Words nakedtripletitle = {"TRIPLA NUDA - LIVELLO 6", "NAKED TRIPLE - LEVEL 6"};
constexpr Words hiddentripletitle = {"TRIPLA NASCOSTA - LIVELLO 6", "HIDDEN TRIPLE - LEVEL 6"};
constexpr Words nakedquadtitle = {"QUADRUPLA NUDA - LIVELLO 7", "NAKED QUAD - LEVEL 7"};
constexpr Words hiddenquadtitle = {"QUADRUPLA NASCOSTA - LIVELLO 7", "HIDDEN QUAD - LEVEL 7"};

constexpr Words nakedrule = {
    "Se {count} celle di un gruppo (settore riga o colonna), contengono esattamente gli stessi {count} "
    "candidati, allora possiamo eliminare i {count} candidati da tutte le altre celle del gruppo",
    "If {count} cells in a house (block, row, column), contain exactly the same {count} candidates, then we "
    "can delete the {count} candidates from all the cells of the house"};
constexpr Words hiddenrule = {
    "Se {count} celle di un gruppo (settore riga o colonna), contengono {count} candidati identici e nessuna "
    "altra cella del gruppo contiene i {count} candidati, allora possiamo escludere tutti gli altri "
    "candidati da queste {count} celle",
    "If {count} cells in a house (block, row, column), contain exactly the same {count} candidates and no "
    "other cell of the house contains the {count} candidates, then we can delete all the other candidates "
    "from this {count} cells"};

/// What the explanations say of the house that holds the subset.
struct HouseWords {
  Words greencells, forced, deletefrom;
};

// The English words keep an Italian joiner between the cells, and "i numeri".
constexpr HouseWords rowwords = {
    {"nella riga {house} le celle {ecells} (colorate in verde)",
     "in the row {house} the green cells {ecells}"},
    {"Ne consegue che nella riga {house} i numeri {edigits} devono stare obbligatoriamente in una delle "
     "{count} celle verdi",
     "Therefore in the row {house} i numeri {digits} are forced in one of the {count} green cells"},
    {"possiamo quindi eliminare i {count} candidati da ogni altra cella della riga {house}",
     "we can delete the {count} candidates from any other cell of the row {house}"},
};
constexpr HouseWords columnwords = {
    {"nella colonna {house} le celle {ecells} (colorate in verde)",
     "in the column {house} the green cells {ecells}"},
    {"Ne consegue che nella colonna {house} i numeri {edigits} devono stare obbligatoriamente in una delle "
     "{count} celle verdi",
     "Therefore in the column {house} i numeri {digits} are forced in one of the {count} green cells"},
    {"possiamo quindi eliminare i {count} candidati da ogni altra cella della colonna {house}",
     "we can delete the {count} candidates from any other cell of the column {house}"},
};
constexpr HouseWords blockwords = {
    {"nel settore {house} le celle {ecells} (colorate in verde)",
     "in the block {house} the green cells {ecells}"},
    {"Ne consegue che nel settore {house} i numeri {edigits} devono stare obbligatoriamente in una delle "
     "{count} celle verdi",
     "Therefore in the block {house} i numeri {digits} are forced in one of the {count} green cells"},
    {"possiamo quindi eliminare i {count} candidati da ogni altra cella del settore {house}",
     "we can delete the {count} candidates from any other cell of the block {house}"},
};

constexpr ByKind<HouseWords> housewords = {rowwords, columnwords, blockwords};

constexpr Words containonly = {"contengono solamente {edigits}", "contain only {digits}"};
constexpr Words ourcase = {"nel nostro caso li possiamo  eliminare dalle celle rosse: ",
                           "in our case we can delete them from: "};
// The English words of a triple in a column are shorter.
constexpr Words ourcasetriplecolumn = {"nel nostro caso li possiamo  eliminare dalle celle rosse: ",
                                       "in our case we can delete: "};
constexpr Words redcandidate = {"{digit} da {cell} , ", "{digit} from {cell} , "};
constexpr Words nakedclosing = {"eliminato i numeri {digits} da", "deleted number {digits} from"};
constexpr Words closingcell = {" {cell} , ", " {cell} , "};

constexpr Words onlyones = {"sono le uniche a contenere i candidati {edigits}",
                            "are the only ones to contain the candidates {digits}"};
constexpr Words deletefromcells = {"possiamo quindi eliminare dalle {n} celle  {edigits}",
                                   "we can delete from the {n} cells  {anddigits}"};
constexpr Words anyother = {"ogni altro candidato diverso da  ", "any other candidate different from  "};
constexpr Words hiddenclosing = {"rimossi extra numeri da {cells}", "deleted extra cendidates from {cells}"};

// ---- search -----------------------------------------------------------------------------------------------

/// Nine binary figures, digit 1 in front, as a mask.
constexpr int maskof(unsigned figures) {
  int mask = 0;
  for (int digit = 1; digit <= 9; ++digit)
    if (figures >> (9 - digit) & 1) mask |= 1 << digit;
  return mask;
}

/// All sets of n digits as masks, in the order in which they are tried: 123, 124 ... 789. Written as figures
/// they go down from 111000000.
template <int n>
constexpr auto digitsets() {
  std::array<int, n == 3 ? 84 : 126> sets{};
  auto set = sets.begin();
  for (unsigned figures = 0b111111111; figures > 0; --figures)
    if (std::popcount(figures) == n) *set++ = maskof(figures);
  return sets;
}
constexpr auto triples = digitsets<3>();
constexpr auto quads = digitsets<4>();

/// What triples and quads differ in.
struct Size {
  const Technique& technique;
  int n;
  int toofew;  ///< a house with no more open digits than this is not looked at
  std::span<const int> sets;
  Words count;
  Words nakedfound, hiddenfound, nakedtitle, hiddentitle;
  Words ourcasecolumn;
};

// clang-format off
constexpr Size triple = {techniques::triple, 3, 5, triples, countthree, nakedtriplefound, hiddentriplefound,
                         nakedtripletitle, hiddentripletitle, ourcasetriplecolumn};
constexpr Size quad   = {techniques::quad,   4, 6, quads,   countfour,  nakedquadfound,   hiddenquadfound,
                         nakedquadtitle,   hiddenquadtitle,   ourcase};
// clang-format on

struct Subset {
  const Size* size;
  HouseKind kind = HouseKind::row;
  int house = 0;             ///< 0-based
  int set = 0;               ///< the digits, as a mask
  bool naked = false;        ///< or hidden
  std::vector<int> cells{};  ///< naked: by position; hidden: by the digits' places, the first digit's first

  bool has(int cell) const { return std::find(cells.begin(), cells.end(), cell) != cells.end(); }
};

/// Calls act(digit) for each digit of a mask, ascending.
template <class Act>
void eachdigit(int mask, Act act) {
  for (auto rest = static_cast<unsigned>(mask); rest != 0; rest &= rest - 1) act(std::countr_zero(rest));
}

/// The one walk over the candidates that go, by cell and then digit: act(cell, digit) for each.
template <class Act>
void victims(const Subset& subset, Act act) {
  if (subset.naked) {
    for (int cell : housecells(subset.kind, subset.house))
      if (!subset.has(cell)) eachdigit(candmask(cell) & subset.set, [&](int digit) { act(cell, digit); });
  } else {
    for (int cell : subset.cells)
      eachdigit(candmask(cell) & ~subset.set, [&](int digit) { act(cell, digit); });
  }
}

bool hasvictims(const Subset& subset) {
  bool any = false;
  victims(subset, [&](int, int) { any = true; });
  return any;
}

/// A cell that may belong to a naked subset: it has n - 1 or n candidates.
struct Member {
  int cell, set;  ///< and its candidates, as a mask
};

/// What the search looks at in a house.
struct View {
  ByDigit<Positions> places{};
  ByIndex<Member, 9> members{};
  int membercount = 0;
};

/// The houses as bits, so that for each set of digits only the houses are tried that may have it: rows are
/// bits 0 to 8, columns 9 to 17, blocks 18 to 26, ascending as they are tried.
struct Houses {
  ByDigit<unsigned> open{};    ///< the digit is not placed there
  ByDigit<unsigned> narrow{};  ///< it has 1 to n places there
  unsigned likely = 0;         ///< there are cells enough for a naked subset
  ByIndex<View, 27> views{};
};

constexpr HouseKind kindof(int bit) {
  return static_cast<HouseKind>(bit / 9);
}
constexpr int numberof(int bit) {
  return bit % 9;
}
// usedmask has the houses in the same order.
static_assert(columnslot == rowslot + 9 && blockslot == rowslot + 18);

void surveydigits(Houses& houses, int bit, const Size& size) {
  const int most = size.n;
  for (int digit = 1; digit <= 9; ++digit) {
    const Positions places = houses.views[bit].places[digit];
    if ((usedmask(rowslot + bit) & bitvalue(digit)) == 0) houses.open[digit] |= 1u << bit;
    if (!places.empty() && places.length() <= most) houses.narrow[digit] |= 1u << bit;
  }
}

void surveycells(View& view, const House& house, int n) {
  for (int cell : house) {
    const int candidates = std::popcount(static_cast<unsigned>(candmask(cell)));
    if (candidates == n - 1 || candidates == n) view.members[view.membercount++] = {cell, candmask(cell)};
  }
}

Houses survey(const Size& size) {
  Houses houses;
  for (int bit = 0; bit < 27; ++bit) {
    View& view = houses.views[bit];
    int opendigits = 0;
    for (int digit = 1; digit <= 9; ++digit) {
      view.places[digit] = housepos(kindof(bit), digit, numberof(bit));
      if (!view.places[digit].empty()) ++opendigits;
    }
    if (opendigits <= size.toofew) continue;
    surveydigits(houses, bit, size);
    surveycells(view, housecells(kindof(bit), numberof(bit)), size.n);
    if (view.membercount >= size.n) houses.likely |= 1u << bit;
  }
  return houses;
}

/// The first n cells that hold nothing but the set. If there were one more such cell, it would lose its
/// candidates, so when the first n delete nothing there is no other choice.
bool isnaked(Subset& subset, const View& view) {
  subset.naked = true;
  subset.cells.clear();
  for (int k = 0; k < view.membercount; ++k) {
    const auto& [cell, set] = view.members[k];
    if ((set & ~subset.set) != 0) continue;
    subset.cells.push_back(cell);
    if (static_cast<int>(subset.cells.size()) == subset.size->n) return hasvictims(subset);
  }
  return false;
}

/// The n places of the digits together.
bool ishidden(Subset& subset, const View& view) {
  unsigned united = 0;
  eachdigit(subset.set, [&](int digit) { united |= view.places[digit].bits; });
  if (bitcounts[united] != subset.size->n) return false;
  subset.naked = false;
  subset.cells.clear();
  eachdigit(subset.set, [&](int digit) {
    for (int position : view.places[digit])
      if (const int cell = housecell(subset.kind, subset.house, position); !subset.has(cell))
        subset.cells.push_back(cell);
  });
  return hasvictims(subset);
}

/// The first subset that deletes something: the set of digits outermost; for it rows, columns, blocks; in a
/// house naked before hidden.
std::optional<Subset> subsetfinder(const Size& size) {
  const Houses houses = survey(size);
  Subset subset{.size = &size};
  for (int set : size.sets) {
    unsigned open = ~0u, narrow = ~0u;
    eachdigit(set, [&](int digit) {
      open &= houses.open[digit];
      narrow &= houses.narrow[digit];
    });
    subset.set = set;
    for (unsigned rest = open & (houses.likely | narrow); rest != 0; rest &= rest - 1) {
      const int bit = std::countr_zero(rest);
      subset.kind = kindof(bit);
      subset.house = numberof(bit);
      const View& view = houses.views[bit];
      if ((houses.likely >> bit & 1) && isnaked(subset, view)) return subset;
      if ((narrow >> bit & 1) && ishidden(subset, view)) return subset;
    }
  }
  return std::nullopt;
}

// ---- what the sentences need ------------------------------------------------------------------------------

std::string digitsof(const Subset& subset, std::string_view joinedby = "") {
  std::string text;
  eachdigit(subset.set, [&](int digit) {
    if (!text.empty()) text += joinedby;
    text += std::to_string(digit);
  });
  return text;
}

std::string cellsof(const Subset& subset, std::string_view joinedby) {
  std::string text;
  for (int cell : subset.cells) {
    if (!text.empty()) text += joinedby;
    text += cellname(cell);
  }
  return text;
}

std::string tell(const Words& words, const Subset& subset) {
  return say(words, hole("digits", digitsof(subset)), hole("edigits", digitsof(subset, " e ")),
             hole("anddigits", digitsof(subset, " and ")), hole("cells", cellsof(subset, " , ")),
             hole("ecells", cellsof(subset, " e ")), hole("house", subset.house + 1),
             hole("n", subset.size->n), hole("count", inlanguage(subset.size->count)));
}

std::string tellfound(const Subset& subset) {
  return tell(subset.naked ? subset.size->nakedfound : subset.size->hiddenfound, subset);
}

/// The step on show, of either size. Only explain reads it.
std::optional<Subset> shown;

void forget() {
  shown.reset();
}

// ---- step -------------------------------------------------------------------------------------------------

/// All digits of the set in all cells, held or not.
void paint(const Subset& subset, Colour colour) {
  for (int cell : subset.cells)
    eachdigit(subset.set, [&](int digit) { pencilmark(cell, digit).back = colour; });
}

// foundflag is not cleared: a search in vain leaves it as it was.
void step(const Size& size) {
  steptag = size.technique.tag;
  shown = subsetfinder(size);
  if (!shown) return;
  const Subset subset = *shown;  // a command that comes in during the wait may show another
  foundflag = true;
  frmmain::Text5.text = digitsof(subset);
  paint(subset, green);
  frmmain::txthint.text = tellfound(subset);
  const bool stop = waitatlight() == Answer::stop;
  paint(subset, white);
  if (stop) return;  // with foundflag set: the ladder stops all the same

  frmmain::txthint.text = tell(subset.naked ? deleted : entered, subset);
  victims(subset, [&](int cell, int digit) {
    deletecandidate(cell, digit);
    if (subset.naked) frmmain::txthint.text += say(deletedcandidate, incell(cell), ofdigit(digit));
  });
  showdeletions();
}

// ---- twin -------------------------------------------------------------------------------------------------

void twin(const Size& size) {
  foundflag = false;
  const std::optional<Subset> found = subsetfinder(size);
  if (!found) return;
  const Subset& subset = *found;
  foundflag = true;
  headline(tellfound(subset));
  detail(tell(subset.naked ? logdeleted : logentered, subset));
  raiselevel(size.technique.level);
  victims(subset, [&](int cell, int digit) {
    deletecandidate(cell, digit);
    if (subset.naked) appendwords(say(deletedcandidate, incell(cell), ofdigit(digit)));
  });
  settledeletions();
}

// ---- explanation ------------------------------------------------------------------------------------------

void arguenaked(const Subset& subset, Lesson& lesson) {
  const Size& size = *subset.size;
  lesson.line(tell(housewords[subset.kind].deletefrom, subset));
  lesson.line(inlanguage(subset.kind == HouseKind::column ? size.ourcasecolumn : ourcase)).line("");
  victims(subset, [&](int cell, int digit) {
    pencilmark(cell, digit).back = red;
    lesson.words(say(redcandidate, incell(cell), ofdigit(digit)));
  });
}

void arguehidden(const Subset& subset, Lesson& lesson) {
  lesson.line(tell(deletefromcells, subset)).line(inlanguage(anyother));
  victims(subset, [](int cell, int digit) { pencilmark(cell, digit).back = red; });
}

/// The naked subset's words name every cell of the house that has a digit of the set, its own among them.
void closing(const Subset& subset) {
  frmmain::txthint.text = tell(subset.naked ? nakedclosing : hiddenclosing, subset);
  if (!subset.naked) return;
  eachdigit(subset.set, [&subset](int digit) {
    for (int cell : housecells(subset.kind, subset.house))
      if (hascandidate(cell, digit)) frmmain::txthint.text += say(closingcell, incell(cell));
  });
}

void explain() {
  if (!shown) return;            // a search without a result was started during another step's wait
  const Subset subset = *shown;  // a command that comes in during the wait may show another, or none
  const bool naked = subset.naked;
  const HouseWords& inhouse = housewords[subset.kind];
  Lesson lesson;
  lesson.line(inlanguage(naked ? subset.size->nakedtitle : subset.size->hiddentitle));
  lesson.line(tell(naked ? nakedrule : hiddenrule, subset)).line(ruleline);
  lesson.line(tell(inhouse.greencells, subset)).line(tell(naked ? containonly : onlyones, subset));
  lesson.line(tell(inhouse.forced, subset));
  if (naked)
    arguenaked(subset, lesson);
  else
    arguehidden(subset, lesson);
  if (lesson.showandwait() == Answer::stop) return;

  closing(subset);
  closelesson();
  clearcolours();
}

}  // namespace

void frmmain::findtriple() {
  step(triple);
}
void frmmain::findquad() {
  step(quad);
}

void frmgenerazione::findtriple() {
  twin(triple);
}
void frmgenerazione::findquad() {
  twin(quad);
}

void explaintriple() {
  explain();
}
void explainquad() {
  explain();
}

// ---- records ----------------------------------------------------------------------------------------------

const Technique techniques::triple{
    .tag = "findtriple",
    .name = "findtriple",
    .called = {"tripla", "triple"},
    .step = byfoundflag<frmmain::findtriple>,
    .twin = byfoundflag<frmgenerazione::findtriple>,
    .explain = explaintriple,
    .level = 6,
    .forget = forget,
};
const Technique techniques::quad{
    .tag = "findquad",
    .name = "findquad",
    .called = {"quadrupla", "quad"},
    .step = byfoundflag<frmmain::findquad>,
    .twin = byfoundflag<frmgenerazione::findquad>,
    .explain = explainquad,
    .level = 7,
    .forget = forget,
};

}  // namespace gradino
