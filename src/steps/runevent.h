// The guard around every event.
#pragma once

#include <functional>

namespace gradino {

/// Runs one event. A fault ends the event and is reported in a message box; the program lives on with what
/// the user had, and the boxes' change handling works again. Every event of every host goes through here.
void runevent(const std::function<void()>& event);

}  // namespace gradino
