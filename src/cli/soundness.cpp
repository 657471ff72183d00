#include "soundness.h"

#include <algorithm>
#include <array>

#include <fmt/format.h>

#include "boxes.h"
#include "explain.h"
#include "grader.h"
#include "gradestate.h"
#include "host.h"
#include "houses.h"
#include "ladders.h"
#include "levels.h"
#include "light.h"
#include "nishio.h"
#include "session.h"
#include "simplecolours.h"
#include "step.h"
#include "stepsolver.h"
#include "tables.h"
#include "words.h"
#include "xcolours.h"

namespace gradino::cli {
namespace {

constexpr int idlelimit = 3;  ///< a walk ends after this many calls in a row that changed nothing

/// The board at one moment, and the solution that it must lead to.
struct Moment {
  std::array<int, cellcount> values, masks;
  std::array<int, 22> counts;
};

Moment now() {
  Moment moment{};
  for (int cell = 0; cell < cellcount; ++cell) {
    moment.values[static_cast<std::size_t>(cell)] = cellvalue(cell);
    moment.masks[static_cast<std::size_t>(cell)] = candmask(cell);
  }
  for (int level = 1; level <= 21; ++level)
    moment.counts[static_cast<std::size_t>(level)] = levelcount(level);
  return moment;
}

/// The solution found by the counter, kept apart from the table that the techniques can read.
std::array<int, cellcount> solutionnow() {
  std::array<int, cellcount> solution{};
  for (int cell = 0; cell < cellcount; ++cell)
    solution[static_cast<std::size_t>(cell)] = static_cast<int>(leadingnumber(solutiontext(cell)));
  return solution;
}

class Watch {
 public:
  explicit Watch(const OnStep& use) : use_(use), solution_(solutionnow()), before_(now()) {}

  /// Hands over what changed since the last look. False: nothing did.
  bool look(const std::function<std::string(const Moment& before)>& technique,
            const std::function<std::string()>& words) {
    const Moment after = now();
    if (after.values == before_.values && after.masks == before_.masks) return false;
    CheckedStep step;
    compare(after, step);
    step.technique = technique(before_);
    if (!step.wrong.empty()) step.words = words();
    before_ = after;
    use_(step);
    return true;
  }

 private:
  void compare(const Moment& after, CheckedStep& step) const {
    for (int cell = 0; cell < cellcount; ++cell) {
      const auto c = static_cast<std::size_t>(cell);
      const int truth = solution_[c];
      if (after.values[c] != before_.values[c]) {
        step.placed += 1;
        if (after.values[c] != truth)
          step.wrong.push_back(
              fmt::format("places {} in {}, which is {}", after.values[c], cellname(cell), truth));
        continue;
      }
      for (int digit = 1; digit <= 9; ++digit)
        step.deleted += (before_.masks[c] & ~after.masks[c] & bitvalue(digit)) != 0;
      if (after.values[c] == 0 && (before_.masks[c] & ~after.masks[c] & bitvalue(truth)) != 0)
        step.wrong.push_back(fmt::format("deletes {} from {}, which is {}", truth, cellname(cell), truth));
    }
    if (step.placed > 0) step.deleted = 0;
  }

  const OnStep& use_;
  std::array<int, cellcount> solution_;
  Moment before_;
};

/// By the level whose counter rose. Level 0 has no counter, and the highest level belongs to two techniques.
std::string gradertechnique(const Moment& before) {
  for (int level = 21; level >= 1; --level)
    if (levelcount(level) != before.counts[static_cast<std::size_t>(level)])
      return std::string(level == 21 && nishioflag ? techniques::nishio.called.en : levelof(level).brief.en);
  return std::string(levelof(0).brief.en);
}

/// By the tag of the step, which simple colours and X-colours share.
std::string walktechnique(const Moment&) {
  if (steptag == techniques::simplecolours.tag) return "simple colours or X-colours";
  const auto* rung = std::ranges::find(hintladder, steptag, &Technique::tag);
  return std::string((*rung)->called.en);
}

std::string lastlogline() {
  const std::string& text = Frmlog::Text3.text;
  const std::size_t end = text.rfind(newline);
  return end == std::string::npos ? text : text.substr(end + newline.size());
}

void setup(Session& session, const std::string& puzzle) {
  startsession(session, "en");
  runguarded(session, [&] { putonshow(puzzle); });
}

}  // namespace

int solutionsof(const std::string& puzzle) {
  Session session;
  setup(session, puzzle);
  return numerosoluzioni;
}

void checkgrade(const std::string& puzzle, const OnStep& use) {
  Session session;
  setup(session, puzzle);
  Watch watch(use);
  const auto look = [&] { watch.look(gradertechnique, lastlogline); };
  host.runevents = look;                       // called before each step
  runguarded(session, [] { SolveSudoku(); });  // a full table ends the grade, not its soundness
  look();
}

void checkwalk(const std::string& puzzle, bool explained, const OnStep& use) {
  Session session;
  setup(session, puzzle);
  Watch watch(use);
  bool waited = false, first = true;
  std::string hint;
  host.waitevents = [&] {
    waited = true;
    hint = frmmain::txthint.text;
    if (explained && first) {
      first = false;
      Picthelp_Click();
      if (lightresult != 0) return;
    }
    Pictgo_Click();
  };
  for (int idle = 0; idle < idlelimit;) {
    waited = false;
    first = true;
    session.fault.reset();
    runguarded(session, [] { stepsolver(); });
    const bool changed = watch.look(walktechnique, [&] { return hint; });
    if (!waited || session.fault) return;
    idle = changed ? 0 : idle + 1;
  }
}

}  // namespace gradino::cli
