// Files of the user, wherever he keeps them: written whole, or not at all.
#pragma once

#include <string>

namespace gradino {

/// Writes a file, replacing the one of this name if there is one. False: it can't be written; then the old
/// file is as it was, and where none was there is none. What is no plain file but takes text, as a terminal,
/// gets it; what would wait for a reader is refused, and so is a write-protected file. A file keeps its
/// permissions and its owner, and the links to it stay links.
bool replacefile(const std::string& name, const std::string& text);

}  // namespace gradino
