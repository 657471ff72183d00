// A text, line by line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace gradino::formats {

struct TextLine {
  long number;
  std::string text;
};

/// The lines, without their line feeds. Box-drawing characters become | = and +, a no-break space becomes a
/// blank.
std::vector<TextLine> textlines(std::string_view text);

std::string_view trimmed(std::string_view text);
std::vector<std::string_view> words(std::string_view text);
std::vector<std::string_view> splitat(std::string_view text, char separator);

/// The number of the line that holds this byte.
long lineof(std::string_view text, std::size_t byte);

}  // namespace gradino::formats
