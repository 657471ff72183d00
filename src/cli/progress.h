// The progress of long work: a line on standard error, only if that is a terminal. Other messages have to
// clear it first.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

namespace gradino::cli {

class Progress {
 public:
  /// total 0: unknown. wanted false: nothing is shown.
  explicit Progress(std::string_view what, std::size_t total = 0, bool wanted = true);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void step();
  /// Clears the line; the next step shows it again.
  void end();

 private:
  std::string what_;
  std::size_t total_, done_ = 0;
  bool terminal_;
  std::chrono::steady_clock::time_point next_;
};

/// Prints a line on standard error. A progress line there is cleared first, and comes back after it.
void complain(std::string_view line);

/// Prints a result. If it goes to the same terminal as a progress line, that is cleared first, and comes back
/// below it.
void printrow(std::string_view text);

}  // namespace gradino::cli
