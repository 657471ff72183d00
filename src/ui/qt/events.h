// Between the toolkit's events and the program's routines. Every slot, event override and timer body runs
// its work through onevent: no exception gets into the toolkit.
#pragma once

#include <functional>

namespace gradino {

/// Leaves the routines that were running when the main window was closed. It flies through the program's own
/// frames only: onevent stops it.
struct ProgramEnd {};

/// Runs one event, then shows what it changed. Does nothing once the program has ended.
void onevent(const std::function<void()>& body);

/// Brings the windows up to date with the boxes: set by the main window.
inline std::function<void()> showchanges = [] {};

/// Ends the event loop, and with it every message box and dialog. What still runs inside a wait leaves it by
/// leaveifended.
void endprogram();

/// Throws ProgramEnd once the program has ended. To be called after everything that let events run.
void leaveifended();

/// A program that has not ended: for a new main window.
void beginprogram();

}  // namespace gradino
