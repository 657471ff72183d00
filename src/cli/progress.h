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
  explicit Progress(std::string what, std::size_t total = 0, bool wanted = true);
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

/// True when standard output is no terminal: where rows are seen as they come, they show that work goes on,
/// and a line among them would only disturb.
bool rowsarehidden();

}  // namespace gradino::cli
