// Colours: a house in which a digit has just two places takes it in one of them. Both cases are followed at
// once, for one digit at a time.
//
// Simple colours (levels 13 and 14). Houses with two places join cells into a cluster, in which the colours
// alternate: the digit is in all cells of one colour and in none of the other.
//
//     . Y . | . . x | . . .      two places each: column 2, row 5, block 5
//           |       |
//     . . . | . . G | . . .      deletion   x sees a Y in its row and a G in its column: it loses the digit
//     . G . | . Y . | . . .      clash      if a house had Y twice, Y were false and all of G got the digit
//
// X-colours (levels 15 and 16). From such a house two hypotheses are run, one for each place. What a true
// cell sees is false; a house with one place left makes that place true. The true cells of each are a group.
//
//     deletion   a cell that sees a true cell of either group loses the digit; a cell true in both gets it
//     clash      two true cells of one hypothesis in a house: it is false, and the other seed gets the digit
//
// Deletions are recorded in short lists, repeats too: a board that gives more than they hold is a fault.
#include "colouring.h"

#include <array>
#include <bitset>
#include <cstdint>
#include <string>
#include <vector>

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

// ---- words of simple colours ------------------------------------------------------------------------------

constexpr Words hint = {
    "COLORI tipo 1, numero {digit} è possibile eliminare il numero dalle celle rosse",
    "COLORS type 1, number {digit} it is possible to delete the candidate from red cells"};
constexpr Words headlinewords = {
    "COLORI SEMPLICI, numero {digit} è possibile eliminare il numero dalle celle rosse",
    "SIMPLE COLORS, number {digit} it is possible to delete the candidate from red cells"};
// " from " stands in both languages.
constexpr Words deleted = {"eliminato {digit} from ", "deleted {digit} from "};
constexpr Words logdeleted = {" * eliminato {digit} from ", " * deleted {digit} from "};
constexpr Words doncell = {"  {cell} , ", "  {cell} , "};

constexpr Words clashhint = {"COLORI tipo 2, il numero {digit} è forzato nelle celle {colour}",
                             "COLORS type 2, the number {digit} it is forced in {colour} cells"};
constexpr Words clashheadline = {"COLORI - CONTRADIZIONE, il numero {digit} è forzato nelle celle {colour}",
                                 "COLORS - CONTRADICTION, the number {digit} it is forced in {colour} cells"};
constexpr Words entered = {"inserito {digit} in ", "entered {digit} in "};
constexpr Words logentered = {" * inserito {digit} in ", " * entered {digit} in "};

// The cells of a colour, or of a group, in the log: the two lists after every headline.
constexpr std::array<Words, 2> loglist = {{{" * color1 ", " * color1 "}, {" * color2 ", " * color2 "}}};
constexpr Words listcell = {"{cell},", "{cell},"};
constexpr std::array<std::string_view, 2> logcolour = {"color1", "color2"};

constexpr Words yellowcells = {"gialle", "yellow"}, greencells = {"verdi", "green"};
constexpr Words yellowword = {"giallo", "yellow"}, greenword = {"verde", "green"};

constexpr Words rule = {
    "COLORI  SEMPLICI - LIVELLO 13\r\n"
    "Si devono cercare coppie di celle all'interno di un gruppo (settore, riga o colonna) che contengano "
    "univocamente lo stesso candidato\r\n"
    "Quando ci sono due celle all'interno del gruppo l'una o l'altra delle celle deve contenere il candidato.\r\n"
    " Le due celle vengono colorate con giallo e verde.\r\n"
    "Se il candidato sta nelle celle gialle, non sta nelle celle verdi e viceversa.\r\n"
    "Il candidato può essere eliminato dalle intersezioni tra righe e colonne di due celle di colore diverso.",
    " SIMPLE COLORS - LEVEL 13\r\n"
    "We must find inside a house (block, row, column) 2 cells that contain unequivocally the same candidate\r\n"
    "When a house contains only 2 candidates for a number, one of them must be true and the other must be "
    "false.\r\n"
    "The 2 cells containing the candidate are colored with 2 different colors.\r\n"
    "In our case yellow and green.\r\n"
    "If the candidate is contained in yellow cells, then it is NOT contained in green cells , and vice versa.\r\n"
    "The candidate may be deleted from intersections of rows and columns of differently colored cells ."};
