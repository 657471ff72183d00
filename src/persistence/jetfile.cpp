// libmdb trusts the pages that it reads: a damaged file can crash it or keep it busy for ever. So it runs in
// a process of its own, which sends the rows through a pipe; if that dies or falls silent, the file is
// damaged. What libmdb prints there is discarded.
//
// The pipe carries messages: each a character and, for some, a text preceded by its length.
//
//   =text   the next value of a row      ?text   there is no such field: the end
//   .       there is no more: the end    !       there is no table: the end
#include "jetfile.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <span>
#include <string_view>
#include <system_error>

#include <fcntl.h>
#include <mdbtools.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "library.h"
#include "words.h"

namespace gradino {
namespace {

constexpr Words unreadable = {R"(La vecchia libreria "{file}" non può essere letta.)",
                              R"(The old library "{file}" can't be read.)"};
constexpr Words foreign = {R"(Il file "{file}" non è una vecchia libreria.)",
                           R"(The file "{file}" is no old library.)"};
constexpr Words secret = {R"(La vecchia libreria "{file}" è cifrata o protetta da una password.)",
                          R"(The old library "{file}" is encrypted or has a password.)"};
constexpr Words cutshort = {R"(La vecchia libreria "{file}" è incompleta: la sua fine manca.)",
                            R"(The old library "{file}" is incomplete: its end is missing.)"};
constexpr Words damaged = {R"(La vecchia libreria "{file}" è danneggiata.)",
                           R"(The old library "{file}" is damaged.)"};
constexpr Words notable = {R"(Nella vecchia libreria "{file}" manca la tabella "schema".)",
                           R"(The old library "{file}" has no table "schema".)"};
constexpr Words nofield = {R"(Nella vecchia libreria "{file}" manca il campo "{field}".)",
                           R"(The old library "{file}" has no field "{field}".)"};

constexpr std::size_t valuesize = 1 << 16;  // the room for a value, including its terminator
constexpr int patience = 5'000;             // milliseconds without a sign of life

[[noreturn]] void fail(const Words& words, const std::string& path, std::same_as<Hole> auto const&... holes) {
  throw LibraryFailure(say(words, hole("file", path), holes...));
}

// ---- the file's head ------------------------------------------------------------------------------------

/// The first bytes of a file, or all if it is shorter.
constexpr std::size_t headsize = 0x80;
std::string readhead(const std::string& path) {
  std::error_code error;
  std::string head(headsize, '\0');
  std::ifstream file;
  if (std::filesystem::is_regular_file(path, error)) file.open(path, std::ios::binary);
  file.read(head.data(), headsize);
  head.resize(static_cast<std::size_t>(file.gcount()));
  return head;
}

bool isjethead(std::string_view head) {
  const std::string_view name = head.substr(std::min<std::size_t>(4, head.size()), 15);
  return name == "Standard Jet DB" || name == "Standard ACE DB";
}

bool isoldformat(std::string_view head) {
  return head[0x14] == 0;
}

/// At 0x3e begin the key, four zeros if the file isn't encrypted, and the password, under a mask that is the
/// same for all files. Newer formats put the password under a second mask: four bytes, repeated.
bool issecret(std::string_view head) {
  constexpr std::size_t begin = 0x3e, keysize = 4;
  // clang-format off
  constexpr std::array<unsigned char, 44> mask = {
      0xfb, 0x8a, 0xbc, 0x4e,
      0x86, 0xfb, 0xec, 0x37, 0x5d, 0x44, 0x9c, 0xfa, 0xc6, 0x5e, 0x28, 0xe6, 0x13, 0xb6, 0x8a, 0x60,
      0x54, 0x94, 0x7b, 0x36, 0xf5, 0x72, 0xdf, 0xb1, 0x77, 0xf4, 0x13, 0x43, 0xcf, 0xaf, 0xb1, 0x33,
      0x34, 0x61, 0x79, 0x5b, 0x92, 0xb5, 0x7c, 0x2a};
  // clang-format on
  std::array<unsigned char, mask.size()> bytes;
  for (std::size_t i = 0; i < bytes.size(); ++i)
    bytes[i] = static_cast<unsigned char>(head[begin + i]) ^ mask[i];
  const std::span all(bytes);
  const auto key = all.first(keysize), password = all.subspan(keysize, isoldformat(head) ? 20 : 40);
  const auto zero = [](unsigned char c) { return c == 0; };
  if (!std::ranges::all_of(key, zero)) return true;
  if (isoldformat(head)) return !std::ranges::all_of(password, zero);
  return !std::equal(password.begin() + 4, password.end(), password.begin());
}

void checkfile(const std::string& path) {
  std::error_code error;
  const std::string head = readhead(path);
  const std::uintmax_t size = std::filesystem::file_size(path, error);
  if (error || (head.empty() && size > 0)) fail(unreadable, path);
  if (!isjethead(head)) fail(foreign, path);
  if (head.size() < headsize) fail(cutshort, path);
  if (issecret(head)) fail(secret, path);
  if (size % (isoldformat(head) ? 2048 : 4096) != 0) fail(cutshort, path);
}

// ---- the process that reads the pages -------------------------------------------------------------------

class Sender {
 public:
  explicit Sender(int pipe) : pipe_(pipe) {}
  void letter(char c) { waiting_ += c; }
  void text(char c, std::string_view text) {
    const auto size = static_cast<std::uint32_t>(text.size());
    waiting_.append(1, c).append(reinterpret_cast<const char*>(&size), sizeof size).append(text);
    if (waiting_.size() >= valuesize) flush();
  }
  void flush() {
    const char* at = waiting_.data();
    for (std::size_t left = waiting_.size(); left > 0;) {
      const ssize_t done = write(pipe_, at, left);
      if (done < 0 && errno == EINTR) continue;
      if (done < 0) _exit(EXIT_FAILURE);  // the reader of the pipe is gone
      at += done;
      left -= static_cast<std::size_t>(done);
    }
    waiting_.clear();
  }

