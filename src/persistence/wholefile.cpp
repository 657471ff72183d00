#include "wholefile.h"

#include <array>
#include <cerrno>
#include <string>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace gradino {
namespace {

namespace fs = std::filesystem;

fs::path folderof(const fs::path& file) {
  return file.has_parent_path() ? file.parent_path() : ".";
}

/// A file descriptor, closed by the destructor. Below 0: the file couldn't be opened.
struct Opened {
  Opened(const fs::path& file, int how) : number(open(file.c_str(), how | O_CLOEXEC, 0666)) {}
  ~Opened() {
    if (number >= 0) close(number);
  }
  Opened(const Opened&) = delete;
  Opened& operator=(const Opened&) = delete;
  int number;
};

/// 0, or the error of the system, so that the message can distinguish a full disk from a broken one.
int copybytes(int from, int to) {
  std::array<char, 1 << 16> part;
  for (;;) {
    const ssize_t size = read(from, part.data(), part.size());
    if (size <= 0) return size < 0 ? errno : 0;
    for (ssize_t done = 0; done < size;) {
      const ssize_t more = write(to, part.data() + done, static_cast<std::size_t>(size - done));
      if (more < 0) return errno;
      done += more;
    }
  }
}

std::error_code copyfile(const fs::path& from, const fs::path& to) {
  const Opened source(from, O_RDONLY);
  if (source.number < 0) return {errno, std::generic_category()};
  const Opened copy(to, O_WRONLY | O_CREAT | O_EXCL);
  if (copy.number < 0) return {errno, std::generic_category()};
  return {copybytes(source.number, copy.number), std::generic_category()};
}

}  // namespace

FolderClaim::FolderClaim(const fs::path& file)
    : folder_(open(folderof(file).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  while (folder_ >= 0 && flock(folder_, LOCK_EX) != 0 && errno == EINTR) continue;
}

FolderClaim::~FolderClaim() {
  if (folder_ >= 0) close(folder_);
}

fs::path madename(const fs::path& file) {
  return file.string() + ".new";
}

std::error_code flush(const fs::path& file) {
  const Opened opened(file, O_RDONLY);
  const bool failed = opened.number < 0 || fsync(opened.number) != 0;
  return {failed ? errno : 0, std::generic_category()};
}

void flushnames(const fs::path& file) {
  flush(folderof(file));
}

std::error_code putinplace(const fs::path& made, const fs::path& file) {
  std::error_code error = flush(made);
  if (!error) fs::rename(made, file, error);
  if (!error) flushnames(file);
  return error;
}

std::error_code copywhole(const fs::path& from, const fs::path& to) {
  const fs::path made = madename(to);
  std::error_code ignored;
  fs::remove(made, ignored);
  std::error_code error = copyfile(from, made);
  if (!error) error = putinplace(made, to);
  if (error) fs::remove(made, ignored);
  return error;
}

fs::path freename(const fs::path& file, const char* word) {
  const std::string begin = (file.parent_path() / file.stem()).string() + "-" + word;
  std::error_code error;
  for (int n = 1;; ++n) {
    fs::path name = begin + (n > 1 ? std::to_string(n) : "") + file.extension().string();
    if (!fs::exists(name, error)) return name;
  }
}

}  // namespace gradino