// The Italian words speak of blue cells, and there are none.
constexpr Words clashrule = {
    " TECNICA  CONTRADDIZIONE COLORI - LIVELLO 14\r\n"
    "Si devono cercare coppie di celle all'interno di un gruppo (settore, riga o colonna) che contengano "
    "univocamente lo stesso candidato.\r\n"
    "Quando ci sono due celle all'interno del gruppo l'una o l'altra delle celle deve contenere il candidato.\r\n"
    "Le due celle vengono colorate con giallo e verde.\r\n"
    "Se il candidato sta nelle celle gialle, non sta nelle celle azzurre e viceversa.\r\n"
    "Uno stesso colore non può comparire 2 volte nello stesso gruppo\r\n"
    "Se compare una situazione simile possiamo escludere il candidato dal gruppo del colore ed assegnarlo a tutte "
    "le celle dell'altro colore.",
    "SIMPLE COLORS CONTRADICTION - LEVEL 14\r\n"
    "We must find inside a house (block, row, column) 2 cells that contain unequivocally the same candidate\r\n"
    "When a house contains only 2 candidates for a number, one of them must be true and the other must be "
    "false.\r\n"
    "The 2 cells containing the candidate are colored with 2 different colors.\r\n"
    "In our case yellow and green.\r\n"
    "A colors CAN NOT appear more than once in a house\r\n"
    "If we find a similar situation we can delete the candidate from the color group and place it on all the cell "
    "of the other color."};
constexpr Words candidateline = {"CANDIDATO = {digit}", "CANDIDATE = {digit}"};
constexpr Words cellis = {"{cell}= {colour}", "{cell}= {colour}"};
constexpr Words eithercolour = {"il numero {digit} o nel gruppo giallo o nel gruppo verde",
                                "the number {digit} either in yellow group or in green group"};
constexpr Words candelete = {"possiamo quindi eliminare il candidato {digit} dalle celle rosse",
                             "we can delete the candidate {digit} from red cells"};
constexpr Words cannotstay = {"{digit} non può quindi stare nel gruppo {excluded}",
                              "{digit} can not stay on the {excluded} group "};
constexpr Words canplace = {" possiamo inserire quindi il numero {digit}",
                            " therefore, we can place {digit}"};
constexpr Words inallcells = {" in tutte le celle del colore  {forced}",
                              " in ALL the cells of the {forced} group"};
constexpr Words closing = {"introdotto {digit} in ", "introduced {digit} in "};

constexpr int level = 13, clashlevel = 14;

// ---- words of x-colours -----------------------------------------------------------------------------------

// Hint and headline alike. The Italian words don't name the digit.
constexpr Words xfound = {"COLORI-X, è possibile eliminare il candidato dalle celle rosse",
                          "X-COLORS,{digit} may be deleted from red and entered on blue cells "};
// The same in hint and log, the log's prefix too.
constexpr Words xdeleted = {" * eliminato il candidato {digit} da", " * deleted number {digit} from"};
constexpr Words xdeletedcell = {" {cell}, ", " {cell}, "};
constexpr Words xplaced = {" * inserito {digit} in ", " * placed {digit} in "};
constexpr Words xplacedcell = {" {cell}, ", " {cell}, "};  // the log says it as doncell

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

constexpr int xlevel = 15, xclashlevel = 16;

// ---- what the searches record -----------------------------------------------------------------------------

/// Cells in the order in which they were recorded, in a table with slots LO to HI. Fault: no slot is left.
template <int LO, int HI>
class Recorded {
 public:
  constexpr explicit Recorded(const char* name) : cell_(name) {}

  void add(int cell, const char* place = __builtin_FUNCTION()) {
    cell_(Located(LO + count_, place)) = cell;
    ++count_;
  }
  void clear() { count_ = 0; }

  bool empty() const { return count_ == 0; }
  int first() const { return *begin(); }
  auto begin() const { return cell_.begin(); }
  auto end() const { return cell_.begin() + count_; }

 private:
  Table<int, LO, HI> cell_;
  int count_ = 0;
};

/// What a find comes to.
enum class Colourtype { nothing, deletion, clash, xdeletion, firstfalse, secondfalse };

