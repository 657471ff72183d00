#include "faults.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "boxes.h"
#include "words.h"

namespace gradino {
namespace {

constexpr Words filewords = {"Impossibile leggere o scrivere il file \"{name}\". Nulla è andato perso.",
                             "The file \"{name}\" can't be read or written. Nothing was lost."};

// What was typed into a cell.
constexpr Words twodigits = {"{value} in {cell} non è una cifra da 1 a 9: cancellare una delle due.",
                             "{value} in {cell} is not a digit from 1 to 9: delete one of the two."};
constexpr Words moredigits = {
    "{value} in {cell} non è una cifra da 1 a 9: lasciare una sola delle sue cifre.",
    "{value} in {cell} is not a digit from 1 to 9: leave only one of its digits."};
constexpr Words endlessdigits = {
    "Il numero in {cell} non è una cifra da 1 a 9: lasciare una sola delle sue cifre.",
    "The number in {cell} is not a digit from 1 to 9: leave only one of its digits."};
constexpr Words nodigit = {"Quello che sta in {cell} non è una cifra da 1 a 9: cancellarlo.",
                           "What stands in {cell} is not a digit from 1 to 9: delete it."};
constexpr Words emptyagain = {
    "{cell} è di nuovo vuota, e il conteggio delle celle esposte resta a 0: non può scendere. Se mancano dei "
    "candidati, \"rigenera candidati\" li riporta.",
    "{cell} is empty again, and the count of filled cells stays at 0: it can't go lower. If pencil marks are "
    "missing, \"refresh pencil marks\" brings them back."};

// How it ended.
constexpr Words ended = {" Il comando è stato interrotto; lo schema resta e il programma continua.",
                         " The command was ended; the board stays, and the program goes on."};
constexpr Words trysomethingelse = {
    " Il comando è stato interrotto e lo schema resta com'era: un'altra tecnica può andare avanti.",
    " The command was ended and the board stays as it was: another technique may go on."};
constexpr Words tryagain = {" Il comando è stato interrotto: ripetuto, crea un altro schema.",
                            " The command was ended: started again, it makes another puzzle."};
constexpr Words nothingmore = {"", ""};
constexpr Words nograde = {" Lo schema resta, ma non è stato possibile valutarlo.",
                           " The board stays, but the puzzle could not be graded."};
constexpr Words written = {" Il file \"{file}\" è stato scritto comunque.",
                           " The file \"{file}\" was written all the same."};

// For the developer.
constexpr Words behindbounds = {" (tabella {name} da {low} a {high}, indice {value}, in {place})",
                                " (table {name} {low} to {high}, index {value}, in {place})"};
constexpr Words behindoverflow = {" (contatore {name} da {low} a {high}, valore {value}, in {place})",
                                  " (counter {name} {low} to {high}, value {value}, in {place})"};

/// What a full table or counter means. Several may have the same name; then the routine distinguishes them.
struct Meaning {
  std::string_view name, place;
  Words words;
  const Words& end;  ///< if no grade was lost
};

// clang-format off
const Meaning meanings[] = {
    {"filledcount", "",
     {"Il conteggio delle celle esposte non può superare {high}: una cifra scritta sopra un'altra conta una volta "
      "in più. Salvare lo schema fa ricontare le celle.",
      "The count of filled cells can't go above {high}: a digit that is written over another counts once more. "
      "Saving the board has the cells counted anew."},
     nothingmore},
    {"logvalues", "ritrova",
     {"Il log conserva lo schema solo per le prime {high} linee: alla linea {value} non si può tornare. Scegliere "
      "una linea più in alto.",
      "The log keeps the board for its first {high} lines only: there is no going back to line {value}. Choose a "
      "line further up."},
     nothingmore},
    {"logvalues", "",
     {"Il log è pieno: contiene {high} linee. Aprire uno schema ne comincia uno nuovo.",
      "The log is full: it holds {high} lines. Opening a puzzle begins a new one."},
     ended},
    {"logcount", "",
     {"Il log non può contare più di {high} linee. Aprire uno schema ne comincia uno nuovo.",
      "The log can't count more than {high} lines. Opening a puzzle begins a new one."},
     ended},
    {"difficolta", "",
     {"Il punteggio di questo schema supera {high}, il massimo che si può contare.",
      "The score of this puzzle is above {high}, the highest that can be counted."},
     ended},
    {"levelcount", "",
     {"Questo schema richiede più di {high} passi di uno stesso livello, più di quanti se ne possano contare.",
      "This puzzle takes more than {high} steps of one level, more than can be counted."},
     ended},
    {"progressivo", "",
     {"Il generatore continuo è arrivato al suo ultimo numero, {high}, e si è fermato. Tutti gli schemi che ha "
      "tenuto sono nella libreria. Riavviato, ricomincia a numerare da capo.",
      "The continuous generator has reached its last number, {high}, and has stopped. All puzzles that it kept are "
      "in the library. Started again, it numbers from the beginning."},
     nothingmore},
    {"deletedcell", "",
     {"I colori semplici trovano qui più di {room} eliminazioni, più di quante se ne possano annotare.",
      "Simple colors find more than {room} deletions here, more than can be noted."},
     trysomethingelse},
    {"xdeletecell", "",
     {"I colori X trovano qui più di {room} eliminazioni, più di quante se ne possano annotare.",
      "X-colors find more than {room} deletions here, more than can be noted."},
     trysomethingelse},
    {"groupcells", "",
     {"I colori X trovano qui più di {room} celle di un gruppo, più di quante se ne possano annotare.",
      "X-colors find more than {room} cells of one group here, more than can be noted."},
     trysomethingelse},
    {"commoncell", "recordcommon",
     {"I colori X trovano qui più di {room} celle comuni ai due gruppi, più di quante se ne possano annotare.",
      "X-colors find more than {room} cells common to both groups here, more than can be noted."},
     trysomethingelse},
    {"commoncell", "",
     {"Il rettangolo unico trova qui più di {room} eliminazioni, più di quante se ne possano annotare.",
      "The unique rectangle finds more than {room} deletions here, more than can be noted."},
     trysomethingelse},
    {"linkcell", "",
     {"La catena trovata qui ha più di {room} passi, più di quanti se ne possano annotare.",
      "The chain found here has more than {room} steps, more than can be noted."},
     trysomethingelse},
    {"cellescelte", "",
     {"Il generatore ha scelto più di {room} celle, più di quante se ne possano annotare.",
      "The generator has chosen more than {room} cells, more than can be noted."},
     tryagain},
};
// clang-format on

const Meaning unknown = {
    "",
    "",
    {"È stato raggiunto un limite interno del programma.", "An internal limit of the program was reached."},
    ended};

/// What was typed into the cell of the fault, if that is why it isn't a digit.
const Words* typed(const Fault& fault) {
  if (!fault.cell) return nullptr;
  if (fault.name == "bitvalue") return fault.value < 100 ? &twodigits : &moredigits;
  if (fault.name == "cellvalue") return &endlessdigits;
  if (fault.name != "filledcount" || fault.value > fault.high) return nullptr;
  return frmmain::Text1(*fault.cell).text.empty() ? &emptyagain : &nodigit;
}

const Meaning& meaningof(const Fault& fault) {
  const auto* found = std::find_if(std::begin(meanings), std::end(meanings), [&](const Meaning& meaning) {
    return meaning.name == fault.name && (meaning.place.empty() || meaning.place == fault.place);
  });
  return found == std::end(meanings) ? unknown : *found;
}

/// What happened, and how it ended.
std::string meaningtext(const Fault& fault) {
  if (const Words* words = typed(fault)) {
    const std::string cell = say(Words{"r{row}c{col}", "r{row}c{col}"}, hole("row", *fault.cell / 9 + 1),
                                 hole("col", *fault.cell % 9 + 1));
    return say(*words, hole("value", fault.value), hole("cell", cell));
  }
  const Meaning& meaning = meaningof(fault);
  return say(meaning.words, hole("value", fault.value), hole("high", fault.high),
             hole("room", fault.high - fault.low + 1)) +
         std::string(inlanguage(fault.ungraded ? nograde : meaning.end));
}

}  // namespace

std::string faulttext(const Fault& fault) {
  if (fault.kind == Fault::Kind::file) return say(filewords, hole("name", fault.name));
  std::string text = meaningtext(fault);
  if (!fault.written.empty()) text += say(written, hole("file", fault.written));
  return text + say(fault.kind == Fault::Kind::bounds ? behindbounds : behindoverflow,
                    hole("name", fault.name), hole("low", fault.low), hole("high", fault.high),
                    hole("value", fault.value), hole("place", fault.place));
}

}  // namespace gradino
