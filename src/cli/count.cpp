#include <fmt/format.h>
#include <fmt/ranges.h>

#include "counter.h"
#include "gradestate.h"
#include "grid.h"
#include "puzzlefile.h"
#include "session.h"
#include "step.h"
#include "subcommands.h"

namespace gradino::cli {
namespace {

Json solutionjson(int number) {
  const std::string& text = stringhesoluzione(number);
  return text.empty() ? Json(nullptr) : Json(text);
}

}  // namespace

std::string countheading() {
  return fmt::format("{:>9}  {:<81}  {}\n", "solutions", "puzzle", "message");
}

std::string count(const std::string& puzzle, const Options& options) {
  Session session;
  startsession(session, options.language);
  runguarded(session, [&] {
    suppresschange = true;
    scanline(puzzle, 0);
    suppresschange = false;
    const Job job(countcommand);
    conta();
  });
  if (!options.json) {
    std::string line = fmt::format("{:>9}  {}  {}", numerosoluzioni, puzzle, fmt::join(session.boxes, "; "));
    while (line.ends_with(' ')) line.pop_back();
    return line + "\n";
  }
  Json out;
  out["puzzle"] = puzzle;
  out["count"] = numerosoluzioni;
  out["boxes"] = session.boxes;
  out["values"] = valuestext();
  out["first"] = solutionjson(1);
  out["second"] = solutionjson(2);
  return out.dump() + "\n";
}

}  // namespace gradino::cli
