// Simple colours (levels 13 and 14). A house in which a digit has just two places takes it in one of them.
// Houses with two places join cells into a cluster, in which the colours alternate: the digit is in all cells
// of one colour and in none of the other.
//
//     . Y . | . . x | . . .      two places each: column 2, row 5, block 5
//           |       |
//     . . . | . . G | . . .      deletion   x sees a Y in its row and a G in its column: it loses the digit
//     . G . | . Y . | . . .      clash      if a house had Y twice, Y would be false and all G true
//
// Deletions are recorded in a short list, repeats too: a board that gives more than it holds is a fault.
#include "simplecolours.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

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

constexpr Words hint = {
    "COLORI tipo 1, numero {digit} è possibile eliminare il numero dalle celle rosse",
    "COLORS type 1, number {digit} it is possible to delete the candidate from red cells"};
constexpr Words headlinewords = {
    "COLORI SEMPLICI, numero {digit} è possibile eliminare il numero dalle celle rosse",
    "SIMPLE COLORS, number {digit} it is possible to delete the candidate from red cells"};
// " from " is in both languages.
constexpr Words deleted = {"eliminato {digit} from ", "deleted {digit} from "};
constexpr Words logdeleted = {" * eliminato {digit} from ", " * deleted {digit} from "};

constexpr Words clashhint = {"COLORI tipo 2, il numero {digit} è forzato nelle celle {colour}",
                             "COLORS type 2, the number {digit} it is forced in {colour} cells"};
constexpr Words clashheadline = {"COLORI - CONTRADIZIONE, il numero {digit} è forzato nelle celle {colour}",
                                 "COLORS - CONTRADICTION, the number {digit} it is forced in {colour} cells"};
constexpr Words entered = {"inserito {digit} in ", "entered {digit} in "};

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

// ---- search -----------------------------------------------------------------------------------------------

struct Colours {
  enum class Kind { nothing, deletion, clash } kind = Kind::nothing;
  int digit = 0;
  std::vector<int> cluster;                ///< in order of discovery
  std::vector<bool> first;                 ///< its colours: the first, yellow, or the second, green
  bool clashing = false;                   ///< the colour that is false
  Recorded deleted{"deletedcell", 1, 10};  ///< once for every pair of cells that hits the cell

  explicit operator bool() const { return kind != Kind::nothing; }
};

/// A cluster, which grows in the node queue.
class Cluster {
 public:
  explicit Cluster(int digit) : digit_(digit) {}

  int size() const { return count_; }

  /// False: both cells are in an earlier cluster of the digit.
  bool plant(int first, int second) {
    count_ = 0;
    discover(first, true);
    discover(second, false);
    return count_ > 0;
  }

  void grow() {
    for (int i = 0; i < count_; ++i)
      for (HouseKind kind : housekinds) {
        const int house = houseof(kind, chaincell(i));
        const Positions places = housepos(kind, digit_, house);
        if (places.length() != 2) continue;
        for (int p : places) discover(housecell(kind, house, p), !chainflag(i));
      }
  }

 private:
  void discover(int cell, bool flag) {
    if (visited_[cell]) return;
    visited_[cell] = true;
    chaincell(count_) = cell;
    chainflag(count_) = flag;
    ++count_;
  }

  int digit_;
  int count_ = 0;
  ByCell<bool> visited_{};
};

bool samehouse(int one, int other) {
  return std::any_of(housekinds.begin(), housekinds.end(),
                     [&](HouseKind kind) { return gradino::samehouse(kind, one, other); });
}

/// Looks through all pairs of the cluster. A clash ends it, whatever was recorded before.
void checkcluster(Colours& find, int size) {
  const char* const here = __func__;
  const auto record = [&](int cell) {
    if (!hascandidate(cell, find.digit)) return;
    foundflag = true;
    find.deleted.add(cell, here);
    find.kind = Colours::Kind::deletion;
  };
  for (int i = 0; i < size - 1; ++i)
    for (int j = i + 1; j < size; ++j)
      if (chainflag(i) != chainflag(j)) {
        seenbyboth(chaincell(i), chaincell(j), record);
      } else if (samehouse(chaincell(i), chaincell(j))) {
        find.kind = Colours::Kind::clash;
        find.clashing = chainflag(i);
        return;
      }
}

/// The first cluster that gives something. `digit` is its digit afterwards, or 10 if there is none.
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
          return static_cast<bool>(find);
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

/// The step on show. Only the explanations read it, and not from a copy: a command during one of their waits
/// may put another there.
Colours shown;

void explain();

void forget() {
  shown = {};
  colourlesson = nullptr;
}