bool samerow(int a, int b) {
  return cellrow(a) == cellrow(b);
}
bool samecolumn(int a, int b) {
  return cellcol(a) == cellcol(b);
}
bool sameblock(int a, int b) {
  return cellblock(a) == cellblock(b);
}
bool samehouse(int a, int b) {
  return samerow(a, b) || samecolumn(a, b) || sameblock(a, b);
}

/// The three cells of a's row, or of a's column, that lie in b's block: act(cell) for each.
template <class Act>
void rowinblock(int a, int b, Act act) {
  for (int k = 0; k < 3; ++k) act((cellrow(a) - 1) * 9 + (cellcol(b) - 1) / 3 * 3 + k);
}
template <class Act>
void columninblock(int a, int b, Act act) {
  for (int k = 0; k < 3; ++k) act(((cellrow(b) - 1) / 3 * 3 + k) * 9 + cellcol(a) - 1);
}

/// The cells that see both of two cells in different rows and columns: where the lines cross, and where the
/// line of one runs through the block of the other.
template <class Act>
void seenbyboth(int a, int b, Act act) {
  if (samerow(a, b) || samecolumn(a, b)) return;
  act((cellrow(a) - 1) * 9 + cellcol(b) - 1);
  act((cellrow(b) - 1) * 9 + cellcol(a) - 1);
  if (sameblock(a, b)) return;
  if ((cellrow(a) - 1) / 3 == (cellrow(b) - 1) / 3) {
    rowinblock(a, b, act);
    rowinblock(b, a, act);
  }
  if ((cellcol(a) - 1) / 3 == (cellcol(b) - 1) / 3) {
    columninblock(a, b, act);
    columninblock(b, a, act);
  }
}

/// Hands each house with exactly two places for the digit to act(first cell, second cell), kind by kind. act
/// tells whether the search is over.
template <class Act>
bool seeds(int digit, const std::array<HouseKind, 3>& kinds, Act act) {
  for (HouseKind kind : kinds)
    for (int house = 0; house < 9; ++house) {
      const Positions places = housepos(kind, digit, house);
      if (places.length() == 2 &&
          act(housecell(kind, house, places.first()), housecell(kind, house, places.last())))
        return true;
    }
  return false;
}

// ---- search: simple colours -------------------------------------------------------------------------------

struct Colours {
  Colourtype type = Colourtype::nothing;
  int digit = 0;
  std::vector<int> cluster;                ///< in order of discovery
  std::vector<bool> first;                 ///< its colours: the first, yellow, or the second, green
  bool clashing = false;                   ///< the colour that is false
  Recorded<1, 10> deleted{"deletedcell"};  ///< once for every pair of cells that hits the cell
};

// The cluster grows in the node queue.
class Cluster {
 public:
  explicit Cluster(int digit) : digit_(digit) {}

  int size() const { return count_; }

  /// False: both cells stand in an earlier cluster of the digit.
  bool plant(int first, int second) {
    count_ = 0;
    discover(first, true);
    discover(second, false);
    return count_ > 0;
  }

  void grow() {
    for (int i = 0; i < count_; ++i)
      for (HouseKind kind : {HouseKind::row, HouseKind::column, HouseKind::block}) {
        const int house = houseof(kind, chaincell(i));
        const Positions places = housepos(kind, digit_, house);
        if (places.length() != 2) continue;
        for (int p : places) discover(housecell(kind, house, p), !chainflag(i));
      }
  }

 private:
  void discover(int cell, bool flag) {
    const auto c = static_cast<std::size_t>(cell);
    if (visited_[c]) return;
    visited_[c] = true;
    chaincell(count_) = cell;
    chainflag(count_) = flag;
    ++count_;
  }

  int digit_;
  int count_ = 0;
  std::bitset<cellcount> visited_;
};

/// Looks through all pairs of the cluster. A clash ends it, whatever was recorded before.
void checkcluster(Colours& find, int size) {
  const auto record = [&find, here = __func__](int cell) {
    if (!hascandidate(cell, find.digit)) return;
    foundflag = true;
    find.deleted.add(cell, here);
    find.type = Colourtype::deletion;
  };
  for (int i = 0; i < size - 1; ++i)
    for (int j = i + 1; j < size; ++j)
      if (chainflag(i) != chainflag(j)) {
        seenbyboth(chaincell(i), chaincell(j), record);
      } else if (samehouse(chaincell(i), chaincell(j))) {
        find.type = Colourtype::clash;
        find.clashing = chainflag(i);
        return;
      }
}

