#include <array>
#include <charconv>
#include <span>
#include <stdexcept>
#include <utility>

#include "gradestate.h"
#include "ladders.h"
#include "log.h"
#include "session.h"
#include "singles.h"
#include "step.h"
#include "subcommands.h"
#include "tables.h"
#include "words.h"

namespace gradino::cli {
namespace {

constexpr Words notdigits = {"{key}: non sono 81 cifre", "{key}: not 81 digits"};
constexpr Words notmasks = {"cands: non sono 81 maschere", "cands: not 81 masks"};
constexpr Words notobject = {"non è un oggetto con values, cands, solution e nishio",
                             "not an object with values, cands, solution and nishio"};

/// A board of the input.
struct Position {
  std::string values, solution;
  std::array<int, 81> masks;
  bool nishio;
};

std::string digits(const Json& line, const char* key) {
  std::string text = line.value(key, std::string());
  if (text.size() != 81 || text.find_first_not_of("0123456789") != std::string::npos)
    throw std::invalid_argument(say(notdigits, hole("key", key)));
  return text;
}

std::array<int, 81> masks(const std::string& text) {
  std::array<int, 81> numbers;
  const char* at = text.data();
  const char* const end = at + text.size();
  for (int& number : numbers) {
    const auto read = std::from_chars(at, end, number);
    if (read.ec != std::errc{} || number < 0 || number > fullmask || number % 2 != 0)
      throw std::invalid_argument(std::string(inlanguage(notmasks)));
    at = read.ptr == end ? end : read.ptr + 1;
  }
  return numbers;
}

/// An unknown solution is left out, null or empty.
bool hassolution(const Json& line) {
  const auto solution = line.find("solution");
  if (solution == line.end() || solution->is_null()) return false;
  const auto* const text = solution->get_ptr<const Json::string_t*>();
  return text == nullptr || !text->empty();
}

Position parse(const std::string& text) {
  try {
    const Json line = Json::parse(text);
    return {digits(line, "values"), hassolution(line) ? digits(line, "solution") : "",
            masks(line.value("cands", std::string())), line.value("nishio", false)};
  } catch (const Json::exception&) {
    throw NoObject(std::string(inlanguage(notobject)));
  }
}

void putboard(const Position& position) {
  filledcount = 0;
  for (int cell = 0; cell < cellcount; ++cell) {
    const auto c = static_cast<std::size_t>(cell);
    cellvalue(cell) = position.values[c] - '0';
    if (cellvalue(cell) != 0) filledcount += 1;
    candmask(cell) = position.masks[c];
    if (!position.solution.empty()) solutiontext(cell) = position.solution[c];
  }
  rebuildusedmask();
  rebuildcandstr();
  rebuildpositions();
  nishioflag = position.nishio;
}

/// Lets one twin alone act on the board, in a freshly started program.
Json actionof(const Technique& technique, const Position& position, const Options& options) {
  Session session;
  startsession(session, options.language);
  putboard(position);
  runguarded(session, technique.twin);
  Json out;
  out["found"] = foundflag;
  out["level"] = int(runninglevel);
  out["counters"] = countersjson();
  out["log"] = logjson();
  out["logcount"] = int(logcount);
  out["boxes"] = session.boxes;
  out["fault"] = session.fault ? Json(*session.fault) : Json(nullptr);
  out["nishio"] = nishioflag;
  out["filled"] = int(filledcount);
  out["values"] = valuestext();
  out["cands"] = candsjson();
  return out;
}

}  // namespace

std::string techniques(const std::string& line, const Options& options) {
  const Position position = parse(line);
  Session session;
  startsession(session, options.language);
  putboard(position);
  Json out;
  for (const SingleRung& rung : singlerungs) out[std::string(rung.technique.name)] = rung.find();
  for (const Technique* technique : std::span(hintladder).subspan(singlerungs.size()))
    out[std::string(technique->name)] = actionof(*technique, position, options);
  return out.dump() + "\n";
}

}  // namespace gradino::cli
