#include "transcript.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <utility>

#include "boxes.h"
#include "captions.h"
#include "gradestate.h"
#include "grid.h"
#include "houses.h"
#include "ladders.h"
#include "light.h"
#include "log.h"
#include "singles.h"
#include "startup.h"
#include "step.h"
#include "stepsolver.h"
#include "view.h"

namespace gradino::tests {
namespace {

std::string named(int cell) {
  return std::string(cellname(cell));
}

using Lines = std::vector<std::string>;

const std::string untouched = "as it was";  ///< the text boxes before the step
constexpr int unset = 99;                   ///< and the numbers that a step leaves

// What the user has painted: a colour that no step has, in one cell of each layer.
constexpr Colour usercolour = 1;
Box& userdigit() {
  return frmmain::Text1(76);
}
Box& userbox() {
  return frmmain::Text2(77);
}
Box& usermark() {
  return pencilmark(78, 3);
}

// ---- texts ------------------------------------------------------------------------------------------------

Lines split(const std::string& text, std::string_view at) {
  Lines lines;
  std::size_t from = 0;
  for (std::size_t end; (end = text.find(at, from)) != std::string::npos; from = end + at.size())
    lines.push_back(text.substr(from, end - from));
  lines.push_back(text.substr(from));
  return lines;
}

/// Between bars, so that no blank is lost. Characters that can't be seen are written as numbers.
std::string fenced(const std::string& line) {
  std::string text = "|";
  for (char c : line) {
    if (static_cast<unsigned char>(c) < ' ' || c == '\\') {
      constexpr std::string_view hex = "0123456789abcdef";
      text += {'\\', hex[static_cast<unsigned char>(c) / 16], hex[static_cast<unsigned char>(c) % 16]};
    } else {
      text += c;
    }
  }
  return text + "|";
}

/// "name: |text|", or its lines below the name.
Lines said(const std::string& name, const std::string& text) {
  const Lines parts = split(text, newline);
  if (parts.size() == 1) return {name + ": " + fenced(text)};
  Lines lines = {name + ":"};
  for (const std::string& part : parts) lines.push_back("  " + fenced(part));
  return lines;
}

/// What came to the text of a window. "..." goes on in its last line.
Lines added(const std::string& name, const std::string& text) {
  const bool newlines = text.starts_with(newline);
  Lines lines = {name + ":"};
  for (const std::string& part : split(newlines ? text.substr(newline.size()) : text, newline))
    lines.push_back((lines.size() == 1 && !newlines ? "  ..." : "  ") + fenced(part));
  return lines;
}

/// "name: one two ...", in lines of readable length.
Lines listed(const std::string& name, const Lines& items) {
  if (items.empty()) return {};
  Lines lines = {name + ":"};
  for (const std::string& item : items) {
    if (lines.back().size() + item.size() > 100) lines.emplace_back("  ");
    lines.back() += " " + item;
  }
  return lines;
}

void append(Lines& lines, const Lines& more) {
  lines.insert(lines.end(), more.begin(), more.end());
}

// ---- the board --------------------------------------------------------------------------------------------

std::string digitsof(int mask) {
  std::string digits;
  for (int digit = 1; digit <= 9; ++digit)
    if (mask & bitvalue(digit)) digits += static_cast<char>('0' + digit);
  return digits;
}

bool sees(int cell, int other) {
  return cell != other && (cellrow(cell) == cellrow(other) || cellcol(cell) == cellcol(other) ||
                           cellblock(cell) == cellblock(other));
}

/// What became of values and masks. Candidates that a placed digit rules out by itself are not named.
Lines changes(const std::string& values, const std::vector<int>& masks, const Board& start) {
  Lines placed, emptied, taken, back;
  std::vector<int> left = start.candmask;
  for (int cell = 0; cell < cellcount; ++cell) {
    const auto c = static_cast<std::size_t>(cell);
    if (values[c] == start.values[c]) continue;
    if (values[c] == '.') {
      emptied.push_back(named(cell));
      continue;
    }
    placed.push_back(named(cell) + "=" + values[c]);
    left[c] = 0;
    for (int other = 0; other < cellcount; ++other)
      if (sees(cell, other)) left[static_cast<std::size_t>(other)] &= ~bitvalue(values[c] - '0');
  }
  for (int cell = 0; cell < cellcount; ++cell) {
    const auto c = static_cast<std::size_t>(cell);
    if (const int gone = left[c] & ~masks[c]) taken.push_back(named(cell) + "<>" + digitsof(gone));
    if (const int come = masks[c] & ~left[c]) back.push_back(named(cell) + "=" + digitsof(come));
  }
  Lines lines = listed("placed", placed);
  append(lines, listed("emptied", emptied));
  append(lines, listed("taken away", taken));
  append(lines, listed("given back", back));
  return lines;
}

Lines boardlines(const Board& start) {
  Lines lines = changes(values(), masks(), start);
  if (giventexts() != start.givens) lines.push_back("givens: changed");
  return lines;
}

/// Places of a digit in a house by the masks.
Positions placesof(HouseKind kind, int digit, int house) {
  Positions places;
  for (int p = 0; p < 9; ++p)
    if (hascandidate(housecell(kind, house, p), digit)) places.add(p);
  return places;
}

Lines differentplaces() {
  Lines lines;
  for (const auto& [kind, name] :
       {std::pair(HouseKind::row, "places in rows"), std::pair(HouseKind::column, "places in columns"),
        std::pair(HouseKind::block, "places in blocks")}) {
    Lines items;
    for (int house = 0; house < 9; ++house)
      for (int digit = 1; digit <= 9; ++digit)
        if (housepos(kind, digit, house) != placesof(kind, digit, house))
          items.push_back(std::to_string(house + 1) + "=" + std::to_string(digit));
    append(lines, listed(std::string(name) + " differ", items));
  }
  return lines;
}

/// Where the derived tables differ from values and masks.
Lines tablelines() {
  Lines strings, slots, lines;
  int filled = 0;
  std::array<int, blockslot + 9> used{};
  for (int cell = 0; cell < cellcount; ++cell) {
    if (candstr(cell) != digitsof(candmask(cell))) strings.push_back(named(cell));
    if (cellvalue(cell) == 0) continue;
    ++filled;
    for (int other = 0; other < cellcount; ++other)
      if (other == cell || sees(cell, other))
        used[static_cast<std::size_t>(other)] |= bitvalue(cellvalue(cell));
    for (int slot :
         {rowslot + cellrow(cell) - 1, columnslot + cellcol(cell) - 1, blockslot + cellblock(cell) - 1})
      used[static_cast<std::size_t>(slot)] |= bitvalue(cellvalue(cell));
  }
  for (int slot = 0; slot < blockslot + 9; ++slot)
    if (usedmask(slot) != used[static_cast<std::size_t>(slot)]) slots.push_back(std::to_string(slot));
  append(lines, listed("candstr differs", strings));
  append(lines, differentplaces());
  append(lines, listed("usedmask differs", slots));
  if (filledcount != filled) lines.push_back("filledcount: " + std::to_string(filledcount));
  return lines;
}

/// What the boxes ought to show: the board as it is, or, of a twin, as it was before.
struct Shown {
  std::vector<int> masks;
  std::string values;
};

/// Where the boxes show something else than they ought to.
Lines screenlines(const Shown& shown) {
  Lines marks, digits, texts;
  bool allontop = pencilmarks() && boxtexts().find('.') != std::string::npos;
  for (const Box& box : frmmain::Text1) allontop &= box.visible;
  for (int cell = 0; cell < cellcount; ++cell) {
    const auto c = static_cast<std::size_t>(cell);
    const Box& box = frmmain::Text1(cell);
    if (visiblemarks(cell) != digitsof(shown.masks[c]))
      marks.push_back(named(cell) + "=" + visiblemarks(cell));
    if ((box.text.empty() ? "." : box.text) != std::string(1, shown.values[c]))
      digits.push_back(named(cell) + "=" + (box.text.empty() ? "." : box.text));
    if (box.visible != (!pencilmarks() || !box.text.empty()) && !allontop)
      digits.push_back(named(cell) + (box.visible ? "_shown" : "_hidden"));
    if (!frmmain::Text2(cell).text.empty()) texts.push_back(named(cell) + "=" + frmmain::Text2(cell).text);
  }
  Lines lines = listed("pencil marks shown", marks);
  append(lines, listed("digit boxes", digits));
  if (allontop) lines.push_back("digit boxes: all shown, over the pencil marks");
  append(lines, listed("marks under edit", texts));
  return lines;
}

// ---- facts ------------------------------------------------------------------------------------------------

/// The state before the step.
struct Start {
  Board board;
  bool nishio, pencilmarks, silent;
  int level;
};

Lines painted(const std::string& layer, const Paint& paint, int width) {
  std::map<std::string, Lines> bycolour;
  for (const auto& [index, colour] : paint) {
    if (colour.empty()) continue;  // the user's
    Lines& items = bycolour[colour];
    std::string item = named(index / width);
    if (width == 1) {
      items.push_back(item);
      continue;
    }
    if (items.empty() || !items.back().starts_with(item)) items.push_back(item.append("="));
    items.back() += std::to_string(index % width);
  }
  Lines lines;
  for (const auto& [colour, items] : bycolour)
    append(lines, listed(std::string(layer).append(" ").append(colour), items));
  return lines;
}

Lines userlines() {
  Lines gone;
  for (const auto& [name, box] :
       {std::pair("digits", &userdigit()), std::pair("boxes", &userbox()), std::pair("marks", &usermark())})
    if (box->back != usercolour) gone.emplace_back(name);
  return listed("user's colours gone from", gone);
}

Lines textbox(const std::string& name, const std::string& text) {
  return text == untouched ? Lines{} : said(name, text);
}

Lines keptlines(const Start& start) {
  Lines kept;
  for (const auto& [name, number] :
       {std::pair("digit", int(curdigit)), std::pair("cell", int(curcell)), std::pair("row", int(currow)),
        std::pair("column", int(curcol)), std::pair("block", int(curblock)),
        std::pair("colourdigit", int(colourdigit)), std::pair("stepdigit", stepdigit),
        std::pair("stepcell", stepcell)})
    if (number != unset) kept.push_back(name + std::string("=") + std::to_string(number));
  Lines lines = listed("keeps", kept);
  if (nishioflag != start.nishio) lines.push_back(nishioflag ? "nishio: yes" : "nishio: no more");
  return lines;
}

Lines viewlines(const Start& start) {
  Lines lines;
  if (pencilmarks() != start.pencilmarks)
    lines.push_back(pencilmarks() ? "view: pencil marks turned on" : "view: pencil marks turned off");
  if (suppresschange) lines.emplace_back("view: change handling suspended");
  return lines;
}

/// What a snapshot holds that the board at the start did not.
std::string snapshotread(int line, const Start& start) {
  std::string digits = logvalues(line);
  std::replace(digits.begin(), digits.end(), '0', '.');
  std::vector<int> masks;
  for (const std::string& number : split(logcands(line), ","))
    if (!number.empty()) masks.push_back(std::stoi(number));
  if (digits.size() != cellcount || masks.size() != cellcount) return "(garbled)";
  std::string text;
  for (const std::string& change : changes(digits, masks, start.board)) text += " " + change;
  return (text.empty() ? "(the board at the start" : "(" + text.substr(1)) +
         (logflags(line) ? ", nishio)" : ")");
}

Lines loglines(const Start& start) {
  if (Frmlog::Text3.text.empty() && logcount == 0) return {};
  Lines lines = added("log", Frmlog::Text3.text);
  std::string snapshots;
  for (int line = decltype(logvalues)::low; line <= decltype(logvalues)::high; ++line)
    if (!logvalues(line).empty() || !logcands(line).empty())
      snapshots += ", snapshot " + std::to_string(line) + " " + snapshotread(line, start);
  lines.push_back("logcount: " + std::to_string(logcount) +
                  (snapshots.empty() ? ", no snapshot" : snapshots));
  return lines;
}

Lines gradelines(const Start& start) {
  Lines items;
  if (runninglevel != start.level) items.push_back("level " + std::to_string(runninglevel));
  for (int level = 1; level <= 21; ++level)
    if (levelcount(level) != 0)
      items.push_back("step of level " + std::to_string(level) + " x" + std::to_string(levelcount(level)));
  std::string text;
  for (const std::string& item : items) text += (text.empty() ? "" : ", ") + item;
  return text.empty() ? Lines{} : Lines{"grade: " + text};
}

Lines messagelines(const Lines& boxes) {
  Lines lines;
  for (const std::string& box : boxes) append(lines, said("message", box));
  return lines;
}

Facts factsnow(const Start& start, const Player& player) {
  const Frame frame = look();
  const Shown shown =
      start.silent ? Shown{start.board.candmask, start.board.values} : Shown{masks(), values()};
  Facts facts = {
      {"tag", "", textbox("tag", frame.tag)},
      {"hint", "", textbox("hint", frame.hint)},
      {"number", "", textbox("number", frame.number)},
      {"window", "hidden"},
      {"digits", "white", painted("digits", frame.Text1, 1)},
      {"boxes", "white", painted("boxes", frame.Text2, 1)},
      {"marks", "white", painted("marks", frame.candidate, 10)},
      {"own", "", userlines()},
      {"board", "as at the start", boardlines(start.board)},
      {"tables", "agree", tablelines()},
      {"screen", start.silent ? "untouched" : "shows the board", screenlines(shown)},
      {"keeps", "", keptlines(start)},
      {"view", "", viewlines(start)},
      {"log", "", loglines(start)},
      {"grade", "", gradelines(start)},
      {"messages", "", messagelines(player.boxes)},
      {"found", "as before", {foundflag ? "found: yes" : "found: no"}},
  };
  if (frame.activity) {
    facts[3].lines = said("window", *frame.activity);
    facts[3].text = *frame.activity;
  }
  return facts;
}

Moment momentnow(const Start& start, const Player& player) {
  return {factsnow(start, player), look(), theboard()};
}

/// What a moment adds to the one before it.
Lines newlinesof(const Facts& now, const Facts& before) {
  Lines lines;
  for (std::size_t k = 0; k < now.size(); ++k) {
    if (now[k] == before[k]) continue;
    if (now[k].lines.empty())
      lines.push_back(now[k].name + ": " + (now[k].nothing.empty() ? "as before the step" : now[k].nothing));
    else if (!before[k].text.empty() && now[k].text.starts_with(before[k].text))
      append(lines, added("window adds", now[k].text.substr(before[k].text.size())));
    else
      append(lines, now[k].lines);
  }
  return lines;
}

bool ispaint(const Fact& fact) {
  return fact.name == "digits" || fact.name == "boxes" || fact.name == "marks";
}

/// All that is left at the end. What isn't named is as before the step.
Lines leftlines(const Facts& before, const Facts& end) {
  Lines lines, stays;
  bool white = true;
  for (std::size_t k = 0; k < end.size(); ++k) {
    const Fact& fact = end[k];
    if (ispaint(fact)) white &= fact.lines.empty();
    if (fact.lines.empty() && !fact.nothing.empty() && !ispaint(fact))
      lines.push_back(fact.name + ": " + fact.nothing);
    else if (!fact.lines.empty() && fact == before[k] && fact.name != "found")
      stays.push_back(fact.name);
    else
      append(lines, fact.lines);
    if (fact.name == "marks" && white) lines.emplace_back("paint: white");
  }
  const Lines first = listed("as at the last wait", stays);
  lines.insert(lines.begin(), first.begin(), first.end());
  return lines;
}

/// What a program just started with the board up looks like: no lines.
Facts nofacts(const Moment& any) {
  Facts facts = any.facts;
  for (Fact& fact : facts) fact.lines.clear(), fact.text.clear();
  return facts;
}

// ---- runs -------------------------------------------------------------------------------------------------

Start setup(Player& player, const CaseBoard& board, int language, bool found) {
  startprogram();
  if (lingua != language) cmdlan_Click();
  putboard(board);
  player.boxes.clear();
  frmmain::txthint.text = frmmain::Text5.text = steptag = untouched;
  for (Byte* number : {&curdigit, &curcell, &curblock, &currow, &curcol, &colourdigit}) *number = unset;
  if (!board.tag.empty()) steptag = board.tag;
  stepdigit = stepcell = unset;
  userdigit().back = userbox().back = usermark().back = usercolour;
  foundflag = found;
  return {theboard(), nishioflag, pencilmarks(), false, 0};
}

using Starter = std::function<std::string()>;  ///< starts the step, and says what it answers

/// `foundflag` is set to `found` before.
Played runonce(const CaseBoard& board, int language, const Starter& starter, const std::vector<Act>& acts,
               const std::function<void()>& meanwhile, bool found) {
  Player player;
  player.play();
  const Start start = setup(player, board, language, found);
  Played run;
  const auto answer = [&](const Act& act) {
    return [&run, &start, &player, &meanwhile, act] {
      const bool firsttime = run.waits.empty();
      run.waits.push_back(momentnow(start, player));
      if (meanwhile) meanwhile();
      act();
      if (!firsttime || lightresult == 0) return;
      if (run.waits.size() > 1) run.explained = run.waits.size();
      run.over = momentnow(start, player);
    };
  };
  constexpr int enough = 300;
  for (const Act& act : acts) player.script.emplace_back(answer(act));
  for (int k = 0; k < enough; ++k) player.script.emplace_back(answer(go));
  player.event([&] { run.answers = starter(); });
  run.end = momentnow(start, player);
  if (waiting()) run.end.facts.push_back({"light", "", {"light: still waits"}});
  return run;
}

/// Where foundflag stayed as it was before the step, it says so.
void mergefound(Moment& one, const Moment& other) {
  if (one.facts.empty()) return;
  Fact& found = one.facts.back();
  if (found.name == "found" && other.facts.back().lines != found.lines) found.lines.clear();
}

/// Nothing but foundflag itself may depend on what foundflag was.
Played run(const CaseBoard& board, int language, const Starter& starter, const std::vector<Act>& acts,
           const std::function<void()>& meanwhile = {}) {
  Played one = runonce(board, language, starter, acts, meanwhile, false);
  const Played other = runonce(board, language, starter, acts, meanwhile, true);
  if (one.waits.size() != other.waits.size()) throw std::logic_error("the step depends on the old foundflag");
  for (std::size_t k = 0; k < one.waits.size(); ++k) mergefound(one.waits[k], other.waits[k]);
  mergefound(one.over, other.over);
  mergefound(one.end, other.end);
  return one;
}

Starter starterof(const CaseBoard& board) {
  if (board.start) return [start = board.start] { return start(), std::string(); };
  return [step = board.technique->step] { return std::string(step() ? "yes" : "no"); };
}

std::string number(std::size_t wait) {
  return std::to_string(wait + 1);
}

/// Waits from the given one on, and the end.
Lines runread(const Played& run, std::size_t from) {
  const Facts none = nofacts(run.end);
  Lines lines;
  const auto moment = [&](const std::string& name, const Lines& read) {
    lines.push_back(name);
    for (const std::string& line : read) lines.push_back("  " + line);
  };
  const Facts* last = &none;
  for (std::size_t k = 0; k < run.waits.size(); ++k) {
    if (k >= from) moment("wait " + number(k), newlinesof(run.waits[k].facts, *last));
    last = &run.waits[k].facts;
    if (k + 1 != run.explained || k < from) continue;
    moment("explanation over", newlinesof(run.over.facts, *last));
    last = &run.over.facts;
  }
  Lines end = leftlines(run.waits.empty() ? none : run.waits.back().facts, run.end.facts);
  if (!run.answers.empty()) end.back() += ", answers: " + run.answers;
  moment("end", end);
  return lines;
}

/// How many of the first waits are the same in both runs.
std::size_t common(const Played& one, const Played& other) {
  std::size_t k = 0;
  while (k < one.waits.size() && k < other.waits.size() && one.waits[k].facts == other.waits[k].facts) ++k;
  return k;
}

class Writer {
 public:
  Writer(const CaseBoard& board, int language)
      : board_(board), language_(language), starter_(starterof(board)) {}

