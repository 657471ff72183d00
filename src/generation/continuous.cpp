#include "continuous.h"

#include <optional>
#include <string>

#include <fmt/format.h>

#include "boardgrade.h"
#include "boxes.h"
#include "generator.h"
#include "gradestate.h"
#include "grid.h"
#include "host.h"
#include "library.h"
#include "light.h"
#include "log.h"
#include "step.h"
#include "tables.h"
#include "words.h"

namespace gradino {
namespace {

constexpr int firstnumber = 8371;  ///< of each run, whatever the library holds
constexpr int timelimit = 25000;   ///< seconds
constexpr int hardenough = 4, manygivens = 27;

// A puzzle of the list, last line first; in Italian whatever the language.
constexpr const char* listed =
    " tempo totale, secondi {total}\r\n"
    " tempo, secondi {time}\r\n"
    " numeri {givens}\r\n"
    " LIVELLO {level}\r\n"
    " schema {number}\r\n";

/// Seconds with up to two decimals: 25000.25, 0.5, 12.
std::string hundredths(double seconds) {
  std::string text = fmt::format("{:.2f}", seconds);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text == "-0" ? "0" : text;
}

/// As long as it exists, message boxes don't wait for a user.
struct Unattended {
  Unattended() { unattended = true; }
  ~Unattended() { unattended = false; }
  Unattended(const Unattended&) = delete;
  Unattended& operator=(const Unattended&) = delete;
};

/// Makes a puzzle and grades it. Once in many thousands the grader runs into a full table: such a puzzle has
/// no grade and is passed over.
bool graded() {
  try {
    frmgenerazione::genera();
    return true;
  } catch (const Fault&) {
    suppresschange = false;
    clearlog();
    return false;
  }
}

/// The givens as 81 characters; counts them.
std::string puzzlestring() {
  std::string text;
  filledcount = 0;
  for (int cell = 0; cell < cellcount; ++cell) {
    if (givens(cell).empty()) {
      text += '.';
    } else {
      text += givens(cell);
      filledcount += 1;
    }
  }
  return text;
}

void showlibrarywindows() {
  frmgeneratore::visible = frmactivity::visible = true;
}

/// Discards the record that is still open when a run ends, whatever the reason.
struct LastRecord {
  LastRecord() = default;
  ~LastRecord() { Data1.cancelnew(); }
  LastRecord(const LastRecord&) = delete;
  LastRecord& operator=(const LastRecord&) = delete;
};

void run() {
  const LastRecord forgotten;
  const double runstart = host.clock();
  std::optional<double>
      puzzleend;  // of the last accepted puzzle: a series of refused ones doesn't end the run
  Data1.need();
  Data1.movelast();
  Int16 number{"progressivo"};
  number = firstnumber;
  Data1.addnew();
  do {
    const double puzzlestart = host.clock();
    if (graded()) {
      if (frmmain::Check1.ticked) frmmain::txtsuper.text = "s";
      frmmain::txtprogressivo.text = std::to_string(number);
      const std::string stringa = puzzlestring();
      if (runninglevel >= hardenough || filledcount < manygivens) {
        number += 1;
        frmmain::testolivello.text = std::to_string(runninglevel);
        frmmain::txtstringa.text = stringa;
        frmmain::txtnumeri.text = std::to_string(filledcount);
        frmmain::txttotale.text = std::to_string(difficolta);
        frmmain::txtdettaglio.text = dettaglio;
        puzzleend = host.clock();
        frmgeneratore::Text1.text.insert(
            0, fmt::format(listed, fmt::arg("number", int(number)), fmt::arg("level", int(runninglevel)),
                           fmt::arg("givens", int(filledcount)),
                           fmt::arg("time", hundredths(*puzzleend - puzzlestart)),
                           fmt::arg("total", hundredths(*puzzleend - runstart))));
        Data1.addnew();
      }
    }
    letevents();
  } while (!puzzleend || *puzzleend - runstart <= timelimit);
}

}  // namespace

void frmmain::genera_e_conta() {
  libraryrecordopen = false;  // the puzzle graded now is no record of the library
  comandocorrente = generatecommand;
  showlibrarywindows();
  const Unattended nobodywaits;
  gradeandrestore(run, repaintboard);  // the last puzzle is on the board, ready to be solved
}

}  // namespace gradino