 private:
  int pipe_;
  std::string waiting_;
};

/// The end of the process reveals the damage: nothing more is sent.
[[noreturn]] void giveup() {
  _exit(EXIT_FAILURE);
}

MdbTableDef* findtable(MdbHandle* mdb) {
  const GPtrArray* catalog = mdb_read_catalog(mdb, MDB_TABLE);
  if (!catalog) giveup();
  for (guint i = 0; i < catalog->len; ++i) {
    auto* const entry = static_cast<MdbCatalogEntry*>(g_ptr_array_index(catalog, i));
    if (g_ascii_strcasecmp(entry->object_name, "schema") != 0) continue;
    MdbTableDef* table = mdb_read_table(entry);
    if (!table || !mdb_read_columns(table)) giveup();
    return table;
  }
  return nullptr;
}

/// A value of the current row.
std::string_view valueof(const MdbHandle* mdb, const MdbColumn* column) {
  const auto* text = static_cast<const char*>(column->bind_ptr);
  const std::size_t size = strnlen(text, valuesize);
  const bool whole = size + 1 < valuesize && g_utf8_validate(text, static_cast<gssize>(size), nullptr);
  // A long text whose page is lost reads as empty. Its length is in the row, below two flag bits.
  if (size == 0 && column->col_type == MDB_MEMO && column->cur_value_len >= 4) {
    std::uint32_t length = 0;
    std::memcpy(&length, mdb->pg_buf + column->cur_value_start, sizeof length);
    if ((le32toh(length) & 0x3fffffff) > 0) giveup();
  }
  if (!whole) giveup();
  return {text, size};
}

void sendrows(const char* path, Sender& sender) {
  MdbHandle* mdb = mdb_open(path, MDB_NOFLAGS);
  if (!mdb) giveup();
  mdb_set_bind_size(mdb, valuesize);
  MdbTableDef* table = findtable(mdb);
  if (!table) return sender.letter('!');
  const auto room = std::make_unique_for_overwrite<char[]>(libraryfields.size() * valuesize);
  std::array<const MdbColumn*, libraryfields.size()> columns;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    std::string name = libraryfields[i];
    const int place = mdb_bind_column_by_name(table, name.data(), room.get() + i * valuesize, nullptr);
    if (place < 1) return sender.text('?', name);
    columns[i] = static_cast<MdbColumn*>(g_ptr_array_index(table->columns, place - 1));
  }
  unsigned int rows = 0;
  for (mdb_rewind_table(table); mdb_fetch_row(table); ++rows)
    for (const MdbColumn* column : columns) sender.text('=', valueof(mdb, column));
  if (rows < table->num_rows) giveup();
  sender.letter('.');
}

/// A damaged file can make the library allocate memory without end.
void limitmemory() {
  constexpr rlim_t enough = 256 << 20;
  rlim_t pages = 0;
  if (!(std::ifstream("/proc/self/statm") >> pages)) return;
  const rlim_t most = pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + enough;
  const rlimit limit = {most, most};
  setrlimit(RLIMIT_AS, &limit);
}

[[noreturn]] void readingprocess(const char* path, int pipe) {
  for (const int crash : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT, SIGTRAP, SIGPIPE}) signal(crash, SIG_DFL);
  const rlimit nothing = {0, 0};
  setrlimit(RLIMIT_CORE, &nothing);
  limitmemory();
  const int nowhere = open("/dev/null", O_RDWR);
  for (const int output : {STDOUT_FILENO, STDERR_FILENO}) dup2(nowhere, output);
  for (const char* setting : {"MDBOPTS", "MDBICONV", "MDB_JET3_CHARSET"}) unsetenv(setting);
  setlocale(LC_NUMERIC, "C");
  Sender sender(pipe);
  sendrows(path, sender);
  sender.flush();
  _exit(EXIT_SUCCESS);  // this process must not run the exit handlers of the program
}

