// Triples and quads: n cells of a house and n digits that belong to each other, n = 3 or 4.
//
//   naked     the cells hold nothing but the digits: the house's other cells lose all n digits
//   hidden    the digits have no place but the cells: the cells lose all other digits
//
//     naked triple 123, in a row:   12 23 . | 13 1245 . | 2346 456 .    1245 loses 12, 2346 loses 23
//     hidden triple 123, in a row:  12 234 . | 1356 456 . | 456 46 .    234 loses 4, 1356 loses 56
//
// A cell of a naked subset holds all n digits or all but one. So two candidates do in a triple but not in a
// quad: four cells with two candidates each are no naked quad here. Small houses are not looked at: what they
// hold shows as a smaller subset of the other kind.
#include "subsets.h"

#include <array>
#include <bit>
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
// in {ecells}; digits stand side by side in {digits} and are joined in {edigits} and {anddigits}.
constexpr Words countthree = {"tre", "3"};
constexpr Words countfour = {"4", "4"};

// The same in hint and log, both with two blanks before the digits in Italian.
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

/// What the explanations say of the house that the subset is in.
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

/// All sets of n digits as masks, in the order in which they are tried: 123, 124 ... 789. Written as nine
/// binary figures, digit 1 in front, they go down from 111000000.
template <int n>
constexpr auto digitsets() {
  std::array<int, n == 3 ? 84 : 126> sets{};
  auto set = sets.begin();
  for (unsigned figures = 0b111111111; figures > 0; --figures)
    if (std::popcount(figures) == n) {
      for (int digit = 1; digit <= 9; ++digit)
        if (figures >> (9 - digit) & 1) *set |= 1 << digit;
      ++set;
    }
  return sets;
}
constexpr auto triples = digitsets<3>();
constexpr auto quads = digitsets<4>();

/// What tells triples and quads apart.
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
  enum class Kind { none, naked, hidden } kind = Kind::none;
  const Size* size = nullptr;
  HouseKind housekind = HouseKind::row;
  int house = 0;           ///< 0-based
  int set = 0;             ///< the digits, as a mask
  std::vector<int> cells;  ///< naked: by position; hidden: by the digits' places, the first digit's first

  bool found() const { return kind != Kind::none; }
  bool naked() const { return kind == Kind::naked; }
  int cellat(int position) const { return housecell(housekind, house, position); }
  bool has(int cell) const {
    for (int c : cells)
      if (c == cell) return true;
    return false;
  }
};

/// Calls act(digit) for each digit of a mask, ascending.
template <class Act>
void eachdigit(int mask, Act act) {
  for (auto rest = static_cast<unsigned>(mask); rest != 0; rest &= rest - 1) act(std::countr_zero(rest));
}

/// The one walk over the candidates that go, by cell and then digit: act(cell, digit) for each.
template <class Act>
void victims(const Subset& find, Act act) {
  if (find.naked()) {
    for (int cell : housecells(find.housekind, find.house))
      if (!find.has(cell)) eachdigit(candmask(cell) & find.set, [&](int digit) { act(cell, digit); });
  } else {
    for (int cell : find.cells) eachdigit(candmask(cell) & ~find.set, [&](int digit) { act(cell, digit); });
  }
}

bool hasvictims(const Subset& find) {
  bool any = false;
  victims(find, [&](int, int) { any = true; });
  return any;
}

/// What the search looks at in a house.
struct View {
  std::array<Positions, 10> places{};        ///< by digit
  std::array<int, 9> likely{}, likelyset{};  ///< cells of n - 1 or n candidates, and their candidates
  int likelies = 0;                          ///< how many they are
};

/// The houses as bits, so that those worth a look are known before a set of digits is tried in them. Rows are
/// bits 0 to 8, columns 9 to 17, blocks 18 to 26: ascending, as they are tried, and as they stand in
/// usedmask.
struct Houses {
  std::array<unsigned, 10> open{};    ///< by digit: it is not placed there
  std::array<unsigned, 10> narrow{};  ///< by digit: it has 1 to n places there
  unsigned likely = 0;                ///< there are cells enough for a naked subset
  std::array<View, 27> views{};
};

void surveydigits(Houses& houses, int h, int n) {
  const unsigned bit = 1u << h;
  for (int digit = 1; digit <= 9; ++digit) {
    const auto d = static_cast<std::size_t>(digit);
    const Positions places = houses.views[static_cast<std::size_t>(h)].places[d];
    if ((usedmask(rowslot + h) & bitvalue(digit)) == 0) houses.open[d] |= bit;
    if (!places.empty() && places.length() <= n) houses.narrow[d] |= bit;
  }
}

