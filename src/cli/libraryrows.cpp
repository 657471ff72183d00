#include "libraryrows.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <vector>

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>

#include "progress.h"
#include "session.h"
#include "words.h"

namespace gradino::cli {
namespace {

constexpr Words norow = {"{file}:{line}: non è una riga come le scrive `library export`",
                         "{file}:{line}: no library row as `library export` writes it"};
constexpr Words unreadable = {"{file} non può essere letto", "{file} can't be read"};

using RowUse = std::function<void(const LibraryRow&)>;

Json rowjson(const LibraryRow& row) {
  Json out;
  for (std::size_t f = 0; f < row.size(); ++f) out[libraryfields[f]] = row[f];
  return out;
}

std::string quoted(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string out = "\"";
  for (const char c : text) out += c == '"' ? "\"\"" : std::string(1, c);
  return out + "\"";
}

/// The index of the field of this name, if there is one.
std::optional<std::size_t> fieldnamed(std::string_view name) {
  const auto* found = std::find(libraryfields.begin(), libraryfields.end(), name);
  if (found == libraryfields.end()) return std::nullopt;
  return static_cast<std::size_t>(found - libraryfields.begin());
}

/// A field of unknown name would be lost, and without the field of the puzzle the line is something else.
std::optional<LibraryRow> rowfromjson(const std::string& line) {
  const Json object = Json::parse(line, nullptr, false);
  if (!object.is_object() || !object.contains(libraryfields[field::stringa])) return std::nullopt;
  LibraryRow row;
  for (const auto& [name, value] : object.items()) {
    const std::optional<std::size_t> f = fieldnamed(name);
    if (!f || !(value.is_string() || value.is_number() || value.is_null())) return std::nullopt;
    if (!value.is_null()) row[*f] = value.is_string() ? value.get<std::string>() : value.dump();
  }
  return row;
}

/// Takes the lines of a text one by one. An unclosed quote makes the last record a bad one.
class Lines {
 public:
  explicit Lines(std::string_view text) : text_(text) {}
  bool more() const { return at_ < text_.size(); }
  long number() const { return number_; }  ///< of the next line

  std::string line() {
    const std::size_t begin = at_, end = std::min(text_.find('\n', begin), text_.size());
    at_ = end + 1;
    number_ += 1;
    std::string line(text_.substr(begin, end - begin));
    if (line.ends_with('\r')) line.pop_back();
    return line;
  }

  /// The cells of a line; quoted ones may contain line breaks.
  std::optional<std::vector<std::string>> record() {
    std::vector<std::string> cells(1);
    bool inquotes = false;
    while (more()) {
      const std::string part = line();
      takecells(part, cells, inquotes);
      if (!inquotes) return cells;
      cells.back() += text_[at_ - 2] == '\r' ? "\r\n" : "\n";
    }
    return std::nullopt;
  }

 private:
  static void takecells(const std::string& part, std::vector<std::string>& cells, bool& inquotes) {
    for (std::size_t i = 0; i < part.size(); ++i) {
      const bool quote = part[i] == '"';
      if (quote && inquotes && i + 1 < part.size() && part[i + 1] == '"')
        cells.back() += part[i++];
      else if (quote)
        inquotes = !inquotes;
      else if (part[i] == ',' && !inquotes)
        cells.emplace_back();
      else
        cells.back() += part[i];
    }
  }

  std::string_view text_;
  std::size_t at_ = 0;
  long number_ = 1;
};

/// The fields that the heading names. None: it isn't a heading.
std::optional<std::vector<std::size_t>> headingin(Lines& lines) {
  const auto names = lines.record();
  if (!names) return std::nullopt;
  std::vector<std::size_t> fields;
  for (const std::string& name : *names) {
    const std::optional<std::size_t> f = fieldnamed(name);
    if (!f || std::ranges::count(fields, *f) > 0) return std::nullopt;
    fields.push_back(*f);
  }
  if (std::ranges::count(fields, field::stringa) == 0) return std::nullopt;
  return fields;
}

std::optional<LibraryRow> rowfromcsv(Lines& lines, const std::vector<std::size_t>& fields) {
  const auto cells = lines.record();
  if (!cells || cells->size() != fields.size()) return std::nullopt;
  LibraryRow row;
  for (std::size_t i = 0; i < fields.size(); ++i) row[fields[i]] = (*cells)[i];
  if (!isutf8(row)) return std::nullopt;
  return row;
}

/// Skips the byte order mark that a spreadsheet may have written before the text.
std::string_view withoutmark(std::string_view text) {
  constexpr std::string_view mark = "\xef\xbb\xbf";
  return text.starts_with(mark) ? text.substr(mark.size()) : text;
}

std::string wholetext(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::string text{std::istreambuf_iterator<char>(in), {}};
  if (!in || in.bad()) throw std::runtime_error(say(unreadable, hole("file", path)));
  return text;
}

}  // namespace

bool isutf8(const LibraryRow& row) {
  try {
    jsonline(row);
    return true;
  } catch (const Json::type_error&) {
    return false;
  }
}

std::string jsonline(const LibraryRow& row) {
  return rowjson(row).dump();
}

std::string csvheading() {
  return fmt::format("{}", fmt::join(libraryfields, ","));
}

std::string csvline(const LibraryRow& row) {
  std::array<std::string, std::tuple_size_v<LibraryRow>> cells;
  std::transform(row.begin(), row.end(), cells.begin(), quoted);
  return fmt::format("{}", fmt::join(cells, ","));
}

bool eachrow(const std::string& path, const RowUse& use) {
  const std::string text = wholetext(path);
  Lines lines(withoutmark(text)), fromstart = lines;
  const std::optional<std::vector<std::size_t>> fields = headingin(lines);
  if (!fields) lines = fromstart;
  bool good = true;
  while (lines.more()) {
    const long number = lines.number();
    std::optional<LibraryRow> row;
    if (fields) {
      row = rowfromcsv(lines, *fields);
    } else {
      const std::string line = lines.line();
      if (line.empty()) continue;
      row = rowfromjson(line);
    }
    if (row) {
      use(*row);
      continue;
    }
    complain(say(norow, hole("file", path), hole("line", number)));
    good = false;
    if (text.find('\0') != std::string::npos) break;  // no text at all
  }
  return good;
}

}  // namespace gradino::cli
