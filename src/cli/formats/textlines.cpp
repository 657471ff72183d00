#include "textlines.h"

#include <algorithm>

namespace gradino::formats {
namespace {

constexpr std::string_view blanks = " \t\f";

/// The replacement for each box-drawing character, U+2500 to U+257F. A horizontal line is "=" and not "-",
/// since a dash can mean an empty cell.
char asciiframe(int place) {
  constexpr int horizontal[] = {0x00, 0x01, 0x04, 0x05, 0x08, 0x09, 0x4C, 0x4D, 0x50, 0x74, 0x78};
  constexpr int vertical[] = {0x02, 0x03, 0x06, 0x07, 0x0A, 0x0B, 0x4E, 0x4F, 0x51, 0x75, 0x79};
  if (std::ranges::find(horizontal, place) != std::end(horizontal)) return '=';
  if (std::ranges::find(vertical, place) != std::end(vertical)) return '|';
  return '+';
}

std::string plain(std::string_view line) {
  std::string text;
  const auto byte = [&](std::size_t at) {
    return at < line.size() ? static_cast<unsigned char>(line[at]) : 0;
  };
  for (std::size_t at = 0; at < line.size(); ++at) {
    if (byte(at) == 0xE2 && (byte(at + 1) == 0x94 || byte(at + 1) == 0x95) && byte(at + 2) >= 0x80) {
      text += asciiframe((byte(at + 1) - 0x94) * 0x40 + byte(at + 2) - 0x80);
      at += 2;
    } else if (byte(at) == 0xC2 && byte(at + 1) == 0xA0) {
      text += ' ';
      at += 1;
    } else {
      text += line[at];
    }
  }
  return text;
}

}  // namespace

std::vector<TextLine> textlines(std::string_view text) {
  std::vector<TextLine> lines;
  long number = 1;
  for (const std::string_view line : splitat(text, '\n')) lines.push_back({number++, plain(line)});
  return lines;
}

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::vector<std::string_view> words(std::string_view text) {
  std::vector<std::string_view> found;
  for (std::size_t at = text.find_first_not_of(blanks); at != std::string_view::npos;) {
    const std::size_t end = std::min(text.find_first_of(blanks, at), text.size());
    found.push_back(text.substr(at, end - at));
    at = text.find_first_not_of(blanks, end);
  }
  return found;
}

std::vector<std::string_view> splitat(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (std::size_t begin = 0;;) {
    const std::size_t end = text.find(separator, begin);
    if (end == std::string_view::npos) {
      parts.push_back(text.substr(begin));
      return parts;
    }
    parts.push_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
}

long lineof(std::string_view text, std::size_t byte) {
  const std::string_view before = text.substr(0, std::min(byte, text.size()));
  return 1 + std::count(before.begin(), before.end(), '\n');
}

}  // namespace gradino::formats