void surveycells(View& view, HouseKind kind, int house, int n) {
  for (int cell : housecells(kind, house)) {
    const int candidates = std::popcount(static_cast<unsigned>(candmask(cell)));
    if (candidates != n - 1 && candidates != n) continue;
    const auto k = static_cast<std::size_t>(view.likelies++);
    view.likely[k] = cell;
    view.likelyset[k] = candmask(cell);
  }
}

Houses survey(const Size& size) {
  Houses houses;
  for (int h = 0; h < 27; ++h) {
    const auto kind = static_cast<HouseKind>(h / 9);
    View& view = houses.views[static_cast<std::size_t>(h)];
    int opendigits = 0;
    for (int digit = 1; digit <= 9; ++digit) {
      const Positions places = housepos(kind, digit, h % 9);
      view.places[static_cast<std::size_t>(digit)] = places;
      if (!places.empty()) ++opendigits;
    }
    if (opendigits <= size.toofew) continue;
    surveydigits(houses, h, size.n);
    surveycells(view, kind, h % 9, size.n);
    if (view.likelies >= size.n) houses.likely |= 1u << h;
  }
  return houses;
}

/// The first n cells that hold nothing but the set. One cell more of that sort would lose its candidates, so
/// when the first n are of no use there is no other choice.
bool isnaked(Subset& find, const View& view) {
  find.kind = Subset::Kind::naked;
  find.cells.clear();
  for (std::size_t k = 0; k < static_cast<std::size_t>(view.likelies); ++k) {
    if ((view.likelyset[k] & ~find.set) != 0) continue;
    find.cells.push_back(view.likely[k]);
    if (static_cast<int>(find.cells.size()) == find.size->n) return hasvictims(find);
  }
  return false;
}

/// The n places of the digits together.
bool ishidden(Subset& find, const View& view) {
  Positions united;
  eachdigit(find.set, [&](int digit) {
    united.bits = static_cast<std::uint16_t>(united.bits | view.places[static_cast<std::size_t>(digit)].bits);
  });
  if (united.length() != find.size->n) return false;
  find.kind = Subset::Kind::hidden;
  find.cells.clear();
  eachdigit(find.set, [&](int digit) {
    for (int p : view.places[static_cast<std::size_t>(digit)])
      if (!find.has(find.cellat(p))) find.cells.push_back(find.cellat(p));
  });
  return hasvictims(find);
}

/// The first subset that deletes something: the set of digits outermost; for it rows, columns, blocks; in a
/// house naked before hidden.
Subset subsetfinder(const Size& size) {
  const Houses houses = survey(size);
  Subset find;
  find.size = &size;
  for (int set : size.sets) {
    unsigned open = ~0u, narrow = ~0u;
    eachdigit(set, [&](int digit) {
      open &= houses.open[static_cast<std::size_t>(digit)];
      narrow &= houses.narrow[static_cast<std::size_t>(digit)];
    });
    find.set = set;
    for (unsigned rest = open & (houses.likely | narrow); rest != 0; rest &= rest - 1) {
      const int h = std::countr_zero(rest);
      find.housekind = static_cast<HouseKind>(h / 9);
      find.house = h % 9;
      const View& view = houses.views[static_cast<std::size_t>(h)];
      if ((houses.likely >> h & 1) && isnaked(find, view)) return find;
      if ((narrow >> h & 1) && ishidden(find, view)) return find;
    }
  }
  return {};
}

// ---- what the sentences need ------------------------------------------------------------------------------

std::string digitsof(const Subset& find, std::string_view joinedby = "") {
  std::string text;
  eachdigit(find.set, [&](int digit) {
    if (!text.empty()) text += joinedby;
    text += std::to_string(digit);
  });
  return text;
}

std::string cellsof(const Subset& find, std::string_view joinedby) {
  std::string text;
  for (int cell : find.cells) {
    if (!text.empty()) text += joinedby;
    text += cellname(cell);
  }
  return text;
}

std::string tell(const Words& words, const Subset& find) {
  return say(words, hole("digits", digitsof(find)), hole("edigits", digitsof(find, " e ")),
             hole("anddigits", digitsof(find, " and ")), hole("cells", cellsof(find, " , ")),
             hole("ecells", cellsof(find, " e ")), hole("house", find.house + 1), hole("n", find.size->n),
             hole("count", inlanguage(find.size->count)));
}

