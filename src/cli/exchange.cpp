#include "exchange.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>

#include <fmt/format.h>

#include "progress.h"
#include "words.h"

namespace gradino::cli {
namespace {

constexpr Words notread = {"{file}: impossibile leggere: {why}", "{file}: can't be read: {why}"};
constexpr Words linesread = {"linee lette", "lines read"};

/// The whole file. None: it can't be read, and errno says why.
std::optional<std::string> bytesof(const std::string& name) {
  using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;
  constexpr auto leave = [](std::FILE*) { return 0; };
  const File file = name == "-" ? File(stdin, leave) : File(std::fopen(name.c_str(), "rb"), std::fclose);
  if (!file) return std::nullopt;
  std::string bytes;
  std::array<char, 1 << 16> buffer;
  while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), file.get())) {
    bytes.append(buffer.data(), count);
    if (bytes.size() > largestfile) {
      errno = EFBIG;
      return std::nullopt;
    }
  }
  if (std::ferror(file.get()) != 0) return std::nullopt;
  return bytes;
}

}  // namespace

std::string withfile(const std::string& name, const formats::Unreadable& error) {
  return fmt::format("{}:{}: {}", name, error.line, lingua == italian ? error.italian : error.what());
}

std::string shownname(const std::string& file) {
  return file == "-" ? "standard input" : file;
}

bool eachpuzzlefile(const std::vector<std::string>& files, const UsePuzzles& use, bool keepgoing) {
  bool good = true;
  const auto readone = [&](const std::string& file) {
    const std::string name = shownname(file);
    const std::optional<std::string> bytes = bytesof(file);
    if (!bytes) {
      complain(say(notread, hole("file", name), hole("why", std::strerror(errno))));
      good = false;
      return;
    }
    const auto tell = [&](const formats::Unreadable& error) { complain(withfile(name, error)); };
    const auto refuse = [&](const formats::Unreadable& error) {
      tell(error);
      good = false;
    };
    std::vector<formats::Puzzle> puzzles;
    try {
      Progress progress(inlanguage(linesread));
      formats::Listener listener{[&] { progress.step(); }, tell, {}};
      if (keepgoing) listener.unread = refuse;
      puzzles = formats::readpuzzles(*bytes, listener);
    } catch (const formats::Unreadable& error) {
      return refuse(error);
    }
    use(file, puzzles);
  };
  if (files.empty()) readone("-");
  for (const std::string& file : files) readone(file);
  return good;
}

}  // namespace gradino::cli
