#include "replacefile.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

#include <sys/stat.h>

#include "wholefile.h"

namespace gradino {
namespace {

namespace fs = std::filesystem;

struct Close {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Close>;

/// Unbuffered: text that was refused once must not be written along with the next.
File opened(const fs::path& name, const char* mode) {
  File file(std::fopen(name.string().c_str(), mode));
  if (file) std::setvbuf(file.get(), nullptr, _IONBF, 0);
  return file;
}

/// Writes the text from the start of the file.
bool put(std::FILE* file, const std::string& text) {
  if (std::fseek(file, 0, SEEK_SET) != 0 && errno != ESPIPE) return false;
  return std::fwrite(text.data(), 1, text.size(), file) == text.size();
}

/// The file that a link finally leads to; it need not exist.
fs::path behindlinks(fs::path name) {
  constexpr int longest = 40;  // a longer chain of links is a loop
  std::error_code error;
  for (int n = 0; n < longest && fs::is_symlink(name, error); ++n)
    name = name.parent_path() / fs::read_symlink(name, error);
  return name;
}

/// A new file beside the target that no other program writes. None: the folder can't be written.
struct Beside {
  fs::path name;
  File file;
};
Beside newbeside(const fs::path& target) {
  constexpr int names = 1000;
  for (int n = 0; n < names; ++n) {
    const fs::path name = target.parent_path() / (".gradino-" + std::to_string(n) + ".new");
    if (File file = opened(name, "wbx")) return {name, std::move(file)};
    if (errno != EEXIST) break;
  }
  return {};
}

/// Whether another file may replace this one: it would have a new owner, and a second hard link would keep
/// the old text.
bool replaceable(const fs::path& target, const fs::path& beside) {
  struct stat there = {};
  struct stat fresh = {};
  if (::stat(target.string().c_str(), &there) != 0 || ::stat(beside.string().c_str(), &fresh) != 0)
    return false;
  return there.st_uid == fresh.st_uid && there.st_gid == fresh.st_gid && there.st_nlink == 1;
}

enum class Outcome { done, failed, impossible };

/// Writes a new file, flushes it to the disk and renames it to the target. Impossible: the file itself has to
/// be written.
Outcome replaced(const fs::path& target, const fs::file_status& there, const std::string& text) {
  Beside beside = newbeside(target);
  if (!beside.file) return Outcome::impossible;
  const bool old = fs::exists(there);
  Outcome outcome = Outcome::impossible;
  if (!old || replaceable(target, beside.name))
    outcome = put(beside.file.get(), text) && !flush(beside.name) ? Outcome::done : Outcome::failed;
  beside.file.reset();
  std::error_code error, ignored;
  if (outcome == Outcome::done) {
    if (old) fs::permissions(beside.name, there.permissions(), error);
    if (!error) error = putinplace(beside.name, target);
    if (error) outcome = Outcome::impossible;
  }
  if (outcome != Outcome::done) fs::remove(beside.name, ignored);
  return outcome;
}

/// Overwrites the old text, and truncates the file once the new text is safe: a puzzle is so short that it
/// reaches the disk in one piece, and the file needs room only for its growth. If that fails all the same,
/// the old text is written back.
bool overwritten(const fs::path& target, const std::string& text) {
  std::error_code error, ignored;
  const std::uintmax_t length = fs::file_size(target, error);
  const File file = opened(target, "r+b");
  if (error || !file) return false;
  std::string old(length < text.size() ? static_cast<std::size_t>(length) : text.size(), '\0');
  if (std::fread(old.data(), 1, old.size(), file.get()) != old.size()) return false;
  if (put(file.get(), text) && !flush(target)) {
    if (length > text.size()) fs::resize_file(target, text.size(), error);
    if (!error) return true;
  }
  put(file.get(), old);  // if this is refused too, the old text is still there
  fs::resize_file(target, length, ignored);
  return false;
}

}  // namespace

bool replacefile(const fs::path& name, const std::string& text) {
  const fs::path target = behindlinks(name);
  std::error_code error;
  const fs::file_status there = fs::status(target, error);
  if (fs::is_character_file(there)) {
    const File device = opened(target, "wb");
    return device && put(device.get(), text);
  }
  const bool old = fs::is_regular_file(there);
  if (!old && there.type() != fs::file_type::not_found) return false;
  if (old && !opened(target, "ab")) return false;
  const Outcome outcome = replaced(target, there, text);
  return outcome == Outcome::done || (outcome == Outcome::impossible && old && overwritten(target, text));
}

}  // namespace gradino
