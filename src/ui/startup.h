// How the program starts.
#pragma once

#include <string>

namespace gradino {

/// The program's folder; the library is found from there. Empty: no library.
inline std::string apppath;

/// Everything as in a program just started, and the main window's load: boxes, tables, English. Can be run
/// again at any time for a fresh start.
void startprogram();

}  // namespace gradino
