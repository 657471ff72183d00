#include "jobs.h"

#include <cstdint>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <vector>

#include <fmt/format.h>
#include <sys/wait.h>
#include <unistd.h>

#include "progress.h"
#include "words.h"

namespace gradino::cli {
namespace {

constexpr Words workerended = {"un processo è finito prima di aver fatto lo schema {number}",
                               "a worker ended before puzzle {number} was done"};

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

struct Worker {
  pid_t process;
  File results;
};

// A result in the pipe: its length in 8 bytes, then its text.
void sendresult(std::FILE* to, const std::string& text) {
  const std::uint64_t length = text.size();
  std::fwrite(&length, sizeof length, 1, to);
  std::fwrite(text.data(), 1, text.size(), to);
  std::fflush(to);
}

bool takeresult(std::FILE* from, std::string& text) {
  std::uint64_t length = 0;
  if (std::fread(&length, sizeof length, 1, from) != 1) return false;
  text.resize(length);
  return std::fread(text.data(), 1, length, from) == length;
}

/// Starts the worker that does every jobs-th number from `first` on.
Worker start(std::size_t first, std::size_t count, std::size_t jobs, const NumberedWork& work) {
  int ends[2];
  if (pipe(ends) != 0) throw std::runtime_error("no pipe for a worker");
  const pid_t process = fork();
  if (process < 0) throw std::runtime_error("no process for a worker");
  if (process == 0) {
    close(ends[0]);
    const File out(fdopen(ends[1], "wb"));
    for (std::size_t i = first; i < count; i += jobs) sendresult(out.get(), work(i));
    std::fflush(out.get());
    _exit(0);
  }
  close(ends[1]);
  return {process, File(fdopen(ends[0], "rb"))};
}

}  // namespace

bool eachinorder(std::size_t count, int jobs, const NumberedWork& work,
                 const std::function<void(const std::string&)>& use) {
  std::fflush(stdout);
  const auto processes = static_cast<std::size_t>(jobs);
  std::vector<Worker> workers;
  for (std::size_t first = 0; first < processes; ++first)
    workers.push_back(start(first, count, processes, work));

  bool good = true;
  std::string text;
  for (std::size_t i = 0; i < count && good; ++i) {
    good = takeresult(workers[i % processes].results.get(), text);
    if (good)
      use(text);
    else
      complain(say(workerended, hole("number", i + 1)));
  }
  for (Worker& worker : workers)
    worker.results.reset();  // all pipes are closed first: a worker may still be writing
  for (const Worker& worker : workers) {
    int status = 0;
    waitpid(worker.process, &status, 0);
  }
  return good;
}

bool printinorder(std::size_t count, int jobs, std::string_view what, const NumberedWork& work) {
  Progress progress(what, count);
  return eachinorder(count, jobs, work, [&](const std::string& text) {
    printrow(text);
    progress.step();
  });
}

}  // namespace gradino::cli
