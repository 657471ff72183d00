#include "progress.h"

#include <cstdio>

#include <fmt/format.h>
#include <unistd.h>

#include "words.h"

namespace gradino::cli {
namespace {

using namespace std::chrono_literals;

constexpr Words oftotal = {"{what} {done} di {total} ({percent} %)",
                           "{what} {done} of {total} ({percent} %)"};
constexpr std::chrono::milliseconds firstshown = 1s, between = 200ms;

Progress* onscreen = nullptr;  ///< whose line is on the terminal

}  // namespace

Progress::Progress(std::string_view what, std::size_t total, bool wanted)
    : what_(what),
      total_(total),
      terminal_(wanted && isatty(STDERR_FILENO) == 1),
      next_(std::chrono::steady_clock::now() + firstshown) {}

Progress::~Progress() {
  end();
}

void Progress::end() {
  if (onscreen != this) return;
  fmt::print(stderr, "\r\033[K");
  onscreen = nullptr;
}

void Progress::step() {
  done_ += 1;
  if (!terminal_ || std::chrono::steady_clock::now() < next_) return;
  next_ = std::chrono::steady_clock::now() + between;
  onscreen = this;
  if (total_ > 0)
    fmt::print(stderr, "\r\033[K{}",
               say(oftotal, hole("what", what_), hole("done", done_), hole("total", total_),
                   hole("percent", done_ * 100 / total_)));
  else
    fmt::print(stderr, "\r\033[K{} {}", what_, done_);
  std::fflush(stderr);
}

void complain(std::string_view line) {
  if (onscreen != nullptr) onscreen->end();
  fmt::print(stderr, "{}\n", line);
}

void printrow(std::string_view text) {
  static const bool seen = isatty(STDOUT_FILENO) == 1;
  if (seen && onscreen != nullptr) onscreen->end();
  fmt::print("{}", text);
}

}  // namespace gradino::cli