  std::string write() {
    plain_ = run(board_, language_, starter_, {});
    if (plain_.waits.empty()) throw std::logic_error("the step finds nothing on this board");
    section("step, go", runread(plain_, 0));
    hint();
    for (std::size_t k = 0; k < plain_.waits.size(); ++k)
      stopped("step, stop", k, run(board_, language_, starter_, stopat({}, k)), plain_);
    flush();
    explanation();
    twin("twin", false);
    twin("twin in a job, level 21 before", true);
    return text_;
  }

 private:
  void section(const std::string& name, const Lines& lines) {
    text_ += (text_.empty() ? "" : "\n") + std::string("== ") + name + "\n";
    for (const std::string& line : lines) text_ += line + "\n";
  }

  static std::vector<Act> stopat(std::vector<Act> acts, std::size_t wait) {
    while (acts.size() < wait) acts.push_back(go);
    acts.push_back(stop);
    return acts;
  }

  /// Whether it is the next step of the ladder, too.
  void hint() {
    const Played hinted = run(board_, language_, [] { return mnuposition_Click(), std::string(); }, {});
    if (hinted.waits.empty()) return section("hint, go", {"no step"});
    const auto same = [](const Moment& one, const Moment& other) {
      return one.frame == other.frame && one.board == other.board;
    };
    bool all = hinted.waits.size() == plain_.waits.size() && same(hinted.end, plain_.end);
    for (std::size_t k = 0; all && k < hinted.waits.size(); ++k) all = same(hinted.waits[k], plain_.waits[k]);
    const Frame& first = hinted.waits[0].frame;
    if (all)
      section("hint, go", {"as the step"});
    else if (!same(hinted.waits[0], plain_.waits[0]))
      section("hint, go", {"another step: [" + first.tag + "] " + fenced(first.hint)});
    else
      section("hint, go", runread(hinted, 0));
  }

