// What a fault means to whoever uses the program, and what was behind it.
#pragma once

#include <string>

#include "checked.h"

namespace gradino {

/// What happened and what to do about it, in the language in force and in one line; then, in brackets, table,
/// index and routine for whoever looks into it. A file that can't be read or written has no table behind it.
std::string faulttext(const Fault& fault);

}  // namespace gradino
