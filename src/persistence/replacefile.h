// Files of the user, in any place: written completely, or not at all.
#pragma once

#include <filesystem>
#include <string>

namespace gradino {

/// Writes a file, replacing the one of this name if there is one. False: it can't be written; then an old
/// file is unchanged, and no new one is left. Something other than a plain file that takes text, such as a
/// terminal, gets it; one that would wait for a reader is refused, and so is a write-protected file. A file
/// keeps its permissions and its owner, and the links to it stay links.
bool replacefile(const std::filesystem::path& name, const std::string& text);

}  // namespace gradino
