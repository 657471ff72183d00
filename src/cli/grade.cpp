#include <fmt/format.h>

#include "boardgrade.h"
#include "boxes.h"
#include "grader.h"
#include "gradestate.h"
#include "log.h"
#include "session.h"
#include "subcommands.h"
#include "tables.h"

namespace gradino::cli {
namespace {

Json snapshotsjson() {
  Json snapshots = Json::object();
  for (int line = 1; line <= decltype(logvalues)::high; ++line)
    if (!logvalues(line).empty())
      snapshots[std::to_string(line)] = Json::array({logvalues(line), logcands(line), bool(logflags(line))});
  return snapshots;
}

Json solutionjson() {
  std::string solution;
  for (int cell = 0; cell < cellcount; ++cell) solution += solutiontext(cell);
  return solution.empty() ? Json(nullptr) : Json(solution);
}

std::string row(const Session& session, const std::string& puzzle) {
  std::string line = fmt::format("{:>5} {:>6} {:>9}  {}  {}", int(runninglevel), int(difficolta),
                                 numerosoluzioni, puzzle, dettaglio);
  while (line.ends_with(' ')) line.pop_back();
  if (session.fault) line += "  " + *session.fault;
  return line + "\n";
}

}  // namespace

std::string gradeheading() {
  return fmt::format("{:>5} {:>6} {:>9}  {:<81}  {}\n", "level", "score", "solutions", "puzzle",
                     "steps by level");
}

std::string grade(const std::string& puzzle, const Options& options) {
  Session session;
  startsession(session, options.language);
  std::string finalvalues;
  Json finalcands;
  const auto keepfinal = [&] {
    finalvalues = valuestext();
    finalcands = candsjson();
  };
  runguarded(session, [&] {
    putup(puzzle);
    settleboard();
    SolveSudoku();
    keepfinal();
  });
  if (session.fault) keepfinal();
  if (!options.json) return row(session, puzzle);

  Json out;
  out["puzzle"] = puzzle;
  out["solutions"] = numerosoluzioni;
  out["solution"] = solutionjson();
  out["level"] = int(runninglevel);
  out["counters"] = countersjson();
  out["dettaglio"] = dettaglio;
  out["difficolta"] = int(difficolta);
  out["livello_text"] = frmmain::txtlivello.text;
  out["tot_text"] = frmmain::testototale.text;
  out["log"] = logjson();
  out["logcount"] = int(logcount);
  if (options.snapshots) out["snapshots"] = snapshotsjson();
  out["boxes"] = session.boxes;
  out["fault"] = session.fault ? Json(*session.fault) : Json(nullptr);
  out["finalvalues"] = finalvalues;
  out["finalcands"] = finalcands;
  return out.dump() + "\n";
}

}  // namespace gradino::cli
