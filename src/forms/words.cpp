#include "words.h"

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

}  // namespace

std::string faulttext(const Fault& fault) {
  const Words& words = fault.kind == Fault::Kind::bounds     ? boundswords
                       : fault.kind == Fault::Kind::overflow ? overflowwords
                                                             : filewords;
  return say(words, Hole<long long>{"value", fault.value}, hole("name", fault.name),
             Hole<long long>{"low", fault.low}, Hole<long long>{"high", fault.high},
             hole("place", fault.place));
}

}  // namespace gradino
