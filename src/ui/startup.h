// How the program starts.
#pragma once

#include <string>

namespace gradino {

/// The folder of the program, from which the library is found. Empty: no library.
inline std::string apppath;

/// Puts everything into the state of a program just started and loads the main window: boxes, tables,
/// English. May be called again at any time for a fresh start.
void startprogram();

}  // namespace gradino
