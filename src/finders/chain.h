// A chain of consequences as loops, XY-chains and forcing chains show, log and argue it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "colours.h"
#include "lesson.h"
#include "words.h"

namespace gradino {

/// A chain taken out of the link tables. It outlives them: a command that comes in during a wait may search
/// for another.
class Chain {
 public:
  /// One statement: the digit is in the cell, or it is not.
  struct Link {
    int cell, digit;
    bool flag;
  };

  /// Steps 0 (the hypothesis) to `length` of the link tables.
  explicit Chain(int length);

  const Link& start() const { return links_.front(); }
  const Link& first() const { return links_[1]; }  ///< what follows from the hypothesis
  const Link& last() const { return links_.back(); }

  /// The boxes of all steps but those in the cell of the hypothesis.
  void paint(Colour colour) const;

  /// One detail line for each step after the hypothesis.
  void log() const;

  /// Tells the hypothesis in these words, then each step, painted green and waited at. False: the user said
  /// stop.
  bool argue(Lesson& lesson, std::string_view hypothesis) const;

 private:
  std::vector<Link> links_;
};

/// Words about one statement, with the holes {cell} and {digit}.
std::string tell(const Words& words, int cell, int digit);

}  // namespace gradino
