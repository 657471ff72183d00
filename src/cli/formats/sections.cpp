#include "sections.h"

#include <algorithm>
#include <cctype>

#include <fmt/format.h>

#include "said.h"
#include "textgrids.h"

namespace gradino::formats {
namespace {

/// The name in lower case: "[Puzzle]" gives "puzzle". Empty: not a section head.
std::string headof(std::string_view line) {
  const std::string_view text = trimmed(line);
  if (text.size() < 3 || text.front() != '[' || text.back() != ']') return {};
  std::string name;
  for (const char c : text.substr(1, text.size() - 2)) {
    if (std::isalpha(static_cast<unsigned char>(c)) == 0) return {};
    name += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  }
  return name;
}

/// "Author: name" or "Author=name", with only words before the sign. Headers with # are comments to the grid
/// reader.
bool isheader(std::string_view line) {
  const std::size_t at = line.find_first_of(":=");
  if (at == std::string_view::npos) return false;
  const std::string_view name = trimmed(line.substr(0, at));
  return name.size() > 1 &&
         std::ranges::all_of(name,
                             [](char c) {
                               return std::isalpha(static_cast<unsigned char>(c)) != 0 || c == ' ' ||
                                      c == '-';
                             }) &&
         std::isalpha(static_cast<unsigned char>(name.front())) != 0;
}

Puzzle onepuzzle(const std::vector<TextLine>& content, long begun) {
  const std::vector<Puzzle> read = content.empty() ? std::vector<Puzzle>{} : readgrids(content, {});
  if (read.size() != 1)
    throw Unreadable(begun, said("una sezione [Puzzle] con {} schemi: atteso uno",
                                 "a section [Puzzle] of {} puzzles: expected one", read.size()));
  return read.front();
}

}  // namespace

bool hassections(const std::vector<TextLine>& lines) {
  return std::ranges::any_of(lines, [](const TextLine& line) { return !headof(line.text).empty(); });
}

std::vector<Puzzle> readsections(const std::vector<TextLine>& lines, const Listener& listener) {
  std::vector<Puzzle> puzzles;
  std::string section;
  long begun = 0;
  std::vector<TextLine> content;
  const auto end = [&] {
    if (section == "puzzle") readpart(listener, [&] { puzzles.push_back(onepuzzle(content, begun)); });
    content.clear();
  };
  for (const TextLine& line : lines) {
    if (const std::string head = headof(line.text); !head.empty()) {
      end();
      section = head;
      begun = line.number;
      if (section != "puzzle" && section != "state")
        listener.leftout(
            {begun, said("una sezione {} è tralasciata: attesa [Puzzle] o [State]",
                         "a section {} is left out: expected [Puzzle] or [State]", trimmed(line.text))});
    } else if (section == "puzzle") {
      if (!isheader(line.text)) content.push_back(line);
    } else if (section.empty() && !isheader(line.text)) {
      const std::string_view text = trimmed(line.text);
      if (!text.empty() && !text.starts_with('#') && !text.starts_with(';'))
        throw Unreadable(line.number,
                         {"prima della prima sezione: attese righe di intestazione (#ANome, Author: nome)",
                          "before the first section: expected header lines (#AName, Author: name)"});
    }
  }
  end();
  if (puzzles.empty())
    throw Unreadable(begun, {"nessuna sezione [Puzzle]: attesa una", "no section [Puzzle]: expected one"});
  return puzzles;
}

}  // namespace gradino::formats
