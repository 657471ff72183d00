#include "chain.h"

#include "boxes.h"
#include "grid.h"
#include "houses.h"
#include "log.h"
#include "nodequeue.h"

namespace gradino {
namespace {

constexpr Words logis = {" * {cell} = {digit}", " * {cell} = {digit}"};
constexpr Words logisnot = {" * {cell} <> {digit}", " * {cell} <> {digit}"};
constexpr Words is = {"{cell} = {digit}", "{cell} = {digit}"};
constexpr Words isnot = {"{cell} <> {digit}", "{cell} <> {digit}"};

std::string tell(const Words& yes, const Words& no, const Chain::Link& link) {
  return tell(link.flag ? yes : no, link.cell, link.digit);
}

void showgreen(const Chain::Link& link) {
  pencilmark(link.cell, link.digit).back = green;
}

}  // namespace

Chain::Chain(int length) {
  for (int k = 0; k <= length; ++k) links_.push_back({linkcell(k), linkdigit(k), linkflag(k)});
}

void Chain::paint(Colour colour) const {
  for (const Link& link : links_)
    if (link.cell != start().cell) frmmain::Text2(link.cell).back = colour;
}

void Chain::log() const {
  for (std::size_t k = 1; k < links_.size(); ++k) detail(tell(logis, logisnot, links_[k]));
}

bool Chain::argue(Lesson& lesson, std::string_view hypothesis) const {
  showgreen(start());
  lesson.line(hypothesis);
  if (lesson.showandwait() == Answer::stop) return false;
  for (std::size_t k = 1; k < links_.size(); ++k) {
    showgreen(links_[k]);
    lesson.line(tell(is, isnot, links_[k]));
    if (lesson.showandwait() == Answer::stop) return false;
  }
  return true;
}

std::string tell(const Words& words, int cell, int digit) {
  return say(words, incell(cell), ofdigit(digit));
}

}  // namespace gradino