/// The first cluster that gives something. The digit is the caller's: 10 in the end when none does.
Colours scancolors(Byte& digit) {
  Colours find;
  foundflag = false;
  for (digit = 1; digit <= 9; digit += 1) {
    find.digit = digit;
    Cluster cluster(digit);
    const bool over =
        seeds(digit, {HouseKind::block, HouseKind::row, HouseKind::column}, [&](int first, int second) {
          if (!cluster.plant(first, second)) return false;
          cluster.grow();
          checkcluster(find, cluster.size());
          return find.type != Colourtype::nothing;
        });
    if (!over) continue;
    for (int i = 0; i < cluster.size(); ++i) {
      find.cluster.push_back(chaincell(i));
      find.first.push_back(chainflag(i));
    }
    return find;
  }
  return find;
}

// ---- search: x-colours ------------------------------------------------------------------------------------

using Group = Recorded<0, 20>;

struct XColours {
  Colourtype type = Colourtype::nothing;
  int digit = 0;
  std::array<Group, 2> group = {Group("groupcells"), Group("groupcells")};  ///< the seed first
  Recorded<0, 60> deleted{"xdeletecell"};  ///< once for every pair of cells and rule that hits the cell
  Recorded<0, 10> common{"commoncell"};    ///< true in both groups

  /// Of a clash: the group that is false, 0 or 1, and the one that is not.
  std::size_t falsegroup() const { return type == Colourtype::firstfalse ? 0 : 1; }
  std::size_t truegroup() const { return 1 - falsegroup(); }
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
  bool gather(Group& group) const {
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
  Known& known(HouseKind kind, int house) {
    return known_[static_cast<std::size_t>(kind)][static_cast<std::size_t>(house)];
  }

  void settle(int cell, bool truth) {
    const int row = cellrow(cell) - 1, col = cellcol(cell) - 1;
    settle(HouseKind::row, row, col, truth);
    settle(HouseKind::column, col, row, truth);
    settle(HouseKind::block, cellblock(cell) - 1, row % 3 * 3 + col % 3, truth);
    chaincell(count_) = cell;
    chainflag(count_) = truth;
    ++count_;
  }
  void settle(HouseKind kind, int house, int position, bool truth) {
    Known& here = known(kind, house);
    here.settled.add(position);
    clash_ = clash_ || (truth && here.hastrue);
    here.hastrue = here.hastrue || truth;
  }

  /// What one cell means for a house of its own: true, it makes all open places false; false, it forces the
  /// last open place if there is but one and the house has no true cell.
  void follow(bool truth, HouseKind kind, int house) {
    const Known& here = known(kind, house);
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
  std::array<std::array<Known, 9>, 3> known_;
};

void recordcommon(XColours& find) {
  std::bitset<cellcount> infirst;
  for (int cell : find.group[0]) infirst.set(static_cast<std::size_t>(cell));
  for (int cell : find.group[1])
    if (infirst[static_cast<std::size_t>(cell)]) find.common.add(cell);
}

/// What the true cells of a group see, and where they are, as columns by row.
struct Sight {
  std::array<unsigned, 9> seen{}, own{};

  explicit Sight(const Group& group) {
    unsigned columns = 0;
    for (int cell : group) {
      const auto row = static_cast<std::size_t>(cellrow(cell) - 1), band = row / 3 * 3;
      const int col = cellcol(cell) - 1;
      own[row] |= 1u << col;
      columns |= 1u << col;
      seen[row] = 0x1ff;
      for (std::size_t r = band; r < band + 3; ++r) seen[r] |= 7u << col / 3 * 3;
    }
    for (unsigned& row : seen) row |= columns;
  }
};

/// Whether a cell sees both groups: most pairs of hypotheses end here. A true cell never does, as no two of a
/// sound group share a house. places: the columns of the digit's candidates, by row.
bool anydeletion(const XColours& find, const std::array<unsigned, 9>& places) {
  const Sight one(find.group[0]), other(find.group[1]);
  for (std::size_t r = 0; r < 9; ++r)
    if (places[r] & one.seen[r] & other.seen[r] & ~one.own[r] & ~other.own[r]) return true;
  return false;
}

std::array<unsigned, 9> candidatesbyrow(int digit) {
  std::array<unsigned, 9> places{};
  const int bit = bitvalue(digit);
  for (int cell = 0; cell < cellcount; ++cell)
    if (candmask(cell) & bit) places[static_cast<std::size_t>(cell / 9)] |= 1u << cell % 9;
  return places;
}

/// Records what sees a true cell of each group. A cell that is true in both counts as a pair too: it shares
/// row, column and block with itself.
void recorddeletions(XColours& find) {
  const auto record = [&find, here = __func__](int cell) {
    if (hascandidate(cell, find.digit)) find.deleted.add(cell, here);
  };
  for (int a : find.group[0])
    for (int b : find.group[1]) {
      seenbyboth(a, b, record);
      for (HouseKind kind : {HouseKind::row, HouseKind::column, HouseKind::block}) {
        const int house = houseof(kind, a);
        if (house != houseof(kind, b)) continue;
        for (int cell : housecells(kind, house))
          if (cell != a && cell != b) record(cell);
      }
    }
}

/// Both hypotheses of a house. When both clash it is the second that is called false.
void runpair(XColours& find, int first, int second, const std::array<unsigned, 9>& places) {
  if (Hypothesis(find.digit, first).gather(find.group[0])) find.type = Colourtype::firstfalse;
  if (Hypothesis(find.digit, second).gather(find.group[1])) find.type = Colourtype::secondfalse;
  if (find.type != Colourtype::nothing) return;
  if (!anydeletion(find, places)) return;
  recordcommon(find);
  recorddeletions(find);
  find.type = Colourtype::xdeletion;
}

/// The first house whose two hypotheses give something. Common cells alone are nothing.
XColours scanxcolors(Byte& digit) {
  XColours find;
  for (digit = 1; digit <= 9; digit += 1) {
    find.digit = digit;
    const std::array<unsigned, 9> places = candidatesbyrow(digit);
    std::bitset<cellcount * cellcount> done;  // two cellcount can share a line and a block
    const bool over =
        seeds(digit, {HouseKind::row, HouseKind::block, HouseKind::column}, [&](int first, int second) {
          const auto pair = static_cast<std::size_t>(first * cellcount + second);
          if (done[pair]) return false;
          done.set(pair);
          runpair(find, first, second, places);
          return find.type != Colourtype::nothing;
        });
    if (over) break;
  }
  return find;
}

// ---- what the sentences need ------------------------------------------------------------------------------

// The steps on show, for their explanation, which tells the two apart by colourtype: they share the tag.
Colours shown;
XColours xshown;
Colourtype colourtype = Colourtype::nothing;

std::string tell(const Words& words, int digit) {
  return say(words, hole("digit", digit));
}

std::string tellcolour(const Words& words, int digit, std::string_view colour) {
  return say(words, hole("digit", digit), hole("colour", colour));
}

std::string tellcell(const Words& words, int cell) {
  return say(words, hole("cell", cellname(cell)));
}

void paint(const auto& cells_, int digit, Colour colour) {
  for (int cell : cells_) pencilmark(cell, digit).back = colour;
}

void place(int cell, int digit) {
  writetext1(cell, std::to_string(digit));
  frmmain::Text1(cell).visible = true;
}

// ---- steps ------------------------------------------------------------------------------------------------

constexpr Colour clustercolour(bool first) {
  return first ? yellow : green;
}

void paintcluster(const Colours& find) {
  for (std::size_t i = 0; i < find.cluster.size(); ++i)
    pencilmark(find.cluster[i], find.digit).back = clustercolour(find.first[i]);
}

/// act(cell) for each cell of the colour that is left when the other clashes.
template <class Act>
void survivors(const Colours& find, Act act) {
  for (std::size_t i = 0; i < find.cluster.size(); ++i)
    if (find.first[i] != find.clashing) act(find.cluster[i]);
}

void showdeletion(const Colours& find) {
  paint(find.deleted, find.digit, red);
  paintcluster(find);
  frmmain::txthint.text = tell(hint, find.digit);
  const bool stop = waitatlight() == Answer::stop;
  paint(find.cluster, find.digit, white);
  paint(find.deleted, find.digit, white);
  if (stop) return;

  frmmain::txthint.text = tell(deleted, find.digit);
  for (int cell : find.deleted)
    if (deletecandidate(cell, find.digit)) frmmain::txthint.text += tellcell(doncell, cell);
  showdeletions();
}

void showclash(const Colours& find) {
  paintcluster(find);
  const Words& survivor = find.clashing ? greencells : yellowcells;
  frmmain::txthint.text = tellcolour(clashhint, find.digit, inlanguage(survivor));
  const bool stop = waitatlight() == Answer::stop;
  paint(find.cluster, find.digit, white);
  if (stop) return;

  frmmain::txthint.text = tell(entered, find.digit);
  survivors(find, [&](int cell) {
    place(cell, find.digit);
    frmmain::txthint.text += tellcell(doncell, cell);
  });
}

// Group 1 is green and group 2 yellow, the other way round from the explanation. A stop leaves the colours on
// the board and foundflag unset: the ladder goes on with its next rung.
void showxdeletion(const XColours& find) {
  const int digit = find.digit;
  paint(find.group[0], digit, green);
  paint(find.group[1], digit, yellow);
  paint(find.deleted, digit, red);
  paint(find.common, digit, cyan);
  frmmain::Text5.text = std::to_string(digit);
  frmmain::txthint.text = tell(xfound, digit);
  if (waitatlight() == Answer::stop) return;

  frmmain::txthint.text = tell(xdeleted, digit);
  for (int cell : find.deleted)
    if (deletecandidate(cell, digit)) frmmain::txthint.text += tellcell(xdeletedcell, cell);
  foundflag = true;
  if (!find.common.empty()) {
    waitatlight();  // whatever the answer, the cells get their digit
    frmmain::txthint.text = tell(xplaced, digit);
    for (int cell : find.common) {
      place(cell, digit);
      frmmain::txthint.text += tellcell(xplacedcell, cell);
    }
  }
  paint(find.group[0], digit, white);
  paint(find.group[1], digit, white);
  paint(find.deleted, digit, white);
  paint(find.common, digit, white);
  showdeletions();
}

// Of the surviving group only the seed is shown and placed: the rest is left to later steps.
void showxclash(const XColours& find) {
  const int seed = find.group[find.truegroup()].first();
  const bool seedyellow = find.type == Colourtype::firstfalse;
  foundflag = true;
  paint(find.group[find.falsegroup()], find.digit, seedyellow ? green : yellow);
  pencilmark(seed, find.digit).back = seedyellow ? yellow : green;
  frmmain::txthint.text =
      tellcolour(xclashhint, find.digit, inlanguage(seedyellow ? yellowcells : greencells));
  const bool stop = waitatlight() == Answer::stop;
  paint(find.group[0], find.digit, white);
  paint(find.group[1], find.digit, white);
  if (stop) return;

  frmmain::txthint.text = tell(logentered, find.digit);
  place(seed, find.digit);
  frmmain::txthint.text += tellcell(doncell, seed);
}

}  // namespace

void frmmain::stepcolors() {
  steptag = techniques::simplecolours.tag;
  const Colours find = shown = scancolors(colourdigit);
  colourtype = find.type;
  if (find.type == Colourtype::nothing) return;
  foundflag = true;
  find.type == Colourtype::deletion ? showdeletion(find) : showclash(find);
}

void frmmain::stepxcolors() {
  foundflag = false;
  const XColours find = xshown = scanxcolors(colourdigit);
  colourtype = find.type;
  if (find.type == Colourtype::nothing) return;
  find.type == Colourtype::xdeletion ? showxdeletion(find) : showxclash(find);
}

// ---- twins ------------------------------------------------------------------------------------------------

namespace {

std::string listline(std::size_t which, const auto& cells_) {
  std::string line(inlanguage(loglist[which]));
  for (int cell : cells_) line += tellcell(listcell, cell);
  return line;
}

void logcluster(const Colours& find) {
  std::array<std::vector<int>, 2> colours;
  for (std::size_t i = 0; i < find.cluster.size(); ++i)
    colours[find.first[i] ? 0 : 1].push_back(find.cluster[i]);
  detail(listline(0, colours[0]));
  detail(listline(1, colours[1]));
}

void loggroups(const XColours& find) {
  detail(listline(0, find.group[0]));
  detail(listline(1, find.group[1]));
}

void logdeletions(const auto& deletions, int digit, const Words& words) {
  for (int cell : deletions)
    if (deletecandidate(cell, digit)) appendwords(tellcell(words, cell));
}

void logplacing(int cell, int digit) {
  appendwords(tellcell(doncell, cell));
  placesilently(cell, digit);
}

void gradedeletion(const Colours& find) {
  headline(tell(headlinewords, find.digit));
  logcluster(find);
  detail(tell(logdeleted, find.digit));
  logdeletions(find.deleted, find.digit, doncell);
  raiselevel(level);
  settledeletions();
}

void gradeclash(const Colours& find) {
  headline(tellcolour(clashheadline, find.digit, logcolour[find.clashing ? 1 : 0]));
  logcluster(find);
  detail(tell(logentered, find.digit));
  survivors(find, [&](int cell) { logplacing(cell, find.digit); });
  raiselevel(clashlevel);
}

void gradexdeletion(const XColours& find) {
  raiselevel(xlevel);
  headline(tell(xfound, find.digit));
  loggroups(find);
  detail(tell(xdeleted, find.digit));
  logdeletions(find.deleted, find.digit, xdeletedcell);
  if (!find.common.empty()) {
    detail(tell(xplaced, find.digit));
    for (int cell : find.common) logplacing(cell, find.digit);
  }
  settledeletions();
}

void gradexclash(const XColours& find) {
  headline(tellcolour(xclashheadline, find.digit, logcolour[find.truegroup()]));
  loggroups(find);
  detail(tell(logentered, find.digit));
  raiselevel(xclashlevel);
  logplacing(find.group[find.truegroup()].first(), find.digit);
}

}  // namespace

void frmgenerazione::gradecolors() {
  Byte digit;
  const Colours find = scancolors(digit);
  if (find.type == Colourtype::nothing) return;
  foundflag = true;
  find.type == Colourtype::deletion ? gradedeletion(find) : gradeclash(find);
}

void frmgenerazione::gradexcolors() {
  foundflag = false;
  Byte digit;
  const XColours find = scanxcolors(digit);
  if (find.type == Colourtype::nothing) return;
  foundflag = true;
  find.type == Colourtype::xdeletion ? gradexdeletion(find) : gradexclash(find);
}

// ---- explanations -----------------------------------------------------------------------------------------

namespace {

Lesson begin(const Words& rulewords, int digit) {
  Lesson lesson;
  lesson.line(inlanguage(rulewords)).line(ruleline).line(tell(candidateline, digit));
  return lesson;
}

/// The cluster cell by cell. A stop does not end it.
void showcluster(Lesson& lesson) {
  for (std::size_t i = 0; i < shown.cluster.size(); ++i) {
    const int cell = shown.cluster[i];
    pencilmark(cell, shown.digit).back = clustercolour(shown.first[i]);
    lesson.line(say(cellis, hole("cell", cellname(cell)),
                    hole("colour", inlanguage(shown.first[i] ? yellowword : greenword))));
    lesson.showandwait();
  }
}

void explaindeletion() {
  Lesson lesson = begin(rule, shown.digit);
  showcluster(lesson);
  lesson.line(tell(eithercolour, shown.digit)).line(tell(candelete, shown.digit));
  paint(shown.deleted, shown.digit, red);
  if (lesson.showandwait() == Answer::stop) return;
  closelesson();
  clearcolours();
}

/// In English the colour that clashes is named. In Italian the box of r1c1 decides: unless it is yellow, the
/// green colour is called excluded, whichever it is.
bool excludedyellow() {
  return lingua == italian ? pencilmark(0, shown.digit).back == yellow : shown.clashing;
}

void explainclash() {
  Lesson lesson = begin(clashrule, shown.digit);
  showcluster(lesson);
  const bool isyellow = excludedyellow();
  const std::string_view excluded = inlanguage(isyellow ? yellowword : greenword);
  const std::string_view forced = inlanguage(isyellow ? greenword : yellowword);
  lesson.line(say(cannotstay, hole("digit", shown.digit), hole("excluded", excluded)));
  lesson.line(tell(canplace, shown.digit)).line(say(inallcells, hole("forced", forced)));
  if (lesson.showandwait() == Answer::stop) return;
  frmmain::txthint.text = tell(closing, shown.digit);
  closelesson();
  paint(shown.cluster, shown.digit, white);
}

/// A group as the explanation shows it.
struct GroupWords {
  Colour colour;
  Words iftrue;
};
constexpr std::array<GroupWords, 2> groupwords = {{{yellow, ifyellow}, {green, ifgreen}}};

/// One of the two seeds holds the digit. True: stop.
bool showseeds(Lesson& lesson) {
  const std::array<int, 2> seed = {xshown.group[0].first(), xshown.group[1].first()};
  for (std::size_t k : {0u, 1u}) pencilmark(seed[k], xshown.digit).back = groupwords[k].colour;
  lesson.line(say(eitherseed, hole("digit", xshown.digit), hole("first", cellname(seed[0])),
                  hole("second", cellname(seed[1]))));
  if (lesson.showandwait() == Answer::stop) return true;
  pencilmark(seed[1], xshown.digit).back = white;
  return false;
}

/// A hypothesis cell by cell, each with what it rules out; whatever has a colour keeps it. True: stop.
bool showgroup(Lesson& lesson, std::size_t k) {
  const int digit = xshown.digit;
  lesson.line(
      say(groupwords[k].iftrue, hole("digit", digit), hole("cell", cellname(xshown.group[k].first()))));
  const auto group = xshown.group[k];  // a command in one of the waits may search anew
  for (int cell : group) {
    pencilmark(cell, digit).back = groupwords[k].colour;
    for (HouseKind kind : {HouseKind::block, HouseKind::row, HouseKind::column})
      for (int seen : housecells(kind, houseof(kind, cell)))
        if (Box& box = pencilmark(seen, digit); box.back == white) box.back = red;
    if (lesson.showandwait() == Answer::stop) return true;
  }
  return false;
}

void explainxdeletion() {
  const int digit = xshown.digit;
  const bool blue = !xshown.common.empty();
  Lesson lesson = begin(xrule, digit);
  if (showseeds(lesson) || showgroup(lesson, 0)) return;
  clearcolours();
  if (showgroup(lesson, 1)) return;
  clearcolours();

  for (std::size_t k : {0u, 1u}) paint(xshown.group[k], digit, groupwords[k].colour);
  paint(xshown.common, digit, cyan);
  lesson.line(tell(blue ? eithergroupblue : eithergroup, digit));
  if (lesson.showandwait() == Answer::stop) return;

  paint(xshown.deleted, digit, red);
  lesson.line(tell(xcandelete, digit));
  if (lesson.showandwait() == Answer::stop) return;

  if (blue) {
    lesson.line(inlanguage(bluecommon)).line(tell(blueplace, digit));
    if (lesson.showandwait() == Answer::stop) return;
  }
  closelesson();
  clearcolours();
}

void explainxclash() {
  Lesson lesson = begin(xclashrule, xshown.digit);
  if (showseeds(lesson) || showgroup(lesson, xshown.falsegroup())) return;
  const int seed = xshown.group[xshown.truegroup()].first();
  lesson.line(inlanguage(twiceinhouse));
  lesson.line(tellcell(xshown.type == Colourtype::firstfalse ? musttruegreen : musttrueyellow, seed));
  if (lesson.showandwait() == Answer::stop) return;
  closelesson();
  clearcolours();
}

}  // namespace

void explaincolors() {
  switch (colourtype) {
    case Colourtype::nothing:
      return;
    case Colourtype::deletion:
      return explaindeletion();
    case Colourtype::clash:
      return explainclash();
    case Colourtype::xdeletion:
      return explainxdeletion();
    case Colourtype::firstfalse:
    case Colourtype::secondfalse:
      return explainxclash();
  }
}

// ---- records ----------------------------------------------------------------------------------------------

const Technique techniques::simplecolours{
    .tag = "colors",
    .name = "colors",
    .called = {"colori semplici", "simple colours"},
    .step = byfoundflag<frmmain::stepcolors>,
    .twin = byfoundflag<frmgenerazione::gradecolors>,
    .explain = explaincolors,
    .level = level,
    .clashlevel = clashlevel,
};
const Technique techniques::xcolours{
    .tag = "colors",
    .name = "xcolors",
    .called = {"X-Colors", "X-colours"},
    .step = byfoundflag<frmmain::stepxcolors>,
    .twin = byfoundflag<frmgenerazione::gradexcolors>,
    .explain = explaincolors,
    .level = xlevel,
    .clashlevel = xclashlevel,
};

}  // namespace gradino
