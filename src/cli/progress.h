// Long work shows that it goes on: a line on standard error, on a terminal only. So what is told there
// meanwhile has to make room first.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

namespace gradino::cli {

class Progress {
 public:
  /// total 0: it isn't known. wanted false: nothing is shown.
  explicit Progress(std::string_view what, std::size_t total = 0, bool wanted = true);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void step();
  /// Takes the line away; the next step brings it back.
  void end();

 private:
  std::string what_;
  std::size_t total_, done_ = 0;
  bool terminal_;
  std::chrono::steady_clock::time_point next_;
};

/// Tells standard error a line of its own: progress that is shown there gives way, and comes back behind it.
void complain(std::string_view line);

/// Prints a result. Where it is seen as it comes, progress on the same terminal gives way to it, and comes
/// back below it.
void printrow(std::string_view text);

}  // namespace gradino::cli
