// The window of the explanations as every explanation uses it: a text that grows line by line, shown beside
// the painted board, and a wait.
#pragma once

#include <string>
#include <string_view>

#include "light.h"

namespace gradino {

/// The line under a heading: 46 characters; some techniques have one of 51.
inline constexpr std::string_view ruleline = "==============================================";
inline constexpr std::string_view longruleline = "===================================================";

/// The text of an explanation. Lines are joined by line breaks.
class Lesson {
 public:
  Lesson& line(std::string_view text);   ///< starts a new line with text
  Lesson& words(std::string_view text);  ///< goes on in the last line

  /// Gives the text to the window, shows it, and waits at the light (waitatlight). After a stop the
  /// explanation ends where it is: window and colours stay.
  Answer showandwait() const;

 private:
  std::string text_;
  bool begun_ = false;
};

/// Hides the window again.
void closelesson();

}  // namespace gradino
