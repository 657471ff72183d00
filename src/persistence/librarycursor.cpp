#include "librarycursor.h"

#include <cstdlib>
#include <fstream>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <system_error>

#include "boxes.h"
#include "host.h"
#include "jetfile.h"
#include "library.h"
#include "store.h"
#include "words.h"

namespace gradino {
namespace {

namespace fs = std::filesystem;

constexpr const char* filename = "schemigenerati.mdb";

constexpr Words norecord = {"La libreria non ha questo schema.", "The library has no such puzzle."};
constexpr Words broughtover = {
    "La libreria precedente è stata convertita: {rows} schemi, di cui {bad} senza uno schema valido. Il vecchio "
    "file è conservato come \"{file}\".",
    "The old library was brought over: {rows} puzzles, {bad} of them without a valid puzzle. The old file is kept "
    "as \"{file}\"."};

// The state of the one cursor.
fs::path file;
std::unique_ptr<Store> store;
std::string query = wholetable;
std::optional<Store::Record> current;  ///< what the boxes show
bool building = false;                 ///< a new record is being built; who browses meanwhile doesn't end it
std::string notice;                    ///< to be told when the library is first needed

/// The box of a field. liv(0) is bound to f1 as liv(1) is: it shows the field, and nobody writes it.
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

/// A name beside the file that nobody has yet.
fs::path keptname() {
  std::error_code error;
  for (int n = 1;; ++n) {
    const fs::path kept = file.parent_path() / (file.stem().string() + "-old" +
                                                (n > 1 ? std::to_string(n) : "") + file.extension().string());
    if (!fs::exists(kept, error)) return kept;
  }
}

/// The new store is whole, and the old file safe under its new name, before one takes the other's place.
void replaceold() {
  const JetClaim claim(file.string());
  if (!isjetfile(file.string())) return;  // another program was faster
  const fs::path made = file.string() + ".new", kept = keptname();
  std::error_code error;
  fs::remove(made, error);  // left by a program that was killed here
  const BroughtOver done = bringover(file, made);
  fs::copy_file(file, kept);
  fs::rename(made, file);
  notice = say(broughtover, hole("rows", done.rows), hole("bad", done.nopuzzle), hole("file", kept.string()));
}

void connect() {
  try {
    if (isjetfile(file.string())) replaceold();
  } catch (const fs::filesystem_error& error) {
    throw LibraryFailure(error.what());
  }
  store = std::make_unique<Store>(file);
}

/// The store; what failed at start may have come right since.
Store& library() {
  if (!store) connect();
  return *store;
}

void moveto(int place) {
  current = library().at(query, place);
  if (!current) throw LibraryFailure(std::string(inlanguage(norecord)));
  show(current->row);
}

void addnew() {
  if (building) library().insert(shown());
  building = true;
}

void update() {
  if (!current || building) return;
  current->row = shown();
  library().update(*current);
}

void need() {
  library();
  if (notice.empty()) return;
  const std::string told = std::exchange(notice, "");
  host.message(told);
}

bool writable(const fs::path& path) {
  std::error_code error;
  return fs::is_regular_file(path, error) && std::ofstream(path, std::ios::binary | std::ios::app).is_open();
}

/// Files can be made there: the one sure way to know is to make one.
bool roomfor(const fs::path& path) {
  const fs::path probe = path.string() + ".probe";
  const bool made = std::ofstream(probe).is_open();
  std::error_code error;
  fs::remove(probe, error);
  return made;
}

fs::path fromenvironment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

/// Where the platform keeps what programs store for their user.
fs::path userplace() {
#ifdef _WIN32
  const fs::path data = fromenvironment("LOCALAPPDATA");
#else
  fs::path data = fromenvironment("XDG_DATA_HOME");
  if (!data.is_absolute()) data = fromenvironment("HOME") / ".local" / "share";
#endif
  return data / "gradino" / filename;
}

/// A copy appears whole or not at all, and never in the place of another program's, which may hold changes
/// already.
void copywhole(const fs::path& from, const fs::path& to) {
  const fs::path beside = to.string() + "." + std::to_string(std::random_device{}()) + ".new";
  std::error_code error;
  if (fs::copy_file(from, beside, error)) {
    fs::permissions(beside, fs::perms::owner_write, fs::perm_options::add, error);
    fs::create_hard_link(beside, to, error);
    if (error && error != std::errc::file_exists) fs::rename(beside, to, error);  // a disk without links
  }
  fs::remove(beside, error);
}

}  // namespace

fs::path libraryplace(const fs::path& programfolder) {
  const fs::path beside = programfolder / filename;
  if (writable(beside) && roomfor(beside)) return beside;  // a change needs room for files beside it
  const fs::path shared = programfolder.parent_path() / "share" / "gradino" / filename;
  std::error_code error;
  const bool besideshipped = fs::exists(beside, error), sharedshipped = fs::exists(shared, error);
  if (!besideshipped && !sharedshipped && roomfor(beside)) return beside;
  const fs::path own = userplace();
  fs::create_directories(own.parent_path(), error);
  if (fs::exists(own, error)) return own;
  if (besideshipped || sharedshipped) copywhole(besideshipped ? beside : shared, own);
  return own;
}

void openlibrary(const fs::path& path) {
  closelibrary();
  file = path;
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
  Data1.edit = [] { building = false; };
  Data1.update = update;
  Data1.addnew = addnew;
  Data1.cancelnew = [] { building = false; };
  Data1.need = need;
  try {
    Data1.query(wholetable);
  } catch (const LibraryFailure&) {  // told when the library is first needed
  }
}

void closelibrary() {
  store.reset();
  file.clear();
  query = wholetable;
  current.reset();
  building = false;
  notice.clear();
  Data1 = {};
}

}  // namespace gradino
