#include "words.h"

#include <algorithm>
#include <stdexcept>

#include <fmt/format.h>

namespace gradino {
namespace {

constexpr Words boundswords = {
    "Errore interno: la posizione {value} non esiste nella tabella {name} (da {low} a {high}), in {place}. Il "
    "comando è stato interrotto; il programma continua.",
    "Internal error: there is no place {value} in table {name} ({low} to {high}), in {place}. The command was "
    "ended; the program goes on."};
constexpr Words overflowwords = {
    "Errore interno: il contatore {name} non può valere {value} (da {low} a {high}), in {place}. Il comando è "
    "stato interrotto; il programma continua.",
    "Internal error: the counter {name} can't become {value} ({low} to {high}), in {place}. The command was "
    "ended; the program goes on."};
constexpr Words filewords = {"Impossibile leggere o scrivere il file \"{name}\". Nulla è andato perso.",
                             "The file \"{name}\" can't be read or written. Nothing was lost."};

void append(std::string& text, const Hole& hole) {
  if (const auto* number = std::get_if<long long>(&hole.value)) {
    const fmt::format_int figures(*number);
    text.append(figures.data(), figures.size());
  } else {
    text.append(std::get<std::string_view>(hole.value));
  }
}

}  // namespace

// A grade says a hundred sentences, and a general formatter took a third of an easy grade's time for them.
std::string filled(std::string_view sentence, std::initializer_list<Hole> holes) {
  std::string text;
  text.reserve(sentence.size() + 16);
  for (std::size_t begin = 0;;) {
    const std::size_t open = sentence.find('{', begin);
    text.append(sentence.substr(begin, open - begin));
    if (open == std::string_view::npos) return text;
    const std::size_t close = sentence.find('}', open);
    const std::string_view name = sentence.substr(open + 1, close - open - 1);
    const auto* filler =
        std::find_if(holes.begin(), holes.end(), [&](const Hole& h) { return h.name == name; });
    if (filler == holes.end()) throw std::logic_error(fmt::format("nothing fills the hole {}", name));
    append(text, *filler);
    begin = close + 1;
  }
}

std::string faulttext(const Fault& fault) {
  const Words& words = fault.kind == Fault::Kind::bounds     ? boundswords
                       : fault.kind == Fault::Kind::overflow ? overflowwords
                                                             : filewords;
  return say(words, hole("value", fault.value), hole("name", fault.name), hole("low", fault.low),
             hole("high", fault.high), hole("place", fault.place));
}

}  // namespace gradino
