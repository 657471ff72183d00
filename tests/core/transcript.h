// What a technique says, paints, logs and does on the board of a case, as a text to be read and compared:
// tests/cases/<technique>/<case>/english and italian. tests/cases/README.md says how to read it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "caseboard.h"
#include "player.h"

namespace gradino::tests {

/// One thing that is seen, as lines of the transcript. No lines: it is as it was before the step.
struct Fact {
  std::string name, nothing;  ///< what to say when there are no lines; nothing: say nothing
  std::vector<std::string> lines = {};
  std::string text = {};  ///< of the explanation window, which grows
  bool operator==(const Fact&) const = default;
};
using Facts = std::vector<Fact>;

/// A moment: a wait, or the end.
struct Moment {
  Facts facts;
  Frame frame;
  Board board;
};

struct Played {
  std::vector<Moment> waits;
  Moment over;                ///< when the explanation had returned
  std::size_t explained = 0;  ///< after how many waits that was; 0: nothing was explained
  Moment end;                 ///< when all is over
  std::string answers;        ///< what the step itself says: "yes" or "no"
};

/// Runs the step of a case in a program just started. The waits are answered with the acts, then with go;
/// `meanwhile` comes first at each.
Played runstep(const CaseBoard& board, int language, const std::vector<Act>& acts,
               const std::function<void()>& meanwhile = {});

/// The whole text. Throws when a wait never ends.
std::string transcript(const CaseBoard& board, int language);

/// What differs, as `diff -u` would say it; nothing if nothing does.
std::string difference(const std::string& recorded, const std::string& now);

}  // namespace gradino::tests
