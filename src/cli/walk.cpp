#include <algorithm>
#include <string>
#include <vector>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "boxes.h"
#include "explain.h"
#include "grid.h"
#include "host.h"
#include "light.h"
#include "session.h"
#include "step.h"
#include "stepsolver.h"
#include "subcommands.h"
#include "tables.h"
#include "words.h"

namespace gradino::cli {
namespace {

constexpr int idlelimit = 3;  ///< a walk ends after this many calls in a row that waited and changed nothing

template <class Boxes>
Json paintof(const Boxes& boxes, int first, int last) {
  Json paint = Json::object();
  for (int index = first; index <= last; ++index)
    if (boxes(index).back != white) paint[std::to_string(index)] = colourname(boxes(index).back);
  return paint;
}

/// The walk of one puzzle: a host whose user always answers go, unless the options say otherwise.
class Walk {
 public:
  Walk(const std::string& puzzle, const Options& options) : options_(options) {
    startsession(session_, options.language);
    host.waitevents = [this] { wait(); };
    host.message = [this](const std::string& text) { tell({{"box", text}}, "    [" + text + "]"); };
    tell({{"puzzle", puzzle}}, puzzle);
    guarded([&] { putonshow(puzzle); });
  }

  std::string run() {
    int idle = 0;
    bool goeson = true;
    while (goeson && idle < idlelimit) {
      const std::string before = valuestext() + candsjson().dump();
      waitsinstep_ = 0;
      const bool fault = !guarded([] { stepsolver(); });
      if (waitsinstep_ == 0 && !fault) break;
      ++steps_;
      telldone();
      goeson = waitsinstep_ > 0;
      idle = before == valuestext() + candsjson().dump() ? idle + 1 : 0;
    }
    tellend(idle == idlelimit);
    return out_;
  }

 private:
  /// False: a fault ended the event, and is in the output.
  bool guarded(const std::function<void()>& event) {
    session_.fault.reset();
    runguarded(session_, event);
    depth_ = 0;
    if (!session_.fault) return true;
    tell({{"fault", *session_.fault}}, "    " + *session_.fault);
    return false;
  }

  // The user at the light. A wait inside an explanation is marked as nested.
  void wait() {
    ++waits_;
    const bool first = depth_ == 0 && ++waitsinstep_ == 1;
    if (first) argued_.clear();
    tellwait();
    if (first && options_.stop == steps_ + 1) return Pictalt_Click();
    if (first && options_.explain) {
      ++depth_;
      Picthelp_Click();
      --depth_;
      if (lightresult != 0) return;
    }
    Pictgo_Click();
  }

  void tell(const Json& record, const std::string& text) {
    out_ += (options_.json ? record.dump() : text) + "\n";
  }

  void tellwait() {
    Json record;
    record["wait"] = waits_;
    record["tag"] = steptag;
    record["hint"] = frmmain::txthint.text;
    record["number"] = frmmain::Text5.text;
    record["activity"] = frmactivity::visible ? Json(frmactivity::Text3.text) : Json(nullptr);
    record["paint"] = {{"Text1", paintof(frmmain::Text1, 0, 80)},
                       {"Text2", paintof(frmmain::Text2, 0, 80)},
                       {"candidate", paintof(frmmain::candidate, 1, 809)}};
    if (depth_ > 0) record["nested"] = true;
    if (depth_ == 0) return tell(record, steptext());
    const std::string fresh = whatisnew(frmactivity::Text3.text);
    if (options_.json || !fresh.empty()) tell(record, indented(fresh));
  }

  /// The new lines of the explanation, which grows from wait to wait.
  std::string whatisnew(const std::string& text) {
    const std::vector<std::string> lines = linesof(text);
    std::string fresh =
        fmt::format("{}", fmt::join(std::ranges::mismatch(lines, argued_).in1, lines.end(), newline));
    argued_ = lines;
    return fresh;
  }

  std::string steptext() const {
    return fmt::format("{:>3}. {} [{}]", steps_ + 1, frmmain::txthint.text, frmmain::Text5.text);
  }

  static std::string indented(std::string text) {
    for (std::size_t at = text.find("\r\n"); at != std::string::npos; at = text.find("\r\n", at + 1))
      text.replace(at, 2, "\n       ");
    return "       " + text;
  }

  void telldone() {
    Json record;
    record["done"] = steptag;
    record["hint"] = frmmain::txthint.text;
    record["values"] = valuestext();
    record["cands"] = candsjson();
    record["filled"] = int(filledcount);
    if (options_.json) out_ += record.dump() + "\n";
  }

  void tellend(bool loop) {
    const std::string values = valuestext();
    const std::string end = values.find('0') == std::string::npos ? "solved" : "stuck";
    Json record = {{"end", end}, {"steps", steps_}};
    if (loop) record["loop"] = true;
    tell(record, fmt::format("{}, steps: {}, {}\n", values, steps_, end));
  }

  const Options& options_;
  Session session_;
  std::string out_;
  std::vector<std::string> argued_;  ///< the lines of the explanation so far
  int waits_ = 0, steps_ = 0, waitsinstep_ = 0, depth_ = 0;
};

}  // namespace

std::string walk(const std::string& puzzle, const Options& options) {
  return Walk(puzzle, options).run();
}

}  // namespace gradino::cli