  void explanation() {
    const Played explained = run(board_, language_, starter_, {help});
    if (explained.explained == 0 && explained.waits.size() == plain_.waits.size() + 1 &&
        explained.waits[1].facts == plain_.waits[0].facts && explained.end.facts == plain_.end.facts)
      return section("help", {"nothing to explain: the wait goes on"});
    section("help, then go to the end",
            runread(explained, std::min<std::size_t>(common(explained, plain_), 1)));
    for (std::size_t k = 1; k < explained.waits.size(); ++k)
      stopped("help, stop", k, run(board_, language_, starter_, stopat({help}, k)), explained);
    flush();
  }

  /// Stops at waits in a row that leave the same share a section.
  void stopped(const std::string& name, std::size_t wait, const Played& now, const Played& whole) {
    const std::size_t same = common(now, whole);
    const Lines lines = runread(now, std::min(same, now.waits.size()));
    if (lines != pending_) {
      flush();
      from_ = wait;
      name_ = name;
      pending_ = lines;
    }
    to_ = wait;
  }
  void flush() {
    if (pending_.empty()) return;
    section(name_ + (from_ == to_ ? " at wait " + number(from_)
                                  : " at each of waits " + number(from_) + " to " + number(to_)),
            pending_);
    pending_.clear();
  }

