// The guard around every event.
#pragma once

#include <functional>

namespace gradino {

/// Runs one event. A fault ends the event and is reported in a message box; the program goes on with what the
/// user had, and the boxes' change handling works again. All events of the window and of the tests' player go
/// through here; gradino-cli has runguarded.
void runevent(const std::function<void()>& event);

}  // namespace gradino
