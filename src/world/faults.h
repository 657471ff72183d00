// What a fault means to the user, and where it comes from.
#pragma once

#include <string>

#include "checked.h"

namespace gradino {

/// What happened and what to do about it, in one line in the language in force; then, in brackets, table,
/// index and routine for the developer. A file that can't be read or written has no table.
std::string faulttext(const Fault& fault);

}  // namespace gradino