std::string tellcandidate(const Words& words, int cell, int digit) {
  return say(words, ofdigit(digit), incell(cell));
}

std::string tellfound(const Subset& find) {
  return tell(find.naked() ? find.size->nakedfound : find.size->hiddenfound, find);
}

/// The step on show, for its explanation.
Subset shown;

// ---- step -------------------------------------------------------------------------------------------------

/// All digits of the set in all cells, held or not.
void paint(const Subset& find, Colour colour) {
  for (int cell : find.cells) eachdigit(find.set, [&](int digit) { pencilmark(cell, digit).back = colour; });
}

// foundflag is not cleared: a search without a result leaves it as the routine before has left it.
void step(const Size& size) {
  steptag = size.technique.tag;
  const Subset find = shown = subsetfinder(size);
  if (!find.found()) return;
  foundflag = true;
  frmmain::Text5.text = digitsof(find);
  paint(find, green);
  frmmain::txthint.text = tellfound(find);
  const bool stop = waitatlight() == Answer::stop;
  paint(find, white);
  if (stop) return;  // with foundflag set: the ladder stops all the same

  frmmain::txthint.text = tell(find.naked() ? deleted : entered, find);
  victims(find, [&](int cell, int digit) {
    deletecandidate(cell, digit);
    if (find.naked()) frmmain::txthint.text += tellcandidate(deletedcandidate, cell, digit);
  });
  showdeletions();
}

// ---- twin -------------------------------------------------------------------------------------------------

void twin(const Size& size) {
  foundflag = false;
  const Subset find = subsetfinder(size);
  if (!find.found()) return;
  foundflag = true;
  headline(tellfound(find));
  detail(tell(find.naked() ? logdeleted : logentered, find));
  raiselevel(size.technique.level);
  victims(find, [&](int cell, int digit) {
    deletecandidate(cell, digit);
    if (find.naked()) appendwords(tellcandidate(deletedcandidate, cell, digit));
  });
  settledeletions();
}

// ---- explanation ------------------------------------------------------------------------------------------

const HouseWords& housewords(HouseKind kind) {
  return kind == HouseKind::row ? rowwords : kind == HouseKind::column ? columnwords : blockwords;
}

void arguenaked(Lesson& lesson, const Subset& find) {
  const Size& size = *find.size;
  lesson.line(tell(housewords(find.housekind).deletefrom, find));
  lesson.line(inlanguage(find.housekind == HouseKind::column ? size.ourcasecolumn : ourcase)).line("");
  victims(find, [&](int cell, int digit) {
    pencilmark(cell, digit).back = red;
    lesson.words(tellcandidate(redcandidate, cell, digit));
  });
}

void arguehidden(Lesson& lesson, const Subset& find) {
  lesson.line(tell(deletefromcells, find)).line(inlanguage(anyother));
  victims(find, [](int cell, int digit) { pencilmark(cell, digit).back = red; });
}

/// The naked subset's words name every cell of the house that has a digit of the set, its own among them.
void closing(const Subset& find) {
  frmmain::txthint.text = tell(find.naked() ? nakedclosing : hiddenclosing, find);
  if (!find.naked()) return;
  eachdigit(find.set, [&find](int digit) {
    for (int cell : housecells(find.housekind, find.house))
      if (hascandidate(cell, digit)) frmmain::txthint.text += say(closingcell, incell(cell));
  });
}

void explain() {
  const Subset find = shown;  // a command that comes in during the wait may show another, or none
  if (!find.found()) return;  // a search without a result was started from the menu during another's wait
  const bool naked = find.naked();
  const HouseWords& inhouse = housewords(find.housekind);
  Lesson lesson;
  lesson.line(inlanguage(naked ? find.size->nakedtitle : find.size->hiddentitle));
  lesson.line(tell(naked ? nakedrule : hiddenrule, find)).line(ruleline);
  lesson.line(tell(inhouse.greencells, find)).line(tell(naked ? containonly : onlyones, find));
  lesson.line(tell(inhouse.forced, find));
  if (naked)
    arguenaked(lesson, find);
  else
    arguehidden(lesson, find);
  if (lesson.showandwait() == Answer::stop) return;

  closing(find);
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
};
const Technique techniques::quad{
    .tag = "findquad",
    .name = "findquad",
    .called = {"quadrupla", "quad"},
    .step = byfoundflag<frmmain::findquad>,
    .twin = byfoundflag<frmgenerazione::findquad>,
    .explain = explainquad,
    .level = 7,
};

}  // namespace gradino