// ---- step -------------------------------------------------------------------------------------------------

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
  paintmarks(find.deleted, find.digit, red);
  paintcluster(find);
  frmmain::txthint.text = say(hint, ofdigit(find.digit));
  const bool stop = waitatlight() == Answer::stop;
  paintmarks(find.cluster, find.digit, white);
  paintmarks(find.deleted, find.digit, white);
  if (stop) return;

  frmmain::txthint.text = say(deleted, ofdigit(find.digit));
  for (int cell : find.deleted)
    if (deletecandidate(cell, find.digit)) frmmain::txthint.text += say(andcell, incell(cell));
  showdeletions();
}

void showclash(const Colours& find) {
  paintcluster(find);
  frmmain::txthint.text =
      say(clashhint, ofdigit(find.digit), hole("colour", cellsof(clustercolour(!find.clashing))));
  const bool stop = waitatlight() == Answer::stop;
  paintmarks(find.cluster, find.digit, white);
  if (stop) return;

  frmmain::txthint.text = say(entered, ofdigit(find.digit));
  survivors(find, [&](int cell) {
    enterdigit(cell, find.digit);
    frmmain::txthint.text += say(andcell, incell(cell));
  });
}

}  // namespace

void frmmain::stepcolors() {
  steptag = techniques::simplecolours.tag;
  const Colours find = shown = scancolors(colourdigit);
  colourlesson = find ? explain : nullptr;
  if (!find) return;
  foundflag = true;
  find.kind == Colours::Kind::deletion ? showdeletion(find) : showclash(find);
}

// ---- twin -------------------------------------------------------------------------------------------------

namespace {

void logcluster(const Colours& find) {
  std::array<std::vector<int>, 2> colours;
  for (std::size_t i = 0; i < find.cluster.size(); ++i)
    colours[find.first[i] ? 0 : 1].push_back(find.cluster[i]);
  detail(listline(0, colours[0]));
  detail(listline(1, colours[1]));
}

void gradedeletion(const Colours& find) {
  headline(say(headlinewords, ofdigit(find.digit)));
  logcluster(find);
  detail(say(logdeleted, ofdigit(find.digit)));
  logdeletions(find.deleted, find.digit, andcell);
  raiselevel(level);
  settledeletions();
}

void gradeclash(const Colours& find) {
  headline(say(clashheadline, ofdigit(find.digit), hole("colour", listname(find.clashing ? 1 : 0))));
  logcluster(find);
  detail(say(logentered, ofdigit(find.digit)));
  survivors(find, [&](int cell) { logentering(cell, find.digit); });
  raiselevel(clashlevel);
}

}  // namespace

void frmgenerazione::gradecolors() {
  Byte digit;
  const Colours find = scancolors(digit);
  if (!find) return;
  foundflag = true;
  find.kind == Colours::Kind::deletion ? gradedeletion(find) : gradeclash(find);
}

// ---- explanations -----------------------------------------------------------------------------------------

namespace {

/// The cluster cell by cell. A stop does not end it.
void showcluster(Lesson& lesson) {
  for (std::size_t i = 0; i < shown.cluster.size(); ++i) {
    const int cell = shown.cluster[i];
    pencilmark(cell, shown.digit).back = clustercolour(shown.first[i]);
    lesson.line(
        say(cellis, incell(cell), hole("colour", inlanguage(shown.first[i] ? yellowword : greenword))));
    lesson.showandwait();
  }
}

void explaindeletion() {
  Lesson lesson = ruleof(rule, shown.digit);
  showcluster(lesson);
  lesson.line(say(eithercolour, ofdigit(shown.digit))).line(say(candelete, ofdigit(shown.digit)));
  paintmarks(shown.deleted, shown.digit, red);
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
  Lesson lesson = ruleof(clashrule, shown.digit);
  showcluster(lesson);
  const bool isyellow = excludedyellow();
  const std::string_view excluded = inlanguage(isyellow ? yellowword : greenword);
  const std::string_view forced = inlanguage(isyellow ? greenword : yellowword);
  lesson.line(say(cannotstay, ofdigit(shown.digit), hole("excluded", excluded)));
  lesson.line(say(canplace, ofdigit(shown.digit))).line(say(inallcells, hole("forced", forced)));
  if (lesson.showandwait() == Answer::stop) return;
  frmmain::txthint.text = say(closing, ofdigit(shown.digit));
  closelesson();
  paintmarks(shown.cluster, shown.digit, white);
}

void explain() {
  shown.kind == Colours::Kind::deletion ? explaindeletion() : explainclash();
}

}  // namespace

// ---- record -----------------------------------------------------------------------------------------------

const Technique techniques::simplecolours{
    .tag = "colors",
    .name = "colors",
    .called = {"colori semplici", "simple colours"},
    .step = byfoundflag<frmmain::stepcolors>,
    .twin = byfoundflag<frmgenerazione::gradecolors>,
    .explain = explaincolors,
    .level = level,
    .clashlevel = clashlevel,
    .forget = forget,
};

}  // namespace gradino
