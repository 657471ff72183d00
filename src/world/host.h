// The interface to the outside: all that the program needs from its host. There are three hosts, independent
// of each other: the window, the scripted player of the tests, the console program.
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
  /// Sleeps until there is an event, and lets it run. Without a user, a wait would never end.
  std::function<void()> waitevents;
  /// Shows a message box with an OK button; returns when it is closed.
  std::function<void(const std::string& text)> message = [](const std::string&) {};
  /// The file dialogs. They change dialog.filename only if a name is chosen.
  std::function<void(CommonDialog& dialog)> showopen = [](CommonDialog&) {};
  std::function<void(CommonDialog& dialog)> showsave = [](CommonDialog&) {};
  /// Seconds since midnight.
  std::function<double()> clock = [] { return 0.0; };
  /// A uniformly distributed number from 0 up to 1, exclusive.
  std::function<double()> random = systemrandom;
  /// Sends a picture of the main window to the default printer. Throws std::runtime_error with a message for
  /// the user.
  std::function<void()> print = [] {};
  /// Ends the program, as closing the main window does.
  std::function<void()> quit = [] {};
};

inline Host host;

/// While set, a message box is shown without waiting for the user, who may not be there.
inline constinit bool unattended = false;

}  // namespace gradino
