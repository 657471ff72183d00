// The narrow door to the world: all that the program asks of whoever runs it. Three hosts exist, and none
// knows another: the window, the scripted player of the tests, the console program.
#pragma once

#include <functional>
#include <string>

#include "boxes.h"
#include "random.h"

namespace gradino {

struct Host {
  /// Lets the events that are waiting run, and returns at once.
  std::function<void()> runevents = [] {};
  /// Repaints the windows without letting events run.
  std::function<void()> repaint = [] {};
  /// Sleeps until an event has come, and lets it run. A wait without a player would never end.
  std::function<void()> waitevents;
  /// Shows a message box with an OK button; returns when it was closed.
  std::function<void(const std::string& text)> message = [](const std::string&) {};
  /// The file dialogs. They change dialog.filename only when a name was chosen.
  std::function<void(CommonDialog& dialog)> showopen = [](CommonDialog&) {};
  std::function<void(CommonDialog& dialog)> showsave = [](CommonDialog&) {};
  /// Seconds since midnight.
  std::function<double()> clock = [] { return 0.0; };
  /// A uniform real, 0 included, 1 not.
  std::function<double()> random = systemrandom;
  /// Sends a picture of the main window to the default printer. Throws std::runtime_error with the words.
  std::function<void()> print = [] {};
  /// Ends the program, as closing the main window does.
  std::function<void()> quit = [] {};
};

inline Host host;

/// Nobody may be there: while set, a message box is shown without waiting for its user.
inline constinit bool unattended = false;

}  // namespace gradino
