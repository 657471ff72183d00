#include "colourcells.h"

#include "boxes.h"
#include "log.h"
#include "tables.h"

namespace gradino {
namespace {

constexpr Words yellowcells = {"gialle", "yellow"}, greencells = {"verdi", "green"};

constexpr ByIndex<Words, 2> loglist = {{{" * color1 ", " * color1 "}, {" * color2 ", " * color2 "}}};
constexpr Words listcell = {"{cell},", "{cell},"};

constexpr Words candidateline = {"CANDIDATO = {digit}", "CANDIDATE = {digit}"};

}  // namespace

void Recorded::add(int cell, const char* place) {
  const int slot = low_ + static_cast<int>(cells_.size());
  if (slot > high_) throw Fault{Fault::Kind::bounds, name_, slot, low_, high_, place};
  cells_.push_back(cell);
}

std::string_view cellsof(Colour colour) {
  return inlanguage(colour == yellow ? yellowcells : greencells);
}

std::string listline(int which, std::span<const int> cells) {
  std::string line(inlanguage(loglist[which]));
  for (int cell : cells) line += say(listcell, incell(cell));
  return line;
}

std::string_view listname(int which) {
  return which == 0 ? "color1" : "color2";
}

Lesson ruleof(const Words& rule, int digit) {
  Lesson lesson;
  lesson.line(inlanguage(rule)).line(ruleline).line(say(candidateline, ofdigit(digit)));
  return lesson;
}

void enterdigit(int cell, int digit) {
  writetext1(cell, std::to_string(digit));
  frmmain::Text1(cell).visible = true;
}

void logentering(int cell, int digit) {
  appendwords(say(andcell, incell(cell)));
  placesilently(cell, digit);
}

void explaincolors() {
  if (colourlesson != nullptr) colourlesson();
}

}  // namespace gradino
