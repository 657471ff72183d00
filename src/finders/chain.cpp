#include "chain.h"

#include <string>

#include "boxes.h"
#include "grid.h"
#include "log.h"
#include "nodequeue.h"
#include "words.h"

namespace gradino {
namespace {

constexpr Words logis = {" * {cell} = {digit}", " * {cell} = {digit}"};
constexpr Words logisnot = {" * {cell} <> {digit}", " * {cell} <> {digit}"};
constexpr Words is = {"{cell} = {digit}", "{cell} = {digit}"};
constexpr Words isnot = {"{cell} <> {digit}", "{cell} <> {digit}"};

std::string tell(const Words& yes, const Words& no, const Chain::Link& link) {
  return say(link.flag ? yes : no, incell(link.cell), ofdigit(link.digit));
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

Answer Chain::argue(Lesson& lesson, std::string_view hypothesis) const {
  showgreen(start());
  lesson.line(hypothesis);
  if (lesson.showandwait() == Answer::stop) return Answer::stop;
  for (std::size_t k = 1; k < links_.size(); ++k) {
    showgreen(links_[k]);
    lesson.line(tell(is, isnot, links_[k]));
    if (lesson.showandwait() == Answer::stop) return Answer::stop;
  }
  return Answer::go;
}

}  // namespace gradino