// ---- the process that takes them ------------------------------------------------------------------------

class Reading {
 public:
  explicit Reading(const std::string& path) : path_(path) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) fail(unreadable, path);
    process_ = fork();
    if (process_ == 0) readingprocess(path.c_str(), ends[1]);
    pipe_ = ends[0];
    close(ends[1]);
    if (process_ < 0) {
      close(pipe_);
      fail(unreadable, path);
    }
  }
  ~Reading() {
    close(pipe_);
    kill(process_, SIGKILL);
    while (waitpid(process_, nullptr, 0) < 0 && errno == EINTR) continue;
  }
  Reading(const Reading&) = delete;
  Reading& operator=(const Reading&) = delete;

  char letter() {
    char c = 0;
    take(&c, 1);
    return c;
  }
  std::string text() {
    std::uint32_t size = 0;
    take(reinterpret_cast<char*>(&size), sizeof size);
    if (size >= valuesize) fail(damaged, path_);
    std::string text(size, '\0');
    take(text.data(), size);
    return text;
  }

 private:
  void take(char* to, std::size_t size) {
    while (size > 0) {
      if (at_ == end_) refill();
      const std::size_t part = std::min(size, end_ - at_);
      to = std::copy_n(arrived_.begin() + static_cast<std::ptrdiff_t>(at_), part, to);
      at_ += part;
      size -= part;
    }
  }
  void refill() {
    pollfd sign = {pipe_, POLLIN, 0};
    int ready = 0;
    do ready = poll(&sign, 1, patience);
    while (ready < 0 && errno == EINTR);
    const ssize_t size = ready > 0 ? read(pipe_, arrived_.data(), arrived_.size()) : 0;
    if (size <= 0) fail(damaged, path_);
    at_ = 0;
    end_ = static_cast<std::size_t>(size);
  }

  const std::string& path_;
  int pipe_ = -1;
  pid_t process_ = -1;
  std::array<char, 1 << 16> arrived_;
  std::size_t at_ = 0, end_ = 0;
};

}  // namespace

bool isjetfile(const std::string& path) {
  return isjethead(readhead(path));
}

void readjet(const std::string& path, const std::function<void(const LibraryRow&)>& use) {
  checkfile(path);
  Reading reading(path);
  LibraryRow row;
  std::size_t filled = 0;
  for (char letter = reading.letter(); letter != '.'; letter = reading.letter()) {
    if (letter == '!') fail(notable, path);
    if (letter == '?') fail(nofield, path, hole("field", reading.text()));
    row[filled] = reading.text();
    if (++filled < row.size()) continue;
    filled = 0;
    use(row);
  }
}

}  // namespace gradino
