// A chain of consequences as loops, XY-chains and forcing chains show, log and argue it.
#pragma once

#include <string_view>
#include <vector>

#include "colours.h"
#include "lesson.h"

namespace gradino {

/// A chain copied out of the link tables (nodequeue.h), so that the one on show stays as it is when a command
/// searches for another during a wait.
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

  /// Says the hypothesis in these words, then each step, paints each green and waits after each. A stop ends
  /// the argument where it is.
  Answer argue(Lesson& lesson, std::string_view hypothesis) const;

 private:
  std::vector<Link> links_;
};

}  // namespace gradino
