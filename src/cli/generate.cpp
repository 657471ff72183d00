#include <fmt/format.h>

#include "boxes.h"
#include "generator.h"
#include "gradestate.h"
#include "host.h"
#include "session.h"
#include "step.h"
#include "subcommands.h"
#include "tables.h"

namespace gradino::cli {
namespace {

std::string joined(const Table<std::string, 0, 81>& digits, char empty) {
  std::string text;
  for (int cell = 0; cell < cellcount; ++cell)
    text += digits(cell).empty() ? std::string(1, empty) : digits(cell);
  return text;
}

int givencount() {
  int count = 0;
  for (int cell = 0; cell < cellcount; ++cell) count += !givens(cell).empty();
  return count;
}

}  // namespace

std::string generateheading() {
  return fmt::format("{:>5} {:>6} {:>6}  {:<81}  {}\n", "level", "score", "givens", "puzzle",
                     "steps by level");
}

std::string generate(std::size_t number, const Options& options) {
  static Session session;
  static const bool started = [&] {
    startsession(session, options.language);
    return true;
  }();
  static_cast<void>(started);
  host.random = seededrandom(options.seed, static_cast<std::uint32_t>(number));
  frmmain::Check1.ticked = options.supersymmetric;
  session.fault.reset();
  dettaglio.clear();  // a puzzle beyond the techniques makes no report, and must not show an earlier one's
  difficolta = 0;
  runguarded(session, [] {
    comandocorrente = generatecommand;
    frmgenerazione::genera();
  });
  const std::string puzzle = joined(givens, '.');
  if (!options.json) {
    std::string line = fmt::format("{:>5} {:>6} {:>6}  {}  {}", int(runninglevel), int(difficolta),
                                   givencount(), puzzle, dettaglio);
    while (line.ends_with(' ')) line.pop_back();
    if (session.fault) line += "  " + *session.fault;
    return line + "\n";
  }
  Json out;
  out["puzzle"] = puzzle;
  out["solution"] = joined(solutiontext, '.');
  out["level"] = int(runninglevel);
  out["difficolta"] = int(difficolta);
  out["dettaglio"] = dettaglio;
  out["givens"] = givencount();
  if (session.fault) out["fault"] = *session.fault;
  return out.dump() + "\n";
}

}  // namespace gradino::cli
