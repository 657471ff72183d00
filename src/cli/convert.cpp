#include "convert.h"

#include <filesystem>
#include <memory>
#include <set>
#include <stdexcept>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "boxes.h"
#include "exchange.h"
#include "output.h"
#include "progress.h"
#include "puzzlefile.h"
#include "tables.h"
#include "words.h"

namespace gradino::cli {
namespace {

namespace fs = std::filesystem;

struct ConvertOptions {
  std::vector<std::string> files;
  std::string form = "sav", folder = ".";
  bool force = false, keepgoing = false;
};

/// The window's own drawing of its boxes.
std::string drawn(const std::string& cells_) {
  for (int cell = 0; cell < cellcount; ++cell) {
    const char symbol = cells_[static_cast<std::size_t>(cell)];
    frmmain::Text1(cell).text = symbol == '.' ? "" : std::string(1, symbol);
  }
  return puzzledrawing();
}

std::string rows(const std::string& cells_) {
  std::string text;
  for (std::size_t row = 0; row < 9; ++row) text.append(cells_, row * 9, 9).append(newline);
  return text;
}

std::string barred(const std::string& cells_) {
  std::string text;
  for (std::size_t row = 0; row < 9; ++row) {
    if (row == 3 || row == 6) text.append("-----------").append(newline);
    text += fmt::format("{}|{}|{}{}", cells_.substr(row * 9, 3), cells_.substr(row * 9 + 3, 3),
                        cells_.substr(row * 9 + 6, 3), newline);
  }
  return text;
}

/// "name.sav", or "name-07.sav" when there are several.
fs::path nameof(const std::string& file, const ConvertOptions& options, std::size_t number,
                std::size_t count) {
  std::string name = file == "-" ? "puzzle" : fs::path(file).stem().string();
  if (count > 1) name += fmt::format("-{:0{}}", number, std::to_string(count).size());
  return fs::path(options.folder) / (name + "." + options.form);
}

/// The files of one run. A name that two of its puzzles share isn't overwritten, not even with --force.
class Output {
 public:
  explicit Output(bool force) : force_(force) {}

  bool write(const fs::path& name, const std::string& text) {
    try {
      place(name, text);
    } catch (const std::runtime_error& error) {
      complain(error.what());
      return false;
    }
    printrow(name.string() + "\n");
    return true;
  }

 private:
  void place(const fs::path& name, const std::string& text) {
    if (!force_ && fs::exists(fs::symlink_status(name)))
      throw std::runtime_error(fmt::format("{}: is there already; --force writes over it", name.string()));
    if (!names_.insert(name).second)
      throw std::runtime_error(
          fmt::format("{}: is another puzzle's name already; -o names another folder", name.string()));
    replacefile(name.string(), text);
  }

  bool force_;
  std::set<fs::path> names_;
};

bool convert(const ConvertOptions& options) {
  Output output(options.force);
  bool good = true;
  const auto writeall = [&](const std::string& file, const std::vector<formats::Puzzle>& puzzles) {
    if (options.form == "sdm")
      good = output.write(nameof(file, options, 1, 1), written(puzzles, options.form)) && good;
    Progress progress("written", puzzles.size());
    for (std::size_t i = 0; i < puzzles.size() && options.form != "sdm"; ++i) {
      const fs::path name = nameof(file, options, i + 1, puzzles.size());
      good = output.write(name, written({puzzles[i]}, options.form)) && good;
      progress.step();
    }
  };
  const bool read = eachpuzzlefile(options.files, writeall, options.keepgoing);
  return read && good;
}

}  // namespace

std::string written(const std::vector<formats::Puzzle>& puzzles, std::string_view form) {
  std::string text;
  for (const formats::Puzzle& puzzle : puzzles) {
    if (form == "lgc")
      text.append(drawn(puzzle.cells)).append(newline);
    else if (form == "ss")
      text += barred(puzzle.cells);
    else if (form == "sdk")
      text.append("[Puzzle]").append(newline).append(rows(puzzle.cells));
    else
      text.append(puzzle.cells).append(newline);
  }
  return text;
}

std::function<bool()> addconvert(CLI::App& app) {
  auto options = std::make_shared<ConvertOptions>();
  CLI::App* command = app.add_subcommand(
      "convert", "Reads puzzles of any common form strictly and writes files that the window opens");
  command->add_option("FILE", options->files, "Files; standard input when there is none");
  command
      ->add_option("--to", options->form,
                   "What to write; sdm takes all puzzles of a file, the others one a file")
      ->check(CLI::IsMember({"sav", "lgc", "sdm", "ss", "sdk"}))
      ->capture_default_str();
  command
      ->add_option("-o,--output", options->folder, "The folder to write to, under the name of the file read")
      ->check(CLI::ExistingDirectory)
      ->capture_default_str();
  command->add_flag("--force", options->force, "Write over files that are there");
  command->add_flag("--keep-going", options->keepgoing,
                    "Write what can be read of a file that can't be in full");
  return [options, command] { return !*command || convert(*options); };
}

}  // namespace gradino::cli
