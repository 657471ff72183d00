// What a screen reader says of the controls: a name and a description for each, in the language in force.
// They cover only what can be seen: marks that the program hides, or that a digit box covers, are left out.
#pragma once

#include <string>

#include "boxes.h"

namespace gradino {

struct Telling {
  std::string name, description;
  bool operator==(const Telling&) const = default;
};

/// A cell: "cell r4c5, digit 7, given", "cell r4c5, empty, candidates 1 3 9; 3 in green". This is the name of
/// Text1, and while that is hidden also of Text2.
Telling spokencell(int cell);
Telling spokenground(int cell);  ///< Text2
Telling spokenmark(int index);   ///< a pencil mark

Telling spokenring(int digit);
Telling spokencolour(int n);  ///< of the palette
Telling spokennumber(int n);  ///< Label4: of rows, then of columns
Telling spokenlevel(int n);   ///< of the library browser
Telling spokenpreview(int cell);

/// Every other box or control. One that isn't in the tables has no name.
Telling spoken(const Box& box);
Telling spoken(const Control& control);

/// A side window by its caption, which is its name.
Telling spokenwindow(const std::string& caption);
Telling spokenmainwindow(const std::string& title);

}  // namespace gradino
