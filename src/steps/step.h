// What a step leaves for the ladder, the light and the explanation.
#pragma once

#include <string>

#include "checked.h"
#include "houses.h"

namespace gradino {

/// True when the last technique found something. Most clear it before they search; the singles don't use it.
inline constinit bool foundflag = false;

/// The tag of the finder now running; after a step it names the technique and so the explanation.
inline std::string steptag;

// The step on show: digit, cell, house (0-based). A single sets only the house that it found in.
inline constinit Byte curdigit{"curdigit"}, curcell{"curcell"};
inline constinit Byte curblock{"curblock"}, currow{"currow"}, curcol{"curcol"};

/// Keeps the house of the step on show: in currow, curcol or curblock.
inline void keephouse(HouseKind kind, int house) {
  (kind == HouseKind::row ? currow : kind == HouseKind::column ? curcol : curblock) = house;
}

/// The digit of the main window's last search for colours, a rectangle of type 2 or a BUG; 10 after colours
/// that found nothing. A BUG of which no digit qualifies keeps what is here.
inline constinit Byte colourdigit{"colourdigit"};

/// True after a Nishio step; kept in the log's snapshots.
inline constinit bool nishioflag = false;

/// The long job now running: "conta", "genera", or empty while the user works on a puzzle.
inline std::string comandocorrente;

/// Sets comandocorrente for the length of a job, however the job ends.
class Job {
 public:
  explicit Job(const char* command) { comandocorrente = command; }
  ~Job() { comandocorrente.clear(); }
  Job(const Job&) = delete;
  Job& operator=(const Job&) = delete;
};

}  // namespace gradino
