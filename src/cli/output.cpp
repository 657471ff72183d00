#include "output.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <system_error>

#include <fmt/format.h>
#include <unistd.h>

#include "words.h"

namespace gradino::cli {
namespace {

constexpr Words notwritten = {"{file}: impossibile scrivere: {why}", "{file}: can't be written: {why}"};

namespace fs = std::filesystem;

[[noreturn]] void failed(const std::string& name, int error) {
  throw std::runtime_error(say(notwritten, hole("file", name), hole("why", std::strerror(error))));
}

/// 0, or the error.
int writeto(const fs::path& name, std::ios::openmode mode, std::string_view bytes) {
  errno = 0;
  std::ofstream out(name, std::ios::binary | mode);
  out << bytes;
  out.close();
  return out ? 0 : (errno != 0 ? errno : EIO);
}

}  // namespace

// The new content is first written to a file beside this one, which replaces it when it is complete.
void replacefile(const std::string& name, std::string_view bytes) {
  std::error_code error;
  const fs::file_status there = fs::status(name, error);
  if (fs::is_directory(there)) failed(name, EISDIR);
  if (fs::exists(there)) {
    const bool regular = fs::is_regular_file(there);  // a device or a pipe can only be written to
    const int result = writeto(name, std::ios::app, regular ? std::string_view() : bytes);
    if (result != 0) failed(name, result);
    if (!regular) return;
  }
  const fs::path target = fs::exists(there) ? fs::canonical(name) : fs::path(name);
  const fs::path beside = fmt::format("{}.{}.new", target.string(), getpid());
  int result = writeto(beside, std::ios::trunc, bytes);
  if (result == 0) {
    if (fs::exists(there)) fs::permissions(beside, there.permissions(), error);
    fs::rename(beside, target, error);
    result = error.value();
  }
  if (result == 0) return;
  fs::remove(beside, error);
  failed(name, result);
}

}  // namespace gradino::cli
