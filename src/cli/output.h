// Files that sub-commands write.
#pragma once

#include <string>
#include <string_view>

namespace gradino::cli {

/// Replaces the content of the file. Throws std::runtime_error with the name of the file and the reason why
/// it can't be written; then the file is unchanged, or doesn't exist.
void replacefile(const std::string& name, std::string_view bytes);

}  // namespace gradino::cli
