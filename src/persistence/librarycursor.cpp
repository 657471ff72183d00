#include "librarycursor.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "boxes.h"
#include "host.h"
#include "jetfile.h"
#include "library.h"
#include "store.h"
#include "wholefile.h"
#include "words.h"

namespace gradino {
namespace {

constexpr Words norecord = {"La libreria non ha questo schema.", "The library has no such puzzle."};
constexpr Words broughtover = {
    "La libreria precedente è stata convertita: {rows}, di cui {bad} senza uno schema valido. Il vecchio file è "
    "conservato come \"{file}\".",
    "The old library was brought over: {rows}, {bad} of them without a valid puzzle. The old file is kept as "
    "\"{file}\"."};
constexpr Counted puzzles = {{"{n} schema", "{n} puzzle"}, {"{n} schemi", "{n} puzzles"}};

// The state of the cursor.
LibraryPlace place;  ///< with the notices to be shown when the library is first needed
std::unique_ptr<Store> store;
std::string query = wholetable;
std::optional<Store::Record> current;  ///< what the boxes show
bool building = false;                 ///< a new record is being built; browsing meanwhile doesn't end it
bool checked = false;                  ///< the whole file was checked and is sound
bool toldonlyread = false;             ///< the message that a grade can't be written back was shown

/// The box of a field. liv(0) is bound to f1, like liv(1), but only shows it.
Box& boundbox(std::size_t f) {
  using namespace frmmain;
  static Box* const named[] = {&txtprogressivo, &txtstringa, &txtdettaglio, &testolivello,
                               &txtnumeri,      &txttotale,  &txtsuper,     &tempo};
  if (f < field::f1) return *named[f];
  return liv(static_cast<int>(f - field::f1) + 1);
}

void show(const LibraryRow& row) {
  for (std::size_t f = 0; f < row.size(); ++f) boundbox(f).text = row[f];
  frmmain::liv(0).text = row[field::f1];
}

LibraryRow shown() {
  LibraryRow row;
  for (std::size_t f = 0; f < row.size(); ++f) row[f] = boundbox(f).text;
  return row;
}

void replaceold() {
  const FolderClaim claim(place.file);
  if (!isjetfile(place.file.string())) return;  // another program was faster
  place.notices.emplace_back([done = bringover(place.file)] {
    return say(broughtover, hole("rows", say(puzzles, done.rows)), hole("bad", done.nopuzzle),
               hole("file", done.kept.string()));
  });
}

/// The store; a failure at start may be over by now.
Store& library() {
  if (store) return *store;
  if (!place.onlyread && isjetfile(place.file.string())) replaceold();
  store = std::make_unique<Store>(place.file, place.onlyread);
  return *store;
}

void moveonto(std::optional<Store::Record> record) {
  if (!record) throw LibraryFailure(std::string(inlanguage(norecord)));
  current = std::move(record);
  show(current->row);
}

void moveto(int position) {
  moveonto(library().at(query, position));
}

Bookmark bookmark() {
  if (!current) return {};
  return {current->key, current->row[field::stringa]};
}

void movetobookmark(const Bookmark& mark) {
  std::optional<Store::Record> record = library().withkey(mark.key);
  if (record && record->row[field::stringa] != mark.stringa) record.reset();
  moveonto(std::move(record));
}

void addnew() {
  library().needchanges();
  const bool finished = building;
  if (finished) library().insert(shown());
  building = true;
  if (finished) listchanged();
}

/// An unchanged grade needs no writing. A changed one can't be stored in a read-only library; the first time,
/// a message says so.
void update() {
  if (!current || building) return;
  const LibraryRow row = shown();
  if (row == current->row) return;
  if (!library().changeable() && std::exchange(toldonlyread, true)) return;
  library().update({current->key, row});
  current->row = row;
  listchanged();
}

void tellnotices() {
  for (const Notice& notice : std::exchange(place.notices, {})) host.message(notice());
}

void need() {
  tellnotices();
  library();
  tellnotices();  // opening it may have converted an old library
  if (!checked) library().check();
  checked = true;
}

}  // namespace

void openlibrary(const LibraryPlace& where) {
  closelibrary();
  place = where;
  Data1.query = [](const std::string& sql) {
    query = sql;
    current = library().at(query, 0);
    if (current) show(current->row);
  };
  Data1.movelast = [] {
    const int count = library().count(query);
    if (count > 0) moveto(count - 1);
  };
  Data1.recordcount = [] { return library().count(query); };
  Data1.moveto = moveto;
  Data1.bookmark = bookmark;
  Data1.movetobookmark = movetobookmark;
  Data1.position = [](const Bookmark& mark) { return library().placeof(query, mark.key).value_or(-1); };
  Data1.edit = [] { building = false; };
  Data1.update = update;
  Data1.addnew = addnew;
  Data1.cancelnew = [] { building = false; };
  Data1.need = need;
  try {
    Data1.query(wholetable);
  } catch (const LibraryFailure&) {  // reported when the library is first needed
  }
}

void closelibrary() {
  store.reset();
  place = {};
  query = wholetable;
  current.reset();
  building = false;
  checked = toldonlyread = false;
  Data1 = {};
}

}  // namespace gradino
