// Long work shows that it goes on: a line on standard error, on a terminal only.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace gradino::cli {

class Progress {
 public:
  /// total 0: it isn't known.
  explicit Progress(std::string what, std::size_t total = 0);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void step();

 private:
  std::string what_;
  std::size_t total_, done_ = 0;
  bool terminal_, shown_ = false;
  std::chrono::steady_clock::time_point next_;
};

}  // namespace gradino::cli
