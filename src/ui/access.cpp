#include "access.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "browser.h"
#include "commands.h"
#include "editing.h"
#include "tables.h"
#include "words.h"

namespace gradino {

using namespace frmmain;

namespace {

// ---- cells ----------------------------------------------------------------------------------------------

constexpr Words filledcell = {"casella r{row}c{col}, cifra {digit}", "cell r{row}c{col}, digit {digit}"};
constexpr Words givencell = {"casella r{row}c{col}, cifra {digit}, data",
                             "cell r{row}c{col}, digit {digit}, given"};
constexpr Words textcell = {"casella r{row}c{col}, testo {text}", "cell r{row}c{col}, text {text}"};
constexpr Words emptycell = {"casella r{row}c{col}, vuota", "cell r{row}c{col}, empty"};
constexpr Words markedcell = {"casella r{row}c{col}, vuota, candidati {digits}",
                              "cell r{row}c{col}, empty, candidates {digits}"};
constexpr Words markcell = {"casella r{row}c{col}, vuota, candidato {digits}",
                            "cell r{row}c{col}, empty, candidate {digits}"};
constexpr Words barecell = {"casella r{row}c{col}, vuota, nessun candidato",
                            "cell r{row}c{col}, empty, no candidates"};
constexpr Words editedcell = {"casella r{row}c{col}, vuota, candidati in modifica {text}",
                              "cell r{row}c{col}, empty, candidates under edit {text}"};
constexpr Words painted = {", in {colour}", ", in {colour}"};
constexpr Words paintedmarks = {"; {digits} in {colour}", "; {digits} in {colour}"};

constexpr Words cellblockwords = {"settore {block}", "block {block}"};
constexpr Words groundwords = {"candidati della casella r{row}c{col}, coperti",
                               "pencil marks of cell r{row}c{col}, covered"};
constexpr Words grounddescription = {"sfondo della casella, sotto i candidati",
                                     "the cell's ground, under the pencil marks"};
constexpr Words markwords = {"candidato {digit} in r{row}c{col}", "candidate {digit} in r{row}c{col}"};
constexpr Words hiddenmark = {"candidato nascosto in r{row}c{col}", "hidden candidate in r{row}c{col}"};
constexpr Words markdescription = {"apre l'anello delle cifre per la casella r{row}c{col}",
                                   "opens the ring of digits for cell r{row}c{col}"};

// ---- numbered controls ----------------------------------------------------------------------------------

constexpr Words ringdigit = {"cifra {digit}", "digit {digit}"};
constexpr Words ringempty = {"svuota la casella", "clear the cell"};
constexpr Words ringdescription = {"scrive la cifra nella casella r{row}c{col}",
                                   "writes the digit into cell r{row}c{col}"};
constexpr Words ringemptydescription = {"toglie la cifra dalla casella r{row}c{col}",
                                        "takes the digit out of cell r{row}c{col}"};

constexpr Words rownumber = {"riga {n}", "row {n}"}, columnnumber = {"colonna {n}", "column {n}"};
constexpr Words rowdescription = {"numero di riga", "number of a row"};
constexpr Words columndescription = {"numero di colonna", "number of a column"};

constexpr Words leveldescription = {"sceglie il livello, e uno schema a caso di questo livello",
                                    "chooses the level, and one of its puzzles at random"};
constexpr Words nolevel = {"livello 22, senza schemi", "level 22, without puzzles"};

constexpr Words previewwords = {"anteprima r{row}c{col}, cifra {digit}",
                                "preview r{row}c{col}, digit {digit}"};
constexpr Words emptypreview = {"anteprima r{row}c{col}, vuota", "preview r{row}c{col}, empty"};
constexpr Words previewdescription = {"casella dello schema selezionato", "cell of the selected puzzle"};

// clang-format off
struct ColourRow { Colour colour; Words name; };
constexpr ColourRow colours[] = {
    {yellow,    {"giallo",    "yellow"}},
    {red,       {"rosso",     "red"}},
    {green,     {"verde",     "green"}},
    {cyan,      {"ciano",     "cyan"}},
    {magenta,   {"magenta",   "magenta"}},
    {lightblue, {"azzurro",   "light blue"}},
    {orange,    {"arancione", "orange"}},
};
constexpr Words whiteword         = {"bianco", "white"};
constexpr Words colourdescription = {"colore con cui dipingere le caselle", "colour to paint cells with"};
constexpr Words clearcolourswords = {"togli i colori", "clear colours"};
constexpr Words cleardescription  = {"toglie tutti i colori e non dipinge più", "takes all colours away and paints no more"};

// ---- single controls ------------------------------------------------------------------------------------

struct BoxRow { const Box* box; Words name, description; };
const BoxRow boxrows[] = {
    {&txthint,        {"passo", "step"},             {"la frase dell'ultimo passo", "the sentence of the last step"}},
    {&filetxt,        {"file", "file"},              {"il nome dello schema caricato", "the name of the loaded puzzle"}},
    {&txtlivello,     {"livello", "level"},          {"la tecnica più difficile che serve", "the hardest technique that it takes"}},
    {&testototale,    {"punteggio", "score"},        {"il punteggio di difficoltà", "the score of difficulty"}},
    {&txtlivello1,    {"passi", "steps"},            {"quanti passi di ogni livello", "how many steps of each level"}},
    {&txtesposti,     {"esposti", "filled"},         {"quante caselle hanno una cifra", "how many cells have a digit"}},
    {&txtvuoti,       {"vuoti", "empty"},            {"quante caselle sono vuote", "how many cells are empty"}},
    {&Text5,          {"numero", "number"},          {"la cifra dell'ultimo suggerimento", "the digit of the last hint"}},
    {&tempotot,       {"tempo", "time"},             {"il tempo trascorso", "the time gone by"}},
    {&txtprogressivo, {"schema", "grid id"},         {"il numero dello schema nella libreria", "the puzzle's number in the library"}},
    {&lblfile,        {"esposti", "filled"},         {"scritta sopra il numero di caselle con una cifra", "caption of the number of cells with a digit"}},
    {&Label1,         {"vuoti", "empty"},            {"scritta sopra il numero di caselle vuote", "caption of the number of empty cells"}},
    {&Label3,         {"numero", "number"},          {"scritta sopra la cifra del suggerimento", "caption of the hint's digit"}},
    {&Label2,         {"timer", "timer"},            {"scritta sopra il tempo", "caption of the time"}},
    {&Label5,         {"schema", "grid id"},         {"scritta sopra il numero dello schema", "caption of the puzzle's number"}},
    {&bkglabel,       {"bkg", "bkg"},                {"si vede mentre uno schema viene caricato", "stands there while a puzzle is being loaded"}},

    {&Frmlog::Text3,        {"log attività", "activity log"},         {"un passo per riga; Invio su una riga la mostra sulla scacchiera", "a step a line; Return on a line shows it on the board"}},
    {&frmactivity::Text3,   {"spiegazione", "explanation"},           {"perché il passo è giusto", "why the step is right"}},
    {&frmgeneratore::Text1, {"schemi generati", "generated puzzles"}, {"l'ultimo in cima", "the newest on top"}},

    {&frmlivello::numerototale,      {"schemi del livello", "puzzles of the level"}, {"quanti schemi del livello ha la libreria", "how many puzzles of the level the library holds"}},
    {&frmlivello::numeroselezionato, {"schema selezionato", "puzzle selected"},      {"il suo posto nella lista; scrivere un numero per sceglierlo", "its place in the list; type a number to choose it"}},
    {&frmlivello::dettagliotxt,      {"dettaglio", "detail"},                        {"i passi dello schema selezionato", "the steps of the selected puzzle"}},
    {&frmlivello::difftxt,           {"difficoltà", "difficulty"},                   {"il punteggio dello schema selezionato", "the score of the selected puzzle"}},
    {&frmlivello::id,                {"schema numero", "grid id"},                   {"il numero dello schema selezionato nella libreria", "the selected puzzle's number in the library"}},
};

struct ControlRow { const Control* control; Words name, description; };
const ControlRow controlrows[] = {
    {&Pictgo,         {"procedi", "go"},      {"semaforo verde: esegue il passo", "green light: carries the step out"}},
    {&Pictalt,        {"stop", "stop"},       {"semaforo rosso: lascia tutto com'è", "red light: leaves everything as it is"}},
    {&Picthelp,       {"spiega", "explain"},  {"spiega il passo in un'altra finestra", "explains the step in another window"}},
    {&Picture2,       {"azzera il tempo", "reset timer"}, {"riporta il tempo a 0", "sets the time to 0"}},
    {&cmdlan,         {"passa all'inglese", "change to Italian"}, {"la bandiera della lingua a cui si passa", "the flag of the language to change to"}},
    {&cmdimpossibili, {"UR - BUGS", "UR - BUGS"}, {"cerca un BUG, poi un rettangolo unico", "looks for a BUG, then a unique rectangle"}},
    {&Cmdtest,        {"testa il tuo pc", "test your pc"}, {"cerca una catena XY", "looks for an XY chain"}},
    {&cmdnice,        {"nice loops", "nice loops"}, {"termina il programma", "ends the program"}},
    {&Check1,         {"genera schemi supersimmetrici", "make supersymmetric puzzles"}, {"quattro caselle specchiate alla volta", "four mirrored cells at a time"}},

    {&frmlivello::Command1, {"carica schema", "load puzzle"}, {"mette lo schema selezionato sulla scacchiera", "puts the selected puzzle on the board"}},
    {&frmlivello::Command2, {"precedente", "previous"},       {"lo schema prima, più difficile", "the puzzle before, a harder one"}},
    {&frmlivello::Command3, {"successivo", "next"},           {"lo schema dopo, più facile", "the puzzle after it, an easier one"}},
    {&frmlivello::Command4, {"ultimo record", "last puzzle"}, {"lo schema più facile del livello", "the easiest puzzle of the level"}},
    {&frmlivello::Command5, {"primo record", "first puzzle"}, {"lo schema più difficile del livello", "the hardest puzzle of the level"}},
};

constexpr Words mainwindowdescription = {"la scacchiera con i suoi comandi", "the board with its commands"};
struct WindowRow { const std::string* caption; Words description; };
const WindowRow windowrows[] = {
    {&Frmlog::caption,        {"i passi con cui lo schema si risolve", "the steps that solve the puzzle"}},
    {&frmactivity::caption,   {"spiegazione del passo che aspetta al semaforo", "explanation of the step that waits at the traffic light"}},
    {&frmgeneratore::caption, {"lista degli schemi generati", "list of the generated puzzles"}},
    {&frmlivello::caption,    {"scelta di uno schema della libreria", "choice of a puzzle from the library"}},
};

constexpr Words starttimer            = {"avvia il tempo", "start timer"};
constexpr Words starttimerdescription = {"spia verde: il tempo è fermo", "green lamp: the clock stands"};
constexpr Words pausetimer            = {"ferma il tempo", "pause timer"};
constexpr Words pausetimerdescription = {"spia rossa: il tempo corre", "red lamp: the clock runs"};
// clang-format on

// ---- putting it together --------------------------------------------------------------------------------

/// The words of a colour; none for white, the normal state.
const Words* colourwords(Colour colour) {
  const auto* row = std::find_if(std::begin(colours), std::end(colours),
                                 [colour](const ColourRow& known) { return known.colour == colour; });
  return row == std::end(colours) ? nullptr : &row->name;
}

template <class... Holes>
std::string atcell(const Words& words, int cell, const Holes&... holes) {
  return say(words, hole("row", cellrow(cell)), hole("col", cellcol(cell)), holes...);
}

Telling inbothfields(const Words& name, const Words& description) {
  return {std::string(inlanguage(name)), std::string(inlanguage(description))};
}

bool markseen(int index) {
  return candidate(index).visible && !Text1(index / 10).visible;
}

/// The digits of the visible marks of a cell that pass the test, as "1 3 9".
template <class Test>
std::string seenmarks(int cell, Test test) {
  std::string digits;
  for (int digit = 1; digit <= 9; ++digit) {
    if (!markseen(cell * 10 + digit) || !test(candidate(cell * 10 + digit))) continue;
    if (!digits.empty()) digits += ' ';
    digits += static_cast<char>('0' + digit);
  }
  return digits;
}

std::string ground(Colour colour) {
  const Words* words = colourwords(colour);
  return words == nullptr ? "" : say(painted, hole("colour", inlanguage(*words)));
}

// The text colour distinguishes givens from entries, as it does for the eye: on a board typed in by hand all
// are givens.
std::string digitwords(int cell) {
  const Box& box = Text1(cell);
  const bool digit = box.text.size() == 1 && box.text[0] >= '1' && box.text[0] <= '9';
  if (!digit) return atcell(textcell, cell, hole("text", box.text));
  return atcell(box.fore == red ? givencell : filledcell, cell, hole("digit", box.text));
}

std::string emptywords(int cell) {
  const std::string digits = seenmarks(cell, [](const Box&) { return true; });
  const std::string& edited = Text2(cell).text;
  if (digits.empty() && !edited.empty()) return atcell(editedcell, cell, hole("text", edited));
  if (digits.empty()) return atcell(barecell, cell);
  return atcell(digits.size() == 1 ? markcell : markedcell, cell, hole("digits", digits));
}

std::string paintedmarkwords(int cell) {
  std::string said;
  for (const ColourRow& row : colours) {
    const std::string digits = seenmarks(cell, [&row](const Box& mark) { return mark.back == row.colour; });
    if (!digits.empty())
      said += say(paintedmarks, hole("digits", digits), hole("colour", inlanguage(row.name)));
  }
  return said;
}

std::string cellwords(int cell) {
  const Box& box = Text1(cell);
  if (!box.visible) return emptywords(cell) + ground(Text2(cell).back) + paintedmarkwords(cell);
  return (box.text.empty() ? atcell(emptycell, cell) : digitwords(cell)) + ground(box.back);
}

/// The words of the table for a control; empty if it isn't in the table.
template <class Rows, class Row, class Thing>
Telling spokenby(const Rows& rows, const Thing* Row::*which, const Thing& thing) {
  for (const Row& row : rows)
    if (row.*which == &thing) return inbothfields(row.name, row.description);
  return {};
}

}  // namespace

Telling spokencell(int cell) {
  return {cellwords(cell), say(cellblockwords, hole("block", cellblock(cell)))};
}

Telling spokenground(int cell) {
  return {Text1(cell).visible ? atcell(groundwords, cell) : cellwords(cell),
          std::string(inlanguage(grounddescription))};
}

Telling spokenmark(int index) {
  const int cell = index / 10;
  if (!markseen(index)) return {atcell(hiddenmark, cell), atcell(markdescription, cell)};
  return {atcell(markwords, cell, hole("digit", index % 10)) + ground(candidate(index).back),
          atcell(markdescription, cell)};
}

Telling spokenring(int digit) {
  if (digit == 0) return {std::string(inlanguage(ringempty)), atcell(ringemptydescription, cellacliccata)};
  return {say(ringdigit, hole("digit", digit)), atcell(ringdescription, cellacliccata)};
}

Telling spokencolour(int n) {
  constexpr int clearing = 8;
  if (n == clearing) return inbothfields(clearcolourswords, cleardescription);
  const Words* words = colourwords(colore(n).back);
  return inbothfields(words == nullptr ? whiteword : *words, colourdescription);
}

Telling spokennumber(int n) {
  const bool ofrow = n < 9;
  return {say(ofrow ? rownumber : columnnumber, hole("n", n % 9 + 1)),
          std::string(inlanguage(ofrow ? rowdescription : columndescription))};
}

Telling spokenlevel(int n) {
  constexpr int beyond = 22;
  return {n == beyond ? std::string(inlanguage(nolevel)) : frmlivello::LabelL(n).text,
          std::string(inlanguage(leveldescription))};
}

Telling spokenpreview(int cell) {
  const std::string& sign = frmlivello::Text2(cell).text;
  const bool empty = sign.empty() || sign == ".";
  return {empty ? atcell(emptypreview, cell) : atcell(previewwords, cell, hole("digit", sign)),
          std::string(inlanguage(previewdescription))};
}

Telling spoken(const Box& box) {
  return spokenby(boxrows, &BoxRow::box, box);
}

Telling spoken(const Control& control) {
  for (const auto& keys : {toolbar1rows(), toolbar2rows()})
    for (const KeyRow& row : keys)
      if (row.control == &control)
        return inbothfields(row.name.it.empty() ? row.tip : row.name, row.description);
  if (&control != &picstart) return spokenby(controlrows, &ControlRow::control, control);
  return picstartlamp == Lamp::rosso ? inbothfields(pausetimer, pausetimerdescription)
                                     : inbothfields(starttimer, starttimerdescription);
}

Telling spokenwindow(const std::string& caption) {
  for (const WindowRow& row : windowrows)
    if (row.caption == &caption) return {caption, std::string(inlanguage(row.description))};
  return {};
}

Telling spokenmainwindow(const std::string& title) {
  return {title, std::string(inlanguage(mainwindowdescription))};
}

}  // namespace gradino
