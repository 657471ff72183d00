// From the events of the toolkit to the routines of the program. Every slot, event override and timer does
// its work in onevent, so that no exception reaches the toolkit.
#pragma once

#include <functional>

namespace gradino {

/// Thrown to leave the routines that were running when the main window was closed. It passes only frames of
/// the program: onevent catches it.
struct ProgramEnd {};

/// Runs one event, then shows what it changed. Does nothing once the program has ended.
void onevent(const std::function<void()>& body);

/// Updates the windows from the boxes; set by the main window.
inline std::function<void()> showchanges = [] {};

/// Ends the event loop, and with it every message box and dialog. Routines inside a wait leave it through
/// leaveifended.
void endprogram();

/// Throws ProgramEnd once the program has ended. To be called after everything that lets events run.
void leaveifended();

/// Resets the end, for a new main window.
void beginprogram();

}  // namespace gradino