  void twin(const std::string& name, bool injob) {
    Played silent = twinonce(injob, false);
    mergefound(silent.end, twinonce(injob, true).end);
    section(name, runread(silent, 0));
  }

  Played twinonce(bool injob, bool found) {
    Player player;
    player.play();
    Start start = setup(player, board_, language_, found);
    start.silent = true;
    Played silent;
    const auto act = [&] { silent.answers = board_.technique->twin() ? "yes" : "no"; };
    if (injob) {
      const Job job("genera");
      runninglevel = start.level = 21;
      player.event(act);
    } else {
      player.event(act);
    }
    silent.end = momentnow(start, player);
    return silent;
  }

  const CaseBoard& board_;
  const int language_;
  const Starter starter_;
  Played plain_;
  std::string text_;
  std::string name_;
  Lines pending_;
  std::size_t from_ = 0, to_ = 0;
};

}  // namespace

Played runstep(const CaseBoard& board, int language, const std::vector<Act>& acts,
               const std::function<void()>& meanwhile) {
  return runonce(board, language, starterof(board), acts, meanwhile, false);
}

std::string transcript(const CaseBoard& board, int language) {
  return Writer(board, language).write();
}

// ---- differences ------------------------------------------------------------------------------------------

namespace {

struct Edit {
  char sign;  ///< ' ', '-' or '+'
  std::string line;
};

/// The shortest way from one text to the other.
std::vector<Edit> edits(const Lines& from, const Lines& to) {
  std::vector<std::vector<std::size_t>> same(from.size() + 1, std::vector<std::size_t>(to.size() + 1));
  for (std::size_t i = from.size(); i-- > 0;)
    for (std::size_t j = to.size(); j-- > 0;)
      same[i][j] = from[i] == to[j] ? same[i + 1][j + 1] + 1 : std::max(same[i + 1][j], same[i][j + 1]);
  std::vector<Edit> all;
  std::size_t i = 0, j = 0;
  while (i < from.size() || j < to.size()) {
    if (i < from.size() && j < to.size() && from[i] == to[j])
      all.push_back({' ', from[i]}), ++i, ++j;
    else if (j == to.size() || (i < from.size() && same[i + 1][j] >= same[i][j + 1]))
      all.push_back({'-', from[i++]});
    else
      all.push_back({'+', to[j++]});
  }
  return all;
}

}  // namespace

std::string difference(const std::string& recorded, const std::string& now) {
  if (recorded == now) return "";
  const std::vector<Edit> all = edits(split(recorded, "\n"), split(now, "\n"));
  constexpr std::size_t around = 2, most = 60;
  std::string text, section;
  std::size_t shown = 0;
  bool gap = true;
  for (std::size_t k = 0; k < all.size() && shown < most; ++k) {
    if (all[k].line.starts_with("== ")) section = all[k].line, gap = true;
    bool near = false;
    for (std::size_t n = k - std::min(k, around); n < all.size() && n <= k + around; ++n)
      near |= all[n].sign != ' ';
    if (!near) {
      gap = true;
      continue;
    }
    if (gap) text += "@@ " + section + "\n";
    gap = false;
    text += all[k].sign + all[k].line + "\n";
    ++shown;
  }
  if (shown == most) text += "...\n";
  return text;
}

}  // namespace gradino::tests
