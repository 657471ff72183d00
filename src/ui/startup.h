// How the program starts.
#pragma once

namespace gradino {

/// Everything as in a program just started, and the main window's load: boxes, tables, English. Can be run
/// again at any time for a fresh start.
void startprogram();

}  // namespace gradino
