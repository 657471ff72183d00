// Files that sub-commands write.
#pragma once

#include <string>
#include <string_view>

namespace gradino::cli {

/// Makes the bytes the file's content. Throws std::runtime_error, which names the file and says why it can't
/// be written; then the file is as it was before, or isn't there.
void replacefile(const std::string& name, std::string_view bytes);

}  // namespace gradino::cli
